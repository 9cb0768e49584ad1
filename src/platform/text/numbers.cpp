// The one grammar by which text reads as a number.
//
//   text     = blank* based blank*  |  lead* body trail*
//   lead     = blank | sign | currency | "("
//   body     = digit { digit | thousands } [ decimal { digit | thousands } ] [ exponent ]
//            | decimal digit { digit | thousands } [ exponent ]
//   exponent = ( "E" | "e" | "D" | "d" ) [ sign ] digit+
//   trail    = blank | sign | currency | ")"
//   based    = "&" ( "H" | "h" ) hex+  |  "&" [ "O" | "o" ] octal+
//   blank    = U+0009 to U+000D | U+0020 | U+00A0
//   sign     = "+" | "-"
//
// In the whole text there is at most one sign besides the exponent's, and at most one "(", which
// exactly one ")" closes. Of currency marks there is at most one before the body and any number
// behind it. "-" and parentheses make the number negative, together as well as alone. Digits are
// ASCII digits; decimal, thousands and currency are the locale's marks, each in any of the forms
// in which it is written. Where blanks separate thousands, a blank behind a digit is a separator
// and may thus stand within the body.
//
// In a locale that writes with forms of full width, such a form stands for its ASCII character
// wherever that may stand: U+FF01 to U+FF5E, and U+3000 for the blank U+0020.
#include "platform/text/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>
#include <vector>

#include "platform/text/text.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

// ---- Marks of a locale ----

NumberMarks& currentMarks() {
    thread_local NumberMarks marks = numberMarksOf({});
    return marks;
}

using Forms = std::vector<std::string_view>;

/// All forms in which a mark is written: what is typeset with one character is typed with another,
/// and sources of locale data differ in which of them they name.
Forms formsOf(std::string_view mark) {
    static const Forms kAlike[] = {
        {" ", "\u00A0", "\u2009", "\u202F"},  // blanks: plain, no-break, thin, narrow no-break
        {"'", "\u2019"},                      // apostrophes
        {"\u00A5", "\uFFE5"},                 // yen and yuan, of single and of full width
        {"\u20A9", "\uFFE6"},                 // won, likewise
    };
    if (mark.empty()) return {};
    for (const Forms& forms : kAlike) {
        if (std::find(forms.begin(), forms.end(), mark) != forms.end()) return forms;
    }
    return {mark};
}

/// A text with forms of full width as the ASCII characters for which they stand.
std::string narrowed(std::string_view text) {
    constexpr std::int32_t kFirst = 0xFF01;  // "!", behind which the others follow as in ASCII
    constexpr std::int32_t kLast = 0xFF5E;
    constexpr std::int32_t kBlank = 0x3000;
    std::string narrow;
    narrow.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const Character character = characterAt(text, at);
        if (character.code >= kFirst && character.code <= kLast) {
            narrow += static_cast<char>('!' + (character.code - kFirst));
        } else if (character.code == kBlank) {
            narrow += ' ';
        } else {
            narrow += text.substr(at, character.length);
        }
        at += character.length;
    }
    return narrow;
}

// ---- Values ----

/// What a text reads as. `value` is set for a number only.
struct Reading {
    enum class Kind { NoNumber, BeyondDouble, Number };
    Kind kind = Kind::NoNumber;
    double value = 0;
};

Reading readingOf(double value) {
    if (std::isinf(value)) return {Reading::Kind::BeyondDouble, 0};
    return {Reading::Kind::Number, value};
}

/// A decimal number on its way to a double: an integer of significant digits times a power of ten.
/// Memory and the time of the conversion are bounded, however long the text is.
class Decimal {
  public:
    void addDigit(char digit, bool behindDecimal) {
        const bool leadingZero = m_digits.empty() && digit == '0';
        if (!leadingZero && m_digits.size() == kMaxDigits) {
            m_moreDigits = m_moreDigits || digit != '0';
            if (!behindDecimal) ++m_power;
            return;
        }
        if (!leadingZero) m_digits += digit;
        if (behindDecimal) --m_power;
    }

    void addExponent(std::int64_t exponent) { m_power += exponent; }

