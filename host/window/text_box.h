// Boxes that show text of several lines and can't be edited.
#pragma once

#include <QPlainTextEdit>

namespace host {

/// A read-only box in a font of fixed width, in which the names of control characters stand out in
/// colour. The tab key leaves it.
/// @param name  key of the text for screen readers
QPlainTextEdit* makeTextBox(const char* name);

/// The same for sentences with identifiers in them, which are copied without the marks of their
/// direction.
QPlainTextEdit* makeSentenceBox(const char* name);

/// Has lines run from left to right, whatever letter they begin with: what programs read.
void readLeftToRight(QPlainTextEdit& box);

/// Lets lines that are too long break, anywhere if need be.
void letLinesBreak(QPlainTextEdit& box);

/// Gives a box the height of so many lines, and lets long lines break.
void setLines(QPlainTextEdit& box, int lines);

/// Replaces a box's text, and stays where the user has scrolled to.
void showText(QPlainTextEdit& box, const QString& text);

}  // namespace host
