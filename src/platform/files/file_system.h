// The only door to the disk. It turns `\` into the system's separator, finds names without regard
// to case, lists plain files alone and in a fixed order, and saves so that a file is at all times
// wholly the old or wholly the new one, many files in a row for the price of one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "wynconfig/error.h"
#include "wynconfig/item_path.h"

namespace wynconfig {

/// Raised behind a save that is done: the file is written, but its user may not leave it in the
/// group that the old one had.
class GroupLost : public Error {
  public:
    explicit GroupLost(const Error& told) : Error(told) {}
};

/// Files and folders as the component uses them. The public operations find every part of a path
/// without regard to case (as `UCase` compares), an exact name first, then the first in ascending
/// byte order; they share one resolver. Parts that are not there stay as given. What a kind of file
/// system has to supply is the protected part. Failures raise `Error` with a description that names
/// the file. What is not there is no failure of a question, but what can't be looked at is one, for
/// want of rights, of memory or of free file numbers, or by a fault of the disk: that raises
/// errc::FileAccess, so that nobody takes for missing what may well be there. An object serves one
/// thread at a time.
class FileSystem {
  public:
    FileSystem() = default;
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;
    virtual ~FileSystem() = default;

    /// The names of the plain files in `folder` that end in ".vla" (any case), as they are spelt on
    /// disk, in ascending order of their upper-cased forms, complete before the call returns. A
    /// folder that is not there has none. A name that no `ItemPath` can bear, since it holds `\`,
    /// is left out. Raises errc::FileAccess when the folder can't be read to its end.
    std::vector<std::string> listItems(const std::string& folder);

    /// The name, as it is spelt on disk, of the plain file at `path`, or the empty string. `*` and
    /// `?` are plain letters here. Raises errc::FileAccess when it can't be told: a file in its
    /// exact spelling is found also in a folder whose names can't be read, but none is found
    /// missing there.
    std::string find(const ItemPath& path);

    /// True when a plain file lies at exactly this path, compared letter by letter. An empty path,
    /// a folder, and a path that ends in a separator count as not there. For paths outside the
    /// store. Raises errc::FileAccess when it can't be told.
    bool existsExactly(const std::string& path);

    /// True when something lies at exactly this path that is no plain file, such as a folder or a
    /// pipe. For paths outside the store. Raises errc::FileAccess when it can't be told.
    bool isNoPlainFile(const std::string& path);

    /// True when a folder is there. A path without a folder's trailing separator is fine. Raises
    /// errc::FileAccess when it can't be told.
    bool folderExists(const std::string& folder);

    /// Makes one folder, never its parents. Raises errc::FileAccess when that fails, and when a
    /// folder or file of that name, in whatever case, is there already.
    void makeFolder(const std::string& folder);

    /// Raises errc::FileAccess for a folder that is a symbolic link, and so may lie anywhere.
    void refuseLink(const std::string& folder);

    /// Reads a whole file, through a link as well. What is no plain file is never even opened.
    /// Raises errc::FileNotFound, or errc::FileAccess, also for a file of more than kMaxItemSize.
    std::string read(const ItemPath& path);

    /// Writes a whole file, crash-safe: the file is at all times wholly the old or wholly the new
    /// one. An existing file keeps its spelling, its group and its mode bits, and its owner where
    /// the user may give files away. Where the user is no member of the group, the new one gets no
    /// more rights than everybody has, and `GroupLost` is raised in the end. A symbolic link in its
    /// place gives way to a new file, and what it led to stays as it is. Raises errc::FileAccess;
    /// the old file then stands, unless the text says that the new one is written but not
    /// confirmed. While a `SaveBatch` is open the new content waits for its commit.
    void save(const ItemPath& path, std::string_view content);

    /// Writes a whole file at exactly this path of the system, crash-safe as `save`, but of any
    /// size and at once, also while a `SaveBatch` is open. A link is followed, unless it leads
    /// nowhere. For files outside the store. Raises errc::FileAccess.
    void saveExactly(const std::string& path, std::string_view content);

    /// Deletes a file, and takes back what an open batch was to save there. Raises
    /// errc::FileNotFound or errc::FileAccess.
    void remove(const ItemPath& path);

