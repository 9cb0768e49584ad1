// The record class. What may fail is done before anything of the object changes.
#include "wynconfig/dataset.h"

#include <algorithm>
#include <utility>

#include "platform/files/file_system.h"
#include "platform/records/record_xml.h"
#include "wynconfig/error.h"

namespace wynconfig {

namespace {

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

Dataset::Dataset() {
    take({});
}

void Dataset::Create(const std::string& typeName, const std::string& name,
                     const std::string& folder, const std::array<std::string, 2>& columns) {
    std::string newFolder = folder;
    take({typeName, name, columns[0], columns, {}});
    m_folder = std::move(newFolder);
}

void Dataset::SetKey(const std::string& column, long) {
    if (std::find(m_columns.begin(), m_columns.end(), column) == m_columns.end())
        throw Error(errc::InvalidCall, "The record has no column \"" + column + "\".");
    m_key = column;
}

void Dataset::AddRow(const DataRow& row) {
    std::string data = row[1];
    std::string* const place = m_rows.add(row[0]);
    if (!place) raiseDuplicate(row[0]);
    *place = std::move(data);
}

void Dataset::ClearRows() {
    m_rows.clear();
}

void Dataset::DeleteRow(const std::string& key) {
    if (!m_rows.remove(key)) raiseNoRow(key);
}

DataRow Dataset::GetRow(const std::string& key) const {
    const DataRow* const row = m_rows.find(key);
    if (!row) raiseNoRow(key);
    return *row;
}

void Dataset::UpdateRow(const DataRow& keyRow, const DataRow& newRow) {
    if (!m_rows.find(keyRow[0])) raiseNoRow(keyRow[0]);
    if (newRow[0] != keyRow[0] && m_rows.find(newRow[0])) raiseDuplicate(newRow[0]);
    m_rows.replace(keyRow[0], newRow);
}

void Dataset::Load(const std::string& path, long option) {
    Load(ItemPath::of(path), option);
}

void Dataset::Load(const ItemPath& path, long) {
    const std::string xml = fileSystem().read(path);
    try {
        take(readRecord(xml, XmlSource::File));
    } catch (const Error& error) {
        throw Error(error.number(),
                    "The file " + path.text() + " holds no record: " + error.description() + ".");
    }
}

void Dataset::Load(const Document& document, long) {
    try {
        take(readRecord(document.xml(), XmlSource::Memory));
    } catch (const Error& error) {
        throw Error(error.number(), "The XML text holds no record: " + error.description() + ".");
    }
}

void Dataset::take(RecordText record) noexcept {
    m_type = std::move(record.type);
    m_name = std::move(record.name);
    m_key = std::move(record.key);
    m_columns = std::move(record.columns);
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
