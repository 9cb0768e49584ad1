// Numbers: the table of the numeric test, the grammar in other locales, rounding, range and size.
#include "platform/text/numbers.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cfenv>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "wynconfig/error.h"

namespace wynconfig {
namespace {

/// One line of the table; `number` and `integer` are kept as written.
struct Row {
    std::string locale;
    std::string written;
    std::string input;
    bool accepted = false;
    std::string number;
    std::string integer;
};

void appendUtf8(std::string& text, unsigned code) {
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | code >> 12);
        text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    }
}

std::string unescaped(const std::string& written) {
    std::string text;
    for (std::size_t at = 0; at < written.size();) {
        if (written.compare(at, 2, "\\u") == 0) {
            unsigned code = 0;
            std::from_chars(written.data() + at + 2, written.data() + at + 6, code, 16);
            appendUtf8(text, code);
            at += 6;
        } else {
            text += written[at++];
        }
    }
    return text;
}

std::string localeOf(const std::string& id) {
    if (id == "0x0409") return "en-US";
    if (id == "0x0407") return "de-DE";
    if (id == "0x040C") return "fr-FR";
    throw std::runtime_error("a locale that the table should not have: " + id);
}

std::vector<Row> readTable() {
    std::ifstream file(WYNCONFIG_TEST_DATA "/numeric.tsv");
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::vector<std::string> fields(1);
        for (const char c : line) {
            if (c == '\t') {
                fields.emplace_back();
            } else {
                fields.back() += c;
            }
        }
        if (fields.size() != 5) throw std::runtime_error("a row without five columns: " + line);
        rows.push_back({localeOf(fields[0]), fields[1], unescaped(fields[1]), fields[2] == "1",
                        fields[3], fields[4]});
    }
    return rows;
}

double doubleOf(const std::string& text) {
    double value = std::numeric_limits<double>::quiet_NaN();
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// The outcome of the conversion to 16 bit, as the table writes it.
template <typename Value>
std::string int16Outcome(const Value& value) {
    try {
        return std::to_string(toInt16(value));
    } catch (const Error& error) {
        if (error.number() == errc::Overflow) return "OVERFLOW";
        if (error.number() == errc::TypeMismatch) return "MISMATCH";
        return "error " + std::to_string(error.number());
    }
}

class Numbers : public testing::Test {
  protected:
    void SetUp() override { setNumberLocale("en-US"); }
    void TearDown() override { setNumberLocale(""); }
};

TEST_F(Numbers, meetsEveryRowOfTheTable) {
    const std::vector<Row> rows = readTable();
    EXPECT_EQ(rows.size(), 680U);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.locale + " '" + row.written + "'");
        setNumberLocale(row.locale);
        const std::optional<double> number = parseNumber(row.input);
        EXPECT_EQ(number.has_value(), row.accepted);
        EXPECT_EQ(IsNumeric(row.input), row.accepted);
        EXPECT_EQ(parseNumber(row.input, numberMarksOf(row.locale)), number);
        if (row.accepted) {
            EXPECT_EQ(number.value_or(std::nan("")), doubleOf(row.number));
            EXPECT_NO_THROW(EXPECT_EQ(toDouble(row.input), doubleOf(row.number)));
        } else {
            EXPECT_THROW(toDouble(row.input), Error);
        }
        EXPECT_EQ(int16Outcome(row.input), row.integer);
    }
}

TEST_F(Numbers, testsTextForANumber) {
    EXPECT_FALSE(IsNumeric(""));
    EXPECT_FALSE(IsNumeric(" "));
    EXPECT_TRUE(IsNumeric("1,000"));
    EXPECT_TRUE(IsNumeric("$12"));
    EXPECT_TRUE(IsNumeric("-4"));
    EXPECT_TRUE(IsNumeric("1e5"));
    EXPECT_FALSE(IsNumeric("12 A"));
    EXPECT_FALSE(IsNumeric(std::string("1\0", 2)));
    EXPECT_FALSE(IsNumeric("1\xFF"));
    EXPECT_FALSE(IsNumeric("1\xC2"));
}

TEST_F(Numbers, takesSignCurrencyAndParenthesesInAnyOrder) {
    EXPECT_EQ(parseNumber("- $ ( 5 )"), -5);
    EXPECT_EQ(parseNumber("($5)-"), -5);
    EXPECT_EQ(parseNumber("(5$)"), -5);
    EXPECT_EQ(parseNumber("$5$ $"), 5);
    EXPECT_EQ(parseNumber("+(5)"), -5);
    EXPECT_FALSE(IsNumeric("(5)+-"));
    EXPECT_FALSE(IsNumeric("$(5"));
    EXPECT_FALSE(IsNumeric("$-$5"));
    EXPECT_FALSE(IsNumeric(")5("));
    EXPECT_FALSE(IsNumeric("(5))"));
    EXPECT_FALSE(IsNumeric("5()"));
}

