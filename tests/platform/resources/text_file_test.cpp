// Files of texts: what of XLIFF is read, as the tools of translators write it, and what is refused.
#include "platform/resources/text_file.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/error.h"

namespace wynconfig {

static bool operator==(const FileText& one, const FileText& other) {
    return one.key == other.key && one.source == other.source && one.target == other.target;
}

static void PrintTo(const FileText& text, std::ostream* out) {
    *out << text.key << ": [" << text.source << "] [" << text.target.value_or("(none)") << "]";
}

namespace {

using namespace std::string_view_literals;
using Texts = std::vector<FileText>;

const std::string kFileHead =
    "<xliff version='1.2' xmlns='urn:oasis:names:tc:xliff:document:1.2'>"
    "<file original='x' source-language='en' target-language='de' datatype='plaintext'><body>";
const std::string kFileTail = "</body></file></xliff>";

Texts read(const std::string& units) {
    return readTextFile(kFileHead + units + kFileTail);
}

/// The target of the only unit, whose content is given.
std::optional<std::string> targetOf(const std::string& content) {
    const Texts texts = read("<trans-unit id='K'>" + content + "</trans-unit>");
    EXPECT_EQ(texts.size(), 1U);
    return texts.empty() ? std::nullopt : texts[0].target;
}

/// Why a file is refused; empty when it is read.
std::string faultOf(std::string_view xml) {
    try {
        readTextFile(xml);
        return {};
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errc::BadRecord);
        return error.description();
    }
}

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i) all += text;
    return all;
}

TEST(TextFile, HasTextsInTheirOrderWithSourceAndTarget) {
    EXPECT_EQ(read("<trans-unit id='B'><source>One</source><target>Eins</target></trans-unit>"
                   "<group id='g'><note>Group</note><group>"
                   "<trans-unit id='A'><source>&amp;Two</source></trans-unit></group></group>"),
              (Texts{{"B", "One", "Eins"}, {"A", "&Two", std::nullopt}}));
    EXPECT_EQ(read(""), Texts{});
    EXPECT_EQ(read("<group id='g'><note>Group</note></group>"), Texts{});
}

TEST(TextFile, HasTheTextsOfAllItsParts) {
    const std::string part =
        "<file original='y' source-language='en' datatype='x'><body>"
        "<trans-unit id='C'><source>c</source></trans-unit></body></file>";
    EXPECT_EQ(readTextFile("<xliff version='1.2'>" + part + part + "</xliff>").size(), 2U);
}

TEST(TextFile, TellsWhatStillNeedsATranslation) {
    EXPECT_EQ(targetOf("<source>a</source>"), std::nullopt);
    EXPECT_EQ(targetOf("<target state='new'/>"), std::nullopt);
    EXPECT_EQ(targetOf("<target state='needs-translation'> </target>"), std::nullopt);
    EXPECT_EQ(targetOf("<target state='new'>x</target>"), "x");
    EXPECT_EQ(targetOf("<target state='needs-review-translation'/>"), "");
    EXPECT_EQ(targetOf("<target state='final'></target>"), "");
    EXPECT_EQ(targetOf("<target/>"), "");
}

TEST(TextFile, LeavesOutWhatIsNoTranslationInForce) {
    EXPECT_EQ(
        targetOf("<source>a</source>"
                 "<seg-source><mrk mtype='seg' mid='1'>b</mrk></seg-source>"
                 "<target><mrk mtype='seg' mid='1'>Ja.</mrk> <mrk mid='2'>Nein.</mrk></target>"
                 "<note>n</note>"
                 "<alt-trans match-quality='80%'><source>c</source><target>d</target>"
                 "</alt-trans>"
                 "<context-group purpose='location'><context context-type='sourcefile'>e"
                 "</context></context-group>"),
        "Ja. Nein.");
    EXPECT_EQ(targetOf("<source>a</source><alt-trans><target>d</target></alt-trans>"),
              std::nullopt);
}

