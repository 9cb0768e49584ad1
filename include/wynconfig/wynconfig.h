/// @file
/// The component's one public class.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "wynconfig/export.h"
#include "wynconfig/resource_manager.h"

/// All of the component.
namespace wynconfig {

/// The operations that a host calls, one per action of its user. An object has no state of its own:
/// all objects on a thread share the view, the store, the resource manager, the mode of working,
/// and the session and part formats that are held in memory.
///
/// Call `InitResourceManager`, then `init`, then anything; an operation may be called from within
/// another. A failure comes up as a box in the installed view (see `installView`) and the operation
/// goes on; no operation throws. Another thread starts with nothing and has all of this for itself,
/// the view included; nothing is locked. All texts, names and paths are UTF-8.
///
/// **File mode** works on the store's files. **The in-memory mode** works on a session and part
/// formats that the host hands in as XML text and takes back so; the store's files are then factory
/// items, which may be used but not changed. The two operations that end in `EX` begin the
/// in-memory mode, `showAddMORAMConfigDlg` ends it, and no other operation touches it.
///
/// Two things to know of the in-memory mode:
/// - The store has to hold a part format of its own. On a store without one the session dialog
///   lists no part formats at all, those that the host hands in and those that the user makes
///   included: a session keeps the ones that it has selected already, and one that has none can't
///   be confirmed but by way of the file that it writes.
/// - It stays until `showAddMORAMConfigDlg` ends it, which the user of the maintenance dialog does
///   as well by pressing New. Until then a session that is edited by `showMORAMConfigDlg`, or in
///   one of the dialogs that list sessions, is shown as it is in its file, confirmed with 0, and
///   not saved.
class WYNCONFIG_API WYNConfig {
  public:
    /// The session held in memory: what the last operation of the in-memory mode, or the last
    /// migration, left.
    /// @return XML text, that of an empty record when there was none yet
    std::string GetDatasetSessionData();

    /// The part formats held in memory: those of the user, and the factory ones that a session
    /// selected when it was confirmed.
    /// @return XML text of each, in the order in which they came in. When there is none: one empty
    ///         text, which `showMORAMConfigDlgEX` does not take back: leave empty ones out.
    std::vector<std::string> GetDatasetFormatsData();

    /// Reads a session and its part formats out of another store into memory, to be taken by
    /// `GetDatasetSessionData` and `GetDatasetFormatsData`. Writes nothing, and needs no `init`.
    /// @param migrationPath   the other store's root with its trailing separator
    /// @param strSessionName  the session's name, in any case
    /// @return true when the session and all its part formats were read. After a false the session
    ///         in memory is the old one; the part formats may be new ones.
    bool MigrateSession(const std::string& migrationPath, const std::string& strSessionName);

    /// Lets the user edit a session of the store in the session dialog.
    /// @param sName  in: the session's name, in any case; an empty one opens a session that comes
    ///               to exist at the first Apply. Out: the name that the dialog ended on.
    /// @return 0 when the user confirmed and the session was saved, else 1. In the in-memory mode 0
    ///         says only that the user confirmed: nothing is saved.
    long showMORAMConfigDlg(std::string& sName);

    /// Lets the user edit a session that the host hands in. Begins the in-memory mode, also when a
    /// text is refused. On a store without a part format of its own the dialog lists none, the
    /// host's included (see above): put one there before.
    /// @param sName              in: the session's name, in any case. Out: the name that the dialog
    ///                           ended on; untouched when a text is refused.
    /// @param strSessionDataXML  XML text of the session
    /// @param arrayPartFormats   XML text of each part format of the user, at most 32,768; one that
    ///                           the store has too is dropped. None: an empty list, not an empty
    ///                           text.
    /// @return 0 when the user confirmed, 1 when the user cancelled or a text is no XML (a box says
    ///         which)
    long showMORAMConfigDlgEX(std::string& sName, const std::string& strSessionDataXML,
                              const std::vector<std::string>& arrayPartFormats);

    /// Lets the user pick, make, edit and delete sessions of the store.
    /// @param sName  in: name of the session to select, in any case. Out: the picked session's
    ///               name, empty after Cancel; the name given, upper-cased, when the window was
    ///               closed by its frame.
    /// @return 0 when the user confirmed with a session selected, else 1
    long showMORAMMaintenanceDlg(std::string& sName);

    /// Lets the user make a new session and edit it. When the user cancels the editing, the new
    /// session is taken back. Ends the in-memory mode.
    /// @param sName  in: a name to propose. Out: the new session's name, empty when there is none.
    /// @return 0 when the new session was configured, else 1
    long showAddMORAMConfigDlg(std::string& sName);

    /// The same for a session that is held in memory. Begins the in-memory mode, and drops the part
    /// formats held in memory. On a store without a part format of its own the dialog lists none
    /// (see above), and the new session needs one: put one there before.
    /// @param sName  in: a name to propose. Out: the new session's name, also when the user
    ///               cancelled the editing; empty when the user named none.
    /// @return 0 when the new session was configured, else 1
    long showAddMORAMConfigDlgEX(std::string& sName);

    /// Sets the store and makes sure that its two folders and their catalogues are there. Items and
    /// catalogues that are there stay untouched.
    /// @param MORRootPath  the store's root with its trailing separator (`\` or `/`), used as it
    ///                     stands; the root itself must exist. Without its separator the folders
    ///                     get other names than meant, which an `Observer` is told. Whether the
    ///                     store can be used then is told by `Store::isMade`.
    void init(const std::string& MORRootPath);

    /// Keeps the resource manager that all texts and the font come from; with null, or before the
    /// first call, dialogs show the English texts of their design, and messages none. A later call
    /// replaces it, also while a dialog is up; one that is just asked for something stays until it
    /// has answered.
    void InitResourceManager(std::shared_ptr<ResourceManager> objResMgr);

    /// Lets the user pick a session out of a list.
    /// @param sSessions  names joined by commas; those without an item file are not shown
    /// @return the name picked, empty when there is none
    std::string showSessionManagerDlg(const std::string& sSessions);

    /// Lets the user edit a list of sessions, and the sessions in it.
    /// @param sSessions  names joined by commas
    /// @return the list as the dialog left it, whichever way the dialog was closed, without the
    ///         names whose item file is gone
    std::string showConfigurableSessionManagerDlg(const std::string& sSessions);
};

}  // namespace wynconfig
