// The temporaries of saves: how a living program is told from a dead one by them, and how what a
// killed program left is cleaned away.
//
// Who saves in a folder holds a mark there, an empty file that nobody else can delete as long as it
// is open, and that the system deletes when it is closed, also for a program that is killed. The
// temporaries bear the name of the mark: where it is gone, or can be deleted, nobody will use them
// any more. Nobody ever waits for a mark.
#pragma once

#include <string>

#include "platform/files/win32/win32.h"

namespace wynconfig {

/// The sign that a program which saves in a folder is alive. It goes with the object.
class Mark {
  public:
    /// @param folder  as `nativePath` gives it, with a separator at its end.
    /// Raises `SystemFailure`.
    explicit Mark(std::wstring folder);

    /// The path of a temporary that lives as long as this one. It must be gone before this one is.
    std::wstring follower(unsigned number) const;
    /// Brings to the disk what the system holds back for the disk that the mark lies on. Raises
    /// `SystemFailure`.
    void flushDisk() const;

  private:
    Handle create();

    std::wstring m_folder;
    std::string m_name;
    Handle m_file;
};

/// Brings what was written to a file to the disk. Raises `SystemFailure`, but not where the file
/// system knows no such call.
void flush(const Handle& file);

/// Hands what was written to a file to the disk, which may hold it back until `Mark::flushDisk`.
/// Where the system has no such call it is brought to the disk at once. Raises `SystemFailure`.
void flushToDevice(const Handle& file);

/// Deletes the temporaries in a folder that nobody uses any more. Those of this very process are
/// left alone. Never raises: what can't be deleted stays.
/// @param folder  as `nativePath` gives it, with a separator at its end.
/// @return false when a temporary is left that may be cleaned away later, since it is another
/// program's that lives, or since the folder could not be read.
bool cleanTemporaries(const std::wstring& folder);

}  // namespace wynconfig
