// The store as a host or a tool sees it: its items by name, without any dialog.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "wynconfig/dataset.h"
#include "wynconfig/export.h"
#include "wynconfig/item_path.h"

namespace wynconfig {

/// What the items of a store are.
enum class ItemKind { Session, PartFormat };

/// A name in upper case, UTF-8, by which items are told apart and under which they are saved. A
/// character goes over into one other that leads back to it, or stays as it is.
WYNCONFIG_API std::string upperName(std::string_view name);

/// Whether a session or part format may be given this name: it is not empty or blanks alone, has
/// none of \ / : * ? " < > | and the point, and reads as no number. The dialogs have the same rule.
WYNCONFIG_API bool isItemName(const std::string& name);

/// A record that is to be an item of a store, under its own name.
struct StoreItem {
    ItemKind kind = ItemKind::Session;      ///< has to fit the record's type
    std::shared_ptr<const Dataset> record;  ///< not null
};

/// The part formats that a session names, whatever it says of their number: those that it offers in
/// the order of its rows, then the one of the file that it writes, none of them twice. Text in
/// angle brackets stands for none.
/// @return the names as they stand in the session
WYNCONFIG_API std::vector<std::string> formatsOf(const Dataset& session);

/// Something about an item that its user should know.
struct StoreFault {
    /// What it is about.
    enum class Cause {
        Unreadable,      ///< the file can't be read, or holds no record
        WrongType,       ///< it is a record of another kind
        OtherName,       ///< the record has another name than its file
        UnknownKey,      ///< a key that no item of this kind has
        FormatCount,     ///< a session names more or fewer part formats than it says
        MissingKey,      ///< the part formats of a session are not numbered from 1 without gaps
        MissingFormat,   ///< a part format that a session names is not there
        MissingProgram,  ///< the program that a session launches is not there
    };

    ItemKind kind = ItemKind::Session;  ///< of the item
    std::string item;                   ///< the item's name, as its file is spelt
    std::string what;                   ///< an English sentence about it
    Cause cause = Cause::Unreadable;    ///< for programs
    int line = 0;  ///< of the item's file, from 1, where the XML library tells it; else 0

    /// Compares all fields.
    bool operator==(const StoreFault&) const = default;
};

/// Is told how far long work has come: how many of how many files are done. What it raises ends the
/// work like a failure.
using StoreProgress = std::function<void(std::size_t done, std::size_t all)>;

/// A folder with sessions and part formats, as `WYNConfig::init` makes it. Names are compared
/// without regard to case; text is UTF-8. Nothing is kept between the calls: each looks at the
/// disk. Every operation raises `Error` when the disk fails it: errc::FileAccess, with a
/// description that names the file or folder. Where a save can't leave a file in the group that it
/// had, the operation comes to its end all the same, and then raises that.
class WYNCONFIG_API Store {
  public:
    /// @param root  the store's root with its trailing separator, as for `WYNConfig::init`
    explicit Store(std::string root);

    /// The root as it was given.
    const std::string& root() const { return m_root; }
    /// The folder of a kind of items, with its trailing separator.
    std::string folder(ItemKind kind) const;
    /// Whether both folders are there with their catalogues.
    bool isMade() const;

    /// The names of all items of a kind, as their files are spelt, in ascending order of their
    /// upper-cased forms; none where there is no folder.
    std::vector<std::string> names(ItemKind kind) const;
    /// Whether there is an item of this name, readable or not.
    bool has(ItemKind kind, const std::string& name) const;
    /// Where an item lies, or would be saved.
    ItemPath path(ItemKind kind, const std::string& name) const;
    /// Reads an item. Raises errc::FileNotFound, or errc::BadRecord when the file holds no record.
    std::shared_ptr<Dataset> read(ItemKind kind, const std::string& name) const;

    /// The sessions that have a part format, be it among those that they offer or for the file that
    /// they write. Raises also when a session can't be read, since that one might have it as well.
    std::vector<std::string> sessionsWith(const std::string& format,
                                          const StoreProgress& progress = {}) const;
    /// Looks at every item: that it can be read and has the name of its file, that its keys are
    /// known and its part formats counted as it says, that these and its program are there.
    /// @return what is not so, in the order of the items, sessions first
    std::vector<StoreFault> check(const StoreProgress& progress = {}) const;

    /// Writes records, in place of the items that have their names; each keeps the spelling of its
    /// file, and a new one is spelt in upper case. All are written with one flush of the disk, part
    /// formats first, and each file is at any moment wholly the old or wholly the new one. When one
    /// can't be written, those that were are put back as they were. Raises errc::InvalidCall,
    /// before anything is written, for a record of another type, a name that `isItemName` refuses
    /// or that two of them have, and a text larger than kMaxItemSize.
    void save(const std::vector<StoreItem>& items, const StoreProgress& progress = {}) const;
    /// Gives a part format another name, in upper case: its file, its record, and every session
    /// that has it, be it among those that it offers or for its file. All of it comes about or
    /// nothing, and whatever happens meanwhile, each file is wholly the old or wholly the new one,
    /// and no session names a part format that is not there: when the machine fails, both names may
    /// be. Raises errc::InvalidCall for a name that `isItemName` refuses, errc::DuplicateKey for
    /// one that a part format has (in any case), errc::FileNotFound, and errc::BadRecord also when
    /// a session can't be read, since it might have the part format as well.
    /// @return the sessions that have it
    std::vector<std::string> rename(const std::string& format, const std::string& newName,
                                    const StoreProgress& progress = {}) const;

    /// The names of the deleted items of a kind; as `names`. This and the two below raise for a
    /// folder "deleted" that is a symbolic link, which would lead out of the store.
    std::vector<std::string> deletedNames(ItemKind kind) const;
    /// Moves an item, readable or not, into the folder "deleted", in place of a like-named one
    /// there. What refers to it stays as it is. Raises errc::FileNotFound.
    void moveToDeleted(ItemKind kind, const std::string& name) const;
    /// Moves a deleted item back. Raises errc::FileNotFound, or errc::DuplicateKey when the store
    /// has an item of this name; it then stays where it is.
    void restore(ItemKind kind, const std::string& name) const;

  private:
    std::string m_root;
};

}  // namespace wynconfig
