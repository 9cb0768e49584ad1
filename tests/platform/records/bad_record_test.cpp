// Item files that hold no record, or one that another hand wrote: each bad one raises a clear
// failure in bounded time and leaves the object as it was; in the session dialog it makes a box.
#include <chrono>

#include "support/bad_texts.h"
#include "support/desk.h"
#include "support/raised.h"

namespace wynconfig {
namespace {

/// Runs a statement that must be done soon.
template <class Statement>
void expectQuick(const Statement& statement) {
    const auto start = std::chrono::steady_clock::now();
    statement();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    EXPECT_LT(taken.count(), 10.0);
}

/// A store in memory, and a record that has content.
class RecordFile : public ::testing::Test {
  protected:
    void SetUp() override {
        memory->makeFolder("/store");
        setFileSystem(memory.get());
        record.Create("MORAM", "OLD", "/store/", {"Element", "Data"});
        record.AddRow({"old", "row"});
    }
    void TearDown() override { setFileSystem(nullptr); }

    void put(const std::string& xml) { memory->save(file, xml); }
    void load(const std::string& xml) {
        put(xml);
        record.Load(file, 0);
    }
    void expectOld() const {
        EXPECT_EQ(record.Type(), "MORAM");
        EXPECT_EQ(record.Name(), "OLD");
        EXPECT_EQ(record.Folder(), "/store/");
        ASSERT_EQ(record.Rows().size(), 1U);
        EXPECT_EQ(record.GetRow("old"), (DataRow{"old", "row"}));
    }

    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    const ItemPath file{"/store/", "BAD.vla"};
    Dataset record;
};

class BadRecord : public RecordFile, public ::testing::WithParamInterface<BadText> {};
INSTANTIATE_TEST_SUITE_P(Texts, BadRecord, ::testing::ValuesIn(badTexts()),
                         [](const auto& each) { return each.param.what; });

TEST_P(BadRecord, RaisesAFailureThatNamesTheFileAndTheCause) {
    put(GetParam().xml);
    expectQuick([&] {
        const Error error = raisedBy([&] { record.Load(file, 0); });
        EXPECT_EQ(error.number(), errc::BadRecord);
        const std::string text = error.description();
        EXPECT_TRUE(text.starts_with("The file /store/BAD.vla holds no record: it")) << text;
        EXPECT_NE(text.find(GetParam().cause), std::string::npos) << text;
        EXPECT_TRUE(text.ends_with(".")) << text;
        EXPECT_LT(text.size(), 500U);
    });
    expectOld();
    EXPECT_EQ(memory->read(file), GetParam().xml);
}

TEST_P(BadRecord, LeavesTheObjectUsable) {
    put(GetParam().xml);
    EXPECT_THROW(record.Load(file, 0), Error);
    EXPECT_NO_THROW(load("<dataset name=\"N\"><row key=\"a\">b</row></dataset>"));
    EXPECT_EQ(record.GetRow("a")[1], "b");
    EXPECT_THROW(record.GetRow("old"), Error);
}

TEST_P(BadRecord, IsNoRecordInADocumentEither) {
    Document document;
    if (GetParam().what == "UnknownEncoding") {
        // A document takes UTF-8 whatever it declares, so that there is nothing bad about this one.
        EXPECT_TRUE(document.loadXML(GetParam().xml));
        EXPECT_NO_THROW(record.Load(document, 0));
        EXPECT_EQ(record.GetRow("a")[1], "b");
        return;
    }
    expectQuick([&] {
        const bool illFormed = GetParam().cause.starts_with("it is not well-formed");
        EXPECT_FALSE(document.loadXML(GetParam().xml) && illFormed);
        EXPECT_EQ(raisedBy([&] { record.Load(document, 0); }).number(), errc::BadRecord);
    });
    expectOld();
}

TEST_F(RecordFile, CutShortAtAnyByteRaisesAndChangesNothing) {
    Dataset whole;
    whole.Create("MORAM", "NAME & \"CO\"", "", {"Element", "Data"});
    whole.AddRow({"ProgramPath", "部品\r\n_x0041_\x01\xFF"});
    whole.AddRow({"Empty", ""});
    whole.Save(file);
    const std::string xml = memory->read(file);
    const std::size_t end = xml.rfind('>');
    for (std::size_t length = 0; length <= end; ++length) {
        const Error error = raisedBy([&] { load(xml.substr(0, length)); });
        EXPECT_EQ(error.number(), errc::BadRecord) << length;
        EXPECT_TRUE(error.description().starts_with("The file /store/BAD.vla holds no record: "));
        expectOld();
    }
    EXPECT_NO_THROW(load(xml.substr(0, end + 1)));
    EXPECT_EQ(record.Name(), whole.Name());
    EXPECT_EQ(record.Rows(), whole.Rows());
}

TEST_F(RecordFile, OneFlippedByteNeverCrashes) {
    Dataset whole;
    whole.Create("MORAM", "N", "", {"Element", "Data"});
    whole.AddRow({"ProgramPath", "a & b"});
    whole.Save(file);
    const std::string xml = memory->read(file);
    int loaded = 0;
    int refused = 0;
    for (std::size_t at = 0; at < xml.size(); ++at) {
        for (const char flip : {'\x01', '\x20', '\x80', '\xFF'}) {
            std::string damaged = xml;
            damaged[at] = static_cast<char>(damaged[at] ^ flip);
            put(damaged);
            Dataset fresh;
            try {
                fresh.Load(file, 0);
                ++loaded;
            } catch (const Error& error) {
                EXPECT_EQ(error.number(), errc::BadRecord);
                EXPECT_TRUE(fresh.Rows().empty());
                ++refused;
            }
        }
    }
    EXPECT_GT(loaded, 0);
    EXPECT_GT(refused, loaded);
}

TEST_F(RecordFile, LoadsFromUtf16WithAByteOrderMark) {
    for (const bool bigEndian : {false, true}) {
        for (const std::string declaration : {"", "<?xml version=\"1.0\" encoding=\"UTF-16\"?>"}) {
            load(utf16(declaration + "<dataset name=\"N\"><row key=\"a\">b</row></dataset>",
                       bigEndian));
            EXPECT_EQ(record.Name(), "N");
            EXPECT_EQ(record.GetRow("a")[1], "b");
        }
    }
}

TEST_F(RecordFile, LoadsFromUtf8WithAByteOrderMark) {
    load("\xEF\xBB\xBF<dataset name=\"部品\"><row key=\"a\">é</row></dataset>");
    EXPECT_EQ(record.Name(), "部品");
    EXPECT_EQ(record.GetRow("a")[1], "é");
}

TEST_F(RecordFile, LoadsInTheEncodingThatItDeclares) {
    load("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><dataset name=\"\xC4\"/>");
    EXPECT_EQ(record.Name(), "Ä");
}

TEST_F(RecordFile, ReadsOverUnknownAttributesAndElements) {
    load(
        "<?xml-stylesheet href=\"x\"?><!-- by hand -->"
        "<dataset xmlns:z=\"urn:z\" version=\"99\" name=\"N\" owner=\"me\" z:name=\"no\">"
        "<row key=\"a\" since=\"2\" z:key=\"no\">b<note>gone</note>c</row>"
        "text<history><row key=\"a\">deep</row><row/></history>"
        "<z:row key=\"foreign\">x</z:row><z:row/></dataset>");
    EXPECT_EQ(record.Name(), "N");
    ASSERT_EQ(record.Rows().size(), 1U);
    EXPECT_EQ(record.GetRow("a")[1], "bc");
}

TEST_F(RecordFile, LoadsTwoColumnsAndNothingElseForOne) {
    load(
        "<dataset><history>no</history><column>Key</column><column>Value</column>"
        "<column>More</column><row key=\"a\">b</row></dataset>");
    EXPECT_EQ(record.GetRow("a")[1], "b");
    record.Save(file);
    EXPECT_NE(memory->read(file).find("  <column>Key</column>\n  <column>Value</column>\n  <row "),
              std::string::npos);
}

TEST_F(RecordFile, LoadsWithoutTypeNameKeyAndColumns) {
    load("<dataset/>");
    EXPECT_EQ(record.Type(), "");
    EXPECT_EQ(record.Name(), "");
    EXPECT_TRUE(record.Rows().empty());
    record.Save(file);
    EXPECT_NE(memory->read(file).find("key=\"Element\">\n  <column>Element</column>\n"
                                      "  <column>Data</column>"),
              std::string::npos);
}

TEST_F(RecordFile, LoadsCdataReferencesAndComments) {
    load(
        "<dataset name=\"a&amp;b&#x20;&lt;\"><row key=\"&#65;\">"
        "x<![CDATA[<&>]]><!-- no -->&#13;&gt;<?no?>y</row></dataset>");
    EXPECT_EQ(record.Name(), "a&b <");
    EXPECT_EQ(record.GetRow("A")[1], "x<&>\r>y");
}

TEST_F(RecordFile, LoadsEscapesInSmallLettersAndLeavesThoseOfNothing) {
    load("<dataset><row key=\"a\">_x00e9_ _xD83D_ _xdcff_ _x00g0_</row></dataset>");
    EXPECT_EQ(record.GetRow("a")[1], "é _xD83D_ \xFF _x00g0_");
}

TEST_F(RecordFile, LoadsEscapesUpToWhereTheyStandForNothing) {
    load("<dataset><row key=\"a\">_xD7FF_ _xE000_ _xDC80_</row></dataset>");
    EXPECT_EQ(record.GetRow("a")[1], "\uD7FF \uE000 \x80");
    const std::string nothing = "_xD800_ _xDBFF_ _xDC7F_ _xDD00_ _xDFFF_";
    load("<dataset><row key=\"a\">" + nothing + "</row></dataset>");
    EXPECT_EQ(record.GetRow("a")[1], nothing);
}

TEST_F(RecordFile, LoadsWithLineEndsOfAnotherSystem) {
    load("<dataset>\r\n<row key=\"a\">one\r\ntwo\rthree</row>\r\n</dataset>\r\n");
    EXPECT_EQ(record.GetRow("a")[1], "one\ntwo\nthree");
}

/// The same bad files, opened by a person.
class BadSession : public Desk {};
ON_EVERY_VIEW(BadSession);

TEST_P(BadSession, MakesABoxAndTheDialogOpensAndNothingChangesOnCancel) {
    for (const BadText& bad : badTexts()) {
        SCOPED_TRACE(bad.what);
        memory->save(ItemPath::item(sessionFolder, "BAD"), bad.xml);
        disk.resetCounts();
        user().onBox([&](const SeenBox& box) {
            EXPECT_TRUE(isFailureOf(box.text, "UnifrmMORAMConfig:init")) << box.text;
            EXPECT_NE(box.text.find("The file /store/MORAM\\BAD.vla holds no record: it"),
                      std::string::npos)
                << box.text;
            EXPECT_EQ(box.style, 4112);
            EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
            EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
            return answer::Ok;
        });
        user().onForm("frmMORAMConfig", [](User& u) {
            EXPECT_EQ(u.see("txtDisplayName").text, "BAD");
            EXPECT_EQ(u.see("txtProgramPath").text, "");
            EXPECT_TRUE(u.see("lstSelectedFormats2").rows.empty());
            u.click("btnCancel");
        });
        std::string name = "bad";
        EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
        EXPECT_EQ(name, "BAD");
        EXPECT_EQ(user().boxes().size(), 1U);
        EXPECT_NO_THROW(user().finish());
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Save), 0U);
        EXPECT_EQ(sessionText("BAD"), bad.xml);
        EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"BAD.vla"}));
    }
}

