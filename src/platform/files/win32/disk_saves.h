// Saving to the disk so that a file is at all times wholly the old or wholly the new one: the new
// content is written to a temporary beside the old file, brought to the disk, and then renamed. One
// file at a time, or many with one sync of the disk for all of them.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/save_failure.h"
#include "platform/files/win32/temporary.h"
#include "platform/files/win32/win32.h"

namespace wynconfig {

/// Which folders hold nothing that a killed program left. A folder is looked through when anybody
/// else changed it since the last save of ours.
class CleanFolders {
  public:
    enum class When { Changed, Always };
    /// Cleans a folder; to be called before a save. Raises `SystemFailure`.
    /// @param folder  as `nativePath` gives it, with a separator at its end.
    /// @return true when nothing is left to be cleaned away later.
    bool clean(const std::wstring& folder, When when);
    /// Notes a folder as it is; to be called behind a save. Never raises.
    /// @param isClean  what `clean` said before it.
    void note(const std::wstring& folder, bool isClean);

  private:
    std::map<std::wstring, Identity> m_clean;  ///< by path
};

/// A folder for as long as files are saved in it.
class SaveFolder {
  public:
    /// When what is written is brought to the disk.
    enum class Flush {
        Each,      ///< with each file
        Together,  ///< for all files by `flush`
    };

    /// @param native   as `nativePath` gives it, with a separator at its end.
    /// @param isClean  false when there may be something to be cleaned away later.
    SaveFolder(std::string path, std::wstring native, const Identity& identity, bool isClean)
        : m_path(std::move(path)),
          m_native(std::move(native)),
          m_identity(identity),
          m_isClean(isClean) {}
    SaveFolder(const SaveFolder&) = delete;
    SaveFolder& operator=(const SaveFolder&) = delete;
    /// Deletes the temporaries that were not published.
    ~SaveFolder();

    const std::string& path() const { return m_path; }
    const std::wstring& native() const { return m_native; }
    bool isClean() const { return m_isClean; }
    /// True when no temporary waits to be published.
    bool isEmpty() const { return m_staged.empty(); }
    /// Whether it is the same folder, by whatever path.
    bool isSame(const Identity& other) const {
        return m_identity.volume == other.volume && m_identity.number == other.number;
    }

    /// Writes the temporary of a file, in place of the one that it has. Raises `SystemFailure`; the
    /// former temporary then stands.
    void stage(const std::string& name, std::string_view content, Flush when);
    /// Forgets the temporary of a file, if it has one. Never raises.
    void unstage(std::string_view name) noexcept;
    /// Brings to the disk what was staged to be flushed together. Raises `SystemFailure`.
    void flush() const;
    /// Puts all temporaries that may be in place and brings the names to the disk. Their bytes must
    /// be there by then. Tries all files, and keeps the first failure.
    void publish(const MayReplace& mayReplace, std::optional<SaveFailure>& first);

  private:
    void write(const std::wstring& temporary, std::string_view content, DWORD kept, Flush when);
    void replace(const std::string& name, unsigned number, Patience& patience) const;
    void flushNames(std::optional<SaveFailure>& first) const;
    std::wstring fileAt(const std::string& name) const { return m_native + nativeName(name); }
    void discard(unsigned number) const noexcept;

    std::string m_path;
    std::wstring m_native;
    Identity m_identity;
    bool m_isClean;
    std::optional<Mark> m_mark;  ///< by which the temporaries live
    /// The number of the temporary by the file's name.
    std::map<std::string, unsigned, std::less<>> m_staged;
    unsigned m_last = 0;  ///< number of the temporary made last
};

/// The folders in which files are being saved, each looked at once.
class SaveFolders {
  public:
    SaveFolders(CleanFolders& cleanFolders, CleanFolders::When when)
        : m_cleanFolders(cleanFolders), m_when(when) {}
    /// Raises `SystemFailure` when it can't be used.
    SaveFolder& at(const std::string& path);
    /// Null for one that `at` was never asked for.
    SaveFolder* known(std::string_view path) const noexcept;
    /// In the order in which they were asked for.
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
    void publish(SaveFolder& folder, const MayReplace& mayReplace,
                 std::optional<SaveFailure>& first);

    CleanFolders m_cleanFolders;
    std::unique_ptr<SaveFolders> m_batch;  ///< null when nothing is staged
};

}  // namespace wynconfig
