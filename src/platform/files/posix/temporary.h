// The temporaries of saves: how they are named, how a living program is told from a dead one by
// them, and how what a killed program left is cleaned away.
//
// A temporary is either locked by its writer for as long as it lives (the one of a single save, and
// the mark of a batch), or bears the name of a mark that is. So whoever can have the lock, or finds
// the mark gone, knows that nobody will use the temporary any more. Nobody ever waits for a lock.
#pragma once

#include <sys/types.h>

#include <string>

#include "platform/files/posix/posix.h"

namespace wynconfig {

/// A temporary that its writer has locked. Unless it was published it goes with the object.
class LockedTemporary {
  public:
    /// Makes an empty file under a name that nobody has: short whatever the target's is, and never
    /// an item's.
    /// @param folder  must outlive this object.
    /// @param mode    as for a new file, less what the user's mask takes away.
    /// Raises `SystemFailure`, and leaves no file then. Where locks are always refused it does
    /// without one.
    LockedTemporary(const OpenFolder& folder, mode_t mode);
    LockedTemporary(const LockedTemporary&) = delete;
    LockedTemporary& operator=(const LockedTemporary&) = delete;
    ~LockedTemporary();

    const Descriptor& file() const { return m_file; }
    /// Puts it in the place of the file of that name. Its bytes must be on the disk by then; the
    /// new name is there once the folder is synced, too. Raises `SystemFailure`.
    void publish(const std::string& target);
    /// The name of a temporary that lives by this one's lock. It must be gone before this one is.
    std::string follower(unsigned number) const;

  private:
    int create(mode_t mode);
    Descriptor createUnderNewName(mode_t mode);
    bool isStillThere() const;

    const OpenFolder& m_folder;
    std::string m_name;
    Descriptor m_file;
    bool m_published = false;
};

/// Deletes the temporaries that nobody uses any more. Those of this very process are left alone.
/// Never raises: what can't be deleted stays.
/// @return false when a temporary is left that may be cleaned away later, since it is another
/// program's that lives, or since the folder could not be read.
bool cleanTemporaries(const OpenFolder& folder);

}  // namespace wynconfig
