// Reads any text as a number, and compares that with another reading of the same grammar: a regular
// expression for its form, and the C library for its value.
#include "platform/text/numbers.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <regex>
#include <string>
#include <vector>

#include "input.h"
#include "wynconfig/error.h"

namespace wynconfig::fuzz {
namespace {

/// A locale, and how a person there writes numbers.
struct Place {
    const char* locale;
    std::vector<std::string> decimal;
    std::vector<std::string> thousands;
    std::vector<std::string> currency;
    bool fullWidth = false;
};

const std::vector<Place>& places() {
    static const std::vector<Place> all{
        {"en-US", {"."}, {","}, {"$"}},
        {"de-DE", {","}, {"."}, {"\u20AC"}},
        {"fr-FR", {","}, {" ", "\u00A0", "\u2009", "\u202F"}, {"\u20AC"}},
        {"de-CH", {"."}, {"'", "\u2019"}, {"CHF"}},
        {"ja-JP", {"."}, {","}, {"\u00A5", "\uFFE5"}, true},
    };
    return all;
}

/// What a text reads as.
struct Reading {
    bool isNumber = false;  ///< by its form; its value may be beyond a double
    double value = 0;
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// Forms of full width as the ASCII characters for which they stand.
std::string narrow(std::string text) {
    for (int code = 0xFF01; code <= 0xFF5E; ++code) {
        const std::string wide{'\xEF', static_cast<char>(0x80 | (code >> 6 & 0x3F)),
                               static_cast<char>(0x80 | (code & 0x3F))};
        text = replaced(text, wide, std::string(1, static_cast<char>(code - 0xFF01 + '!')));
    }
    return replaced(text, "\u3000", " ");
}

/// The text with one letter for each thing that the grammar knows: b a blank, B one that is also a
/// mark of thousands, t such a mark, p the decimal mark, c the currency, x anything else.
std::string classesOf(const std::string& text, const Place& place) {
    struct Mark {
        std::string form;
        char letter;
    };
    std::vector<Mark> marks;
    const auto isBlank = [](const std::string& form) { return form == " " || form == "\u00A0"; };
    for (const auto& form : place.thousands) marks.push_back({form, isBlank(form) ? 'B' : 't'});
    for (const auto& form : place.decimal) marks.push_back({form, 'p'});
    for (const auto& form : place.currency) marks.push_back({form, 'c'});
    for (const char* form : {"\t", "\n", "\v", "\f", "\r", " ", "\u00A0"})
        marks.push_back({form, 'b'});
    for (const char* form : {"e", "E", "d", "D"}) marks.push_back({form, 'e'});
    for (const char* form : {"+", "-", "(", ")"}) marks.push_back({form, *form});
    for (char digit = '0'; digit <= '9'; ++digit) marks.push_back({std::string(1, digit), digit});

    std::string classes;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t length = 1;
        char letter = 'x';
        for (const Mark& mark : marks) {
            if (text.compare(at, mark.form.size(), mark.form) != 0) continue;
            length = mark.form.size();
            letter = mark.letter;
            break;
        }
        classes += letter;
        at += length;
    }
    return classes;
}

auto count(const std::string& text, const char* letters) {
    return std::count_if(text.begin(), text.end(), [&](char c) {
        return std::string_view(letters).find(c) != std::string_view::npos;
    });
}

Reading decimalReading(const std::string& classes) {
    static const std::regex form(
        R"(([bB+\-(c]*)((?:[0-9][0-9tB]*(?:p[0-9tB]*)?|p[0-9][0-9tB]*)(?:e[+\-]?[0-9]+)?)([bB+\-)c]*))",
        std::regex::optimize);
    std::smatch found;
    if (!std::regex_match(classes, found, form)) return {};
    const std::string lead = found[1];
    const std::string trail = found[3];
    const auto opened = count(lead, "(");
    if (count(lead, "+-") + count(trail, "+-") > 1 || count(lead, "c") > 1 || opened > 1 ||
        count(trail, ")") != opened)
        return {};
    std::string number;
    for (const char c : found[2].str()) {
        if (c == 'p')
            number += '.';
        else if (c != 't' && c != 'B')
            number += c;
    }
    const double value = std::strtod(number.c_str(), nullptr);
    const bool negative = opened > 0 || count(lead, "-") + count(trail, "-") > 0;
    return {true, negative && value != 0 ? -value : value};
}

/// The value of binary digits, exactly rounded.
double valueOfBits(std::string bits) {
    bits.insert(0, (4 - bits.size() % 4) % 4, '0');
    std::string hex = "0x";
    for (std::size_t at = 0; at < bits.size(); at += 4)
        hex += "0123456789abcdef"[std::stoi(bits.substr(at, 4), nullptr, 2)];
    return std::strtod(hex.c_str(), nullptr);
}

Reading basedReading(const std::string& text) {
    static const std::regex form(
        "(?:[\\t-\\r ]|\xC2\xA0)*&(?:[Hh]([0-9A-Fa-f]+)|[Oo]?([0-7]+))"
        "(?:[\\t-\\r ]|\xC2\xA0)*",
        std::regex::optimize);
    std::smatch found;
    if (!std::regex_match(text, found, form)) return {};
    const int width = found[1].matched ? 4 : 3;
    std::string bits;
    for (const char digit : found[1].matched ? found[1].str() : found[2].str())
        for (int bit = width - 1; bit >= 0; --bit)
            bits += std::stoi(std::string(1, digit), nullptr, 16) >> bit & 1 ? '1' : '0';
    return {true, valueOfBits(bits)};
}

Reading expected(const std::string& given, const Place& place) {
    const std::string text = place.fullWidth ? narrow(given) : given;
    const Reading based = basedReading(text);
    return based.isNumber ? based : decimalReading(classesOf(text, place));
}

/// Number of the failure that a call raises; 0 for none.
template <class Call>
long raisedBy(const Call& call) {
    try {
        call();
    } catch (const Error& error) {
        return error.number();
    }
    return 0;
}

void check(const std::string& text, const Place& place) {
    static const Place* current = nullptr;
    if (current != &place) setNumberLocale((current = &place)->locale);
    const Reading wanted = expected(text, place);
    const bool isDouble = wanted.isNumber && std::isfinite(wanted.value);

    const std::optional<double> read = parseNumber(text);
    require(read.has_value() == isDouble, text);
    require(!isDouble || (*read == wanted.value && std::signbit(*read) == (wanted.value < 0)),
            text);
    require(IsNumeric(text) == isDouble, text);
    require(raisedBy([&] { toDouble(text); }) == (isDouble ? 0 : errc::TypeMismatch), text);

    const double rounded = std::nearbyint(wanted.value);  // half to even, as the process is set
    const bool fits = isDouble && rounded >= -32768 && rounded <= 32767;
    std::int16_t integer = 0;
    const long failure = raisedBy([&] { integer = toInt16(text); });
    require(failure == (fits ? 0 : wanted.isNumber ? errc::Overflow : errc::TypeMismatch), text);
    require(!fits || integer == static_cast<std::int16_t>(rounded), text);
}

}  // namespace
}  // namespace wynconfig::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wynconfig::fuzz;
    constexpr std::size_t kMostBytes = 400;  // the regular expression calls itself for each
    if (size > kMostBytes) return 0;
    Input input(data, size);
    const Place& place = input.oneOf(places());
    check(input.rest(), place);
    return 0;
}
