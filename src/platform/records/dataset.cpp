// The record class: rows in their order, and a hash index over their keys.
#include "wynconfig/dataset.h"

#include <algorithm>
#include <utility>

#include "platform/files/file_system.h"
#include "platform/records/record_xml.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

const std::array<std::string, 2> kUsualColumns{"Element", "Data"};

[[noreturn]] void raiseNoRow(const std::string& key) {
    throw Error(errc::NoSuchKey, "The record has no row \"" + key + "\".");
}

[[noreturn]] void raiseDuplicate(const std::string& key) {
    throw Error(errc::DuplicateKey, "The record has a row \"" + key + "\" already.");
}

}  // namespace

bool Document::loadXML(const std::string& text) {
    const bool wellFormed = isWellFormed(text);
    m_xml = wellFormed ? text : std::string();
    return wellFormed;
}

/// What a load brings: rows and their index, complete before anything of the object is replaced.
struct Dataset::Content {
    RecordText record;
    decltype(m_index) index;

    Content(std::string_view xml, XmlSource source) : record(readRecord(xml, source)) {
        index.reserve(record.rows.size());
        for (auto row = record.rows.begin(); row != record.rows.end(); ++row) {
            if (!index.emplace((*row)[0], row).second)
                throw Error(errc::BadRecord, "it has the row \"" + (*row)[0] + "\" twice");
        }
    }
};

Dataset::Dataset() : m_columns(kUsualColumns), m_key(kUsualColumns[0]) {}

void Dataset::Create(const std::string& typeName, const std::string& name,
                     const std::string& folder, const std::array<std::string, 2>& columns) {
    ClearRows();
    m_type = typeName;
    m_name = name;
    m_folder = folder;
    m_columns = columns;
    m_key = columns[0];
}

void Dataset::SetKey(const std::string& column, long) {
    if (std::find(m_columns.begin(), m_columns.end(), column) == m_columns.end())
        throw Error(errc::InvalidCall, "The record has no column \"" + column + "\".");
    m_key = column;
}

void Dataset::AddRow(const DataRow& row) {
    if (m_index.contains(row[0])) raiseDuplicate(row[0]);
    m_rows.push_back(row);
    m_index.emplace(m_rows.back()[0], std::prev(m_rows.end()));
}

void Dataset::ClearRows() {
    m_index.clear();
    m_rows.clear();
}

void Dataset::DeleteRow(const std::string& key) {
    const auto found = m_index.find(key);
    if (found == m_index.end()) raiseNoRow(key);
    const auto row = found->second;
    m_index.erase(found);
    m_rows.erase(row);
}

DataRow Dataset::GetRow(const std::string& key) const {
    const auto found = m_index.find(key);
    if (found == m_index.end()) raiseNoRow(key);
    return *found->second;
}

void Dataset::UpdateRow(const DataRow& keyRow, const DataRow& newRow) {
    const auto found = m_index.find(keyRow[0]);
    if (found == m_index.end()) raiseNoRow(keyRow[0]);
    const auto row = found->second;
    if (newRow[0] != keyRow[0]) {
        if (m_index.contains(newRow[0])) raiseDuplicate(newRow[0]);
        m_index.erase(found);
        *row = newRow;
        m_index.emplace((*row)[0], row);
    } else {
        (*row)[1] = newRow[1];
    }
}

void Dataset::Load(const std::string& path, long option) {
    Load(ItemPath::of(path), option);
}

void Dataset::Load(const ItemPath& path, long) {
    const std::string xml = fileSystem().read(path);
    try {
        take(Content(xml, XmlSource::File));
    } catch (const Error& error) {
        throw Error(error.number(),
                    "The file " + path.text() + " holds no record: " + error.description() + ".");
    }
}

void Dataset::Load(const Document& document, long) {
    try {
        take(Content(document.xml(), XmlSource::Memory));
    } catch (const Error& error) {
        throw Error(error.number(), "The XML text holds no record: " + error.description() + ".");
    }
}

void Dataset::take(Content content) {
    RecordText& record = content.record;
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_columns[i] = i < record.columns.size() ? record.columns[i] : kUsualColumns[i];
    m_type = std::move(record.type);
    m_name = std::move(record.name);
    m_key = std::move(record.key);
    // The index goes first: it refers to the texts of the rows that it replaces.
    m_index = std::move(content.index);
    m_rows = std::move(record.rows);
}

std::string Dataset::text() const {
    return writeRecord(m_type, m_name, m_key, m_columns, m_rows);
}

void Dataset::Save(const std::string& path) const {
    Save(ItemPath::of(path));
}

void Dataset::Save(const ItemPath& path) const {
    fileSystem().save(path, text());
}

void Dataset::Save(Document& document) const {
    document.m_xml = text();
}

}  // namespace wynconfig
