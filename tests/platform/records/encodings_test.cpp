// The encodings of stored texts. A file is read as it declares and a document as UTF-8, whatever
// was read before; a walk over the sessions keeps what a file in another encoding says.
#include <optional>
#include <utility>

#include "dialogs/session/frmMORAMConfig.h"
#include "support/bad_texts.h"
#include "support/desk.h"
#include "support/raised.h"

namespace wynconfig {
namespace {

using namespace std::string_literals;

enum class From { File, Document };

/// A text that is read, and the name and the data that must come of it.
struct Reading {
    std::string what;
    From from;
    std::string xml;
    std::optional<std::string> name;  ///< nothing when the text must be refused
};

std::string declared(const std::string& encoding) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}

std::string named(const std::string& name) {
    return "<dataset name=\"" + name + "\"><row key=\"k\">" + name + "</row></dataset>";
}

std::vector<Reading> readings() {
    const std::string mark = "\xEF\xBB\xBF";
    const std::string word = "Maß 部品";
    return {
        {"a file without declaration", From::File, named(word), word},
        {"a file in UTF-8", From::File, declared("UTF-8") + named(word), word},
        {"a file with a byte order mark", From::File, mark + named(word), word},
        {"a file in ISO-8859-1", From::File, declared("ISO-8859-1") + named("Ma\xDF"), "Maß"},
        {"a file in windows-1252", From::File, declared("windows-1252") + named("\x80"), "€"},
        {"a file in UTF-16", From::File, utf16(declared("UTF-16") + named("N"), false), "N"},
        {"a file in UTF-16, big-endian", From::File, utf16(named("N"), true), "N"},
        {"a file whose mark is right", From::File, mark + declared("ISO-8859-1") + named(word),
         word},
        {"a file in UTF-16 whose mark is right", From::File,
         utf16(declared("UTF-8") + named("N"), false), "N"},
        {"a file in UTF-16 of half a character more",
         From::File,
         utf16(named("N"), true) + "x",
         {}},
        {"a file in no known encoding", From::File, declared("x-none") + named("N"), {}},
        {"a file that is no UTF-8", From::File, named("Ma\xDF"), {}},
        {"a file cut short", From::File, declared("ISO-8859-1") + "<dataset>", {}},
        {"a file that is no record", From::File, declared("ISO-8859-1") + "<list/>", {}},
        {"a document without declaration", From::Document, named(word), word},
        {"a document in UTF-8", From::Document, declared("UTF-8") + named(word), word},
        {"a document with a byte order mark", From::Document, mark + named(word), word},
        {"a document behind a line end", From::Document, "\n" + named(word), word},
        {"a document that declares UTF-16", From::Document, declared("UTF-16") + named(word), word},
        {"a document that declares Latin", From::Document, declared("ISO-8859-1") + named(word),
         word},
        {"a document that is Latin", From::Document, declared("ISO-8859-1") + named("Ma\xDF"), {}},
        {"a document that is UTF-16", From::Document, utf16(named("N"), false), {}},
        {"a document that is UTF-16 without its mark",
         From::Document,
         utf16(named("N"), false).substr(2),
         {}},
        {"a document cut short", From::Document, "<dataset>", {}},
        {"a document that is no record", From::Document, "<list/>", {}},
        {"no document", From::Document, "", {}},
    };
}

class Encodings : public ::testing::Test {
  protected:
    void SetUp() override {
        memory->makeFolder("/store");
        setFileSystem(memory.get());
        for (std::size_t i = 0; i < all.size(); ++i) memory->save(fileOf(i), all[i].xml);
    }
    void TearDown() override { setFileSystem(nullptr); }

    static ItemPath fileOf(std::size_t number) {
        return ItemPath::item("/store/", std::to_string(number));
    }

    /// What comes of a reading: the name, where the data are the same, or nothing.
    std::optional<std::string> outcome(std::size_t number) {
        Dataset record;
        try {
            if (all[number].from == From::File) {
                record.Load(fileOf(number));
            } else {
                Document document;
                document.loadXML(all[number].xml);
                record.Load(document);
            }
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errc::BadRecord);
            return {};
        }
        return record.GetRow("k")[1] == record.Name() ? record.Name() : "name and data differ";
    }

    const std::vector<Reading> all = readings();
    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
};

TEST_F(Encodings, OfATextDoNotHangOnTheTwoTextsReadBefore) {
    for (std::size_t first = 0; first < all.size(); ++first) {
        for (std::size_t second = 0; second < all.size(); ++second) {
            for (std::size_t third = 0; third < all.size(); ++third) {
                outcome(first);
                outcome(second);
                ASSERT_EQ(outcome(third), all[third].name)
                    << all[third].what << " behind " << all[first].what << " and "
                    << all[second].what;
            }
        }
    }
}

