// The headings of the main window's parts.
#pragma once

#include <QLabel>

#include "window/wording.h"

namespace host {

/// A heading in bold, whose mnemonic leads to a widget. It names the widget to screen readers,
/// which take no table's name from its label.
/// @param key  of its text
inline QLabel* makeHeading(const char* key, QWidget& buddy) {
    auto* heading = withText(new QLabel, key);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setBuddy(&buddy);
    withName(&buddy, key);
    return heading;
}

}  // namespace host
