// Files that several users share: what a save keeps of owner, group and mode, and what it tells
// when it can't.
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "support/file_system_kit.h"
#include "support/save_calls.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

// Users and groups need no names to own files.
constexpr uid_t kOwner = 61001;
constexpr uid_t kOther = 61002;
constexpr gid_t kShared = 61500;

class Owners : public OnTheDisk {
  protected:
    void SetUp() override {
        if (geteuid() != 0) GTEST_SKIP() << "only a privileged user can become another one";
        fs::permissions(root, fs::perms{0777});
    }

    void putOwned(const std::string& name, mode_t mode, uid_t user = kOwner,
                  gid_t group = kShared) const {
        put(name, "old");
        ASSERT_EQ(chown((root + name).c_str(), user, group), 0);
        ASSERT_EQ(chmod((root + name).c_str(), mode), 0);
    }
    struct stat statusOf(const std::string& name) const {
        struct stat info {};
        EXPECT_EQ(lstat((root + name).c_str(), &info), 0) << name;
        return info;
    }
    void expectOwned(const std::string& name, uid_t user, gid_t group, mode_t mode) const {
        const struct stat info = statusOf(name);
        EXPECT_EQ(info.st_uid, user) << name;
        EXPECT_EQ(info.st_gid, group) << name;
        EXPECT_EQ(info.st_mode & 07777, mode) << name;
    }
    /// What a call raises in a program of the other user, who is in these groups besides a group of
    /// its own; empty for nothing.
    static std::string raisedByOther(const std::vector<gid_t>& groups,
                                     const std::function<void()>& call) {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        const pid_t process = fork();
        if (process == 0) {
            std::string raised = "the user can't be changed";
            if (setgroups(groups.size(), groups.data()) == 0 && setgid(kOther) == 0 &&
                setuid(kOther) == 0) {
                raised = descriptionOf(call);
            }
            const bool written = write(ends[1], raised.data(), raised.size()) >= 0;
            _exit(written ? 0 : 1);
        }
        close(ends[1]);
        std::string raised;
        char part[512];
        for (ssize_t got = 0; (got = read(ends[0], part, sizeof part)) > 0;)
            raised.append(part, static_cast<std::size_t>(got));
        close(ends[0]);
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        EXPECT_EQ(status, 0);
        return raised;
    }
    std::string lostGroupOf(const std::string& name) const {
        return "The file " + root + name +
               " can't be kept in its group, though it is written: Operation not permitted.";
    }
    void saveAll(const Names& all) const {
        SaveBatch batch{*files};
        for (const std::string& name : all) files->save(at(name), "new");
        batch.commit();
    }

  private:
    static std::string descriptionOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const Error& error) {
            return error.description();
        }
        return {};
    }
};

TEST_F(Owners, areKeptByAPrivilegedUser) {
    for (const mode_t mode : {0640U, 0600U, 0664U, 0444U, 0606U}) {
        putOwned("A.vla", mode);
        files->save(at("A.vla"), "new");
        expectOwned("A.vla", kOwner, kShared, mode);
        putOwned("A.vla", mode);
        putOwned("B.vla", mode);
        putOwned("C.vla", mode, 0, 0);
        putOwned("D.vla", mode, 0, kShared);
        saveAll({"A.vla", "B.vla", "C.vla", "D.vla"});
        expectOwned("A.vla", kOwner, kShared, mode);
        expectOwned("B.vla", kOwner, kShared, mode);
        expectOwned("C.vla", 0, 0, mode);
        expectOwned("D.vla", 0, kShared, mode);
        EXPECT_EQ(contentOf("A.vla") + contentOf("D.vla"), "newnew");
    }
}

TEST_F(Owners, areOfTheGroupAlsoBehindASaveOfAnotherMember) {
    putOwned("A.vla", 0660);
    for (const char* name : {"B.vla", "C.vla"}) putOwned(name, 0664);
    EXPECT_EQ(raisedByOther({kShared}, [&] { files->save(at("A.vla"), "new"); }), "");
    EXPECT_EQ(raisedByOther({kShared}, [&] { saveAll({"B.vla", "C.vla"}); }), "");
    expectOwned("A.vla", kOther, kShared, 0660);
    for (const char* name : {"B.vla", "C.vla"}) expectOwned(name, kOther, kShared, 0664);
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla"), "newnew");
}