TEST_P(BadSession, CutShortAtAnyByteMakesABoxAndTheDialogOpens) {
    putFullSession("CUT", {"CSV"});
    const std::string whole = sessionText("CUT");
    for (std::size_t length = 0; length < whole.size() - 1; length += 97) {
        memory->save(ItemPath::item(sessionFolder, "CUT"), whole.substr(0, length));
        user().onBox([&](const SeenBox& box) {
            EXPECT_TRUE(isFailureOf(box.text, "UnifrmMORAMConfig:init")) << box.text;
            return answer::Ok;
        });
        user().onForm("frmMORAMConfig", [](User& u) { u.pressEscape(); });
        std::string name = "CUT";
        EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
        EXPECT_NO_THROW(user().finish()) << length;
        EXPECT_EQ(sessionText("CUT"), whole.substr(0, length));
    }
}

TEST_P(BadSession, InUtf16OpensAsAnyOther) {
    memory->save(
        ItemPath::item(sessionFolder, "WIDE"),
        utf16("<dataset name=\"WIDE\"><row key=\"ProgramPath\">/x</row></dataset>", false));
    user().onForm("frmMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtProgramPath").text, "/x");
        u.click("btnCancel");
    });
    std::string name = "WIDE";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
}

}  // namespace
}  // namespace wynconfig
