// Saving to the disk so that a file is at all times wholly the old or wholly the new one: the new
// content is written to a temporary beside the old file, brought to the disk, and then renamed. One
// file at a time, or many with one sync of the file system for all of them.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/posix/posix.h"
#include "platform/files/posix/temporary.h"
#include "platform/files/save_failure.h"

namespace wynconfig {

/// What a file takes over from the one that it replaces.
struct Ownership {
    uid_t user;
    gid_t group;
    mode_t mode;  ///< with the bits beyond the rights
    bool operator==(const Ownership&) const = default;
};

/// Which folder it is, by whatever path.
struct FolderIdentity {
    dev_t device;
    ino_t inode;
    bool operator==(const FolderIdentity&) const = default;
};

/// Which folders hold nothing that a killed program left. A folder is looked through when anybody
/// else changed it since the last save of ours.
class CleanFolders {
  public:
    enum class When { Changed, Always };
    /// Cleans a folder; to be called before a save. Raises `SystemFailure`.
    /// @return true when nothing is left to be cleaned away later.
    bool clean(const std::string& path, const OpenFolder& folder, When when);
    /// Notes a folder as it is; to be called behind a save. Never raises.
    /// @param isClean  what `clean` said before it.
    void note(const std::string& path, const OpenFolder& folder, bool isClean);

  private:
    struct Stamp {
        FolderIdentity identity;
        std::int64_t changed;  ///< nanoseconds since the epoch
        bool operator==(const Stamp&) const = default;
    };
    static Stamp stampOf(const OpenFolder& folder);

    std::map<std::string, Stamp> m_clean;  ///< by path
};

/// A folder for as long as files are saved in it.
class SaveFolder {
  public:
    /// @param isClean  false when there may be something to be cleaned away later.
    SaveFolder(std::string path, OpenFolder folder, bool isClean)
        : m_path(std::move(path)), m_folder(std::move(folder)), m_isClean(isClean) {}
    SaveFolder(const SaveFolder&) = delete;
    SaveFolder& operator=(const SaveFolder&) = delete;
    /// Deletes the temporaries that were not published.
    ~SaveFolder();

    const std::string& path() const { return m_path; }
    const OpenFolder& open() const { return m_folder; }
    bool isClean() const { return m_isClean; }
    /// True when no temporary waits to be published.
    bool isEmpty() const { return m_staged.empty(); }

    /// Writes the temporary of a file, in place of the one that it has. Raises `SystemFailure`; the
    /// former temporary then stands.
    /// @param old  what is to be kept of the old file, if there is one.
    void stage(const std::string& name, const std::optional<Ownership>& old,
               std::string_view content);
    /// Forgets the temporary of a file, if it has one. Never raises.
    void unstage(std::string_view name) noexcept;
    /// Puts all temporaries that may be in place and brings the names to the disk. Their bytes must
    /// be there by then. Tries all files, and keeps the first failure.
    void publish(const MayReplace& mayReplace, std::optional<SaveFailure>& first);

  private:
    struct Staged {
        std::string temporary;  ///< its name
        int groupError;         ///< why it is not in the old file's group; 0: it is
    };
    bool isWrittenAsNew(const Ownership& old) const;

    std::string m_path;
    OpenFolder m_folder;
    bool m_isClean;
    std::optional<LockedTemporary> m_mark;                ///< by its lock the temporaries live
    std::map<std::string, Staged, std::less<>> m_staged;  ///< by the file's name
    std::optional<Ownership> m_new;     ///< that of the mark, as new files of the folder have
    std::optional<Ownership> m_asMade;  ///< one that new files of the folder get as asked
    unsigned m_last = 0;                ///< number of the temporary made last
};

/// The folders in which files are being saved, each opened once.
class SaveFolders {
  public:
    SaveFolders(CleanFolders& cleanFolders, CleanFolders::When when)
        : m_cleanFolders(cleanFolders), m_when(when) {}
    /// Raises `SystemFailure` when it can't be opened.
    SaveFolder& at(const std::string& path);
    /// Null for one that `at` was never asked for.
    SaveFolder* known(std::string_view path) const noexcept;
    /// In the order in which they were opened.
    const std::vector<std::unique_ptr<SaveFolder>>& all() const { return m_folders; }

  private:
    CleanFolders& m_cleanFolders;
    CleanFolders::When m_when;
    std::vector<std::unique_ptr<SaveFolder>> m_folders;
    /// A folder may go by several paths.
    std::map<std::string, SaveFolder*, std::less<>> m_byPath;
};

/// Saves files one at a time or in batches. Everything raises `SaveFailure`.
class DiskSaves {
  public:
    void save(const std::string& path, std::string_view content);

    /// Writes the temporary of a file, in place of the one that was written for it before.
    void stage(const std::string& path, std::string_view content);
    /// Forgets what is staged for a file, if anything is. Never raises.
    void unstage(std::string_view path) noexcept;
    /// Puts all that is staged and may be in place. When the temporaries can't be brought to the
    /// disk, nothing is changed.
    void commit(const MayReplace& mayReplace);
    void discard() noexcept { m_batch.reset(); }

  private:
    CleanFolders m_cleanFolders;
    std::unique_ptr<SaveFolders> m_batch;  ///< null when nothing is staged
};

}  // namespace wynconfig