    Reading reading(bool negative) const {
        if (m_digits.empty()) return readingOf(0);
        const std::int64_t magnitude = m_power + static_cast<std::int64_t>(m_digits.size());
        if (magnitude > kMaxMagnitude) return {Reading::Kind::BeyondDouble, 0};
        if (magnitude < kMinMagnitude) return readingOf(0);

        // One digit more stands for all that were left out: it tells a tie from more than a tie.
        std::string text = m_digits + (m_moreDigits ? "1" : "");
        text += 'e';
        text += std::to_string(m_power - (m_moreDigits ? 1 : 0));
        double value = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        if (result.ec == std::errc::result_out_of_range) {
            value = magnitude > 0 ? std::numeric_limits<double>::infinity() : 0;
        }
        // Zero has no sign.
        return readingOf(negative && value != 0 ? -value : value);
    }

  private:
    // A double, and the middle between two of them, has at most 768 significant digits.
    static constexpr std::size_t kMaxDigits = 800;
    // Beyond these a number is no double, or rounds to 0.
    static constexpr std::int64_t kMaxMagnitude = 310;
    static constexpr std::int64_t kMinMagnitude = -330;

    std::string m_digits;       ///< without leading zeros
    bool m_moreDigits = false;  ///< a digit other than 0 was left out
    std::int64_t m_power = 0;   ///< of ten, by which the digits are multiplied
};

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The value of a hexadecimal digit, 16 when it is none.
unsigned hexValue(char c) {
    if (isDigit(c)) return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a') + 10;
    if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A') + 10;
    return 16;
}

/// Hexadecimal (4 bits a digit) or octal (3 bits a digit) digits as a number that is not negative.
Reading readBased(std::string_view digits, int bits) {
    if (digits.empty()) return {};
    std::uint64_t head = 0;  // the leading digits
    bool moreDigits = false;
    int shift = 0;
    for (const char c : digits) {
        const unsigned digit = hexValue(c);
        if (digit >= (1U << bits)) return {};
        if (head >> (64 - bits) == 0) {
            head = (head << bits) | digit;
            continue;
        }
        moreDigits = moreDigits || digit != 0;
        if (shift < std::numeric_limits<double>::max_exponent) shift += bits;
    }
    return readingOf(std::ldexp(static_cast<double>(head | (moreDigits ? 1U : 0U)), shift));
}

// ---- Grammar ----

/// Reads one text by the grammar at the head of this file.
class Reader {
  public:
    Reader(std::string_view text, const NumberMarks& marks)
        : m_text(text),
          m_decimal(formsOf(marks.decimal)),
          m_thousands(formsOf(marks.thousands)),
          m_currency(formsOf(marks.currency)) {}

    Reading read() {
        while (takeBlank()) {
        }
        if (take("&")) return readBasedRest();
        takeLead();
        if (!takeBody()) return {};
        takeTrail();
        if (!atEnd() || m_parentheses == Parentheses::Open) return {};
        return m_number.reading(m_negative);
    }

  private:
    enum class Parentheses { None, Open, Closed };

    bool atEnd() const { return m_at == m_text.size(); }

    bool take(std::string_view mark) {
        if (!m_text.substr(m_at).starts_with(mark)) return false;
        m_at += mark.size();
        return true;
    }

    bool takeAny(const Forms& forms) {
        return std::any_of(forms.begin(), forms.end(),
                           [this](std::string_view form) { return take(form); });
    }

    bool takeBlank() {
        if (!atEnd() && m_text[m_at] >= '\t' && m_text[m_at] <= '\r') {
            ++m_at;
            return true;
        }
        return take(" ") || take("\u00A0");
    }

    /// The sign of the number, unless there was one.
    bool takeSign() {
        if (m_signed) return false;
        if (take("-")) {
            m_negative = true;
        } else if (!take("+")) {
            return false;
        }
        m_signed = true;
        return true;
    }

    bool takeParenthesis(std::string_view mark, Parentheses before, Parentheses after) {
        if (m_parentheses != before || !take(mark)) return false;
        m_parentheses = after;
        m_negative = true;
        return true;
    }

    void takeLead() {
        bool currencyTaken = false;
        for (;;) {
            if (takeBlank() || takeSign()) continue;
            if (takeParenthesis("(", Parentheses::None, Parentheses::Open)) continue;
            if (currencyTaken || !takeAny(m_currency)) return;
            currencyTaken = true;
        }
    }

    void takeTrail() {
        while (takeBlank() || takeSign() || takeAny(m_currency) ||
               takeParenthesis(")", Parentheses::Open, Parentheses::Closed)) {
        }
    }

