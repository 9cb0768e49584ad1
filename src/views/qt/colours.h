// Colours that can be told apart, in every colour scheme.
#pragma once

#include <QColor>
#include <QPalette>

namespace wynconfig::desktop {

/// The same colours, but that all texts can be read, also of what is disabled, selected or but a
/// hint, and that boxes that are disabled have a ground of their own.
QPalette readable(QPalette palette);

/// What lies on the sides of an outline: the window and the ground of boxes alone, or also what is
/// lighter than those, as buttons and the pages of tabs are.
enum class Ground { Flat, Raised };
/// The colour of outlines that can be seen, and of what has the focus.
/// @param palette  of the widget, its current group the one that is shown
QColor outlineColour(const QPalette& palette, Ground around, bool isEnabled);
QColor focusColour(const QPalette& palette, Ground around);

/// The colour of a box that is switched off.
QColor inactiveColour();
/// The colours of such a box.
QPalette inactivePalette();
/// The colours of a box or list whose content was refused: its ground is reddish.
QPalette refusedPalette();

}  // namespace wynconfig::desktop
