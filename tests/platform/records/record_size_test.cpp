// How large a record may be: up to one bound whatever is saved loads again, by a file and by a
// document, and beyond it nothing is saved and the old text stands.
#include "dialogs/session/frmMORAMConfig.h"
#include "platform/files/file_system.h"
#include "support/bad_texts.h"
#include "support/desk.h"
#include "support/raised.h"
#include "support/rows.h"

namespace wynconfig {
namespace {

class RecordSize : public ::testing::Test {
  protected:
    void SetUp() override {
        memory->makeFolder("/store");
        setFileSystem(memory.get());
    }
    void TearDown() override { setFileSystem(nullptr); }

    /// How many bytes the text of a record may still grow by.
    static std::size_t room(const Dataset& in) { return kMaxItemSize - xmlOf(in).size(); }

    static void expectEqual(const Dataset& one, const Dataset& other) {
        // No message: the texts are too long to be shown.
        EXPECT_TRUE(one.Name() == other.Name());
        EXPECT_TRUE(one.Rows() == other.Rows());
    }
    /// Saves and loads, by a file and by a document and its text.
    void expectRoundTrip(const Dataset& saved) {
        Document document;
        saved.Save(document);
        EXPECT_LE(document.xml().size(), kMaxItemSize);
        Document handedOver;
        ASSERT_TRUE(handedOver.loadXML(document.xml()));
        Dataset loaded;
        EXPECT_NO_THROW(loaded.Load(handedOver));
        expectEqual(loaded, saved);
        saved.Save(file);
        Dataset read;
        EXPECT_NO_THROW(read.Load(file));
        expectEqual(read, saved);
    }
    /// The record can't be saved, and the file that stood there is as it was.
    void expectRefused(const Dataset& refused) {
        memory->save(file, "the old file");
        const Error error = raisedBy([&] { refused.Save(file); });
        EXPECT_EQ(error.number(), errc::InvalidCall);
        EXPECT_EQ(error.description(), "The record is too large to be stored.");
        EXPECT_EQ(memory->read(file), "the old file");
    }

    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    const ItemPath file = ItemPath::item("/store/", "LARGE");
    Dataset record;
};

TEST_F(RecordSize, HasABoundForAName) {
    record.setName(std::string(room(record), 'N'));
    expectRoundTrip(record);
    record.setName(record.Name() + 'N');
    expectRefused(record);
}

TEST_F(RecordSize, HasABoundForAKey) {
    record.AddRow({"", ""});
    const std::string key(room(record), 'k');
    record.UpdateRow({"", ""}, {key, ""});
    expectRoundTrip(record);
    record.UpdateRow({key, ""}, {key + 'k', ""});
    expectRefused(record);
}

TEST_F(RecordSize, HasABoundForData) {
    record.AddRow({"k", "x"});
    const std::string data(room(record) + 1, 'x');
    record.UpdateRow({"k", ""}, {"k", data});
    expectRoundTrip(record);
    record.UpdateRow({"k", ""}, {"k", data + 'x'});
    expectRefused(record);
    Document document;
    ASSERT_TRUE(document.loadXML("<old/>"));
    EXPECT_EQ(raisedBy([&] { record.Save(document); }).number(), errc::InvalidCall);
    EXPECT_EQ(document.xml(), "<old/>");
}

TEST_F(RecordSize, CountsTheTextAsItIsWritten) {
    const std::size_t controls = 100'000;
    const std::size_t written = controls * std::string("_x0001_").size();
    const std::string text(controls, '\x01');
    record.setName(text + std::string(room(record) - written, 'N'));
    expectRoundTrip(record);
    record.setName(record.Name() + '\x01');
    expectRefused(record);
}

TEST_F(RecordSize, HoldsManyLongKeys) {
    const std::string end(990, 'k');
    for (int i = 0; i < 60'000; ++i) record.AddRow({std::to_string(i) + end, "x"});
    EXPECT_GT(xmlOf(record).size(), std::size_t{55} << 20);
    expectRoundTrip(record);
}

TEST_F(RecordSize, HoldsManyShortRows) {
    for (int i = 0; i < 50'000; ++i) record.AddRow({std::to_string(i), "部品"});
    expectRoundTrip(record);
}

TEST_F(RecordSize, BoundsTheTextOfADocument) {
    const std::string xml = "<dataset name=\"N\"/>";
    Document document;
    EXPECT_TRUE(document.loadXML(xml + std::string(kMaxItemSize - xml.size(), '\n')));
    EXPECT_FALSE(document.loadXML(xml + std::string(kMaxItemSize - xml.size() + 1, '\n')));
    EXPECT_EQ(document.xml(), "");
}

TEST_F(RecordSize, BoundsTheDepthOfElements) {
    for (const int depth : {256, 257}) {
        const std::string xml =
            "<dataset>" + repeated("<a>", depth - 1) + repeated("</a>", depth - 1) + "</dataset>";
        Document document;
        EXPECT_EQ(document.loadXML(xml), depth == 256);
        memory->save(file, xml);
        if (depth == 256) {
            EXPECT_NO_THROW(record.Load(file));
        } else {
            EXPECT_EQ(raisedBy([&] { record.Load(file); }).number(), errc::BadRecord);
        }
    }
}

TEST_F(RecordSize, HasRoomForTheNamesOfALaterVersion) {
    const std::string xml = "<dataset" + distinctNames(2000) + "/>";
    Document document;
    EXPECT_TRUE(document.loadXML(xml));
    EXPECT_NO_THROW(record.Load(document));
    EXPECT_FALSE(document.loadXML("<dataset" + distinctNames(100'000) + "/>"));
}

TEST_F(RecordSize, BoundsTheNamespacesInForce) {
    std::string some;
    for (int i = 0; i < 128; ++i) some += " xmlns:n" + std::to_string(i) + "=\"urn:n\"";
    const std::string row = "<row key=\"a\"" + some + "/>";
    const std::string list = "<list" + some + ">" + "<item" + some + "/>";
    Document document;
    EXPECT_TRUE(document.loadXML("<dataset" + some + ">" + repeated(row, 10) + "</dataset>"));
    EXPECT_TRUE(document.loadXML(list + "</list>"));
    EXPECT_FALSE(document.loadXML(list + "<item" + some + "><one xmlns=\"urn:n\"/></item></list>"));
}

/// A large session among the sessions of a store.
class LargeSession : public Desk {};
ON_EVERY_VIEW(LargeSession);

TEST_P(LargeSession, SurvivesAWalk) {
    const std::string data(std::size_t{11} << 20, 'x');
    const std::string key(std::size_t{11} << 20, 'k');
    putSession("BEFORE", {{"FormatCount", "1"}, {"FORMAT1", "OLD"}});
    putSession("LARGE", {{key, data}, {"FormatCount", "1"}, {"FORMAT1", "OLD"}});
    frmMORAMConfig form;
    form.UpdatePartNumberFormatsInAllMORAMs("OLD", "NEW");
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_TRUE(sessionRows("LARGE") ==
                (Rows{{key, data}, {"FormatCount", "1"}, {"FORMAT1", "NEW"}}));
}

}  // namespace
}  // namespace wynconfig
