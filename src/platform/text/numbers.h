// Text as numbers: one grammar for the numeric test, for text to double and for text to a 16-bit
// integer, by the marks of the user's locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text/locales.h"

namespace wynconfig {

/// Sets the locale whose marks every following call of this module uses. Without a call the
/// user's locale holds.
void setNumberLocale(const std::string& locale);

/// The marks that this module uses.
const NumberMarks& numberMarks();

/// The number that text stands for, or nothing when it reads as no number.
std::optional<double> parseNumber(std::string_view text);
std::optional<double> parseNumber(std::string_view text, const NumberMarks& marks);

/// The broad numeric test: true when the whole text reads as a number in the user's locale.
bool IsNumeric(std::string_view text);

/// Text to a double. Raises `Error` (errc::TypeMismatch) when the text is no number.
double toDouble(std::string_view text);

/// Text to a 16-bit integer, half to even. Raises `Error`: errc::TypeMismatch when the text is no
/// number, errc::Overflow when the number is beyond 16 bits or beyond a double.
std::int16_t toInt16(std::string_view text);

/// A count as a 16-bit integer. Raises `Error` (errc::Overflow) beyond 32,767.
std::int16_t toInt16(std::size_t count);

}  // namespace wynconfig
