// The headings of the main window's parts.
#pragma once

#include <QLabel>

namespace host {

/// A heading in bold, whose mnemonic leads to a widget.
inline QLabel* makeHeading(const QString& text, QWidget& buddy) {
    auto* heading = new QLabel(text);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setBuddy(&buddy);
    return heading;
}

}  // namespace host
