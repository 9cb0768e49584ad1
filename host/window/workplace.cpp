// Connecting on demand, changing the store, and keeping the session list.
#include "window/workplace.h"

#include <QString>
#include <QSysInfo>
#include <set>
#include <system_error>
#include <utility>

#include "installed_view.h"
#include "sample/store_snapshot.h"
#include "window/language.h"
#include "wynconfig/save_file.h"

namespace host {

namespace {

/// Who changes the database here.
std::string workstation() {
    const QString user = qEnvironmentVariable("USER", QStringLiteral("somebody"));
    return (user + '@' + QSysInfo::machineHostName()).toStdString();
}

/// Leads the component back to file mode, which only its adding of a session does: that is called
/// without a view, and so cancelled. Without this an operation on the store's files, after one in
/// memory, would go on working in memory.
void endInMemoryMode(wynconfig::WYNConfig& component) {
    const InstalledView none(nullptr);
    std::string name;
    component.showAddMORAMConfigDlg(name);
}

}  // namespace

Workplace::Workplace(wynconfig::WYNConfig& component, StoreFolders store,
                     std::optional<wynconfig::DatabaseAddress> database, std::string resources,
                     std::string language)
    : m_component(component),
      m_store(std::move(store)),
      m_given(std::move(database)),
      m_resources(std::move(resources)),
      m_language(std::move(language)) {}

wynconfig::DatabaseAddress Workplace::address() const {
    return m_given ? *m_given : wynconfig::DatabaseAddress::file(m_store.database().string());
}

wynconfig::SessionDatabase& Workplace::database() {
    if (!m_database)
        m_database = std::make_unique<wynconfig::SessionDatabase>(address(), workstation());
    return *m_database;
}

void Workplace::takeOwnDatabase() {
    m_given.reset();
    m_memory.reset();
    m_database.reset();
}

wynconfig::MemorySessions& Workplace::inMemory() {
    if (!m_memory)
        m_memory = std::make_unique<wynconfig::MemorySessions>(m_component, database(),
                                                               m_store.rootText());
    m_memoryModeBegun = true;
    return *m_memory;
}

wynconfig::WYNConfig& Workplace::onFiles() {
    if (std::exchange(m_memoryModeBegun, false)) endInMemoryMode(m_component);
    return m_component;
}

void Workplace::openStore(const std::filesystem::path& root) {
    m_store = StoreFolders(root);
    m_component.init(m_store.rootText());
    m_memory.reset();
    if (!m_given) m_database.reset();
}

std::string Workplace::sessionList() const {
    std::error_code failure;
    const auto kind = std::filesystem::symlink_status(m_store.sessionList(), failure).type();
    if (kind != std::filesystem::file_type::not_found) return readFile(m_store.sessionList());
    std::string list;
    for (const std::string& name : m_store.names(wynconfig::ItemKind::Session))
        list += (list.empty() ? "" : ",") + name;
    return list;
}

void Workplace::keepSessionList(const std::string& list) const {
    wynconfig::saveFile(m_store.sessionList().string(), list);
}

void Workplace::setLanguage(const std::string& language) {
    m_component.InitResourceManager(useLanguage(m_resources, language));
    m_language = language;
}

}  // namespace host
