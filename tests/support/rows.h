// Rows of records as tests write them down: in the order in which they are stored, with one row
// replaced or left out, and made into a record.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/session_record.h"
#include "wynconfig/dataset.h"

namespace wynconfig {

/// Rows of a record in their order: key and data.
using Stored = std::vector<std::pair<std::string, std::string>>;

/// The rows with the data of one key replaced.
inline Stored with(Stored rows, const std::string& key, const std::string& data) {
    bool found = false;
    for (auto& row : rows) {
        if (row.first != key) continue;
        row.second = data;
        found = true;
    }
    EXPECT_TRUE(found) << key;
    return rows;
}

/// The rows but for one key.
inline Stored without(Stored rows, const std::string& key) {
    EXPECT_EQ(std::erase_if(rows, [&](const auto& row) { return row.first == key; }), 1U) << key;
    return rows;
}

inline Stored rowsOf(const Dataset& record) {
    Stored rows;
    for (const DataRow& row : record.Rows()) rows.emplace_back(row[0], row[1]);
    return rows;
}

inline std::string xmlOf(const Dataset& record) {
    Document document;
    record.Save(document);
    return document.xml();
}

inline std::vector<std::string> keysOf(const Stored& rows) {
    std::vector<std::string> keys;
    for (const auto& row : rows) keys.push_back(row.first);
    return keys;
}

inline std::vector<std::string> dataOf(const Stored& rows) {
    std::vector<std::string> data;
    for (const auto& row : rows) data.push_back(row.second);
    return data;
}

/// A session "S" of these rows that lies in no store.
inline std::shared_ptr<Dataset> sessionOf(const Stored& rows) {
    auto record = std::make_shared<Dataset>();
    record->Create("MORAM", "S", "", session::kColumns);
    for (const auto& [key, data] : rows) record->AddRow({key, data});
    return record;
}

}  // namespace wynconfig
