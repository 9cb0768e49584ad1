// The rows of a record: their order whatever goes and comes, and keys that are out to meet.
#include <gtest/gtest.h>

#include <cstring>
#include <list>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "platform/records/key_hash.h"
#include "support/raised.h"
#include "support/rows.h"
#include "wynconfig/dataset.h"

namespace wynconfig {
namespace {

std::vector<DataRow> backwards(const DataRows& rows) {
    std::vector<DataRow> all;
    for (auto row = rows.end(); row != rows.begin();) all.push_back(*--row);
    return all;
}

TEST(RecordRows, KeepTheirOrderWhateverGoesAndComes) {
    std::mt19937 any(1);
    Dataset record;
    std::list<DataRow> expected;
    for (int step = 0; step < 20'000; ++step) {
        const DataRow row{"KEY" + std::to_string(any() % 100), std::to_string(step)};
        const auto found = std::find_if(expected.begin(), expected.end(),
                                        [&](const DataRow& each) { return each[0] == row[0]; });
        if (found == expected.end()) {
            EXPECT_THROW(record.GetRow(row[0]), Error);
            record.AddRow(row);
            expected.push_back(row);
        } else if (any() % 3 == 0) {
            record.UpdateRow(row, row);
            *found = row;
        } else if (any() % 50 == 0) {
            record.UpdateRow(*found, {"NEW" + std::to_string(step), "x"});
            *found = {"NEW" + std::to_string(step), "x"};
        } else {
            EXPECT_EQ(record.GetRow(row[0]), *found);
            record.DeleteRow(row[0]);
            expected.erase(found);
        }
        if (any() % 4000 == 0) {
            record.ClearRows();
            expected.clear();
        }
        if (step % 100 != 0) continue;
        ASSERT_EQ(std::vector<DataRow>(record.Rows().begin(), record.Rows().end()),
                  std::vector<DataRow>(expected.begin(), expected.end()));
        ASSERT_EQ(backwards(record.Rows()),
                  std::vector<DataRow>(expected.rbegin(), expected.rend()));
        ASSERT_EQ(record.Rows().size(), expected.size());
        for (const DataRow& each : expected) ASSERT_EQ(record.GetRow(each[0]), each);
    }
}

TEST(RecordRows, GoAndComeAHundredThousandTimesInAsManyRows) {
    constexpr int count = 100'000;
    Dataset record;
    for (int i = 0; i < count; ++i) record.AddRow({std::to_string(i), "old"});
    for (int i = 0; i < count; ++i) {
        record.DeleteRow(std::to_string(i));
        record.AddRow({std::to_string(i), "new"});
    }
    int number = 0;
    for (const DataRow& row : record.Rows())
        ASSERT_EQ(row, (DataRow{std::to_string(number++), "new"}));
    EXPECT_EQ(number, count);
}

TEST(RecordRows, TakeThePlaceOfThoseThatWent) {
    Dataset record;
    for (int i = 0; i < 100; ++i) record.AddRow({std::to_string(i), ""});
    const auto placesOf = [&] {
        std::set<const DataRow*> places;
        for (const DataRow& row : record.Rows()) places.insert(&row);
        return places;
    };
    const auto before = placesOf();
    for (int i = 0; i < 1000; ++i) {
        record.DeleteRow(record.Rows().front()[0]);
        record.AddRow({"x" + std::to_string(i), ""});
    }
    EXPECT_EQ(placesOf(), before);
}

TEST(RecordRows, AreNotFoundByTheEmptyKeyWhenTheyWent) {
    Dataset record;
    record.AddRow({"a", "b"});
    record.DeleteRow("a");
    EXPECT_EQ(raisedBy([&] { record.GetRow(""); }).number(), errc::NoSuchKey);
    EXPECT_NO_THROW(record.AddRow({"", "c"}));
    EXPECT_EQ(record.GetRow("")[1], "c");
}

TEST(RecordRows, StayWhereTheyAreWhenNothingIsAdded) {
    Dataset record;
    for (int i = 0; i < 500; ++i) {
        record.AddRow({std::to_string(i), ""});
        const DataRow* const row = &record.Rows().front();
        EXPECT_THROW(record.AddRow(*row), Error);
        EXPECT_EQ(&record.Rows().front(), row);
    }
}

TEST(RecordRows, OfACopyAreIndependent) {
    Dataset record;
    for (int i = 0; i < 100; ++i) record.AddRow({std::to_string(i), "old"});
    DataRows copy = record.Rows();
    record.ClearRows();
    EXPECT_EQ(copy.size(), 100U);
    EXPECT_EQ(copy.front(), (DataRow{"0", "old"}));
    EXPECT_EQ(copy.back(), (DataRow{"99", "old"}));
    const DataRows moved = std::move(copy);
    EXPECT_EQ(moved.size(), 100U);
    EXPECT_TRUE(copy.empty());  // NOLINT(*-use-after-move): that is the question
    EXPECT_EQ(copy.begin(), copy.end());
}

// ---------------------------------------------------------------------------------------------
// Keys that are out to meet.

std::uint64_t bytesAsWord(std::string_view bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes.data(), sizeof word);
    return word;
}

TEST(RecordKeys, AreHashedAsTheAuthorsOfTheHashDo) {
    const HashKey key{0x0706050403020100U, 0x0f0e0d0c0b0a0908U};
    std::string bytes;
    for (char byte = 0; byte < 15; ++byte) bytes += byte;
    EXPECT_EQ(keyHash(key, ""), 0x726fdb47dd0e0e31U);
    EXPECT_EQ(keyHash(key, bytes.substr(0, 1)), 0x74f839c593dc67fdU);
    EXPECT_EQ(keyHash(key, bytes), 0xa129ca6149be45e5U);
}

TEST(RecordKeys, AreHashedWithAKeyOfTheProcess) {
    const HashKey& key = processHashKey();
    EXPECT_EQ(&key, &processHashKey());
    EXPECT_NE(keyHash(key, "a"), keyHash({0, 0}, "a"));
}

/// How many of the keys have a hash that ends in the same bits as one before.
int meetings(const HashKey& key, const std::vector<std::string>& texts, std::uint64_t mask) {
    std::set<std::uint64_t> seen;
    int count = 0;
    for (const std::string& text : texts)
        count += seen.insert(keyHash(key, text) & mask).second ? 0 : 1;
    return count;
}

TEST(RecordKeys, ThatMeetUnderOneKeyOfTheHashPartUnderAnother) {
    const HashKey known{1, 2};
    constexpr std::uint64_t mask = 0xFF;
    std::vector<std::string> texts;
    for (int i = 0; texts.size() < 200; ++i) {
        const std::string text = std::to_string(i);
        if ((keyHash(known, text) & mask) == 0) texts.push_back(text);
    }
    EXPECT_EQ(meetings(known, texts, mask), 199);
    EXPECT_LT(meetings({3, 4}, texts, mask), 110);
}

/// Keys of sixteen bytes that the hash of this standard library gives the same number. The first
/// half is any, and the second one takes back what that did: each step of that hash has an inverse.
std::vector<std::string> keysThatMeetInTheStandardHash(int count) {
    constexpr std::uint64_t factor = 0xc6a4a7935bd1e995U;
    std::uint64_t inverse = factor;
    for (int i = 0; i < 6; ++i) inverse *= 2 - factor * inverse;
    const auto shifted = [](std::uint64_t word) { return word ^ word >> 47U; };
    std::vector<std::string> keys;
    for (int i = 0; i < count; ++i) {
        std::string key = std::to_string(10'000'000 + i);
        const std::uint64_t start = 0xc70f6907U ^ 16 * factor;
        const std::uint64_t first = (start ^ shifted(bytesAsWord(key) * factor) * factor) * factor;
        const std::uint64_t second = shifted(first * inverse) * inverse;
        key.resize(16);
        std::memcpy(key.data() + 8, &second, sizeof second);
        keys.push_back(key);
    }
    return keys;
}

TEST(RecordKeys, ThatMeetInTheIndexAreToldApart) {
    // In a full index of 128 places all begin at its last one, and go on around its end.
    constexpr std::uint64_t last = 127;
    std::vector<std::string> keys;
    for (int i = 0; keys.size() < 96; ++i) {
        const std::string key = std::to_string(i);
        if ((keyHash(processHashKey(), key) & last) == last) keys.push_back(key);
    }
    Dataset record;
    for (const std::string& key : keys) record.AddRow({key, "of " + key});
    for (const std::string& key : keys) EXPECT_EQ(record.GetRow(key)[1], "of " + key);
    for (std::size_t i = 0; i < keys.size(); i += 3) record.DeleteRow(keys[i]);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (i % 3 == 0) {
            EXPECT_EQ(raisedBy([&] { record.GetRow(keys[i]); }).number(), errc::NoSuchKey);
        } else {
            EXPECT_EQ(record.GetRow(keys[i])[1], "of " + keys[i]);
        }
    }
}

TEST(RecordKeys, ThatMeetInTheStandardHashPartInARecord) {
    const auto keys = keysThatMeetInTheStandardHash(10'000);
    for (const std::string& key : keys)
        ASSERT_EQ(std::hash<std::string>()(key), std::hash<std::string>()(keys[0]));
    EXPECT_EQ(meetings({1, 2}, keys, ~std::uint64_t{0}), 0);
    EXPECT_LT(meetings({1, 2}, keys, 0x3FFF), 4000);
    Dataset record;
    for (const std::string& key : keys) record.AddRow({key, key});
    Dataset loaded;
    Document document;
    ASSERT_TRUE(document.loadXML(xmlOf(record)));
    loaded.Load(document);
    EXPECT_EQ(loaded.Rows(), record.Rows());
    for (const std::string& key : keys) EXPECT_EQ(loaded.GetRow(key)[1], key);
}

}  // namespace
}  // namespace wynconfig
