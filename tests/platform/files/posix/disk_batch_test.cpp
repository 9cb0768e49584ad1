// Saving many files on the disk with one flush: the calls that it takes, and what a failure leaves
// behind.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/files/file_system.h"
#include "support/file_system_kit.h"
#include "support/ordinary_user.h"
#include "support/save_calls.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

class DiskBatch : public OnTheDisk {
  protected:
    static dev_t deviceOf(const std::string& path) {
        struct stat info {};
        EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
        return info.st_dev;
    }
};

TEST_F(DiskBatch, syncsTwiceForAThousandFiles) {
    SaveBatch batch{*files};
    for (int i = 0; i < 1000; ++i) files->save(at(std::to_string(i) + ".vla"), "new");
    EXPECT_EQ(saveCalls.syncs, 0);
    EXPECT_EQ(saveCalls.renames, 0);
    batch.commit();
    EXPECT_EQ(saveCalls.log, (Names{"sync all", "rename", "sync folder"}));
    EXPECT_EQ(saveCalls.renames, 1000);
    EXPECT_EQ(saveCalls.syncs, 2);
    EXPECT_EQ(files->listItems(root).size(), 1000U);
}

TEST_F(DiskBatch, syncsAFileSystemOnceForSeveralFolders) {
    for (const char* name : {"X", "Y", "Z"}) fs::create_directory(root + name);
    SaveBatch batch{*files};
    for (int i = 0; i < 30; ++i) {
        for (const char* name : {"X", "Y", "Z"}) {
            files->save({root + name + "/", std::to_string(i) + ".vla"}, "new");
        }
    }
    batch.commit();
    EXPECT_EQ(saveCalls.log, (Names{"sync all", "rename", "sync folder", "rename", "sync folder",
                                    "rename", "sync folder"}));
}

TEST_F(DiskBatch, syncsEachFileSystem) {
    std::string elsewhere;
    for (const char* place : {"/dev/shm", "/tmp"})
        if (deviceOf(place) != deviceOf(root)) elsewhere = place;
    if (elsewhere.empty()) GTEST_SKIP() << "there is but one file system";
    elsewhere += "/" + fs::path(folder.path()).filename().string();
    ASSERT_TRUE(fs::create_directory(elsewhere));
    fs::create_directory_symlink(elsewhere, root + "Z");
    fs::create_directory(root + "X");
    SaveBatch batch{*files};
    for (const char* name : {"", "X/", "Z/"}) files->save({root + name, "A.vla"}, "new");
    batch.commit();
    EXPECT_EQ(std::count(saveCalls.log.begin(), saveCalls.log.end(), "sync all"), 2);
    fs::remove_all(elsewhere);
}

TEST_F(DiskBatch, syncsBehindAFolderThatIsLeftAsItWas) {
    fs::create_directory(root + "X");
    SaveBatch batch{*files};
    files->save({root + "X/", "A.vla"}, "new");
    files->save(at("B.vla"), "new");
    files->remove({root + "X/", "A.vla"});
    batch.commit();
    EXPECT_EQ(saveCalls.log, (Names{"sync all", "rename", "sync folder"}));
}

TEST_F(DiskBatch, syncsNothingForNothing) {
    fs::create_directory(root + "Q.vla");
    SaveBatch batch{*files};
    EXPECT_THROW(files->save(at("Q.vla"), "x"), Error);
    files->save(at("A.vla"), "x");
    files->remove(at("A.vla"));
    batch.commit();
    EXPECT_TRUE(saveCalls.log.empty());
    EXPECT_EQ(names(), std::set<std::string>{"Q.vla"});
}

