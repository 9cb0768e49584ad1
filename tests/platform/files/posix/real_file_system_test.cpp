// Files on the disk: saving that survives a crash, changes by other programs, links, and what is no
// plain file.
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "platform/files/file_system.h"
#include "platform/text/text.h"
#include "support/file_system_kit.h"
#include "support/ordinary_user.h"
#include "support/save_calls.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

class Disk : public OnTheDisk {};

/// Runs a call while this program can open no further file.
void withoutFreeFileNumbers(const std::function<void()>& call) {
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    call();
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
}

void expectUnreadable(const std::string& what, const std::string& cause,
                      const std::function<void()>& call) {
    const Error error = raisedBy(call);
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(), "The " + what + ": " + cause + ".");
}

/// What happens to the names of a folder, as the system reports it.
class FolderWatch {
  public:
    explicit FolderWatch(const std::string& folder) : m_queue(inotify_init1(IN_NONBLOCK)) {
        EXPECT_GE(
            inotify_add_watch(m_queue, folder.c_str(), IN_CREATE | IN_MODIFY | IN_MOVE | IN_DELETE),
            0);
    }
    ~FolderWatch() { close(m_queue); }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// Names of the events of one kind since the last call that emptied the queue.
    Names namesOf(std::uint32_t kind) {
        drain();
        Names names;
        for (const auto& [mask, name] : m_events) {
            if ((mask & kind) != 0) names.push_back(name);
        }
        return names;
    }
    void forget() {
        drain();
        m_events.clear();
    }

  private:
    void drain() {
        alignas(inotify_event) char buffer[65536];
        for (;;) {
            const ssize_t size = ::read(m_queue, buffer, sizeof buffer);
            if (size <= 0) return;
            for (ssize_t at = 0; at < size;) {
                const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
                m_events.emplace_back(event->mask, event->name);
                at += static_cast<ssize_t>(sizeof *event + event->len);
            }
        }
    }

    int m_queue;
    std::vector<std::pair<std::uint32_t, std::string>> m_events;
};

TEST_F(Disk, savesBesideTheFileAndRenames) {
    const std::string target = std::string(251, 'N') + ".vla";
    FolderWatch watch{root};
    for (const char* content : {"first", "second"}) {
        watch.forget();
        files->save(at(target), content);
        const Names made = watch.namesOf(IN_CREATE);
        ASSERT_EQ(made.size(), 1U);
        const std::string& temporary = made.front();
        EXPECT_EQ(temporary.front(), '.');
        EXPECT_LT(temporary.size(), 40U);
        EXPECT_NE(UCase(temporary.substr(temporary.size() - 4)), ".VLA");
        EXPECT_TRUE(holds(temporary, std::to_string(getpid()))) << temporary;
        EXPECT_EQ(watch.namesOf(IN_MODIFY), Names{temporary});
        EXPECT_EQ(watch.namesOf(IN_MOVED_FROM), Names{temporary});
        EXPECT_EQ(watch.namesOf(IN_MOVED_TO), Names{target});
        EXPECT_TRUE(watch.namesOf(IN_DELETE).empty());
        EXPECT_EQ(names(), std::set<std::string>{target});
        EXPECT_EQ(contentOf(target), content);
    }
}

TEST_F(Disk, savesInTheOrderThatSurvivesACrash) {
    files->save(at("A.vla"), "x");
    EXPECT_EQ(saveCalls.log, (Names{"sync file", "rename", "sync folder"}));
}

TEST_F(Disk, savesAtExactPathsAsSafely) {
    put("other", "x");
    fs::create_symlink("other", root + "link");
    files->saveExactly(root + "link", "new");
    EXPECT_EQ(saveCalls.log, (Names{"sync file", "rename", "sync folder"}));
    EXPECT_TRUE(fs::is_symlink(root + "link"));
    EXPECT_EQ(contentOf("other"), "new");
}

