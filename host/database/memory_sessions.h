// The component's in-memory mode on the database: sessions and part formats go from there into the
// dialogs, and what the user confirmed goes back.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "database/memory_edit.h"
#include "database/outcome.h"
#include "database/session_database.h"
#include "wynconfig/wynconfig.h"

namespace host {

/// Leads the component back to file mode, which only its adding of a session does: that is called
/// without a view, and so cancelled. Without this an operation on the store's files, after one in
/// memory, would go on working in memory.
void endInMemoryMode(wynconfig::WYNConfig& component);

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
    Outcome configure(const std::string& name);
    /// Lets the user make a session.
    Outcome add();
    /// Takes a session and its part formats over from another store.
    /// @param root  of the other store
    /// @param name  under which the session is kept, in any case
    Outcome takeOver(const std::filesystem::path& root, const std::string& session,
                     const std::string& name);
    /// Deletes what the user saw in this version.
    void remove(ItemKind kind, const StoredItem& item);

    /// Stores an edit that was refused, once more as it is.
    Outcome store(const MemoryEdit& edit);
    /// Stores a refused edit under another name, see `underAnotherName`.
    Outcome storeUnderAnotherName(const RefusedEdit& refused, const std::string& name);

    std::set<std::string> factorySessions() const;
    std::set<std::string> factoryFormats() const;

  private:
    /// The part formats of the database that can be handed to the component.
    std::vector<StoredItem> formatsToHandIn(std::string& leftOut);
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
