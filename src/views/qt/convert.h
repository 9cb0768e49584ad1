// Between the words of the component and those of Qt: text, carets, fonts and lengths.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QString>
#include <cstddef>
#include <string>
#include <string_view>

#include "wynconfig/resource_manager.h"

namespace wynconfig::desktop {

QString toQt(std::string_view text);
std::string fromQt(const QString& text);

/// A text that keeps its own direction in a window that runs the other way: "<Part #>" stands so
/// among Arabic captions, and a name keeps its full stop at its end.
QString isolated(const QString& text);
/// The text that was isolated.
QString unisolated(QString text);

/// A caption with its first mark alone, which Qt reads as the component does.
QString toQtCaption(std::string_view caption);
/// The words of a caption, for Qt's widgets that read marks but are to show none.
QString toQtUnmarked(std::string_view caption);
/// The words of a caption.
QString toQtPlain(std::string_view caption);

enum class Lines { One, AsNeeded };
/// A text for a tool tip, which would take one with angle brackets for markup.
/// @param lines  as many as a text of any length needs, or one for a few words
QString toToolTip(const QString& text, Lines lines = Lines::AsNeeded);

/// How many characters (code points) stand in front of an offset in UTF-16 units.
std::size_t charsBefore(const QString& text, qsizetype offset);
/// The offset in UTF-16 units of character number `chars` (from 0); the end beyond it.
qsizetype offsetOf(const QString& text, std::size_t chars);

/// A font in which only what the properties state is set; the rest comes from the surroundings.
QFont toQt(const Font& font);

/// The width of so many characters of usual width. All sizes that no text decides are given like
/// this, so that they follow the font and with it the screen.
int charsWide(const QFontMetrics& metrics, int chars);

/// The width of a title in its bar, with room for the frame's buttons, in pixels; a very long title
/// is cut off.
int titleWidth(const QString& title);

/// Twips (1/1440 inch) as pixels of the primary screen, and back.
int toPixels(int twips);
int toTwips(int pixels);

}  // namespace wynconfig::desktop
