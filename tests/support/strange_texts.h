// Texts that a record must give back byte for byte, and at which its stored form might break.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace wynconfig {

struct StrangeText {
    std::string what;  ///< a word for the name of a test
    std::string text;
};

inline void PrintTo(const StrangeText& strange, std::ostream* out) {
    *out << strange.what;
}

inline std::vector<StrangeText> strangeTexts() {
    using namespace std::string_literals;
    std::string controls;
    for (char c = 1; c < 0x20; ++c) controls += c;
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return {
        {"Empty", ""},
        {"OneBlank", " "},
        {"BlanksAlone", "     "},
        {"OuterBlanks", "  a  b  "},
        {"Tabs", "\ta\tb\t"},
        {"TabAlone", "\t"},
        {"Cr", "a\rb\r"},
        {"Lf", "\na\nb\n"},
        {"CrLf", "a\r\nb\r\n\r\n"},
        {"LfAlone", "\n"},
        {"CrAlone", "\r"},
        {"CdataEnd", "a]]>b]]]]>>"},
        {"CdataStart", "<![CDATA[a]]>"},
        {"Markup", "<row key=\"x\">&amp;&#65;&lt;</row><!-- -- -->"},
        {"Quotes", "\"a\" 'b' `c`"},
        {"LiteralEscape", "_x0041_"},
        {"LiteralEscapes", "_x005F_x0041__x0041_"},
        {"LowerCaseEscape", "_x00e9_ _x00E9_"},
        {"NearEscapes", "_x004_ _x00411_ _X0041_ _x0041 x0041_ __x0041_ _x 041_ _x+041_"},
        {"EscapeLeftOpenBeforeAControl", "_x0041\0"s},
        {"EscapeLeftOpenBeforeABadByte", "_x0041\xFF"},
        {"EscapeLeftOpenBeforeAnother", "_x0041_x0042_"},
        {"EscapeHeadBeforeAControl", "_x\x01_x0\x01_x00\x01"},
        {"EscapedSurrogates", "_xD83D__xDE00__xDC80__xDCFF_"},
        {"Underscores", "_____ _x_x_x_ _"},
        {"Nul", "a\0b"s},
        {"NulAlone", "\0"s},
        {"Controls", controls},
        {"Delete", "\x7F"},
        {"C1Controls", "\u0080\u0085\u009F"},
        {"LineSeparators", "\u2028\u2029\u00A0"},
        {"Noncharacters", "\uFFFE\uFFFF\uFDD0\U0001FFFE\U0010FFFF"},
        {"ByteOrderMark", "\uFEFFa\uFEFF"},
        {"Emoji", "\U0001F600\U0001F469\u200D\U0001F527"},
        {"Japanese", "部品番号のリスト"},
        {"CombiningMarks", "e\u0301\u0323\u0345 a\u0308"},
        {"RightToLeft", "\u202Eרשימה\u202C"},
        {"LoneContinuation", "a\x80\xBF"},
        {"CutShortUtf8", "\xE2\x82"},
        {"OverlongUtf8", "\xC0\xAF\xE0\x80\xAF"},
        {"SurrogatesAsUtf8", "\xED\xA0\xBD\xED\xB8\x80"},
        {"BeyondUnicode", "\xF4\x90\x80\x80\xFE\xFF"},
        {"EveryByte", bytes},
        {"XmlDeclaration", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>"},
    };
}

}  // namespace wynconfig
