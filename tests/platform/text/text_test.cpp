// Text: upper-casing, trimming, counting and checking, and the failure type's description.
#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>

#include "wynconfig/error.h"

namespace wynconfig {
namespace {

using namespace std::string_literals;

TEST(UCase, raisesLettersOfEveryAlphabet) {
    EXPECT_EQ(UCase(""), "");
    EXPECT_EQ(UCase("abcxyz ABC 019 @[`{"), "ABCXYZ ABC 019 @[`{");
    EXPECT_EQ(UCase("äöüéñç"), "ÄÖÜÉÑÇ");
    EXPECT_EQ(UCase("ÿ"), "Ÿ");
    EXPECT_EQ(UCase("привет ёж"), "ПРИВЕТ ЁЖ");
    EXPECT_EQ(UCase("αβγσ ά"), "ΑΒΓΣ Ά");
    EXPECT_EQ(UCase("\U00010428"), "\U00010400");
    EXPECT_EQ(UCase("i"), "I");
}

TEST(UCase, leavesWhatDoesNotMapBackAlone) {
    EXPECT_EQ(UCase("ß"), "ß");
    EXPECT_EQ(UCase("\u0131"), "\u0131");
    EXPECT_EQ(UCase("\u017F"), "\u017F");
    EXPECT_EQ(UCase("\u00B5"), "\u00B5");
    EXPECT_EQ(UCase("ς"), "ς");
    EXPECT_EQ(UCase("\uFB01"), "\uFB01");
    EXPECT_EQ(UCase("\u01C5"), "\u01C5");
    EXPECT_EQ(UCase("straße"), "STRAßE");
}

TEST(UCase, leavesCharactersWithoutCaseAlone) {
    const std::string text = "\U0001F600\U0001F469\u200D\U0001F527 日本 \u0000 %"s;
    EXPECT_EQ(UCase(text), text);
}

TEST(UCase, raisesTheLetterUnderACombiningMark) {
    EXPECT_EQ(UCase("a\u0308e\u0301"), "A\u0308E\u0301");
    EXPECT_EQ(UCase("\u0345"), "\u0345");
}

TEST(UCase, leavesInvalidBytesAlone) {
    EXPECT_EQ(UCase("a\xFFz"), "A\xFFZ");
    EXPECT_EQ(UCase("a\x80\xBFz"), "A\x80\xBFZ");
    EXPECT_EQ(UCase("\xC3"), "\xC3");
    EXPECT_EQ(UCase("\xE2\x82"
                    "a"),
              "\xE2\x82"
              "A");
    EXPECT_EQ(UCase("\xC1\xA1"), "\xC1\xA1");
    EXPECT_EQ(UCase("\xED\xA0\x80"
                    "b"),
              "\xED\xA0\x80"
              "B");
}

TEST(UCase, changesNothingMoreTheSecondTime) {
    std::string all;
    for (const char* text : {"straße", "ÿ", "ǆ", "ﬁ", "ς", "ı", "\xFF", "ა", "ꭰ"}) all += text;
    EXPECT_EQ(UCase(UCase(all)), UCase(all));
    EXPECT_EQ(charCount(UCase(all)), charCount(all));
}

TEST(Trim, removesPlainBlanksAtBothEnds) {
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim("  a  b  "), "a  b");
    EXPECT_EQ(Trim("a"), "a");
}

TEST(Trim, leavesOtherBlanks) {
    EXPECT_EQ(Trim(" \ta\t "), "\ta\t");
    EXPECT_EQ(Trim("\u00A0a\u00A0"), "\u00A0a\u00A0");
    EXPECT_EQ(Trim(" a\r\n"), "a\r\n");
    EXPECT_EQ(Trim(" \0 "s), "\0"s);
}

TEST(CharCount, countsCodePoints) {
    EXPECT_EQ(charCount(""), 0U);
    EXPECT_EQ(charCount("abc"), 3U);
    EXPECT_EQ(charCount("äß€\U0001F600"), 4U);
    EXPECT_EQ(charCount("a\u0308"), 2U);
}

TEST(CharCount, countsEachInvalidByte) {
    EXPECT_EQ(charCount("\xFF\xFE"), 2U);
    EXPECT_EQ(charCount("\xE2\x82"
                        "A"),
              3U);
    EXPECT_EQ(charCount("\xF0\x9F\x98"), 3U);
    EXPECT_EQ(charCount("\xED\xA0\x80"), 3U);
}

TEST(ByteOffset, findsTheStartOfACharacter) {
    const std::string text = "aä€\U0001F600z";
    EXPECT_EQ(byteOffset(text, 0), 0U);
    EXPECT_EQ(byteOffset(text, 1), 1U);
    EXPECT_EQ(byteOffset(text, 2), 3U);
    EXPECT_EQ(byteOffset(text, 3), 6U);
    EXPECT_EQ(byteOffset(text, 4), 10U);
    EXPECT_EQ(byteOffset(text, 5), 11U);
}

TEST(ByteOffset, staysWithinTheText) {
    EXPECT_EQ(byteOffset("", 0), 0U);
    EXPECT_EQ(byteOffset("", 7), 0U);
    EXPECT_EQ(byteOffset("äb", 3), 3U);
    EXPECT_EQ(byteOffset("äb", static_cast<std::size_t>(-1)), 3U);
}

TEST(ByteOffset, countsEachInvalidByte) {
    const std::string text =
        "\xE2\x82"
        "ä\xFF"
        "b";
    EXPECT_EQ(byteOffset(text, 1), 1U);
    EXPECT_EQ(byteOffset(text, 2), 2U);
    EXPECT_EQ(byteOffset(text, 3), 4U);
    EXPECT_EQ(byteOffset(text, 4), 5U);
    EXPECT_EQ(byteOffset(text, charCount(text)), text.size());
}

TEST(IsUtf8, acceptsWellFormedText) {
    EXPECT_TRUE(isUtf8(""));
    EXPECT_TRUE(isUtf8("a\0b"s));
    EXPECT_TRUE(isUtf8("ä€\U0001F600"));
    EXPECT_TRUE(isUtf8("\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF"));
}

TEST(IsUtf8, refusesOverlongForms) {
    EXPECT_FALSE(isUtf8("\xC0\x80"));
    EXPECT_FALSE(isUtf8("\xC1\xBF"));
    EXPECT_FALSE(isUtf8("\xE0\x9F\xBF"));
    EXPECT_FALSE(isUtf8("\xF0\x8F\xBF\xBF"));
}

TEST(IsUtf8, refusesSurrogatesAndWhatIsBeyondUnicode) {
    EXPECT_FALSE(isUtf8("\xED\xA0\x80"));
    EXPECT_FALSE(isUtf8("\xED\xBF\xBF"));
    EXPECT_FALSE(isUtf8("\xED\xA0\xBD\xED\xB8\x80"));
    EXPECT_FALSE(isUtf8("\xF4\x90\x80\x80"));
    EXPECT_FALSE(isUtf8("\xF5\x80\x80\x80"));
    EXPECT_FALSE(isUtf8("\xFF"));
}

TEST(IsUtf8, refusesTruncatedText) {
    EXPECT_FALSE(isUtf8("a\xC3"));
    EXPECT_FALSE(isUtf8("\xE2\x82"));
    EXPECT_FALSE(isUtf8("\xE2\x82z"));
    EXPECT_FALSE(isUtf8("\xF0\x9F\x98"));
    EXPECT_FALSE(isUtf8("\x80"));
}

TEST(IsUtf8, looksAtTheBytesOfTheViewOnly) {
    const std::string text = "ab€";
    EXPECT_TRUE(isUtf8(text));
    EXPECT_FALSE(isUtf8(std::string_view(text).substr(0, 4)));
}

/// The failure that something thrown turns into.
template <typename Thrown>
Error caught(const Thrown& thrown) {
    try {
        throw thrown;
    } catch (...) {
        return Error::fromCurrentException();
    }
}

struct WithoutText : std::exception {
    const char* what() const noexcept override { return nullptr; }
};

TEST(Error, keepsNumberAndDescription) {
    const Error error(errc::NoSuchKey, "No Schlüssel");
    EXPECT_EQ(error.number(), errc::NoSuchKey);
    EXPECT_EQ(error.description(), "No Schlüssel");
}

TEST(Error, replacesAnEmptyDescription) {
    EXPECT_EQ(Error(errc::Overflow, "").description(), "Unexpected failure");
    EXPECT_EQ(Error(errc::Overflow, "").number(), errc::Overflow);
}

TEST(Error, takesAnErrorAsItIs) {
    const Error error = caught(Error(4711, "as thrown"));
    EXPECT_EQ(error.number(), 4711);
    EXPECT_EQ(error.description(), "as thrown");
}

TEST(Error, takesTheTextOfAnException) {
    EXPECT_EQ(caught(std::out_of_range("beyond the end")).description(), "beyond the end");
    EXPECT_EQ(caught(std::runtime_error("")).description(), "Unexpected failure");
    EXPECT_EQ(caught(WithoutText()).description(), "Unexpected failure");
}

TEST(Error, describesWhatIsNoExceptionInGeneral) {
    EXPECT_EQ(caught(42).description(), "Unexpected failure");
    EXPECT_EQ(caught("text"s).description(), "Unexpected failure");
}

TEST(Error, servesACallOutsideACatchBlock) {
    EXPECT_EQ(Error::fromCurrentException().description(), "Unexpected failure");
}

}  // namespace
}  // namespace wynconfig