TEST_F(Numbers, takesSeparatorsBehindTheFirstDigitOnly) {
    EXPECT_EQ(parseNumber("1,2,.,3,4,"), 12.34);
    EXPECT_FALSE(IsNumeric(".,5"));
    EXPECT_FALSE(IsNumeric("1e5,"));
    EXPECT_FALSE(IsNumeric("1e,5"));
    EXPECT_FALSE(IsNumeric("5 ,"));
}

TEST_F(Numbers, readsEachHexadecimalDigitAndNoOtherLetter) {
    for (int c = 1; c < 128; ++c) {
        const std::string text = std::string("&H1") + static_cast<char>(c);
        // A blank behind a number is no part of it, and a locale's marks are none of these.
        if (std::isspace(c) != 0) continue;
        const char* const digits = "0123456789abcdef";
        const char* const found = std::strchr(digits, std::tolower(c));
        if (found)
            EXPECT_EQ(parseNumber(text), 16 + (found - digits)) << text;
        else
            EXPECT_EQ(parseNumber(text), std::nullopt) << text;
    }
}

TEST_F(Numbers, takesTheBlanksOfAsciiAroundThem) {
    for (int c = 1; c < 33; ++c) {
        const auto blank = static_cast<char>(c);
        const bool isBlank = (c >= 9 && c <= 13) || c == 32;
        EXPECT_EQ(parseNumber(std::string{blank, '7'}).has_value(), isBlank) << c;
        EXPECT_EQ(parseNumber(std::string{'7', blank}).has_value(), isBlank) << c;
    }
}

