// The table of upper-case letters, against what the system knows. The names of files hang on both:
// the system's own finds a file, the table names it.
#define UNICODE
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "platform/text/text.h"

namespace wynconfig {
namespace {

std::wstring unitsOf(std::int32_t code) {
    if (code < 0x10000) return {static_cast<wchar_t>(code)};
    const std::int32_t beyond = code - 0x10000;
    return {static_cast<wchar_t>(0xD800 + (beyond >> 10)),
            static_cast<wchar_t>(0xDC00 + (beyond & 0x3FF))};
}

std::wstring mapped(const std::wstring& text, DWORD how) {
    wchar_t result[8] = L"";
    const int length =
        ::LCMapStringEx(LOCALE_NAME_INVARIANT, how, text.data(), static_cast<int>(text.size()),
                        result, 8, nullptr, nullptr, 0);
    return {result, static_cast<std::size_t>(length)};
}

std::int32_t codeOf(const std::wstring& units) {
    if (units.size() < 2) return units.at(0);
    return 0x10000 + ((units[0] - 0xD800) << 10) + (units[1] - 0xDC00);
}

/// As the system has it: raised where lowering leads back.
std::int32_t systemsUpper(std::int32_t code) {
    const std::wstring given = unitsOf(code);
    const std::wstring upper = mapped(given, LCMAP_UPPERCASE);
    if (upper.size() != given.size() || mapped(upper, LCMAP_LOWERCASE) != given) return code;
    return codeOf(upper);
}

TEST(UCase, RaisesWhatTheSystemRaises) {
    int raised = 0;
    for (std::int32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        const std::int32_t upper = systemsUpper(code);
        std::string character;
        appendCharacter(character, code);
        // A system that is older than the table knows fewer letters, but none otherwise.
        if (upper == code) continue;
        ++raised;
        std::string expected;
        appendCharacter(expected, upper);
        ASSERT_EQ(UCase(character), expected) << std::hex << code;
    }
    // The letters of Unicode 5, which every Windows since 7 knows.
    EXPECT_GE(raised, 900);
}

TEST(UCase, RaisesNoCommonLetterThatTheSystemLeaves) {
    for (std::int32_t code = 0; code < 0x0500; ++code) {
        std::string character;
        appendCharacter(character, code);
        std::string expected;
        appendCharacter(expected, systemsUpper(code));
        EXPECT_EQ(UCase(character), expected) << std::hex << code;
    }
}

}  // namespace
}  // namespace wynconfig