TEST_F(Encodings, ThatFailWriteNothingToTheErrorStream) {
    memory->save({"/store/", "BAD.vla"}, declared("windows-1252") + named("\x81"));
    testing::internal::CaptureStderr();
    const Error error = raisedBy([] { Dataset().Load(ItemPath{"/store/", "BAD.vla"}); });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_NE(error.description().find("line 1: not well-formed (invalid token)"),
              std::string::npos);
}

/// What comes of a file: its name, or nothing where it is no record.
std::optional<std::string> nameIn(const std::string& xml) {
    const ItemPath file{"/store/", "ANY.vla"};
    fileSystem().save(file, xml);
    Dataset record;
    try {
        record.Load(file);
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errc::BadRecord);
        return {};
    }
    return record.Name();
}

TEST_F(Encodings, AreNamedInAnyCase) {
    for (const std::string encoding : {"Iso-8859-15", "iso-8859-15", "ISO-8859-15"})
        EXPECT_EQ(nameIn(declared(encoding) + named("\xA4")), "€") << encoding;
    for (const std::string encoding : {"Windows-1252", "windows-1252", "WINDOWS-1252"})
        EXPECT_EQ(nameIn(declared(encoding) + named("\x80")), "€") << encoding;
    for (const std::string encoding : {"utf-8", "Us-Ascii"})
        EXPECT_EQ(nameIn(declared(encoding) + named("N")), "N") << encoding;
}

TEST_F(Encodings, ThatAreNotReadAreRefusedByTheirNames) {
    for (const std::string encoding :
         {"UTF-7", "UTF-32", "UCS-4", "ASCII", "latin1", "ISO-8859-12", "ISO-8859-17", "ISO-8859-",
          "windows-1249", "windows-1259", "windows-125", "cp1252", "KOI8-R", "Shift_JIS", "EUC-JP",
          "GB18030", "Big5", "IBM850"}) {
        const ItemPath file{"/store/", "ANY.vla"};
        memory->save(file, declared(encoding) + named("N"));
        EXPECT_EQ(raisedBy([&] { Dataset().Load(file); }).description(),
                  "The file /store/ANY.vla holds no record: it declares the encoding " + encoding +
                      ", which is not read.");
    }
}