TEST_F(Numbers, readsHexadecimalAndOctalText) {
    EXPECT_EQ(parseNumber("&hAbC"), 2748);
    EXPECT_EQ(parseNumber("&o17"), 15);
    EXPECT_EQ(parseNumber("&17"), 15);
    EXPECT_EQ(parseNumber("\t&17\u00A0"), 15);
    EXPECT_EQ(parseNumber("&HFFFF"), 65535);
    EXPECT_EQ(parseNumber("&H20000000000001"), 9007199254740992.0);
    EXPECT_EQ(parseNumber("&H100000000000008000"), 295147905179352825856.0);
    EXPECT_EQ(parseNumber("&H100000000000008001"), 295147905179352891392.0);
    EXPECT_EQ(parseNumber("&O1000000000000000000000000"), std::ldexp(1.0, 72));
    for (const char* text : {"-&H1", "&H-1", "&H1$", "(&H1)", "& 17", "&H1,0", "&17E1", "&&H1"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
}

TEST_F(Numbers, holdsHexadecimalTextToTheRangeOfADouble) {
    const std::string largest = "&H" + std::string(13, 'F') + "8" + std::string(242, '0');
    EXPECT_EQ(parseNumber(largest), std::numeric_limits<double>::max());
    const std::string beyond = "&H1" + std::string(256, '0');
    EXPECT_FALSE(IsNumeric(beyond));
    EXPECT_EQ(int16Outcome(beyond), "OVERFLOW");
    EXPECT_EQ(int16Outcome("&H" + std::string(1 << 20, 'F')), "OVERFLOW");
    EXPECT_EQ(parseNumber("&H" + std::string(1 << 20, '0') + "1F"), 31);
}

TEST_F(Numbers, refusesWordsAndOtherNotations) {
    for (const char* text : {"inf", "-inf", "nan", "INF", "nan(1)", "0x1F", "0x1p3", "1p3", "0b1",
                             "1_000", "1e5.0", "1e--5", "1e+-5", "ee", "1d+", "E", "1f", "1.0L"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
}

TEST_F(Numbers, givesZeroNoSign) {
    for (const char* text : {"-0", "(0)", "0-", "-0.000", "-1e-400", "-0e5"}) {
        const std::optional<double> number = parseNumber(text);
        ASSERT_TRUE(number.has_value()) << text;
        EXPECT_EQ(*number, 0) << text;
        EXPECT_FALSE(std::signbit(*number)) << text;
    }
}

TEST_F(Numbers, convertsToTheNearestDouble) {
    EXPECT_EQ(parseNumber("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(parseNumber("9007199254740993.0000000000000000000000001"), 9007199254740994.0);
    EXPECT_EQ(parseNumber("9007199254740993." + std::string(5000, '0') + "1"), 9007199254740994.0);
    EXPECT_EQ(parseNumber("9007199254740993." + std::string(5000, '0')), 9007199254740992.0);
    EXPECT_EQ(parseNumber("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(parseNumber("2e-324"), 0);
    EXPECT_EQ(parseNumber("1.7976931348623158e308"), std::numeric_limits<double>::max());
    EXPECT_FALSE(IsNumeric("1.7976931348623159e308"));
    EXPECT_FALSE(IsNumeric("-1.7976931348623159e308"));
}

TEST_F(Numbers, weighsTheExponentAgainstTheDigits) {
    const std::string zeros(1'000'000, '0');
    EXPECT_EQ(parseNumber("0." + zeros + "1e1000002"), 10);
    EXPECT_EQ(parseNumber("1" + zeros + "e-1000000"), 1);
    EXPECT_EQ(parseNumber("0e99999999999999999999999999"), 0);
    EXPECT_EQ(parseNumber("1e-99999999999999999999999999"), 0);
    EXPECT_EQ(int16Outcome("1e99999999999999999999999999"), "OVERFLOW");
    EXPECT_EQ(int16Outcome("-1e309"), "OVERFLOW");
}

TEST_F(Numbers, servesVeryLongText) {
    const std::string digits(1 << 20, '7');
    EXPECT_FALSE(IsNumeric(digits));
    EXPECT_EQ(int16Outcome(digits), "OVERFLOW");
    EXPECT_EQ(parseNumber("0." + digits), 7.0 / 9);
    EXPECT_EQ(parseNumber(std::string(1 << 20, '0') + "12"), 12);
    EXPECT_EQ(parseNumber("1" + std::string(100'000, ',') + "2"), 12);
    EXPECT_EQ(parseNumber(std::string(1 << 20, ' ') + "12" + std::string(1 << 20, '\t')), 12);
    EXPECT_EQ(parseNumber("12" + std::string(1 << 20, '$')), 12);
    EXPECT_FALSE(IsNumeric(std::string(1 << 20, '(')));
    EXPECT_FALSE(IsNumeric("1e" + std::string(1 << 20, '+')));
    setNumberLocale("fr-FR");
    EXPECT_EQ(parseNumber("1" + std::string(100'000, ' ') + "2"), 12);
}

TEST_F(Numbers, roundsHalfToEven) {
    EXPECT_EQ(toInt16("0.5"), 0);
    EXPECT_EQ(toInt16("1.5"), 2);
    EXPECT_EQ(toInt16("2.5"), 2);
    EXPECT_EQ(toInt16("3.5"), 4);
    EXPECT_EQ(toInt16("-0.5"), 0);
    EXPECT_EQ(toInt16("-1.5"), -2);
    EXPECT_EQ(toInt16("-2.5"), -2);
    EXPECT_EQ(toInt16("2.5000001"), 3);
    EXPECT_EQ(toInt16("-2.4999999"), -2);
    EXPECT_EQ(toInt16("0.49999999999999994"), 0);
    EXPECT_EQ(toInt16("-0.49999999999999994"), 0);
}

TEST_F(Numbers, roundsWithoutRegardToTheRoundingMode) {
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        ASSERT_EQ(std::fesetround(mode), 0);
        const std::string outcomes = int16Outcome("2.5") + ' ' + int16Outcome("1.5") + ' ' +
                                     int16Outcome("-1.5") + ' ' + int16Outcome("2.25");
        ASSERT_EQ(std::fesetround(FE_TONEAREST), 0);
        EXPECT_EQ(outcomes, "2 2 -2 2");
    }
}

TEST_F(Numbers, holdsIntegersTo16Bit) {
    EXPECT_EQ(int16Outcome("32767.49"), "32767");
    EXPECT_EQ(int16Outcome("32767.5"), "OVERFLOW");
    EXPECT_EQ(int16Outcome("-32768.5"), "-32768");
    EXPECT_EQ(int16Outcome("-32768.51"), "OVERFLOW");
    EXPECT_EQ(int16Outcome("1e300"), "OVERFLOW");
    EXPECT_EQ(int16Outcome("twelve"), "MISMATCH");
}

TEST_F(Numbers, holdsCountsTo16Bit) {
    EXPECT_EQ(int16Outcome(std::size_t{0}), "0");
    EXPECT_EQ(int16Outcome(std::size_t{32767}), "32767");
    EXPECT_EQ(int16Outcome(std::size_t{32768}), "OVERFLOW");
    EXPECT_EQ(int16Outcome(std::numeric_limits<std::size_t>::max()), "OVERFLOW");
}

TEST_F(Numbers, tellsNoNumberByItsErrorNumber) {
    try {
        toDouble("1x");
        ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errc::TypeMismatch);
        EXPECT_FALSE(error.description().empty());
    }
}

TEST_F(Numbers, knowsTheMarksOfALocale) {
    const NumberMarks german = numberMarksOf("de-DE");
    EXPECT_EQ(german.decimal, ",");
    EXPECT_EQ(german.thousands, ".");
    EXPECT_EQ(german.currency, "€");
    EXPECT_EQ(numberMarksOf("de_DE.UTF-8").currency, "€");
    EXPECT_EQ(numberMarksOf("de").currency, "€");
    EXPECT_EQ(numberMarksOf("en_US_POSIX").currency, "$");
}

TEST_F(Numbers, takesTheUsersSeparatorsForAnUnknownLocale) {
    const NumberMarks users = numberMarksOf("");
    EXPECT_FALSE(users.decimal.empty());
    EXPECT_NE(users.decimal, users.thousands);
    for (const std::string& name : {std::string("xx"), std::string(9999, 'x')}) {
        const NumberMarks marks = numberMarksOf(name);
        EXPECT_EQ(marks.decimal, users.decimal);
        EXPECT_EQ(marks.thousands, users.thousands);
        EXPECT_EQ(parseNumber("12" + users.decimal + "5", marks), 12.5);
    }
    EXPECT_EQ(numberMarksOf("xx").currency, "");
}

TEST_F(Numbers, servesMarksThatAreNotInUse) {
    EXPECT_EQ(parseNumber("12", NumberMarks{}), 12);
    EXPECT_FALSE(parseNumber("1.2", NumberMarks{}).has_value());
    EXPECT_FALSE(parseNumber("", NumberMarks{}).has_value());
}

TEST_F(Numbers, readsSwissNumbers) {
    const NumberMarks marks = numberMarksOf("de-CH");
    EXPECT_EQ(parseNumber("1\u2019234.56", marks), 1234.56);
    EXPECT_EQ(parseNumber("1'234.56", marks), 1234.56);
    EXPECT_EQ(parseNumber("CHF 12", marks), 12);
    EXPECT_EQ(parseNumber("-12 CHF", marks), -12);
    EXPECT_FALSE(parseNumber("chf 12", marks).has_value());
    EXPECT_FALSE(parseNumber("1,5", marks).has_value());
}

TEST_F(Numbers, readsBrazilianNumbers) {
    const NumberMarks marks = numberMarksOf("pt-BR");
    EXPECT_EQ(parseNumber("R$ 1.234,56", marks), 1234.56);
    EXPECT_EQ(parseNumber("(R$12)", marks), -12);
    EXPECT_FALSE(parseNumber("$12", marks).has_value());
    EXPECT_FALSE(parseNumber("R12", marks).has_value());
}

TEST_F(Numbers, readsJapaneseAndChineseNumbers) {
    for (const char* locale : {"ja-JP", "zh-CN"}) {
        const NumberMarks marks = numberMarksOf(locale);
        EXPECT_EQ(parseNumber("\u00A51,234.5", marks), 1234.5) << locale;
        EXPECT_EQ(parseNumber("\uFFE512", marks), 12) << locale;
        EXPECT_FALSE(parseNumber("$12", marks).has_value()) << locale;
    }
}

TEST_F(Numbers, readsFormsOfFullWidthInEastAsianLocales) {
    for (const char* locale : {"ja-JP", "ja", "zh-CN", "zh-TW", "zh-HK", "ko-KR", "yue-HK"}) {
        SCOPED_TRACE(locale);
        const NumberMarks marks = numberMarksOf(locale);
        EXPECT_EQ(parseNumber("１２３４５６７８９０", marks), 1234567890);
        EXPECT_EQ(parseNumber("－５", marks), -5);
        EXPECT_EQ(parseNumber("５＋", marks), 5);
        EXPECT_EQ(parseNumber("１．５", marks), 1.5);
        EXPECT_EQ(parseNumber("１，０００", marks), 1000);
        EXPECT_EQ(parseNumber("（５）", marks), -5);
        EXPECT_EQ(parseNumber("１ｅ５", marks), 1e5);
        EXPECT_EQ(parseNumber("１Ｄ－２", marks), 0.01);
        EXPECT_EQ(parseNumber("＆ＨｆＦ", marks), 255);
        EXPECT_EQ(parseNumber("　1２　", marks), 12);
        for (const char* text : {"", "　", "－", "１　２", "１２個", "一", "１．２．３", "１％",
                                 "１。５", "①", "\uFF5F1\uFF60", "\uFF10\uFF00"}) {
            EXPECT_FALSE(parseNumber(text, marks).has_value()) << text;
        }
    }
}

TEST_F(Numbers, readsCurrencyMarksOfFullWidthWhereTheyAreInUse) {
    EXPECT_EQ(parseNumber("￥１２", numberMarksOf("ja-JP")), 12);
    EXPECT_EQ(parseNumber("￦１２", numberMarksOf("ko-KR")), 12);
    EXPECT_EQ(parseNumber("₩12", numberMarksOf("ko-KR")), 12);
    EXPECT_EQ(parseNumber("＄１２", numberMarksOf("zh-TW")), 12);
    EXPECT_FALSE(parseNumber("＄１２", numberMarksOf("ja-JP")).has_value());
}

TEST_F(Numbers, readsNoFormsOfFullWidthElsewhere) {
    for (const char* locale : {"en-US", "de-DE", "fr-FR", "ar-EG", "vi-VN", "en-JP", "xx"}) {
        const NumberMarks marks = numberMarksOf(locale);
        for (const char* text : {"１２３", "－５", "－5", "1．5", "１", "　1", "1　"})
            EXPECT_FALSE(parseNumber(text, marks).has_value()) << locale << ' ' << text;
    }
}

TEST_F(Numbers, convertsFormsOfFullWidth) {
    setNumberLocale("ja-JP");
    EXPECT_TRUE(IsNumeric("１２３"));
    EXPECT_EQ(toDouble("１．５"), 1.5);
    EXPECT_EQ(toInt16("２．５"), 2);
    EXPECT_EQ(int16Outcome("３２７６８"), "OVERFLOW");
    EXPECT_EQ(int16Outcome("１２個"), "MISMATCH");
}

TEST_F(Numbers, readsNumbersWithBlanksForThousands) {
    for (const char* locale : {"fr-FR", "sv-SE", "pl-PL"}) {
        const NumberMarks marks = numberMarksOf(locale);
        for (const char* blank : {" ", "\u00A0", "\u202F", "\u2009"}) {
            const std::string text = std::string("1") + blank + "234,5";
            EXPECT_EQ(parseNumber(text, marks), 1234.5) << locale << ' ' << text;
        }
        EXPECT_FALSE(parseNumber("1\t234", marks).has_value()) << locale;
        EXPECT_FALSE(parseNumber("1\u200B234", marks).has_value()) << locale;
    }
}

TEST_F(Numbers, readsArabicLocalesByTheMarksOfAsciiDigits) {
    const NumberMarks marks = numberMarksOf("ar-EG");
    EXPECT_EQ(parseNumber("1,234.5", marks), 1234.5);
    EXPECT_EQ(parseNumber(marks.currency + "12", marks), 12);
    EXPECT_FALSE(parseNumber("\u0661\u0662", marks).has_value());
}

TEST_F(Numbers, tellsACurrencyMarkFromAnExponentAndASeparator) {
    const NumberMarks algerian{",", "\u202F", "DA", false};
#ifndef _WIN32  // writes the currency of fr-DZ in Arabic letters
    EXPECT_EQ(numberMarksOf("fr-DZ").currency, "DA");
#endif
    EXPECT_EQ(parseNumber("12DA", algerian), 12);
    EXPECT_EQ(parseNumber("12D1DA", algerian), 120);
    const NumberMarks danish = numberMarksOf("da-DK");
    ASSERT_EQ(danish.currency, "kr.");
    EXPECT_EQ(parseNumber("1.234,5 kr.", danish), 1234.5);
    EXPECT_FALSE(parseNumber("12kr", danish).has_value());
}

TEST_F(Numbers, usesTheLocaleSetLast) {
    setNumberLocale("de-DE");
    EXPECT_EQ(parseNumber("1,5"), 1.5);
    EXPECT_EQ(toInt16("1.000"), 1000);
    setNumberLocale("en-US");
    EXPECT_EQ(parseNumber("1,5"), 15);
    EXPECT_EQ(toInt16("1.000"), 1);
}

}  // namespace
}  // namespace wynconfig
