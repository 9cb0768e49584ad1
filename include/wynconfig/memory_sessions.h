// The in-memory mode on a database: sessions and part formats go from there into the dialogs, and
// what the user confirmed goes back as a whole or not at all.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "wynconfig/database.h"
#include "wynconfig/export.h"
#include "wynconfig/store.h"
#include "wynconfig/wynconfig.h"

namespace wynconfig {

/// The record of a session or part format, outside the database.
struct ItemText {
    std::string name;  ///< in upper case
    std::string xml;   ///< XML text of the record, UTF-8
};

/// A session and the part formats of the user, before and after an edit.
struct MemoryEdit {
    std::optional<StoredItem> sessionBefore;  ///< none: the session is new
    std::vector<StoredItem> formatsBefore;    ///< all that were handed in
    ItemText session;                         ///< as the user confirmed it
    std::vector<ItemText> formats;            ///< all that came back, but for factory ones
};

/// What the user confirmed could not be stored. It is all in here, so that nothing is lost.
class WYNCONFIG_API RefusedEdit : public DatabaseError {
  public:
    /// @param reason     for the user
    /// @param edit       what the user confirmed
    /// @param conflicts  none when it failed on something else
    RefusedEdit(const std::string& reason, MemoryEdit edit,
                std::vector<ItemConflict> conflicts = {});
    /// What the user confirmed, to be stored in another way.
    const MemoryEdit& edit() const { return m_edit; }
    /// On what it failed; none when that was something else than another workstation.
    const std::vector<ItemConflict>& conflicts() const { return m_conflicts; }

  private:
    MemoryEdit m_edit;
    std::vector<ItemConflict> m_conflicts;
};

/// What an operation in memory came to.
struct MemoryResult {
    long result = 1;        ///< 0: stored; 1: cancelled, or there was nothing to store
    std::string name = {};  ///< the session that it ended on; may be empty
    std::string xml = {};   ///< XML text of that session as it was stored
    /// Names of part formats that are damaged, and so were not offered. They stay as they are.
    std::vector<std::string> leftOut = {};
};

/// The operations of the in-memory mode on a database. What the store on the disk has counts as
/// factory items, which may be used but not changed, and never go into the database. All raise
/// `DatabaseError`, and `Error` when the store's folders can't be read; those that store what a
/// user entered raise `RefusedEdit` when that fails. The component is left in the in-memory mode.
class WYNCONFIG_API MemorySessions {
  public:
    /// @param component  is set to the store already; it outlives this object
    /// @param database   where sessions and part formats are kept; it outlives this object
    /// @param storeRoot  of the component's store, with its trailing separator, as for
    ///                   `WYNConfig::init`
    MemorySessions(WYNConfig& component, SessionDatabase& database, std::string storeRoot);

    /// Lets the user edit a session of the database with all its part formats, and stores what the
    /// user confirmed: the session, and each part format that is new, changed, renamed or deleted.
    /// @param name  in any case
    MemoryResult configure(const std::string& name);
    /// Lets the user make a session, and stores it with its new part formats.
    MemoryResult add();
    /// Takes a session and its part formats over from another store.
    /// @param root  of the other store, with its trailing separator
    /// @param session  its name there, in any case
    /// @param name  under which the session is kept, in any case
    /// @return with 1 when the session, or one of its part formats, can't be read there
    MemoryResult takeOver(const std::string& root, const std::string& session,
                          const std::string& name);
    /// Deletes what the user saw, in this version. Raises `ConflictError` when it is another by
    /// now.
    void remove(ItemKind kind, const ListedItem& item);

    /// Stores an edit that was refused, once more as it is.
    MemoryResult store(const MemoryEdit& edit);
    /// Stores a refused edit in such a way that nothing stands in its way: the session under
    /// another name; a part format whose name was taken or changed meanwhile with a number behind
    /// its name, which the session follows. What another workstation changed is not deleted.
    /// @param refused  as it was raised
    /// @param name     in any case
    MemoryResult storeUnderAnotherName(const RefusedEdit& refused, const std::string& name);

  private:
    /// The upper-cased names of the store's items.
    WYNCONFIG_INSIDE std::set<std::string> factoryNames(ItemKind kind) const;
    /// The part formats of the database that can be handed to the component.
    WYNCONFIG_INSIDE std::vector<StoredItem> formatsToHandIn(std::vector<std::string>& leftOut);
    /// Puts into an edit what the component holds in memory.
    WYNCONFIG_INSIDE void takeBack(MemoryEdit& edit);
    /// The changes of an edit. A part format that the database has already, just as it is, counts
    /// as handed in.
    WYNCONFIG_INSIDE std::vector<ItemChange> changesToStore(MemoryEdit edit);
    WYNCONFIG_INSIDE void checkName(const MemoryEdit& edit) const;

    WYNConfig& m_component;
    SessionDatabase& m_database;
    Store m_store;
};

}  // namespace wynconfig
