// Colours that can be told apart, in every colour scheme.
#pragma once

#include <QColor>
#include <QPalette>

namespace wynconfig::desktop {

/// The same colours, but that the texts of what is disabled or selected can be read.
QPalette readable(QPalette palette);

/// The colour of a box that is switched off.
QColor inactiveColour();
/// The colours of such a box.
QPalette inactivePalette();

}  // namespace wynconfig::desktop