TEST_F(Owners, keepTheirFilesFromWhoMayNotWriteThem) {
    putOwned("A.vla", 0644);
    const std::string denied = "The file " + root + "A.vla can't be written: Permission denied.";
    EXPECT_EQ(raisedByOther({}, [&] { files->save(at("A.vla"), "new"); }), denied);
    EXPECT_EQ(raisedByOther({kShared}, [&] { saveAll({"A.vla"}); }), denied);
    EXPECT_EQ(contentOf("A.vla"), "old");
    expectOwned("A.vla", kOwner, kShared, 0644);
}

TEST_F(Owners, areToldOnceWhereTheGroupIsLost) {
    for (const char* name : {"A.vla", "B.vla", "C.vla"}) putOwned(name, 0666);
    const auto save = [&] { files->save(at("A.vla"), "new"); };
    EXPECT_EQ(raisedByOther({}, save), lostGroupOf("A.vla"));
    EXPECT_EQ(contentOf("A.vla"), "new");
    expectOwned("A.vla", kOther, kOther, 0666);
    EXPECT_EQ(raisedByOther({}, save), "");

    const auto batch = [&] { saveAll({"C.vla", "B.vla", "A.vla"}); };
    EXPECT_EQ(raisedByOther({}, batch), lostGroupOf("B.vla"));
    EXPECT_EQ(contentOf("B.vla") + contentOf("C.vla"), "newnew");
    EXPECT_EQ(raisedByOther({}, batch), "");
}

TEST_F(Owners, areToldByAFailureOfItsOwnWhereTheGroupIsLost) {
    putOwned("A.vla", 0666);
    saveCalls.ownerError = EINVAL;
    EXPECT_THROW(files->save(at("A.vla"), "new"), GroupLost);
}

TEST_F(Owners, areToldWithWhyTheGroupIsLost) {
    putOwned("A.vla", 0666);
    saveCalls.ownerError = EINVAL;  // as where the group has no meaning
    const Error error = raisedBy([&] { files->save(at("A.vla"), "new"); });
    EXPECT_EQ(error.description(),
              "The file " + root +
                  "A.vla can't be kept in its group, though it is written: Invalid argument.");
    EXPECT_EQ(contentOf("A.vla"), "new");
}

TEST_F(Owners, giveAnotherGroupNoMoreThanEverybodyHas) {
    putOwned("A.vla", 0676);
    putOwned("B.vla", 0662);
    EXPECT_NE(raisedByOther({}, [&] { files->save(at("A.vla"), "new"); }), "");
    EXPECT_NE(raisedByOther({}, [&] { saveAll({"B.vla"}); }), "");
    expectOwned("A.vla", kOther, kOther, 0666);
    expectOwned("B.vla", kOther, kOther, 0622);
}

TEST_F(Owners, keepWhatRunsInTheirNameForThemselves) {
    putOwned("A.vla", 06777);
    putOwned("B.vla", 06777);
    putOwned("C.vla", 06777);
    EXPECT_EQ(raisedByOther({kShared}, [&] { files->save(at("A.vla"), "new"); }), "");
    expectOwned("A.vla", kOther, kShared, 0777);
    // The system takes it away when something is written; here nothing is.
    EXPECT_EQ(raisedByOther({kShared}, [&] { files->save(at("C.vla"), ""); }), "");
    expectOwned("C.vla", kOther, kShared, 0777);
    files->save(at("B.vla"), "new");
    expectOwned("B.vla", kOwner, kShared, 06777);
}

TEST_F(Owners, letNobodyElseInMeanwhile) {
    for (const char* name : {"A.vla", "B.vla"}) putOwned(name, 0666);
    putOwned("C.vla", 0666, geteuid(), kShared);
    putOwned("D.vla", 0666, kOwner, getegid());
    files->save(at("A.vla"), "new");
    saveAll({"A.vla", "B.vla", "C.vla", "D.vla"});
    EXPECT_EQ(saveCalls.modesBeforeOwners, std::vector<unsigned>(5, 0600));
}

TEST_F(Owners, areNotToldOfWhereSomethingWorseHappens) {
    for (const char* name : {"A.vla", "B.vla"}) putOwned(name, 0666);
    const std::string raised = raisedByOther({}, [&] {
        saveCalls.failingName = "B.vla";
        saveAll({"A.vla", "B.vla"});
    });
    EXPECT_EQ(raised, "The file " + root + "B.vla can't be written: Input/output error.");
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla"), "newold");
}

}  // namespace
}  // namespace wynconfig
