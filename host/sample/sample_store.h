// A store as a parts department would have it, made through the component itself.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "wynconfig/keys.h"
#include "wynconfig/store.h"
#include "wynconfig/wynconfig.h"

namespace host {

/// Where the parts of a store lie below its folder.
struct StoreFolders {
    explicit StoreFolders(std::filesystem::path folder) : root(std::move(folder)) {}

    std::filesystem::path root;
    std::filesystem::path sessions() const { return root / wynconfig::session::kType; }
    std::filesystem::path formats() const { return root / wynconfig::partformat::kType; }
    /// Stand-ins for the programs that the sessions launch.
    std::filesystem::path programs() const { return root / "programs"; }
    /// Where the sessions write their files.
    std::filesystem::path lists() const { return root / "lists"; }
    /// The session list of this workplace: names joined by commas.
    std::filesystem::path sessionList() const { return root / "session-list.txt"; }
    /// The database, unless another one is given.
    std::filesystem::path database() const { return root / "catalogue.sqlite"; }
    /// Stands here from the first to the last moment of making the sample store. (Its sessions name
    /// programs below the root, so it can't be made elsewhere and moved here.)
    std::filesystem::path unfinishedMark() const { return root / "unfinished-sample"; }
    bool unfinished() const;
    /// Whether there is a store already, and a whole one, readable or not: where nobody can tell,
    /// no other one is to be made in its place.
    bool exist() const;
    /// What of the store is there and can't be read, a sentence for the user each.
    std::vector<std::string> faults() const;
    /// What of a store that was open is not there any more, a sentence for the user each.
    std::vector<std::string> losses() const;
    /// The root as the component takes it, with its trailing separator.
    std::string rootText() const { return root.string() + "/"; }
    /// The names of its items in upper case, in ascending order; none where there is no store.
    /// Raises `wynconfig::Error` when its folder can't be read.
    std::vector<std::string> names(wynconfig::ItemKind kind) const;
    /// The same, and none where the folder can't be read, which is one of the `faults`.
    std::vector<std::string> readableNames(wynconfig::ItemKind kind) const;
};

/// Makes the sample store: a played user walks through the dialogs and enters part formats and
/// sessions. A store whose making was interrupted is made anew. The component must have its
/// resource manager. It is left set to this store, and without a view.
/// @param store  absolute; made when it is not there
/// Raises what goes wrong: `wynconfig::UserError` when a dialog behaved in an unexpected way,
/// `std::runtime_error` when the folder holds anything else.
void makeSampleStore(wynconfig::WYNConfig& component, const StoreFolders& store);

}  // namespace host