TEST_F(Encodings, WithLongNamesAreNotShownInFull) {
    const ItemPath file{"/store/", "ANY.vla"};
    for (const std::size_t length : {40U, 41U, 100'000U}) {
        memory->save(file, declared(std::string(length, 'x')) + named("N"));
        EXPECT_EQ(raisedBy([&] { Dataset().Load(file); }).description(),
                  "The file /store/ANY.vla holds no record: it declares the encoding " +
                      std::string(40, 'x') + (length > 40 ? "..." : "") + ", which is not read.");
    }
}

TEST_F(Encodings, OfSevenBitsHoldNoOtherBytes) {
    EXPECT_EQ(nameIn(declared("US-ASCII") + named("N")), "N");
    EXPECT_EQ(nameIn(declared("US-ASCII") + named("\xC3\xA4")), std::nullopt);
}

TEST_F(Encodings, InUtf16NeedTheMarkOrTheDeclaration) {
    for (const bool bigEndian : {false, true}) {
        const auto withoutMark = [&](const std::string& xml) {
            return utf16(xml, bigEndian).substr(2);
        };
        EXPECT_EQ(nameIn(withoutMark(declared("UTF-16") + named("N"))), "N");
        EXPECT_EQ(nameIn(withoutMark(named("N"))), std::nullopt);
    }
    EXPECT_EQ(nameIn(declared("UTF-16") + named("N")), std::nullopt);
    // The parser takes them for UTF-16 by their first two bytes alone.
    Document document;
    EXPECT_FALSE(document.loadXML("<\0aa/\0>\0"s));
    EXPECT_FALSE(document.loadXML("\0<aa\0/\0>"s));
}

TEST_F(Encodings, InUtf16HaveWholeCharacters) {
    const std::string high = "\x3D\xD8";
    const std::string low = "\x00\xDE"s;
    const std::string letter = "x\0"s;
    for (const auto& [bigEndian, isMarked] :
         {std::pair{false, false}, {false, true}, {true, false}, {true, true}}) {
        const auto with = [bigEndian = bigEndian, isMarked = isMarked](std::string name) {
            for (std::size_t i = 0; bigEndian && i < name.size(); i += 2)
                std::swap(name[i], name[i + 1]);
            const std::string xml = utf16(declared("UTF-16") + named("#"), bigEndian);
            const std::string mark = bigEndian ? "\0#"s : "#\0"s;
            const std::size_t at = xml.find(mark);
            return nameIn(std::string(xml).replace(at, 2, name).substr(isMarked ? 0 : 2));
        };
        EXPECT_EQ(with(high + low), "😀");
        EXPECT_EQ(with("\xDC\0"s), "Ü") << "what looks like half a character on the wrong side";
        // The parser takes half a character and whatever follows it for a whole one.
        for (const std::string& half : {high, high + letter, low, low + letter, low + high,
                                        high + high + low, high + low + low})
            EXPECT_EQ(with(half), std::nullopt);
    }
    EXPECT_EQ(nameIn(utf16(named("N"), false) + high), std::nullopt);
}

TEST_F(Encodings, HaveNamesOfTheLettersOfXmlAlone) {
    const std::vector<std::string> places = {"<dataset><?#?></dataset>",
                                             "<dataset #=\"\"/>",
                                             "<dataset b=\"\"><a#/></dataset>",
                                             "<dataset xmlns:#=\"u\"/>",
                                             "<dataset><a><b><c a=\"\" b#=\"\"/></b></a></dataset>",
                                             "<dataset xmlns:z=\"\xB5\"><z:a#/></dataset>",
                                             "<dataset xmlns:z=\"\xB5\" z:a=\"\" z:#=\"\"/>"};
    for (const std::string& place : places)
        for (const auto& [letter, isOne] : {std::pair{'\xAA', false},
                                            {'\xB5', false},
                                            {'\xBA', false},
                                            {'\xC0', true},
                                            {'\xEA', true}}) {
            std::string xml = declared("ISO-8859-1") + place;
            xml[xml.find('#')] = letter;
            const auto name = isOne ? std::optional<std::string>("") : std::nullopt;
            EXPECT_EQ(nameIn(xml), name) << xml;
            EXPECT_EQ(nameIn(utf16(xml, false)), name) << xml;
            EXPECT_EQ(nameIn(utf16(xml, true)), name) << xml;
            const std::string bare = xml.substr(declared("ISO-8859-1").size());
            EXPECT_EQ(nameIn(utf16(bare, false)), name) << bare;
        }
    const std::string values =
        declared("ISO-8859-1") +
        "<dataset xmlns=\"\" xmlns:z=\"\xB5\" z:a=\"\xAA\" name=\"\xB5\xBA\">"
        "<z:a>\xB5</z:a><?a \xB5?><!--\xB5--></dataset>";
    EXPECT_EQ(nameIn(values), "µº");
    EXPECT_EQ(nameIn(utf16(values, true)), "µº");
}

/// Sessions of a store in an encoding of its own, in front of a person and in a walk.
class LatinSession : public Desk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        memory->save(ItemPath::item(sessionFolder, "LATIN"),
                     declared("ISO-8859-1") +
                         "<dataset type=\"MORAM\" name=\"LATIN\">"
                         "<row key=\"ProgramPath\">/stra\xDF\x65/teile</row>"
                         "<row key=\"FormatCount\">1</row><row key=\"FORMAT1\">ALT</row>"
                         "</dataset>");
    }
};
ON_EVERY_VIEW(LatinSession);

TEST_P(LatinSession, KeepsItsContentInAWalkBehindADocument) {
    putSession("BEFORE", {{"FormatCount", "1"}, {"FORMAT1", "ALT"}});
    Document document;
    ASSERT_TRUE(document.loadXML("<dataset/>"));
    frmMORAMConfig form;
    form.UpdatePartNumberFormatsInAllMORAMs("ALT", "NEU");
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_EQ(sessionRows("LATIN"),
              (Rows{{"ProgramPath", "/straße/teile"}, {"FormatCount", "1"}, {"FORMAT1", "NEU"}}));
    EXPECT_EQ(sessionRows("BEFORE"), (Rows{{"FormatCount", "1"}, {"FORMAT1", "NEU"}}));
}

TEST_P(LatinSession, OpensBehindAnExchangeInMemory) {
    std::string name = "OTHER";
    std::string xml = "<dataset name=\"OTHER\"/>";
    std::vector<std::string> formats;
    user().onForm("frmMORAMConfig", [](User& u) { u.click("btnCancel"); });
    EXPECT_EQ(component.showMORAMConfigDlgEX(name, xml, formats), 1);
    user().onForm("frmMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtProgramPath").text, "/straße/teile");
        u.click("btnCancel");
    });
    name = "LATIN";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_NO_THROW(user().finish());
}

}  // namespace
}  // namespace wynconfig
