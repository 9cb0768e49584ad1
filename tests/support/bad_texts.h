// Texts that are no record: no XML at all, XML of another kind, and XML that is out to do harm.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace wynconfig {

/// A stored text that is no record, and a part of what the failure says.
struct BadText {
    std::string what;
    std::string xml;
    std::string cause;
};

inline void PrintTo(const BadText& bad, std::ostream* out) {
    *out << bad.what;
}

inline std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) all += text;
    return all;
}

/// "Billion laughs": ten levels of tenfold references, a gigabyte when expanded.
inline std::string entityBomb() {
    std::string xml = "<!DOCTYPE dataset [<!ENTITY a0 \"hahahahaha\">";
    for (int i = 1; i <= 8; ++i)
        xml += "<!ENTITY a" + std::to_string(i) + " \"" +
               repeated("&a" + std::to_string(i - 1) + ";", 10) + "\">";
    return xml + "]><dataset name=\"&a8;\"><row key=\"k\">&a8;</row></dataset>";
}

inline std::string utf16(const std::string& latin, bool bigEndian) {
    std::string wide = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : latin) {
        if (bigEndian) wide += '\0';
        wide += c;
        if (!bigEndian) wide += '\0';
    }
    return wide;
}

/// Attributes with a name of their own each.
inline std::string distinctNames(int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += " a" + std::to_string(i) + "=\"\"";
    return all;
}

/// How the cause begins where the text is not even XML.
inline const std::string kIllFormed = "it is not well-formed XML (";
inline const std::string kTooDeep = "its elements are nested too deeply";

inline std::vector<BadText> badTexts() {
    using namespace std::string_literals;
    const std::string& illFormed = kIllFormed;
    const std::string dtd = "it has a document type declaration";
    const std::string root = "its root element is not a dataset";
    const std::string latin = "<?xml version=\"1.0\" encoding=\"windows-1252\"?>";
    const std::string row = "<dataset><row key=\"a\">b</row></dataset>";
    return {
        {"Empty", "", illFormed},
        {"BlanksAlone", "  \r\n\t ", illFormed},
        {"NoXml", "ProgramPath=/programs/parts.exe\n", illFormed},
        {"Binary", "MZ\x90\0\3\0\0\0\4\0\xFF\xFF"s, illFormed},
        {"NulsAlone", std::string(4096, '\0'), illFormed},
        {"ByteOrderMarkTwice", "\xEF\xBB\xBF\xEF\xBB\xBF" + row, illFormed},
        {"NulBehindTheRoot", row + "\0"s, illFormed + "line 1: "},
        {"MoreBehindANul", row + "\n\0<row"s, illFormed},
        {"OutsideOfItsEncoding", latin + "<dataset name=\"\x81\"/>", illFormed + "line 1: "},
        {"OutsideOfItsEncodingBehindTheRoot", latin + row + "\x81", illFormed},
        {"NulInside", "<dataset><row key=\"a\">b\0c</row></dataset>"s, illFormed},
        {"ControlInside", "<dataset><row key=\"a\">b\x01</row></dataset>", illFormed},
        {"Mismatch", "<dataset><row key=\"a\">b</dataset></row>", illFormed},
        {"TwoRoots", row + row, illFormed},
        {"TextBehindTheRoot", row + "more", illFormed},
        {"AttributeTwice", "<dataset><row key=\"a\" key=\"b\"/></dataset>", illFormed},
        {"InvalidUtf8", "<dataset><row key=\"a\">\xC3(</row></dataset>", illFormed},
        {"UnknownEncoding", "<?xml version=\"1.0\" encoding=\"x-none\"?>" + row,
         "it declares the encoding x-none, which is not read"},
        {"Utf16CutShort", utf16(row, false).substr(0, 41), illFormed},
        {"UnknownEntity", "<dataset><row key=\"a\">&nothing;</row></dataset>", illFormed},
        {"UnboundPrefix", "<dataset><z:row/></dataset>", illFormed + "line 1: unbound prefix"},
        {"UnboundPrefixOfAnAttribute", "<dataset>\n<a z:a=\"\"/></dataset>",
         illFormed + "line 2: unbound prefix"},
        {"PrefixOutOfItsElement", "<dataset><a xmlns:z=\"urn:z\"/><z:a/></dataset>",
         illFormed + "line 1: unbound prefix"},
        {"PrefixBoundToNothing", "<dataset xmlns:z=\"\"/>", illFormed},
        {"PrefixOfXmlForAnother", "<dataset xmlns:xml=\"urn:z\"/>", illFormed},
        {"AttributeTwiceByTwoPrefixes",
         "<dataset xmlns:y=\"urn:z\" xmlns:z=\"urn:z\" y:a=\"\" z:a=\"\"/>",
         illFormed + "line 1: duplicate attribute"},
        {"ColonInAnInstruction", "<?a:b?>" + row, illFormed},
        {"TwoColonsInAName", "<dataset xmlns:z=\"urn:z\"><z:a:b/></dataset>", illFormed},
        {"ColonInFront", "<dataset><:a/></dataset>", illFormed},
        {"VersionOfAnotherXml", "<?xml version=\"2.0\"?>" + row,
         "it declares a version of XML that is not read"},
        {"VersionWithALetter", "<?xml version=\"1.x\"?>" + row,
         "it declares a version of XML that is not read"},
        {"VersionThatIsNone", "<?xml version=\"1.\"?>" + row,
         "it declares a version of XML that is not read"},
        {"Nested100000Deep",
         "<dataset>" + repeated("<a>", 100'000) + repeated("</a>", 100'000) + "</dataset>",
         kTooDeep},
        {"Nested100000DeepAndOpen", repeated("<dataset>", 100'000), kTooDeep},
        {"OfThousandsOfNames", "<dataset" + distinctNames(100'000) + "/>",
         "it has too many different names"},
        {"EntityBomb", entityBomb(), dtd},
        {"Entities", "<!DOCTYPE dataset [<!ENTITY e \"x\">]><dataset name=\"&e;\"/>", dtd},
        {"Dtd", "<!DOCTYPE dataset>" + row, dtd},
        // Whoever had read on would have seen that this is not even XML.
        {"DtdAndNoMoreXml", "<!DOCTYPE dataset [\0 <<"s, dtd},
        {"DtdOfManyNames", "<!DOCTYPE dataset [<!ATTLIST dataset" + distinctNames(100'000), dtd},
        {"DtdAndMore", "<!DOCTYPE dataset><dataset><row>", dtd},
        {"DtdWithEntities", "<!DOCTYPE dataset [<!ENTITY e \"x\">]>" + row, dtd},
        {"DtdElsewhere", "<!DOCTYPE dataset SYSTEM \"file:///etc/hostname\">" + row, dtd},
        {"OtherRoot", "<list><row key=\"a\">b</row></list>", root},
        {"RootInCapitals", "<DATASET/>", root},
        {"RootInANamespace", "<dataset xmlns=\"urn:other\"><row key=\"a\"/></dataset>", root},
        {"RootIsARow", "<row key=\"a\">b</row>", root},
        {"KeyTwice", "<dataset><row key=\"a\"/><row key=\"b\"/><row key=\"a\"/></dataset>",
         "it has the row \"a\" twice"},
        {"RowWithoutKey", "<dataset><row>b</row></dataset>", "it has a row without a key"},
        {"RowWithForeignKey", "<dataset xmlns:z=\"urn:z\"><row z:key=\"a\">b</row></dataset>",
         "it has a row without a key"},
    };
}

}  // namespace wynconfig
