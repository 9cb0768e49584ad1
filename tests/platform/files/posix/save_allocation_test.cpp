// Saves when memory runs out: each allocation of each operation that writes fails once, alone and
// with all behind it. Each time every file is wholly the old or wholly the new one, nothing is left
// over, and the next try works.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "support/failing_memory.h"
#include "support/file_system_kit.h"
#include "support/save_calls.h"
#include "support/temporary_folder.h"
#include "wynconfig/save_file.h"

namespace wynconfig {
namespace {

/// Contents by the paths below the root; a folder has a separator at its end, and none.
using Tree = std::map<std::string, std::string>;

// Names and contents longer than what a string has room for in itself.
const std::string kFirst = "Old item of a long name.vla";
const std::string kSecond = "Other item of a long name.vla";
const std::string kNew = "New item of a long name.vla";
const std::string kFolder = "Folder of a long name/";
const std::string kNewFolder = "New folder of a long name/";
const std::string kInFolder = kFolder + kFirst;
const std::string kLeft = ".wyn-123-0123abcd-1.tmp";
const std::string kOldText = "the old text, which is somewhat long";
const std::string kNewText = "the new text, which is somewhat long";
const std::string kForeignText = "another's text, which is somewhat long";

/// A store on which one operation is tried.
class TriedStore {
  public:
    TriedStore(FilesOn kind, const std::string& folder, const Tree& tree)
        : m_root(folder + "/"),
          m_files(kind == FilesOn::Disk ? makeRealFileSystem() : makeMemoryFileSystem()),
          m_others(kind == FilesOn::Disk ? makeRealFileSystem() : nullptr),
          m_stranger(m_others ? *m_others : *m_files) {
        if (kind == FilesOn::Memory) m_stranger.makeExactly(folder);
        for (const auto& [path, text] : tree) {
            if (path.ends_with('/'))
                m_stranger.makeExactly(m_root + path.substr(0, path.size() - 1));
        }
        for (const auto& [path, text] : tree) {
            if (!path.ends_with('/')) m_stranger.write(m_root + path, text);
        }
    }

    FileSystem& files() { return *m_files; }
    const std::string& root() const { return m_root; }
    ItemPath at(const std::string& path) const { return ItemPath::of(m_root + path); }

    Tree tree() { return below(""); }

    /// Another program's save, which has its own memory.
    void othersSave(const std::string& path, const std::string& text) {
        Memory& memory = memoryOfThread();
        const long kept = std::exchange(memory.untilFailure, Memory::kNever);
        m_stranger.write(m_root + path, text);
        memory.untilFailure = kept;
    }

  private:
    Tree below(const std::string& folder) {
        Tree all;
        for (const std::string& name : m_stranger.names(m_root + folder)) {
            const std::string path = folder + name;
            if (m_files->folderExists(m_root + path)) {
                all.emplace(path + "/", "");
                all.merge(below(path + "/"));
            } else {
                all.emplace(path, m_stranger.readExactly(m_root + path));
            }
        }
        return all;
    }

