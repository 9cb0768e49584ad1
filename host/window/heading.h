// The headings of the main window's parts.
#pragma once

#include <QLabel>

namespace host {

/// A heading in bold, whose mnemonic leads to a widget. It names the widget to screen readers,
/// which take no table's name from its label.
inline QLabel* makeHeading(const QString& text, QWidget& buddy) {
    auto* heading = new QLabel(text);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setBuddy(&buddy);
    buddy.setAccessibleName(QString(text).remove(u'&'));
    return heading;
}

}  // namespace host