TEST_F(DiskBatch, changesNothingWhenTheSyncFails) {
    put("A.vla", "old");
    fs::create_directory(root + "X");
    SaveBatch batch{*files};
    files->save(at("A.vla"), "new");
    files->save({root + "X/", "B.vla"}, "new");
    saveCalls.failingSync = 1;
    const Error error = raisedBy([&] { batch.commit(); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(),
              "The files in " + root + " can't be written: No space left on device.");
    EXPECT_EQ(saveCalls.renames, 0);
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(names(), (std::set<std::string>{"A.vla", "X"}));
    EXPECT_TRUE(fs::is_empty(root + "X"));
    files->save(at("A.vla"), "new");
    EXPECT_EQ(contentOf("A.vla"), "new");
}

TEST_F(DiskBatch, keepsTheOldFileWhoseRenameFails) {
    for (const char* name : {"A.vla", "B.vla", "C.vla"}) put(name, "old");
    saveCalls.failingName = "B.vla";
    SaveBatch batch{*files};
    for (const char* name : {"C.vla", "B.vla", "A.vla"}) files->save(at(name), "new");
    const Error error = raisedBy([&] { batch.commit(); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(),
              "The file " + root + "B.vla can't be written: Input/output error.");
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla") + contentOf("C.vla"), "newoldnew");
    EXPECT_EQ(names(), (std::set<std::string>{"A.vla", "B.vla", "C.vla"}));
}

TEST_F(DiskBatch, tellsWhenTheNewNamesAreNotConfirmed) {
    put("A.vla", "old");
    SaveBatch batch{*files};
    files->save(at("A.vla"), "new");
    saveCalls.failingSync = 2;
    const Error error = raisedBy([&] { batch.commit(); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_TRUE(holds(error.description(), "though they are written")) << error.description();
    EXPECT_EQ(contentOf("A.vla"), "new");
    EXPECT_EQ(names(), std::set<std::string>{"A.vla"});
}

TEST_F(DiskBatch, goesOnBehindAFullDisk) {
    for (const char* name : {"A.vla", "B.vla", "C.vla"}) put(name, "old");
    SaveBatch batch{*files};
    files->save(at("A.vla"), "new");
    files->save(at("B.vla"), "first");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{1000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const Error again = raisedBy([&] { files->save(at("B.vla"), std::string(5000, 'x')); });
    const Error fresh = raisedBy([&] { files->save(at("C.vla"), std::string(5000, 'x')); });
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_TRUE(holds(again.description(), "File too large")) << again.description();
    EXPECT_TRUE(holds(fresh.description(), "File too large")) << fresh.description();
    batch.commit();
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla") + contentOf("C.vla"), "newfirstold");
    EXPECT_EQ(names(), (std::set<std::string>{"A.vla", "B.vla", "C.vla"}));
}

TEST_F(DiskBatch, tellsOfAWriteThatFailsWhenItsFileIsClosed) {
    for (const char* name : {"A.vla", "B.vla", "C.vla"}) put(name, "old");
    SaveBatch batch{*files};
    files->save(at("A.vla"), "new");
    saveCalls.closeError = EDQUOT;
    const Error error = raisedBy([&] { files->save(at("B.vla"), "new"); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(),
              "The file " + root + "B.vla can't be written: Disk quota exceeded.");
    saveCalls.closeError = EINTR;  // the file is closed, and nothing lost
    files->save(at("C.vla"), "new");
    batch.commit();
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla") + contentOf("C.vla"), "newoldnew");
    EXPECT_EQ(names(), (std::set<std::string>{"A.vla", "B.vla", "C.vla"}));
}

TEST_F(DiskBatch, needsFewDescriptors) {
    saveCalls.skipSync = true;
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit few{40, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
    SaveBatch batch{*files};
    for (int i = 0; i < 500; ++i) files->save(at(std::to_string(i) + ".vla"), "new");
    batch.commit();
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(files->listItems(root).size(), 500U);
}

TEST_F(DiskBatch, replacesLinksAndFollowsNone) {
    fs::create_directory(root + "elsewhere");
    put("elsewhere/real.vla", "old");
    put("B.vla", "old");
    fs::create_symlink("elsewhere/real.vla", root + "Link.vla");
    fs::create_symlink("B.vla", root + "Near.vla");
    fs::create_symlink("nowhere", root + "Dangling.vla");
    fs::create_symlink("Loop.vla", root + "Loop.vla");
    SaveBatch batch{*files};
    for (const char* name : {"LINK.vla", "Near.vla", "Dangling.vla", "Loop.vla"})
        files->save(at(name), "new");
    EXPECT_EQ(contentOf("Link.vla"), "old");
    batch.commit();
    for (const char* name : {"Link.vla", "Near.vla", "Dangling.vla", "Loop.vla"}) {
        EXPECT_FALSE(fs::is_symlink(root + name)) << name;
        EXPECT_EQ(contentOf(name), "new") << name;
    }
    EXPECT_EQ(contentOf("elsewhere/real.vla"), "old");
    EXPECT_EQ(contentOf("B.vla"), "old");
    EXPECT_EQ(names(), (std::set<std::string>{"elsewhere", "B.vla", "Dangling.vla", "Link.vla",
                                              "Loop.vla", "Near.vla"}));
    EXPECT_EQ(std::distance(fs::directory_iterator(root + "elsewhere"), {}), 1);
}

TEST_F(DiskBatch, keepsModeBits) {
    const std::vector<std::pair<std::string, unsigned>> modes = {
        {"A.vla", 0640}, {"B.vla", 0640}, {"C.vla", 0606}, {"D.vla", 0777}, {"E.vla", 0640}};
    for (const auto& [name, mode] : modes) {
        put(name, "old");
        fs::permissions(root + name, fs::perms{mode});
    }
    for (const mode_t mask : {0000U, 0022U, 0077U}) {
        const mode_t before = umask(mask);
        SaveBatch batch{*files};
        for (const auto& [name, mode] : modes) files->save(at(name), "new");
        files->save(at("N" + std::to_string(mask) + ".vla"), "new");
        batch.commit();
        umask(before);
        for (const auto& [name, mode] : modes) EXPECT_EQ(modeOf(name), mode) << name;
        EXPECT_EQ(modeOf("N" + std::to_string(mask) + ".vla"), 0666U & ~mask);
    }
}

TEST_F(DiskBatch, makesFilesWithTheirMode) {
    // To give it to them afterwards would be one call more for each file.
    for (const char* name : {"A.vla", "B.vla"}) {
        put(name, "old");
        fs::permissions(root + name, fs::perms{0640});
    }
    saveCalls.modeError = EIO;
    const mode_t mask = umask(0);
    SaveBatch batch{*files};
    for (const char* name : {"A.vla", "B.vla"}) files->save(at(name), "new");
    batch.commit();
    umask(mask);
    for (const char* name : {"A.vla", "B.vla"}) {
        EXPECT_EQ(contentOf(name), "new");
        EXPECT_EQ(modeOf(name), 0640U);
    }
}

TEST_F(DiskBatch, leavesWriteProtectedFilesAlone) {
    for (const char* name : {"A.vla", "B.vla"}) put(name, "old");
    fs::permissions(root + "A.vla", fs::perms{0444});
    Error error{0, ""};
    asOrdinaryUser({root, root + "A.vla", root + "B.vla"}, [&] {
        SaveBatch batch{*files};
        error = raisedBy([&] { files->save(at("A.vla"), "new"); });
        files->save(at("B.vla"), "new");
        batch.commit();
    });
    EXPECT_TRUE(holds(error.description(), "Permission denied")) << error.description();
    EXPECT_EQ(contentOf("A.vla"), "old");
    EXPECT_EQ(contentOf("B.vla"), "new");
}

TEST_F(DiskBatch, tellsWhenItsFolderIsGone) {
    fs::create_directory(root + "X");
    SaveBatch batch{*files};
    files->save({root + "X/", "A.vla"}, "new");
    fs::remove_all(root + "X");
    const Error save = raisedBy([&] { files->save({root + "X/", "B.vla"}, "new"); });
    EXPECT_TRUE(holds(save.description(), "its folder is not there")) << save.description();
    files->save(at("B.vla"), "new");
    const Error error = raisedBy([&] { batch.commit(); });
    EXPECT_TRUE(holds(error.description(), root + "X/A.vla can't be written"))
        << error.description();
    EXPECT_EQ(contentOf("B.vla"), "new");
    EXPECT_EQ(names(), std::set<std::string>{"B.vla"});
}

TEST_F(DiskBatch, showsEachFileWholeAtAnyMoment) {
    const auto content = [](char letter) { return std::string(5000, letter); };
    for (int i = 0; i < 50; ++i) put(std::to_string(i), content('a'));
    int looks = 0;
    saveCalls.beforeRename = [&] {
        ++looks;
        int news = 0;
        for (int i = 0; i < 50; ++i) {
            const std::string seen = contentOf(std::to_string(i));
            EXPECT_TRUE(seen == content('a') || seen == content('b'));
            if (seen == content('b')) ++news;
        }
        EXPECT_EQ(news, looks - 1);
    };
    SaveBatch batch{*files};
    for (int i = 0; i < 50; ++i) files->save(at(std::to_string(i)), content('b'));
    batch.commit();
    EXPECT_EQ(looks, 50);
}

}  // namespace
}  // namespace wynconfig
