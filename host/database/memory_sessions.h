// The component's in-memory mode on the database: sessions and part formats go from there into the
// dialogs, and what the user confirmed goes back.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "database/memory_edit.h"
#include "database/session_database.h"
#include "wynconfig/wynconfig.h"

namespace host {

/// What an operation in memory came to.
struct MemoryResult {
    long result = 1;        ///< 0: stored; 1: cancelled, or there was nothing to store
    std::string name = {};  ///< the session that it ended on; may be empty
    std::string xml = {};   ///< XML text of that session as it was stored
    std::vector<std::string> leftOut = {};  ///< part formats that are damaged and were not offered
};

/// What the user confirmed could not be stored. It is all in here, so that nothing is lost.
class RefusedEdit : public DatabaseError {
  public:
    /// @param reason     for the user
    /// @param conflicts  none when it failed on something else
    RefusedEdit(const std::string& reason, MemoryEdit edit, std::vector<Conflict> conflicts = {});
    const MemoryEdit& edit() const { return m_edit; }
    const std::vector<Conflict>& conflicts() const { return m_conflicts; }

  private:
    MemoryEdit m_edit;
    std::vector<Conflict> m_conflicts;
};

/// The operations of the in-memory mode. All raise `DatabaseError`; those that store what a user
/// entered raise `RefusedEdit` when that fails.
class MemorySessions {
  public:
    /// @param storeRoot  root of the component's store, whose files are factory items here
    MemorySessions(wynconfig::WYNConfig& component, SessionDatabase& database,
                   std::filesystem::path storeRoot);

    /// Lets the user edit a session of the database with all its part formats.
    MemoryResult configure(const std::string& name);
    /// Lets the user make a session.
    MemoryResult add();
    /// Takes a session and its part formats over from another store.
    /// @param root  of the other store
    /// @param name  under which the session is kept, in any case
    /// @return with 1 when the session, or one of its part formats, can't be read there
    MemoryResult takeOver(const std::filesystem::path& root, const std::string& session,
                          const std::string& name);
    /// Deletes what the user saw in this version.
    void remove(ItemKind kind, const StoredItem& item);

    /// Stores an edit that was refused, once more as it is.
    MemoryResult store(const MemoryEdit& edit);
    /// Stores a refused edit under another name, see `underAnotherName`.
    MemoryResult storeUnderAnotherName(const RefusedEdit& refused, const std::string& name);

  private:
    std::set<std::string> factorySessions() const;
    std::set<std::string> factoryFormats() const;
    /// The part formats of the database that can be handed to the component.
    std::vector<StoredItem> formatsToHandIn(std::vector<std::string>& leftOut);
    /// Puts into an edit what the component holds in memory.
    void takeBack(MemoryEdit& edit);
    /// The changes of an edit. A part format that the database has already, just as it is, counts
    /// as handed in.
    std::vector<Change> changesToStore(MemoryEdit edit);
    void checkName(const MemoryEdit& edit) const;

    wynconfig::WYNConfig& m_component;
    SessionDatabase& m_database;
    std::filesystem::path m_storeRoot;
};

}  // namespace host