  protected:
    /// One entry of a folder.
    struct Entry {
        std::string name;
        bool plainFile;
    };
    /// When a folder changed last. `settled` is false while a further change could still leave
    /// `value` as it is, because the clock behind it is too coarse.
    struct Stamp {
        std::int64_t value = 0;
        bool settled = true;
    };

    /// Which state a file is in, told without reading it. `settled` is false while a change could
    /// still leave `value` as it is.
    struct Version {
        std::array<std::int64_t, 4> value{};
        bool settled = true;
    };
    /// Asked for each prepared file right before it is put in place: false leaves the old one.
    using MayReplace = std::function<bool(const std::string& path)>;

    // What a kind of file system supplies. Paths are those of the system, already resolved: folders
    // without a trailing separator ("" is the working folder, "/" the system's root), files as
    // `join` makes them. What fails raises `Error`, but for `stampOf` and `versionOf`.

    /// Fills in what lies in a folder, without "." and "..". False when there is no such folder;
    /// raises when it can't be read to its end.
    virtual bool entriesOf(const std::string& folder, std::vector<Entry>& entries) = 0;
    /// False when it can't be told, for whatever reason. Never raises: it is asked also behind a
    /// change that is done, which no failure may hide.
    virtual bool stampOf(const std::string& folder, Stamp& stamp) = 0;
    /// Nothing when it can't be told, for whatever reason, or no plain file is there. A link's is
    /// that of the file to which it leads.
    virtual std::optional<Version> versionOf(const std::string& path) = 0;
    virtual bool isPlainFile(const std::string& path) = 0;
    virtual bool isFolder(const std::string& path) = 0;
    /// A folder or whatever else is there and no plain file.
    virtual bool isOther(const std::string& path) = 0;
    virtual bool isLink(const std::string& path) = 0;
    /// Where a link leads, behind all links; the path itself where it is none, or leads nowhere.
    virtual std::string behindLinks(const std::string& path) = 0;
    /// Why a path that `isFolder` denies leads to no folder.
    virtual std::errc whyNoFolder(const std::string& path) = 0;
    virtual void createFolder(const std::string& path) = 0;
    virtual std::string readFile(const std::string& path) = 0;
    virtual void replaceFile(const std::string& path, std::string_view content) = 0;
    virtual void removeFile(const std::string& path) = 0;
    /// Prepares what `replaceFile` would do, beside the old file, in place of what was prepared for
    /// that file before. Raises what can be told by now.
    virtual void stageFile(const std::string& path, std::string_view content) = 0;
    /// Gives what forgets what was prepared for a file, if anything was. That takes no memory and
    /// never fails.
    virtual std::function<void()> unstaging(const std::string& path) = 0;
    /// Puts all that was prepared and may replace the old files in place, or none of it when it
    /// can't be made safe first. Raises the first failure at the end; nothing stays prepared in any
    /// case.
    virtual void commitStaged(const MayReplace& mayReplace) = 0;
    virtual void discardStaged() noexcept = 0;

    /// A folder and a name in it as one path of the system.
    static std::string join(const std::string& folder, std::string_view name);
    /// The failure "The file `path` was not found."
    static Error notFound(std::string_view path);
    /// The failure "The `kind` `path` can't be `verb`: `cause`."
    static Error refusal(std::string_view kind, std::string_view path, std::string_view verb,
                         std::string_view cause);
    static Error refusal(std::string_view kind, std::string_view path, std::string_view verb,
                         std::errc cause);

    friend class FaultyFileSystem;
    friend class SaveBatch;

  private:
    /// The names of one folder by their upper-cased forms: what a miss on the exact spelling asks.
    struct Index {
        Stamp stamp;
        std::set<std::pair<std::string, std::string>> names;  ///< upper-cased form, name on disk
        bool seenInBatch = false;  ///< read, or found current, since the open batch began
    };
    /// When an index is good enough to go by: only when no change can have slipped past its stamp,
    /// or whenever the stamp is the folder's, or was so since the open batch began.
    enum class Trust { Settled, SameStamp };
    /// Where a file lies: a resolved folder, and the name as given.
    struct Place {
        std::string folder;
        std::string name;
    };
    struct NameToWrite {
        std::string name;
        bool isOnDisk;
    };
    /// A file as it was when the open batch read it.
    struct FileRead {
        ItemPath path;  ///< as it was given
        Version version;
        std::string text;      ///< empty for a settled version, which tells enough
        bool isSaved = false;  ///< a new one was to be put in place
    };
    using Question = bool (FileSystem::*)(const std::string& path);

