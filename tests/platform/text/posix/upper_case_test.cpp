// The table of upper-case letters, against what ICU knows of all characters. Windows builds with
// the same table.
#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <cstdint>
#include <string>

#include "platform/text/text.h"

namespace wynconfig {
namespace {

/// The newest characters that the table knows are those of Unicode 15.0.
bool isOfTheTable(std::int32_t code) {
    UVersionInfo age{};
    u_charAge(code, age);
    return age[0] <= 15 && (age[0] < 15 || age[1] == 0);
}

TEST(UCase, knowsAllCharactersAsIcuDoes) {
    int raised = 0;
    for (std::int32_t code = 0; code <= 0x10FFFF; ++code) {
        if ((code >= 0xD800 && code <= 0xDFFF) || !isOfTheTable(code)) continue;
        const std::int32_t upper = u_toupper(code);
        const bool mapsBack = upper != code && u_tolower(upper) == code;
        raised += mapsBack ? 1 : 0;
        std::string character;
        std::string expected;
        appendCharacter(character, code);
        appendCharacter(expected, mapsBack ? upper : code);
        ASSERT_EQ(UCase(character), expected) << std::hex << code;
        const Character read = characterAt(character, 0);
        ASSERT_EQ(read.code, code);
        ASSERT_EQ(read.length, character.size());
    }
    EXPECT_EQ(raised, 1423);
}

}  // namespace
}  // namespace wynconfig
