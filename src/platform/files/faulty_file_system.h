// A file system that fails where a test says, around any other one, and that counts what it is
// asked to do.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/file_system.h"

namespace wynconfig {

/// Passes everything on to the file system that it wraps, but for the operations that a test wants
/// to fail. Those change nothing in the wrapped one.
class FaultyFileSystem : public FileSystem {
  public:
    enum class Operation {
        List,        ///< reading the names of a folder, for a listing or to find a name by case,
                     ///< fails as without a free file number: errc::FileAccess
        Read,        ///< fails as a damaged disk does: errc::FileAccess
        Save,        ///< fails as a full disk does: errc::FileAccess, and the old file stands
        Remove,      ///< errc::FileAccess, and the file stays
        MakeFolder,  ///< errc::FileAccess
        Commit,      ///< of a batch that holds files: errc::FileAccess, and all old files stand
    };

    /// @param wrapped  must outlive this object.
    explicit FaultyFileSystem(FileSystem& wrapped) : m_wrapped(wrapped) {}

    /// Lets an operation fail.
    /// @param part   only where the path, as the system spells it, holds this text; empty:
    /// anywhere. The path of a commit is the folder of its first file.
    /// @param skip   that many calls of this kind succeed first.
    /// @param times  that many fail then, -1: all of them.
    void failOn(Operation operation, std::string part = "", int skip = 0, int times = -1);
    /// Lets everything succeed again.
    void failNowhere() { m_faults.clear(); }

    /// How often an operation was begun, failed ones included, since the last `resetCounts`. An
    /// operation that is refused before it gets to the disk, as for a missing file, is none.
    std::size_t count(Operation operation) const {
        return m_counts[static_cast<std::size_t>(operation)];
    }
    void resetCounts() { m_counts.fill(0); }

  protected:
    bool entriesOf(const std::string& folder, std::vector<Entry>& entries) override;
    bool stampOf(const std::string& folder, Stamp& stamp) override;
    std::optional<Version> versionOf(const std::string& path) override;
    bool isPlainFile(const std::string& path) override;
    bool isFolder(const std::string& path) override;
    bool isOther(const std::string& path) override;
    bool isLink(const std::string& path) override;
    std::string behindLinks(const std::string& path) override;
    std::errc whyNoFolder(const std::string& path) override;
    void createFolder(const std::string& path) override;
    std::string readFile(const std::string& path) override;
    void replaceFile(const std::string& path, std::string_view content) override;
    void removeFile(const std::string& path) override;
    void stageFile(const std::string& path, std::string_view content) override;
    std::function<void()> unstaging(const std::string& path) override;
    void commitStaged(const MayReplace& mayReplace) override;
    void discardStaged() noexcept override;

  private:
    struct Fault {
        Operation operation;
        std::string part;
        int skip;
        int times;
    };

    /// Counts an operation; true when it is to fail.
    bool begin(Operation operation, const std::string& path);
    /// Counts a save; raises when it is to fail.
    void failSave(const std::string& path);

    FileSystem& m_wrapped;
    std::vector<Fault> m_faults;
    std::array<std::size_t, 6> m_counts{};
    std::optional<std::string> m_stagedFolder;  ///< where the batch's first file lies
};

}  // namespace wynconfig
