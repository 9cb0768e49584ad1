// What the host's operations work on: the component, the store, and the database.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "sample/sample_store.h"
#include "wynconfig/database.h"
#include "wynconfig/memory_sessions.h"
#include "wynconfig/wynconfig.h"

namespace host {

class Workplace {
  public:
    /// @param component  is set to the store already
    /// @param database   none: the file beside the store
    /// @param resources  folder of the texts
    /// @param language   of the component's texts by now; empty: the user's
    Workplace(wynconfig::WYNConfig& component, StoreFolders store,
              std::optional<wynconfig::DatabaseAddress> database, std::string resources,
              std::string language = {});

    /// The component, to call an operation that works on the store's files.
    wynconfig::WYNConfig& onFiles();
    /// The component, to call an operation that works in whatever mode it is.
    wynconfig::WYNConfig& component() { return m_component; }
    /// The operations on the database. Raises `wynconfig::DatabaseError` while it can't be reached.
    wynconfig::MemorySessions& inMemory();
    wynconfig::SessionDatabase& database();
    std::string databaseText() const { return address().text(); }
    /// Whether it is the file beside the store.
    bool hasOwnDatabase() const { return !m_given; }
    /// Takes the file beside the store from now on.
    void takeOwnDatabase();

    const StoreFolders& store() const { return m_store; }
    /// Sets the component to another store, which is made when its folder holds none.
    /// @param root  of the store; must exist
    void openStore(const std::filesystem::path& root);

    /// The session list of this workplace; all sessions of the store until one is kept. Raises
    /// `std::runtime_error` when it can't be read.
    std::string sessionList() const;
    /// Raises `wynconfig::Error` when the list can't be written; the former one then stands.
    void keepSessionList(const std::string& list) const;

    const std::string& resources() const { return m_resources; }
    /// Sets the language of all texts. Raises `wynconfig::Error`.
    /// @param language  such as "en"; empty: the user's
    void setLanguage(const std::string& language);
    /// The language that was set last; empty: the user's.
    const std::string& language() const { return m_language; }

    /// The last edit that the database refused, until it is stored.
    std::optional<wynconfig::RefusedEdit> refused;

  private:
    wynconfig::DatabaseAddress address() const;

    wynconfig::WYNConfig& m_component;
    StoreFolders m_store;
    std::optional<wynconfig::DatabaseAddress> m_given;
    std::string m_resources;
    std::string m_language;
    std::unique_ptr<wynconfig::SessionDatabase> m_database;
    std::unique_ptr<wynconfig::MemorySessions> m_memory;
    bool m_memoryModeBegun = false;
};

}  // namespace host
