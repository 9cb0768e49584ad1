// Records that stand as they are written: they are read without the parser, and are what it would
// have made of them.
#include "platform/records/plain_record.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

#include "wynconfig/error.h"

namespace wynconfig {
namespace {

RecordText usualRecord() {
    RecordText record;
    record.type = "MORAM";
    record.name = "ORDER DESK";
    *record.add("Path") = "\"C:\\desk.exe\" it's";
    record.add("Empty");
    *record.add("Lines") = " a\n\tb_ ";
    *record.add("Größe") = "部品\x7F";
    return record;
}

std::string textOf(const RecordText& record) {
    return writeRecord(record.type, record.name, record.key, record.columns, record.rows);
}

bool isSame(const RecordText& one, const RecordText& other) {
    return one.type == other.type && one.name == other.name && one.key == other.key &&
           one.columns == other.columns && one.rows == other.rows;
}

/// What the parser makes of a text: a byte order mark is never written, so that it has to look.
std::optional<RecordText> parsed(const std::string& xml) {
    try {
        return readRecord("\xEF\xBB\xBF" + xml, XmlSource::File);
    } catch (const Error&) {
        return {};
    }
}

bool isPlain(const std::string& xml) {
    RecordText record;
    return readPlainRecord(xml, record);
}

TEST(PlainRecord, IsWhatIsWrittenOfTextsThatStandForThemselves) {
    RecordText read;
    ASSERT_TRUE(readPlainRecord(textOf(usualRecord()), read));
    EXPECT_TRUE(isSame(read, usualRecord()));
    EXPECT_TRUE(isPlain(textOf({})));
}

TEST(PlainRecord, IsNoneWithAnythingThatMeansSomethingElse) {
    for (const std::string text : {"a&b", "a<b", "a>b", "_x0041_", "\r", "\x01", "\xFF", "\xC3",
                                   "\xEF\xBF\xBE", "\xED\xA0\x80"}) {
        RecordText record;
        *record.add("k") = text;
        EXPECT_FALSE(isPlain(textOf(record))) << text;
        RecordText keyed;
        keyed.add(text);
        EXPECT_FALSE(isPlain(textOf(keyed))) << text;
        RecordText named;
        named.name = text;
        EXPECT_FALSE(isPlain(textOf(named))) << text;
    }
    for (const std::string text : {"\"", "\n", "\t"}) {
        RecordText keyed;
        keyed.add(text);
        EXPECT_FALSE(isPlain(textOf(keyed))) << text;
    }
}

TEST(PlainRecord, HasNoKeyTwice) {
    std::string xml = textOf(usualRecord());
    xml.replace(xml.find("Lines"), 5, "Empty");
    EXPECT_FALSE(isPlain(xml));
    EXPECT_FALSE(parsed(xml));
}

TEST(PlainRecord, IsWhatTheParserMakesOfItWhateverByteIsAnother) {
    const std::string xml = textOf(usualRecord());
    int plain = 0;
    int other = 0;
    const auto hold = [&](const std::string& changed) {
        RecordText read;
        if (!readPlainRecord(changed, read)) {
            ++other;
            return;
        }
        ++plain;
        const auto expected = parsed(changed);
        EXPECT_TRUE(expected && isSame(read, *expected)) << changed;
    };
    for (std::size_t at = 0; at <= xml.size(); ++at) {
        hold(xml.substr(0, at));
        hold(xml.substr(0, at) + "</dataset>\n");
        hold(xml.substr(0, at) + xml.substr(std::min(at + 1, xml.size())));
        for (int byte = 0; byte < 256; ++byte) {
            const std::string one(1, static_cast<char>(byte));
            hold(xml.substr(0, at) + one + xml.substr(at));
            if (at < xml.size()) hold(xml.substr(0, at) + one + xml.substr(at + 1));
        }
    }
    // The texts of the record are a quarter of it, and most bytes may stand in them.
    EXPECT_GT(plain, 10'000);
    EXPECT_GT(other, 10'000);
}

}  // namespace
}  // namespace wynconfig