TEST_F(Disk, savesAtExactPathsInThePlaceOfLinksThatLeadNowhere) {
    fs::create_symlink("nowhere", root + "dangling");
    files->saveExactly(root + "dangling", "new");
    EXPECT_FALSE(fs::is_symlink(root + "dangling"));
    EXPECT_EQ(contentOf("dangling"), "new");
    fs::create_symlink("loop", root + "loop");
    const Error loop = raisedBy([&] { files->saveExactly(root + "loop", "new"); });
    EXPECT_EQ(loop.description(),
              "The file " + root + "loop can't be written: Too many levels of symbolic links.");
    EXPECT_TRUE(fs::is_symlink(root + "loop"));
}

TEST_F(Disk, savesAtNoExactPathOfAPipe) {
    ASSERT_EQ(mkfifo((root + "pipe").c_str(), 0600), 0);
    EXPECT_EQ(raisedBy([&] { files->saveExactly(root + "pipe", "x"); }).number(), errc::FileAccess);
    EXPECT_EQ(names(), std::set<std::string>{"pipe"});
}

TEST_F(Disk, tellsWhatIsNoPlainFile) {
    put("plain", "x");
    fs::create_symlink("plain", root + "link");
    fs::create_directory(root + "folder");
    ASSERT_EQ(mkfifo((root + "pipe").c_str(), 0600), 0);
    for (const char* name : {"plain", "link", "none", "plain/x", ""})
        EXPECT_FALSE(files->isNoPlainFile(*name ? root + name : "")) << name;
    for (const char* name : {"folder", "folder/", "pipe"})
        EXPECT_TRUE(files->isNoPlainFile(root + name)) << name;
}

TEST_F(Disk, leavesForeignTemporariesAlone) {
    FolderWatch watch{root};
    files->save(at("A.vla"), "x");
    const std::string used = watch.namesOf(IN_CREATE).at(0);
    const std::size_t dash = used.rfind('-') + 1;
    const std::string next = used.substr(0, dash) +
                             std::to_string(std::stoi(used.substr(dash)) + 1) +
                             used.substr(used.rfind('.'));
    put(next, "left behind");
    files->save(at("B.vla"), "y");
    EXPECT_EQ(contentOf(next), "left behind");
    EXPECT_EQ(contentOf("B.vla"), "y");
    EXPECT_EQ(names(), (std::set<std::string>{"A.vla", "B.vla", next}));
    EXPECT_EQ(files->listItems(root), (Names{"A.vla", "B.vla"}));
}

TEST_F(Disk, copesWithWritesThatAreBrokenUp) {
    std::string content;
    for (int i = 0; i < 500; ++i) content += std::to_string(i) + '\n';
    saveCalls.breakUpWrites = true;
    files->save(at("A.vla"), content);
    saveCalls.breakUpWrites = false;
    EXPECT_GT(saveCalls.writes, 200);
    EXPECT_EQ(contentOf("A.vla"), content);
}

TEST_F(Disk, keepsTheOldFileWhenWritingFails) {
    put("A.vla", "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const Error error = raisedBy([&] { files->save(at("a.VLA"), std::string(5000, 'x')); });
    const Error fresh = raisedBy([&] { files->save(at("NEW.vla"), std::string(5000, 'x')); });
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(), "The file " + root + "A.vla can't be written: File too large.");
    EXPECT_EQ(fresh.number(), errc::FileAccess);
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(names(), std::set<std::string>{"A.vla"});
}

