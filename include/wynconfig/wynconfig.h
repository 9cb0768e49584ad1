// The component's one public class.
#pragma once

#include <memory>
#include <string>

#include "wynconfig/resource_manager.h"

namespace wynconfig {

/// The operations that a host calls, one per action of its user. An object has no state of its own:
/// all objects of a process share the store, the resource manager and the mode of working.
///
/// Call `InitResourceManager`, then `init`, then anything, on one thread. A failure comes up as a
/// box in the installed view (see `installView`); no operation throws.
class WYNConfig {
  public:
    /// Keeps the resource manager that all texts and the font come from. A later call replaces it.
    void InitResourceManager(std::shared_ptr<ResourceManager> objResMgr);

    /// Sets the store and makes sure that its two folders and their catalogues are there. Items and
    /// catalogues that are there stay untouched.
    /// @param MORRootPath  the store's root with its trailing separator (`\` or `/`), used as it
    ///                     stands; the root itself must exist
    void init(const std::string& MORRootPath);

    /// Lets the user edit a session in the session dialog.
    /// @param sName  in: the session's name, in any case; an empty one opens a session that comes
    /// to
    ///               exist at the first Apply. Out: the name that the dialog ended on.
    /// @return 0 when the user confirmed and the session was saved, else 1
    long showMORAMConfigDlg(std::string& sName);

    /// Lets the user make a new session and edit it. When the user cancels the editing, the new
    /// session is taken back. Ends the in-memory mode.
    /// @param sName  in: a name to propose. Out: the new session's name, empty when there is none.
    /// @return 0 when the new session was configured, else 1
    long showAddMORAMConfigDlg(std::string& sName);
};

}  // namespace wynconfig