    std::string m_root;
    std::unique_ptr<FileSystem> m_files;
    std::unique_ptr<FileSystem> m_others;  ///< on the disk, where each program has its own
    Stranger m_stranger;
};

/// An operation that writes.
struct Writing {
    std::string name;
    std::function<void(TriedStore&)> run;
    Tree before;
    Tree after;
    bool isOne = true;  ///< it is done or not; else it is one of several steps
    bool onMemory = true;
};

void PrintTo(const Writing& writing, std::ostream* out) {
    *out << writing.name;
}

Tree treeWith(Tree tree, const std::string& path, const std::string& text) {
    tree[path] = text;
    return tree;
}

Tree treeWithout(Tree tree, const std::string& path) {
    tree.erase(path);
    return tree;
}

const Tree kTree{{kFirst, kOldText}, {kSecond, kOldText}, {kFolder, ""}, {kInFolder, kOldText}};

std::vector<Writing> savings() {
    return {
        {"ANewFile", [](TriedStore& store) { store.files().save(store.at(kNew), kNewText); }, kTree,
         treeWith(kTree, kNew, kNewText)},
        {"ANewFileOfAKnownFolder",
         [](TriedStore& store) {
             store.files().find(store.at(UCase(kFirst)));
             store.files().save(store.at(kNew), kNewText);
         },
         kTree, treeWith(kTree, kNew, kNewText)},
        {"AnOldFile",
         [](TriedStore& store) { store.files().save(store.at(UCase(kFirst)), kNewText); }, kTree,
         treeWith(kTree, kFirst, kNewText)},
        {"AFileInAFolder",
         [](TriedStore& store) { store.files().save(store.at(UCase(kInFolder)), kNewText); }, kTree,
         treeWith(kTree, kInFolder, kNewText)},
        {"BesideWhatWasLeft",
         [](TriedStore& store) { store.files().save(store.at(kFirst), kNewText); },
         treeWith(kTree, kLeft, ""), treeWith(kTree, kFirst, kNewText), true, false},
        {"AtAnExactPath",
         [](TriedStore& store) { store.files().saveExactly(store.root() + kFirst, kNewText); },
         kTree, treeWith(kTree, kFirst, kNewText)},
        {"AHostsFile", [](TriedStore& store) { saveFile(store.root() + kNew, kNewText); }, kTree,
         treeWith(kTree, kNew, kNewText)},
    };
}

std::vector<Writing> otherWritings() {
    return {
        {"ARemoval", [](TriedStore& store) { store.files().remove(store.at(UCase(kFirst))); },
         kTree, treeWithout(kTree, kFirst)},
        {"AFolder", [](TriedStore& store) { store.files().makeFolder(store.root() + kNewFolder); },
         kTree, treeWith(kTree, kNewFolder, "")},
        {"AFolderInAFolder",
         [](TriedStore& store) {
             store.files().makeFolder(store.root() + UCase(kFolder) + kNewFolder);
         },
         kTree, treeWith(kTree, kFolder + kNewFolder, "")},
    };
}

const std::vector<std::string> kBatched{kFirst, kNew, kSecond, kInFolder, kFolder + kNew};

Tree withAll(Tree tree, const std::vector<std::string>& paths) {
    for (const std::string& path : paths) tree[path] = kNewText;
    return tree;
}

/// Reads and saves in a batch, while another one saves as well.
void saveAmongOthers(TriedStore& store) {
    SaveBatch batch{store.files()};
    for (const std::string& path : {kFirst, kSecond}) {
        const std::string read = store.files().read(store.at(path));
        store.files().save(store.at(path), read + kNewText);
    }
    store.othersSave(kFirst, kForeignText);
    batch.commit([&](const std::vector<ItemPath>& overtaken) {
        for (const ItemPath& path : overtaken)
            store.files().save(path, store.files().read(path) + kNewText);
    });
}

std::vector<Writing> batches() {
    return {
        {"ABatch",
         [](TriedStore& store) {
             SaveBatch batch{store.files()};
             for (const std::string& path : kBatched) {
                 store.files().save(store.at(path), "taken back by the one behind it");
                 store.files().save(store.at(UCase(path)), kNewText);
             }
             batch.commit();
         },
         kTree, withAll(kTree, kBatched), false},
        {"ADiscardedBatch",
         [](TriedStore& store) {
             const SaveBatch batch{store.files()};
             for (const std::string& path : kBatched) store.files().save(store.at(path), kNewText);
         },
         kTree, kTree},
        {"ABatchThatIsTakenBack",
         [](TriedStore& store) {
             SaveBatch batch{store.files()};
             store.files().save(store.at(kNew), kNewText);
             store.files().save(store.at(kFirst), kNewText);
             store.files().remove(store.at(UCase(kNew)));
             batch.commit();
         },
         kTree, treeWith(kTree, kFirst, kNewText)},
    };
}

/// How many files below a folder the process has open, those that have gone among them. Others may
/// come and go: they are not the saves' own.
std::size_t openFilesBelow(const std::string& folder) {
    std::size_t count = 0;
    for (const auto& each : std::filesystem::directory_iterator{"/proc/self/fd"}) {
        std::error_code failure;
        const std::string file = std::filesystem::read_symlink(each.path(), failure).string();
        if (file.starts_with(folder)) ++count;
    }
    return count;
}

/// Tries an operation with each of its allocations failing.
class SavesWithoutMemory : public testing::Test {
  protected:
    using Run = std::function<void(TriedStore&)>;
    using Check = std::function<void(TriedStore&, Outcome)>;