TEST_F(Disk, keepsTheOldFileWhenSyncingFails) {
    put("A.vla", "old");
    saveCalls.failingSync = 1;
    const Error error = raisedBy([&] { files->save(at("A.vla"), "new"); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(),
              "The file " + root + "A.vla can't be written: No space left on device.");
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(names(), std::set<std::string>{"A.vla"});
}

TEST_F(Disk, keepsTheOldFileWhenRenamingFails) {
    put("A.vla", "old");
    saveCalls.failingName = "A.vla";
    const Error error = raisedBy([&] { files->save(at("A.vla"), "new"); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_TRUE(holds(error.description(), "Input/output error")) << error.description();
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(names(), std::set<std::string>{"A.vla"});
}

TEST_F(Disk, tellsWhenTheNewNameIsNotConfirmed) {
    put("A.vla", "old");
    saveCalls.failingSync = 2;
    const Error error = raisedBy([&] { files->save(at("A.vla"), "new"); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_TRUE(holds(error.description(), "though it is written")) << error.description();
    EXPECT_EQ(contentOf("A.vla"), "new");
    EXPECT_EQ(names(), std::set<std::string>{"A.vla"});
}

TEST_F(Disk, keepsModeBits) {
    put("A.vla", "old");
    fs::permissions(root + "A.vla", fs::perms{0640});
    files->save(at("A.vla"), "new");
    EXPECT_EQ(modeOf("A.vla"), 0640U);
    const mode_t mask = umask(0027);
    files->save(at("B.vla"), "new");
    umask(mask);
    EXPECT_EQ(modeOf("B.vla"), 0640U);
}

TEST_F(Disk, keepsTheOldFileWhenTheNewOneCantGetItsMode) {
    put("A.vla", "old");
    fs::permissions(root + "A.vla", fs::perms{0664});
    saveCalls.modeError = EIO;
    const Error error = raisedBy([&] { files->save(at("A.vla"), "new"); });
    EXPECT_TRUE(holds(error.description(), "Input/output error")) << error.description();
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(names(), std::set<std::string>{"A.vla"});
    saveCalls.modeError = EPERM;  // as where files have no modes of their own
    files->save(at("A.vla"), "new");
    EXPECT_EQ(contentOf("A.vla"), "new");
}

TEST_F(Disk, leavesWriteProtectedFilesAlone) {
    put("A.vla", "old");
    fs::permissions(root + "A.vla", fs::perms{0444});
    Error error{0, ""};
    asOrdinaryUser({root, root + "A.vla"}, [&] {
        error = raisedBy([&] { files->save(at("a.vla"), "new"); });
        EXPECT_NO_THROW(files->save(at("B.vla"), "new"));
    });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_TRUE(holds(error.description(), "Permission denied")) << error.description();
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(names(), (std::set<std::string>{"A.vla", "B.vla"}));
}

TEST_F(Disk, tellsWhyAFileCantBeDeleted) {
    put("A.vla", "x");
    Error error{0, ""};
    fs::permissions(root, fs::perms{0555});
    asOrdinaryUser({}, [&] { error = raisedBy([&] { files->remove(at("A.vla")); }); });
    fs::permissions(root, fs::perms{0755});
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(),
              "The file " + root + "A.vla can't be deleted: Permission denied.");
    EXPECT_EQ(contentOf("A.vla"), "x");
}

TEST_F(Disk, takesNoFolderForEmptyThatItCantOpen) {
    put("A.vla", "x");
    const std::string unreadable = "folder " + folder.path() + " can't be read";
    const std::string cause = "Too many open files";
    // The sanitizer that looks at objects needs a free number itself for the first of a class:
    // those of the disk, of a failure and of its cause have to be seen before.
    EXPECT_FALSE(makeRealFileSystem()->folderExists(root + "none"));
    const Error failure = raisedBy([&] { files->makeFolder(root + "none/x"); });
    EXPECT_TRUE(holds(failure.description(), "is not there"));
    EXPECT_EQ(std::generic_category().message(EMFILE), cause);
    withoutFreeFileNumbers([&] {
        expectUnreadable(unreadable, cause, [&] { files->listItems(root); });
        expectUnreadable(unreadable, cause, [&] { files->find(at("a.vla")); });
        expectUnreadable(unreadable, cause, [&] { files->find(at("NONE.vla")); });
        expectUnreadable(unreadable, cause, [&] { files->remove(at("NONE.vla")); });
        expectUnreadable(unreadable, cause, [&] { files->save(at("NEW.vla"), "x"); });
        expectUnreadable(unreadable, cause, [&] { files->makeFolder(root + "new"); });
        expectUnreadable(unreadable, cause, [&] { files->folderExists(root + "new"); });
        EXPECT_EQ(files->find(at("A.vla")), "A.vla");
        EXPECT_TRUE(files->folderExists(root));
        EXPECT_FALSE(files->existsExactly(root + "NONE.vla"));
    });
    EXPECT_EQ(files->find(at("a.vla")), "A.vla");
    EXPECT_EQ(files->listItems(root), Names{"A.vla"});
    EXPECT_EQ(names(), std::set<std::string>{"A.vla"});
}

TEST_F(Disk, trustsATimeThatTheClockHasLeftBehind) {
    Stranger stranger{*files};
    const auto isSettled = [&](timespec changed, timespec now) {
        saveCalls.changed = changed;
        saveCalls.now = now;
        return stranger.isSettled(folder.path());
    };
    EXPECT_FALSE(isSettled({1000, 5}, {1000, 20'000'004}));
    EXPECT_TRUE(isSettled({1000, 5}, {1000, 20'000'005}));
    EXPECT_FALSE(isSettled({1000, 999'999'999}, {1001, 19'999'998}));
    EXPECT_TRUE(isSettled({1000, 999'999'999}, {1001, 19'999'999}));
    // Where no part of a second is kept, the next one may bear the same time.
    EXPECT_FALSE(isSettled({1000, 0}, {1002, 19'999'999}));
    EXPECT_TRUE(isSettled({1000, 0}, {1002, 20'000'000}));
}

TEST_F(Disk, takesNoFolderForListedWhoseDiskFails) {
    put("A.vla", "x");
    saveCalls.failingListing = true;
    const std::string unreadable = "folder " + folder.path() + " can't be read";
    expectUnreadable(unreadable, "Input/output error", [&] { files->listItems(root); });
    expectUnreadable(unreadable, "Input/output error", [&] { files->find(at("a.vla")); });
    saveCalls.failingListing = false;
    EXPECT_EQ(files->listItems(root), Names{"A.vla"});
}

TEST_F(Disk, tellsAFolderThatItsUserMayNotReadFromAMissingOne) {
    fs::permissions(root, fs::perms{0755});
    fs::create_directory(root + "shut");
    put("shut/A.vla", "x");
    const ItemPath exact{root + "shut\\", "A.vla"};
    const ItemPath other{root + "shut\\", "a.vla"};
    const std::string cause = "Permission denied";
    const std::string unreadable = "folder " + root + "shut can't be read";
    const std::string unseen = "file " + root + "shut/A.vla can't be looked at";
    const auto withRights = [&](unsigned rights, const std::function<void()>& call) {
        fs::permissions(root + "shut", fs::perms{rights});
        asOrdinaryUser({}, call);
        fs::permissions(root + "shut", fs::perms{0755});
    };
    withRights(0, [&] {
        expectUnreadable(unreadable, cause, [&] { files->listItems(root + "shut"); });
        expectUnreadable(unseen, cause, [&] { files->find(exact); });
        expectUnreadable(unseen, cause, [&] { files->existsExactly(root + "shut/A.vla"); });
    });
    withRights(0111, [&] {  // a file by its exact name, but no names
        expectUnreadable(unreadable, cause, [&] { files->listItems(root + "shut"); });
        expectUnreadable(unreadable, cause, [&] { files->find(other); });
        EXPECT_EQ(files->find(exact), "A.vla");
    });
    withRights(0444, [&] {  // names, but no file
        EXPECT_EQ(files->listItems(root + "shut"), Names{"A.vla"});
        expectUnreadable(unseen, cause, [&] { files->find(exact); });
    });
    EXPECT_TRUE(files->listItems(root + "none").empty());
}

TEST_F(Disk, tellsWhyThereIsNoFolderToSaveIn) {
    put("FILE", "x");
    fs::create_symlink("Loop", root + "Loop");
    fs::create_symlink("nowhere", root + "Dangling");
    const std::string longName(300, 'n');
    const std::vector<std::pair<std::string, std::string>> causes = {
        {"none", "its folder is not there"},
        {"Dangling", "its folder is not there"},
        {"FILE", "Not a directory"},
        {"FILE/SUB", "Not a directory"},
        {"Loop", "Too many levels of symbolic links"},
        {longName, "File name too long"}};
    for (const auto& [name, cause] : causes) {
        const std::string path = root + name + "/";
        const Error error = raisedBy([&] { files->save({path, "A.vla"}, "x"); });
        EXPECT_TRUE(error.description().ends_with("A.vla can't be written: " + cause + "."))
            << error.description();
        const Error made = raisedBy([&] { files->makeFolder(path + "SUB"); });
        const bool isMissing = cause == "its folder is not there";
        EXPECT_TRUE(made.description().ends_with(
            ": " + (isMissing ? "the folder above it is not there" : cause) + "."))
            << made.description();
    }
}

TEST_F(Disk, tellsAFileInTheWayWhateverFailedBefore) {
    put("FILE", "x");
    errno = EIO;
    EXPECT_EQ(Stranger{*files}.whyNot(root + "FILE"), std::errc::not_a_directory);
}

TEST_F(Disk, makesFoldersWithTheModeOfNewOnes) {
    const mode_t mask = umask(0027);
    files->makeFolder(root + "A");
    umask(mask);
    EXPECT_EQ(modeOf("A"), 0750U);
}

TEST_F(Disk, tellsAFolderThatItsUserMayNotSearchFromAMissingOne) {
    fs::permissions(root, fs::perms{0755});
    fs::create_directories(root + "shut/SUB");
    put("shut/SUB/A.vla", "x");
    const std::string cause = "Permission denied";
    const std::string unseen = "folder " + root + "shut/SUB can't be looked at";
    for (const unsigned rights : {0U, 0444U}) {
        fs::permissions(root + "shut", fs::perms{rights});
        asOrdinaryUser({}, [&] {
            const ItemPath file{root + "shut\\SUB\\", "A.vla"};
            expectUnreadable(unseen, cause, [&] { files->listItems(root + "shut\\SUB"); });
            expectUnreadable(unseen, cause, [&] { files->find(file); });
            expectUnreadable(unseen, cause, [&] { files->read(file); });
            expectUnreadable(unseen, cause, [&] { files->save(file, "y"); });
            expectUnreadable(unseen, cause, [&] { files->remove(file); });
            expectUnreadable(unseen, cause, [&] { files->folderExists(root + "shut\\SUB"); });
            expectUnreadable(unseen, cause, [&] { files->makeFolder(root + "shut\\SUB\\NEW"); });
        });
        fs::permissions(root + "shut", fs::perms{0755});
    }
    EXPECT_EQ(contentOf("shut/SUB/A.vla"), "x");
}

TEST_F(Disk, leavesOutALinkThatLeadsWhereItsUserMayNotLook) {
    fs::permissions(root, fs::perms{0755});
    fs::create_directory(root + "shut");
    put("shut/A.vla", "x");
    fs::create_symlink("shut/A.vla", root + "LINK.vla");
    put("B.vla", "x");
    fs::permissions(root + "shut", fs::perms{0});
    asOrdinaryUser({}, [&] { EXPECT_EQ(files->listItems(root), Names{"B.vla"}); });
    fs::permissions(root + "shut", fs::perms{0755});
    EXPECT_EQ(files->listItems(root), (Names{"B.vla", "LINK.vla"}));
}

TEST_F(Disk, readsFilesThatClaimNoLength) {
    const std::string status = files->read({"/proc/self/", "status"});
    EXPECT_TRUE(holds(status, "Pid:")) << status;
}

TEST_F(Disk, readsFilesThatClaimNoLengthUpToTheBound) {
    put("MOST.vla", "");
    saveCalls.claimNoLength = true;
    for (const std::size_t size : {kMaxItemSize - 1, kMaxItemSize}) {
        fs::resize_file(root + "MOST.vla", size);
        EXPECT_EQ(files->read(at("MOST.vla")).size(), size);
    }
    fs::resize_file(root + "MOST.vla", kMaxItemSize + 1);
    const Error error = raisedBy([&] { files->read(at("MOST.vla")); });
    EXPECT_TRUE(holds(error.description(), "it is too large")) << error.description();
}

TEST_F(Disk, listsNoNameThatItCouldNotFind) {
    put("A\\B.vla", "x");
    put("C.vla", "x");
    EXPECT_EQ(files->listItems(root), Names{"C.vla"});
}

}  // namespace
}  // namespace wynconfig