TEST(TextFile, KeepsTheCharactersOfInlineElements) {
    EXPECT_EQ(targetOf("<target>Die <g id='1'>fette <x id='2'/><g id='3'>Zahl</g></g> "
                       "<ph id='4'>%1</ph><bpt id='5'>[</bpt>!<ept id='5'>]</ept></target>"),
              "Die fette Zahl %1[!]");
    EXPECT_EQ(targetOf("<target>a<![CDATA[<b>&amp;]]><!-- c --><?d e?>f</target>"), "a<b>&amp;f");
}

TEST(TextFile, KeepsBlanksWhereTheyCount) {
    EXPECT_EQ(targetOf("<target>\n    One\ttwo\n    three  \n  </target>"), "One two three");
    EXPECT_EQ(targetOf("<target>a\u00A0 \u00A0b\u3000</target>"), "a\u00A0 \u00A0b\u3000");
    EXPECT_EQ(targetOf("<target xml:space='preserve'> a\n b  </target>"), " a\n b  ");
    const std::string unit =
        "<trans-unit id='K'><source xml:space='default'> a  b </source><target> c  d </target>"
        "</trans-unit>";
    EXPECT_EQ(read("<group xml:space='preserve'>" + unit + "</group>" + unit),
              (Texts{{"K", "a b", " c  d "}, {"K", "a b", "c d"}}));
}

TEST(TextFile, ReadsNamespacesByWhatTheyAre) {
    const std::string space = "'urn:oasis:names:tc:xliff:document:1.2'";
    const Texts expected{{"K", "a", "b"}};
    EXPECT_EQ(readTextFile("<x:xliff xmlns:x=" + space +
                           "><x:file><x:body><x:trans-unit id='K'><x:source>a</x:source>"
                           "<x:target>b</x:target></x:trans-unit></x:body></x:file></x:xliff>"),
              expected);
    EXPECT_EQ(readTextFile("<xliff><file><body><trans-unit id='K'><source>a</source>"
                           "<target>b</target></trans-unit></body></file></xliff>"),
              expected);
    EXPECT_EQ(readTextFile("<xliff xmlns='urn:oasis:names:tc:xliff:document:1.1'><file><body>"
                           "<trans-unit id='K'><source>a</source><target>b</target></trans-unit>"
                           "</body></file></xliff>"),
              expected);
    EXPECT_EQ(readTextFile("<xliff xmlns=" + space +
                           " xmlns:o='urn:other'><file><body><o:trans-unit id='L'>"
                           "<source>c</source></o:trans-unit><trans-unit id='K' o:id='M'>"
                           "<source>a</source><o:target>c</o:target><target o:state='new'>b"
                           "</target><o:source>c</o:source></trans-unit></body></file></xliff>"),
              expected);
}

TEST(TextFile, ReadsOverAUnitWithoutAKey) {
    EXPECT_EQ(read("<trans-unit><source>a</source></trans-unit>"
                   "<trans-unit id='K'><source>b</source></trans-unit>"),
              (Texts{{"K", "b", std::nullopt}}));
}

/// A text in UTF-16 with bytes in the place of its "?".
std::string inUtf16(const std::string& text, std::string_view bytes) {
    std::string wide = "\xFF\xFE";
    for (const char each : text) {
        if (each == '?')
            wide += bytes;
        else
            (wide += each) += '\0';
    }
    return wide;
}

TEST(TextFile, ReadsOtherEncodings) {
    EXPECT_EQ(readTextFile("<?xml version='1.0' encoding='ISO-8859-1'?><xliff>"
                           "<trans-unit id='K'><target>\xFC</target></trans-unit></xliff>"),
              (Texts{{"K", "", "ü"}}));
    const std::string wide = "<xliff><trans-unit id='?'><target>?</target></trans-unit></xliff>";
    EXPECT_EQ(readTextFile(inUtf16(wide, "\x3D\xD8\x00\xDE"sv)), (Texts{{"😀", "", "😀"}}));
}