    std::optional<Place> placeOf(const ItemPath& path);
    std::string resolveFolder(std::string_view folder);
    std::string folderOf(const std::string& folder);
    std::string nameOnDisk(const std::string& folder, const std::string& name, Question isWanted,
                           Trust trust);
    std::string nameToRead(const Place& place);
    NameToWrite nameToWrite(const Place& place);
    std::string causeOfNoFolder(const std::string& folder, const char* usual);
    bool isThere(const std::string& path);
    std::string newFileName(const Place& place) const;
    std::string readInBatch(const ItemPath& path, const std::string& file);
    bool isAsRead(const std::string& file, const FileRead& read);
    void beginBatch();
    void endBatch();
    std::map<std::string, FileRead> commitBatch(std::vector<ItemPath>* overtaken,
                                                const std::function<void()>& placing);

    const Index* indexOf(const std::string& folder, Trust trust);
    bool hasCurrentIndex(const std::string& folder);
    void updateIndex(const std::string& folder, const std::string& name, bool present) noexcept;

    std::map<std::string, Index> m_indexes;  ///< by resolved folder
    bool m_inBatch = false;
    /// The new files that the open batch is to make: resolved folder, upper-cased name, name.
    std::set<std::array<std::string, 3>> m_newFiles;
    /// The folders that were found since the open batch began: resolved ones by given ones.
    std::map<std::string, std::string> m_batchFolders;
    /// What the open batch has read, each file as it was at the first reading.
    std::map<std::string, FileRead> m_read;
};

/// While one is open, `save` of its file system only prepares the new files; `commit` puts them all
/// in place for about the price of one crash-safe save. Meanwhile everybody sees the old files, and
/// at any moment each file is wholly the old or wholly the new one. A `save` that fails raises as
/// ever, and the other files of the batch go on without it.
///
/// A batch opened while another one is open joins it: only the outer one commits or discards.
class SaveBatch {
  public:
    /// @param files  must outlive this object.
    explicit SaveBatch(FileSystem& files);
    SaveBatch(const SaveBatch&) = delete;
    SaveBatch& operator=(const SaveBatch&) = delete;
    /// Discards what was not committed; the old files stand.
    ~SaveBatch();

    /// What is to be done once more for files that others changed: read, change and save each.
    using Again = std::function<void(const std::vector<ItemPath>& overtaken)>;

    /// Puts all files in place and ends the batch: a `save` behind it goes through at once. Tries
    /// all files and raises the first failure, errc::FileAccess. When the new content can't be
    /// brought to the disk, no file is changed. `GroupLost` is raised when there is no other
    /// failure.
    /// @param again  with it, no file is replaced that anybody changed or deleted since it was read
    /// in the batch: `again` gets those files, as their paths were given to `read`, while a batch
    /// is open anew, and that one is committed likewise. Somebody who changes a file all the time
    /// is given in to after some rounds: then the last save wins.
    /// @param placing  is called for each file that is about to be put in place; must not raise
    void commit(const Again& again = nullptr, const std::function<void()>& placing = nullptr);

    /// The same for what was saved by now, in the midst of it: until `goOn` each `save` goes
    /// through at once, and another batch is one of its own.
    void settle(const Again& again = nullptr, const std::function<void()>& placing = nullptr);
    /// Has saves wait again, behind `settle`. Files that were read before it and not saved yet
    /// count as they were read then.
    void goOn();

  private:
    FileSystem& m_files;
    bool m_leads;              ///< false once it has ended, and for one that joined another
    bool m_isSettled = false;  ///< between `settle` and `goOn`
    std::map<std::string, FileSystem::FileRead> m_unsaved;  ///< what was read before `settle`
};

/// The disk.
std::unique_ptr<FileSystem> makeRealFileSystem();
/// Files that live in memory as long as the object does.
std::unique_ptr<FileSystem> makeMemoryFileSystem();

/// The file system that the component uses: the disk, until another one is set.
FileSystem& fileSystem();
/// Replaces it; null sets the disk again. The caller keeps the object alive while it is set.
void setFileSystem(FileSystem* replacement);

}  // namespace wynconfig