    /// Digits, separators, the decimal mark and the exponent; false without a digit.
    bool takeBody() {
        bool anyDigit = false;
        bool behindDecimal = false;
        for (;;) {
            if (!atEnd() && isDigit(m_text[m_at])) {
                m_number.addDigit(m_text[m_at++], behindDecimal);
                anyDigit = true;
            } else if (!behindDecimal && takeAny(m_decimal)) {
                behindDecimal = true;
            } else if (!anyDigit || !takeAny(m_thousands)) {
                break;
            }
        }
        if (anyDigit) takeExponent();
        return anyDigit;
    }

    /// Takes an exponent that has digits. A letter without digits stays where it is: it may begin
    /// a currency mark.
    void takeExponent() {
        const std::size_t start = m_at;
        if (!take("e") && !take("E") && !take("d") && !take("D")) return;
        const bool negative = take("-");
        if (!negative) take("+");
        if (atEnd() || !isDigit(m_text[m_at])) {
            m_at = start;
            return;
        }
        // Larger than the length of any text, so that no number of zeros makes up for it.
        constexpr std::int64_t kLimit = 1'000'000'000'000'000;
        std::int64_t exponent = 0;
        for (; !atEnd() && isDigit(m_text[m_at]); ++m_at) {
            exponent = std::min(kLimit, exponent * 10 + (m_text[m_at] - '0'));
        }
        m_number.addExponent(negative ? -exponent : exponent);
    }

    /// The rest of a text behind "&".
    Reading readBasedRest() {
        const int bits = take("H") || take("h") ? 4 : 3;
        if (bits == 3 && !take("O")) take("o");
        const std::size_t start = m_at;
        while (!atEnd() && hexValue(m_text[m_at]) < 16) ++m_at;
        const std::string_view digits = m_text.substr(start, m_at - start);
        while (takeBlank()) {
        }
        return atEnd() ? readBased(digits, bits) : Reading{};
    }

    std::string_view m_text;
    Forms m_decimal;
    Forms m_thousands;
    Forms m_currency;
    std::size_t m_at = 0;
    Decimal m_number;
    bool m_signed = false;
    bool m_negative = false;
    Parentheses m_parentheses = Parentheses::None;
};

Reading readText(std::string_view text, const NumberMarks& marks) {
    return marks.fullWidth ? Reader(narrowed(text), marks).read() : Reader(text, marks).read();
}

/// The integer nearest to a value, of two the even one, whatever the process' rounding mode.
double halfToEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    const bool belowIsEven = std::fmod(below, 2) == 0;
    return rest < 0.5 || (rest == 0.5 && belowIsEven) ? below : below + 1;
}

[[noreturn]] void raiseNoNumber() {
    throw Error(errc::TypeMismatch, "The text is not a number");
}

[[noreturn]] void raiseOverflow() {
    throw Error(errc::Overflow, "The number is too large");
}

}  // namespace

void setNumberLocale(const std::string& locale) {
    currentMarks() = numberMarksOf(locale);
}

const NumberMarks& numberMarks() {
    return currentMarks();
}

std::optional<double> parseNumber(std::string_view text) {
    return parseNumber(text, currentMarks());
}

std::optional<double> parseNumber(std::string_view text, const NumberMarks& marks) {
    const Reading reading = readText(text, marks);
    if (reading.kind != Reading::Kind::Number) return std::nullopt;
    return reading.value;
}

bool IsNumeric(std::string_view text) {
    return parseNumber(text).has_value();
}

double toDouble(std::string_view text) {
    const std::optional<double> number = parseNumber(text);
    if (!number) raiseNoNumber();
    return *number;
}

std::int16_t toInt16(std::string_view text) {
    const Reading reading = readText(text, currentMarks());
    if (reading.kind == Reading::Kind::NoNumber) raiseNoNumber();
    if (reading.kind == Reading::Kind::BeyondDouble) raiseOverflow();
    using Limits = std::numeric_limits<std::int16_t>;
    const double rounded = halfToEven(reading.value);
    if (rounded < Limits::min() || rounded > Limits::max()) raiseOverflow();
    return static_cast<std::int16_t>(rounded);
}

std::int16_t toInt16(std::size_t count) {
    if (count > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) raiseOverflow();
    return static_cast<std::int16_t>(count);
}

}  // namespace wynconfig