TEST(TextFile, RefusesHalfACharacter) {
    for (const std::string unit : {"<trans-unit id='?'/>",
                                   "<trans-unit id='K'><target>?</target>"
                                   "</trans-unit>"}) {
        for (const std::string_view half : {"\x3D\xD8"sv, "\x00\xDE"sv}) {
            EXPECT_EQ(faultOf(inUtf16("<xliff>" + unit + "</xliff>", half)),
                      "it is no whole text in UTF-16");
        }
    }
    EXPECT_EQ(faultOf("<\0x\0/\0>\0"sv), "it is no whole text in UTF-16");
}

TEST(TextFile, RefusesWhatIsNoXliff) {
    EXPECT_EQ(faultOf("").find("it is not well-formed XML (line 1: "), 0U);
    EXPECT_EQ(faultOf("BUTTON_OK=OK\n").find("it is not well-formed XML (line 1: "), 0U);
    EXPECT_EQ(faultOf(kFileHead + "\n</body>").find("it is not well-formed XML (line 2: "), 0U);
    EXPECT_EQ(faultOf("<dataset/>"), "it is no XLIFF of version 1.2");
    EXPECT_EQ(faultOf("<xliff xmlns='urn:oasis:names:tc:xliff:document:2.0' version='2.0'/>"),
              "it is no XLIFF of version 1.2");
    EXPECT_EQ(faultOf("<?xml version='3'?><xliff/>"),
              "it declares a version of XML that is not read");
    EXPECT_EQ(faultOf("<xliff/>"), "");
}

TEST(TextFile, RefusesADocumentTypeUnread) {
    const std::string laughs =
        "<!DOCTYPE xliff [<!ENTITY a 'ha'><!ENTITY b '&a;&a;&a;'>]><xliff><file>&b;</file></xliff>";
    EXPECT_EQ(faultOf(laughs), "it has a document type declaration");
    EXPECT_EQ(faultOf("<!DOCTYPE xliff SYSTEM 'file:///etc/passwd'><xliff/>"),
              "it has a document type declaration");
    EXPECT_EQ(faultOf("<xliff>&a;</xliff>").find("it is not well-formed XML"), 0U);
}

TEST(TextFile, IsHeldToBounds) {
    const std::string small = "<xliff/>";
    const std::string large = small + std::string(kMaxTextFileSize - small.size(), ' ');
    EXPECT_EQ(faultOf(large), "");
    EXPECT_EQ(faultOf(large + " "), "it is too large");
    EXPECT_EQ(faultOf("<xliff>" + repeated("<g>", 255) + repeated("</g>", 255) + "</xliff>"), "");
    EXPECT_EQ(faultOf("<xliff>" + repeated("<g>", 256)), "its elements are nested too deeply");
    EXPECT_EQ(faultOf("<xliff>" + repeated("<g>", 255) + "<g/>"),
              "its elements are nested too deeply");
    std::string spaces;
    for (int i = 0; i < 256; ++i) spaces += " xmlns:a" + std::to_string(i) + "='urn:b'";
    EXPECT_EQ(faultOf("<xliff" + spaces + "/>"), "");
    EXPECT_EQ(faultOf("<xliff" + spaces + "><g xmlns:b='urn:c'/></xliff>"),
              "it declares too many namespaces");
    std::string names;
    for (int i = 0; i < 40'000; ++i) names += "<n" + std::to_string(i) + "/>";
    EXPECT_EQ(faultOf("<xliff>" + names + "</xliff>"), "it has too many different names");
}

TEST(TextFile, IsReadInATimeInProportionToItsSize) {
    const std::string blank(8 << 20, ' ');
    EXPECT_EQ(targetOf("<target>a" + blank + "b</target>"), "a b");
    const Texts many =
        read(repeated("<trans-unit id='K'><source>a</source></trans-unit>", 100'000));
    EXPECT_EQ(many.size(), 100'000U);
}

}  // namespace
}  // namespace wynconfig
