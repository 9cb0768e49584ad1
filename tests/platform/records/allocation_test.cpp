// Records when memory runs out: each allocation of an operation fails once, and each time the
// object is as it was, nothing is lost, and the next try works.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <utility>

#include "platform/files/file_system.h"
#include "platform/records/record_xml.h"
#include "support/failing_memory.h"
#include "support/rows.h"
#include "wynconfig/dataset.h"

namespace wynconfig {
namespace {

/// How many blocks this thread has beside those that the reader keeps between two texts: it keeps
/// none behind one that is not well-formed.
long blocksInUse() {
    isWellFormed("<");
    return memoryOfThread().blocks;
}

/// Lets each allocation of a statement fail in turn, alone and with all behind it, until there is
/// none left.
/// @param isAsBefore  whether its objects are as they were
/// @return how many failed
long failEachAllocation(const std::function<void()>& statement,
                        const std::function<bool()>& isAsBefore) {
    const long before = blocksInUse();
    for (long behind = 0;; ++behind) {
        for (const Failing failing : {Failing::ForGood, Failing::Once}) {
            const Outcome outcome = withFailure(statement, behind, failing);
            if (outcome == Outcome::Undisturbed) return behind;
            EXPECT_EQ(outcome, Outcome::Raised) << behind;
            EXPECT_TRUE(isAsBefore()) << behind;
            EXPECT_EQ(blocksInUse(), before) << behind;
            if (::testing::Test::HasFailure() || behind > 10'000) return behind;
        }
    }
}

/// How many allocations the question takes whether a text is well-formed.
long allocationsFor(const std::string& xml) {
    isWellFormed("<");
    Memory& memory = memoryOfThread();
    constexpr long many = 1'000'000;
    memory.untilFailure = many;
    isWellFormed(xml);
    return many - std::exchange(memory.untilFailure, Memory::kNever);
}

TEST(MemoryOfAText, IsTakenForNoDeclarationOfADocumentType) {
    std::string declarations;
    for (int i = 0; i < 1000; ++i)
        declarations += "<!ENTITY name" + std::to_string(i) + " \"value\">";
    const std::string start = "<!DOCTYPE dataset [";
    const std::string end = "]><dataset/>";
    const long none = allocationsFor(start + end);
    EXPECT_GT(none, 0);
    EXPECT_EQ(allocationsFor(start + declarations + end), none);
}

/// Longer than what a string has room for in itself.
const std::string kLong = " and so on, longer than a string has room for in itself";

/// A record of so many rows, with long texts everywhere.
void fill(Dataset& record, int rows) {
    record.Create("MORAM" + kLong, "NAME" + kLong, "/store/" + kLong,
                  {"One" + kLong, "Two" + kLong});
    for (int i = 0; i < rows; ++i)
        record.AddRow({"KEY" + std::to_string(i) + kLong, "_x0001_\x01" + kLong});
}

std::string shown(const Dataset& record) {
    return xmlOf(record) + record.Folder();
}

/// Records with few and with many rows; those with many are on the point of a larger index.
class WithoutMemory : public ::testing::TestWithParam<int> {
  protected:
    void SetUp() override {
        processMemoryIsThere();
        fill(record, GetParam());
        text = shown(record);
        record.Save(document);
    }
    /// What a process makes once is made before any count.
    static void processMemoryIsThere() {
        Dataset large;
        fill(large, 100);
        isWellFormed("<a/>");
    }
    std::function<bool()> recordIsAsBefore() {
        return [this] { return shown(record) == text; };
    }

    Dataset record;
    std::string text;
    Document document;
};
INSTANTIATE_TEST_SUITE_P(Rows, WithoutMemory, ::testing::Values(1, 31, 32, 96, 300));

TEST_P(WithoutMemory, ALoadFromADocumentLeavesTheRecord) {
    Dataset other;
    fill(other, GetParam() + 7);
    Document source;
    other.Save(source);
    EXPECT_GT(failEachAllocation([&] { record.Load(source); }, recordIsAsBefore()), GetParam());
    EXPECT_EQ(record.Rows(), other.Rows());
    EXPECT_EQ(xmlOf(record), xmlOf(other));
}

TEST_P(WithoutMemory, ALoadInAnotherEncodingLeavesTheRecord) {
    const auto disk = makeMemoryFileSystem();
    disk->makeFolder("/store");
    setFileSystem(disk.get());
    const ItemPath file{"/store/", "LATIN.vla"};
    disk->save(
        file,
        "<?xml version=\"1.0\" encoding=\"windows-1252\"?><dataset xmlns:z=\"urn:z\" z:a=\"\">"
        "<row key=\"k\">\x80" +
            kLong + "</row></dataset>");
    EXPECT_GT(failEachAllocation([&] { record.Load(file); }, recordIsAsBefore()), 10);
    EXPECT_EQ(record.GetRow("k")[1], "€" + kLong);
    setFileSystem(nullptr);
}

TEST_P(WithoutMemory, ALoadOfNoRecordLeavesTheRecord) {
    for (const std::string xml : {"<dataset><row key='a'/><row key='a'/></dataset>",
                                  "<dataset><row>", "<!DOCTYPE dataset><dataset/>"}) {
        const auto load = [&] {
            try {
                readRecord(xml, XmlSource::File);
            } catch (const Error&) {
            }
        };
        EXPECT_GT(failEachAllocation(load, recordIsAsBefore()), 3) << xml;
    }
}

TEST_P(WithoutMemory, ADocumentStaysAsItWas) {
    const std::string before = document.xml();
    const std::string other = "<list>" + kLong + "</list>";
    const auto isAsBefore = [&] { return document.xml() == before; };
    EXPECT_GT(failEachAllocation([&] { EXPECT_TRUE(document.loadXML(other)); }, isAsBefore), 3);
    EXPECT_EQ(document.xml(), other);
}

TEST_P(WithoutMemory, ASaveLeavesTheDocument) {
    Document target;
    ASSERT_TRUE(target.loadXML("<old/>"));
    const auto isAsBefore = [&] { return target.xml() == "<old/>"; };
    EXPECT_GT(failEachAllocation([&] { record.Save(target); }, isAsBefore), 0);
    EXPECT_EQ(target.xml(), document.xml());
}

TEST_P(WithoutMemory, TheRowsStayAsTheyWere) {
    const DataRow row{"NEW" + kLong, "data" + kLong};
    EXPECT_GT(failEachAllocation([&] { record.AddRow(row); }, recordIsAsBefore()), 1);
    EXPECT_EQ(record.GetRow(row[0]), row);
    text = shown(record);
    const DataRow other{"OTHER" + kLong, "other data" + kLong};
    EXPECT_GT(failEachAllocation([&] { record.UpdateRow(row, other); }, recordIsAsBefore()), 1);
    EXPECT_EQ(record.Rows().back(), other);
    text = shown(record);
    EXPECT_GT(failEachAllocation([&] { record.GetRow(other[0]); }, recordIsAsBefore()), 1);
    EXPECT_EQ(failEachAllocation([&] { record.DeleteRow(other[0]); }, recordIsAsBefore()), 0);
    EXPECT_EQ(failEachAllocation([&] { record.ClearRows(); }, recordIsAsBefore()), 0);
}

TEST_P(WithoutMemory, ARecordIsNotMadeHalf) {
    const std::array<std::string, 2> columns{"First" + kLong, "Second" + kLong};
    const auto create = [&] { record.Create("T" + kLong, "N" + kLong, "F" + kLong, columns); };
    EXPECT_GT(failEachAllocation(create, recordIsAsBefore()), 5);
    EXPECT_EQ(record.Name(), "N" + kLong);
    EXPECT_EQ(record.Folder(), "F" + kLong);
    EXPECT_TRUE(record.Rows().empty());
    text = shown(record);
    EXPECT_EQ(failEachAllocation([&] { record.SetKey(columns[1]); }, recordIsAsBefore()), 1);
}

}  // namespace
}  // namespace wynconfig
