// Reading and writing item files by the public record class.
#include "store.h"

#include <wynconfig/dataset.h>
#include <wynconfig/keys.h>

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace fs = std::filesystem;
namespace keys = wynconfig::session;
namespace partformat = wynconfig::partformat;

using wynconfig::Dataset;
using wynconfig::Document;

ScratchFolder::ScratchFolder() {
    std::random_device random;
    do m_path = fs::temp_directory_path() / ("outside_host_" + std::to_string(random()));
    while (!fs::create_directory(m_path));
}

ScratchFolder::~ScratchFolder() {
    fs::remove_all(m_path);
}

Store::Store(const fs::path& folder) : m_folder(folder) {
    fs::create_directory(folder);
}

bool Store::hasCatalogues() const {
    return fs::is_regular_file(m_folder / "MORAM" / "MORAM.vls") &&
           fs::is_regular_file(m_folder / "PARTFORMAT" / "PARTFORMAT.vls");
}

void Store::putSession(const std::string& name, const std::string& program,
                       const std::vector<std::string>& formats) const {
    Dataset session;
    session.Create(keys::kType, name, "", keys::kColumns);
    session.AddRow({keys::kProgramPath, program});
    session.AddRow({keys::kCommandLineArgs, "/list"});
    session.AddRow({keys::kFormatCount, std::to_string(formats.size())});
    for (std::size_t i = 0; i < formats.size(); ++i)
        session.AddRow({keys::formatKey(static_cast<int>(i) + 1), formats[i]});
    session.Save(sessionFile(name).string());
}

void Store::putFormat(const std::string& name) const {
    Dataset format;
    format.Create(partformat::kType, name, "", keys::kColumns);
    format.AddRow({partformat::kHeader, "head of " + name});
    format.AddRow({partformat::kMaxRecords, "10"});
    format.Save((m_folder / "PARTFORMAT" / (name + ".vla")).string());
}

void Store::putSessionText(const std::string& name, const std::string& xml) const {
    std::ofstream(sessionFile(name), std::ios::binary) << xml;
}

bool Store::hasSession(const std::string& name) const {
    return fs::exists(sessionFile(name));
}

std::string Store::sessionText(const std::string& name) const {
    std::ostringstream text;
    text << std::ifstream(sessionFile(name), std::ios::binary).rdbuf();
    return text.str();
}

std::string Store::sessionValue(const std::string& name, const std::string& key) const {
    return valueIn(sessionText(name), key);
}

std::size_t Store::fileCount() const {
    std::size_t count = 0;
    for (const auto& entry : fs::recursive_directory_iterator(m_folder))
        if (entry.is_regular_file()) ++count;
    return count;
}

fs::path Store::sessionFile(const std::string& name) const {
    return m_folder / "MORAM" / (name + ".vla");
}

namespace {

void load(Dataset& record, const std::string& xml) {
    Document document;
    if (!document.loadXML(xml)) throw std::runtime_error("no XML: " + xml);
    record.Load(document);
}

}  // namespace

std::string nameIn(const std::string& xml) {
    Dataset record;
    load(record, xml);
    return record.Name();
}

std::string valueIn(const std::string& xml, const std::string& key) {
    Dataset record;
    load(record, xml);
    return record.GetRow(key)[1];
}

std::string namesIn(const std::vector<std::string>& texts) {
    std::string names;
    for (const std::string& text : texts) names += (names.empty() ? "" : ",") + nameIn(text);
    return names;
}
