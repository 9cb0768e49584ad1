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
/// The colours of a box or list whose content was refused: its ground is reddish.
QPalette refusedPalette();

}  // namespace wynconfig::desktop