    SavesWithoutMemory() {
        saveCalls = SaveCalls{};
        saveCalls.skipSync = true;
        saveCalls.log.reserve(10'000);  // it takes no memory of a save
        m_folder.reserve(1'000);        // nor is any taken for it between two counts
    }
    ~SavesWithoutMemory() override {
        setFileSystem(nullptr);
        saveCalls = SaveCalls{};
    }

    /// @return how many allocations there are
    long failEachAllocationOf(FilesOn kind, const Tree& tree, const Run& run, const Check& check) {
        // What a process makes once is made before any count.
        tryOnce(kind, tree, run, Memory::kNever, Failing::Once, check);
        for (long behind = 0;; ++behind) {
            for (const Failing failing : {Failing::Once, Failing::ForGood}) {
                SCOPED_TRACE(testing::Message()
                             << behind << " " << testing::PrintToString(failing));
                const long blocks = memoryOfThread().blocks;
                const Outcome outcome = tryOnce(kind, tree, run, behind, failing, check);
                EXPECT_EQ(memoryOfThread().blocks, blocks);
                EXPECT_EQ(openFilesBelow(m_folder), 0U);
                if (outcome == Outcome::Undisturbed || HasFailure()) return behind;
            }
        }
    }

  private:
    Outcome tryOnce(FilesOn kind, const Tree& tree, const Run& run, long behind, Failing failing,
                    const Check& check) {
        saveCalls.log.clear();
        std::optional<TemporaryFolder> folder;
        if (kind == FilesOn::Disk) folder.emplace();
        m_folder = folder ? folder->path() : "/store of a long name";
        TriedStore store(kind, m_folder, tree);
        setFileSystem(&store.files());
        const Outcome outcome = withFailure([&] { run(store); }, behind, failing);
        check(store, outcome);
        setFileSystem(nullptr);
        return outcome;
    }

    std::string m_folder;  ///< of the last try
};

/// Expects each file as it was before or behind an operation.
void expectWhole(const Tree& tree, const Writing& writing) {
    const auto isIn = [](const Tree& one, const auto& entry) {
        const auto found = one.find(entry.first);
        return found != one.end() && found->second == entry.second;
    };
    for (const auto& entry : tree)
        EXPECT_TRUE(isIn(writing.before, entry) || isIn(writing.after, entry)) << entry.first;
    for (const auto& [path, text] : writing.before)
        EXPECT_TRUE(tree.contains(path) || !writing.after.contains(path)) << path << " is lost";
}

/// Expects that every file is found in another case, and that nothing else is.
void expectFound(TriedStore& store) {
    const Tree tree = store.tree();
    for (const std::string& path : {kFirst, kSecond, kNew, kInFolder, kFolder + kNew}) {
        const std::string name = ItemPath::of(path).name;
        EXPECT_EQ(store.files().find(store.at(UCase(path))), tree.contains(path) ? name : "");
    }
}

class EachWriting : public SavesWithoutMemory,
                    public testing::WithParamInterface<std::tuple<FilesOn, Writing>> {};

TEST_P(EachWriting, IsDoneOrNot) {
    const FilesOn kind = std::get<0>(GetParam());
    const Writing& writing = std::get<1>(GetParam());
    const long allocations =
        failEachAllocationOf(kind, writing.before, writing.run, [&](auto& store, Outcome outcome) {
            const Tree tree = treeWithout(store.tree(), kLeft);
            const bool raised = outcome == Outcome::Raised;
            if (raised && !writing.isOne)
                expectWhole(tree, writing);
            else
                EXPECT_EQ(tree, raised ? treeWithout(writing.before, kLeft) : writing.after);
            expectFound(store);
            if (raised) writing.run(store);
            EXPECT_EQ(store.tree(), writing.after);
            expectFound(store);
        });
    EXPECT_GT(allocations, 4);
    RecordProperty("allocations", std::to_string(allocations));
}
std::vector<std::tuple<FilesOn, Writing>> allTrials() {
    std::vector<std::tuple<FilesOn, Writing>> all;
    for (const auto& some : {savings(), otherWritings(), batches()}) {
        for (const Writing& each : some) {
            all.emplace_back(FilesOn::Disk, each);
            if (each.onMemory) all.emplace_back(FilesOn::Memory, each);
        }
    }
    return all;
}
INSTANTIATE_TEST_SUITE_P(All, EachWriting, testing::ValuesIn(allTrials()), [](const auto& each) {
    const bool onDisk = std::get<0>(each.param) == FilesOn::Disk;
    return std::get<1>(each.param).name + (onDisk ? "OnDisk" : "InMemory");
});

class EachBatch : public SavesWithoutMemory, public testing::WithParamInterface<FilesOn> {};
ON_EVERY_FILE_SYSTEM(EachBatch);

TEST_P(EachBatch, LosesNothingOfOthers) {
    const long allocations = failEachAllocationOf(
        GetParam(), kTree, saveAmongOthers, [&](TriedStore& store, Outcome outcome) {
            const Tree tree = store.tree();
            const std::set<std::string> texts{kOldText, kForeignText, kForeignText + kNewText};
            EXPECT_TRUE(texts.contains(tree.at(kFirst))) << tree.at(kFirst);
            const std::set<std::string> otherTexts{kOldText, kOldText + kNewText};
            EXPECT_TRUE(otherTexts.contains(tree.at(kSecond))) << tree.at(kSecond);
            EXPECT_EQ(tree.size(), kTree.size());
            if (outcome == Outcome::Raised) return;
            EXPECT_EQ(tree.at(kFirst), kForeignText + kNewText);
            EXPECT_EQ(tree.at(kSecond), kOldText + kNewText);
        });
    EXPECT_GT(allocations, 20);
}

TEST_P(EachBatch, GoesOnWithoutTheFilesThatFail) {
    std::set<std::string> failed;
    const auto save = [&](TriedStore& store, const std::string& path) {
        try {
            store.files().save(store.at(path), kNewText);
        } catch (const std::bad_alloc&) {
            const long kept = std::exchange(memoryOfThread().untilFailure, Memory::kNever);
            failed.insert(path);
            memoryOfThread().untilFailure = kept;
        }
    };
    const auto run = [&](TriedStore& store) {
        failed.clear();
        SaveBatch batch{store.files()};
        for (const std::string& path : kBatched) save(store, path);
        batch.commit();
    };
    const auto check = [&](TriedStore& store, Outcome outcome) {
        Tree expected = kTree;
        for (const std::string& path : kBatched)
            if (!failed.contains(path)) expected[path] = kNewText;
        const bool raised = outcome == Outcome::Raised;
        EXPECT_TRUE(raised || store.tree() == expected);
        const Writing all{"", {}, kTree, expected, false, true};
        if (raised) expectWhole(store.tree(), all);
        failed.clear();
    };
    EXPECT_GT(failEachAllocationOf(GetParam(), kTree, run, check), 20);
}

TEST_P(EachBatch, TakesBackWhatItRemovesOrRemovesNothing) {
    bool isRemoved = false;
    const auto run = [&](TriedStore& store) {
        isRemoved = false;
        SaveBatch batch{store.files()};
        store.files().save(store.at(kFirst), kNewText);
        try {
            store.files().remove(store.at(UCase(kFirst)));
            isRemoved = true;
        } catch (const std::bad_alloc&) {
            memoryOfThread().untilFailure = Memory::kNever;
        }
        batch.commit();
    };
    const auto check = [&](TriedStore& store, Outcome outcome) {
        const bool isSaved = !isRemoved && outcome != Outcome::Raised;
        const Tree kept = isSaved ? treeWith(kTree, kFirst, kNewText) : kTree;
        EXPECT_EQ(store.tree(), isRemoved ? treeWithout(kTree, kFirst) : kept);
    };
    EXPECT_GT(failEachAllocationOf(GetParam(), kTree, run, check), 10);
}

}  // namespace
}  // namespace wynconfig
