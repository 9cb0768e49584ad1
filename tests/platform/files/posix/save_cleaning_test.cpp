// What a killed program leaves behind: every file whole, temporaries that the next save cleans
// away, and those of a living program that it leaves alone.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <dirent.h>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "platform/files/file_system.h"
#include "support/file_system_kit.h"
#include "support/ordinary_user.h"
#include "support/save_calls.h"

namespace {
int listings = 0;
}

// Stands before the C library's own call: a folder is looked through for leftovers.
extern "C" DIR* fdopendir(int folder) {
    ++listings;
    static const auto call = reinterpret_cast<DIR* (*)(int)>(dlsym(RTLD_NEXT, "fdopendir"));
    return call(folder);
}

namespace wynconfig {
namespace {

namespace fs = std::filesystem;
using NameSet = std::set<std::string>;

/// Another program, by the same code. It is killed with the object unless it has ended.
class Program {
  public:
    /// @param work  gets a call by which the program says that it is as far as the test wants it,
    /// and then waits to be killed or told to go on.
    explicit Program(const std::function<void(const std::function<void()>&)>& work) {
        EXPECT_EQ(pipe2(m_ready, O_CLOEXEC), 0);
        EXPECT_EQ(pipe2(m_goOn, O_CLOEXEC), 0);
        m_process = fork();
        EXPECT_GE(m_process, 0);
        if (m_process != 0) return;
        try {
            work([this] {
                char byte = 0;
                syscall(SYS_write, m_ready[1], &byte, 1);
                static_cast<void>(read(m_goOn[0], &byte, 1));
            });
        } catch (...) {
            _exit(1);
        }
        _exit(0);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program() {
        if (m_process > 0) kill();
        for (const int end : {m_ready[0], m_ready[1], m_goOn[0], m_goOn[1]}) close(end);
    }

    void waitUntilReady() const {
        char byte = 0;
        EXPECT_EQ(read(m_ready[0], &byte, 1), 1);
    }
    void kill() {
        ::kill(m_process, SIGKILL);
        end();
    }
    /// Lets it go on to its end; true when it ended well.
    bool finish() {
        const char byte = 0;
        syscall(SYS_write, m_goOn[1], &byte, 1);
        return end();
    }
    /// Waits for its end; true when it ended well.
    bool end() {
        int status = 0;
        EXPECT_EQ(waitpid(m_process, &status, 0), m_process);
        m_process = 0;
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

  private:
    pid_t m_process = 0;
    int m_ready[2] = {-1, -1};
    int m_goOn[2] = {-1, -1};
};

class Leftovers : public OnTheDisk {
  public:
    Leftovers() { listings = 0; }

    /// A save alone, and one in a batch of its own.
    void save(const std::string& name) const { files->save(at(name), "saved"); }
    void saveInBatch(const std::string& name) const {
        SaveBatch batch{*files};
        files->save(at(name), "saved");
        batch.commit();
    }
};

/// Saves two files in a batch and stops before its commit.
void stopInABatch(const std::string& root, const std::function<void()>& stop) {
    const auto files = makeRealFileSystem();
    SaveBatch batch{*files};
    for (const char* name : {"X.vla", "Y.vla"}) files->save({root, name}, "by the other program");
    stop();
    batch.commit();
}

/// Saves a file alone and stops before its bytes are on the disk.
void stopInASave(const std::string& root, const std::function<void()>& stop) {
    bool stopped = false;
    saveCalls.beforeSync = [&] {
        if (!stopped) stop();
        stopped = true;
    };
    makeRealFileSystem()->save({root, "X.vla"}, "by the other program");
}

TEST_F(Leftovers, ofALivingBatchAreLeftAloneUntilItIsKilled) {
    Program other{[&](const auto& stop) { stopInABatch(root, stop); }};
    other.waitUntilReady();
    const NameSet before = names();
    ASSERT_EQ(before.size(), 3U) << "two temporaries and the mark of the batch";
    save("A.vla");
    saveInBatch("B.vla");
    save("A.vla");
    NameSet expected = before;
    expected.insert({"A.vla", "B.vla"});
    EXPECT_EQ(names(), expected);
    EXPECT_EQ(files->listItems(root), (std::vector<std::string>{"A.vla", "B.vla"}));

    // The folder does not change when the program dies.
    other.kill();
    EXPECT_EQ(names(), expected);
    save("A.vla");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla"}));
}

TEST_F(Leftovers, ofALivingSaveAreLeftAloneUntilItIsKilled) {
    Program other{[&](const auto& stop) { stopInASave(root, stop); }};
    other.waitUntilReady();
    const NameSet before = names();
    ASSERT_EQ(before.size(), 1U);
    saveInBatch("B.vla");
    save("A.vla");
    save("A.vla");
    NameSet expected = before;
    expected.insert({"A.vla", "B.vla"});
    EXPECT_EQ(names(), expected);

    other.kill();
    EXPECT_EQ(names(), expected);
    saveInBatch("A.vla");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla"}));
}

TEST_F(Leftovers, doNotComeOfProgramsThatGoOn) {
    const auto works = {stopInABatch, stopInASave};
    for (const auto& work : works) {
        Program other{[&](const auto& stop) { work(root, stop); }};
        other.waitUntilReady();
        save("A.vla");
        saveInBatch("B.vla");
        EXPECT_FALSE(fs::exists(root + "X.vla"));
        EXPECT_TRUE(other.finish());
        EXPECT_EQ(contentOf("X.vla"), "by the other program");
        fs::remove(root + "X.vla");
        fs::remove(root + "Y.vla");
        EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla"}));
    }
}

TEST_F(Leftovers, areCleanedAwayByTheFirstSave) {
    const NameSet left = {".wyn-123-0123abcd-1.tmp",   ".wyn-4194304-ffffffff-4294967295.tmp",
                          ".wyn-123-0123abcd-2-1.tmp", ".wyn-123-0123abcd-2-77.tmp",
                          ".wyn-123-0123abcd-3.tmp",   ".wyn-123-0123abcd-3-1.tmp"};
    for (const auto& clean : {&Leftovers::save, &Leftovers::saveInBatch}) {
        for (const std::string& name : left) put(name, "left behind");
        (this->*clean)("A.vla");
        EXPECT_EQ(names(), NameSet{"A.vla"});
    }
}

TEST_F(Leftovers, areCleanedAwayAlsoByWhoMayOnlyReadThem) {
    put(".wyn-123-0123abcd-1.tmp", "left behind");
    fs::permissions(root + ".wyn-123-0123abcd-1.tmp", fs::perms{0444});
    asOrdinaryUser({root}, [&] { save("A.vla"); });
    EXPECT_EQ(names(), NameSet{"A.vla"});
}

TEST_F(Leftovers, areLookedForWithoutTouchingNumbersOfOtherFiles) {
    // A number that is closed twice may be that of another thread's file by then.
    put(".wyn-123-0123abcd-1.tmp", "left behind");
    save("A.vla");
    saveInBatch("B.vla");
    EXPECT_EQ(listings, 2);
    EXPECT_EQ(saveCalls.closesOfNothing, 0);
}

TEST_F(Leftovers, areNotWhatMerelyLooksAlike) {
    const NameSet foreign = {".wyn-1-1.tmp",
                             ".wyn-.tmp",
                             ".wyn-123-0123abcd.tmp",
                             ".wyn-123-0123abcd-.tmp",
                             ".wyn-123-0123abcd-1",
                             ".wyn-123-0123abcd-1.tmp2",
                             ".wyn-123-0123abcd-1.TMP",
                             ".WYN-123-0123abcd-1.tmp",
                             "wyn-123-0123abcd-1.tmp",
                             "x.wyn-123-0123abcd-1.tmp",
                             ".wyn-123-0123ABCD-1.tmp",
                             ".wyn-123-0123abc-1.tmp",
                             ".wyn-123-0123abcde-1.tmp",
                             ".wyn-123-0123abcg-1.tmp",
                             ".wyn-0123-0123abcd-1.tmp",
                             ".wyn-0-0123abcd-1.tmp",
                             ".wyn-12345678901-0123abcd-1.tmp",
                             ".wyn-a-0123abcd-1.tmp",
                             ".wyn--0123abcd-1.tmp",
                             ".wyn-123--1.tmp",
                             ".wyn-123--12345678.tmp",
                             ".wyn-123abcdef01-1.tmp",
                             ".wyn-123-0123abcd1.tmp",
                             ".wyn-123-0123abcd-01.tmp",
                             ".wyn-123-0123abcd-0.tmp",
                             ".wyn-123-0123abcd-1-.tmp",
                             ".wyn-123-0123abcd-1-01.tmp",
                             ".wyn-123-0123abcd-1-x.tmp",
                             ".wyn-123-0123abcd-1-2-3.tmp",
                             ".wyn-123-0123abcd-1 .tmp",
                             ".wyn-+123-0123abcd-1.tmp",
                             ".tmp"};
    for (const std::string& name : foreign) put(name, "foreign");
    NameSet expected = foreign;
    expected.insert("A.vla");
    save("A.vla");
    EXPECT_EQ(names(), expected);
    saveInBatch("A.vla");
    EXPECT_EQ(names(), expected);
    for (const std::string& name : foreign) EXPECT_EQ(contentOf(name), "foreign") << name;
}

TEST_F(Leftovers, arePlainFilesOnly) {
    const NameSet odd = {".wyn-123-0123abcd-1.tmp", ".wyn-123-0123abcd-2.tmp",
                         ".wyn-123-0123abcd-3.tmp", ".wyn-123-0123abcd-4-1.tmp",
                         ".wyn-123-0123abcd-4-2.tmp"};
    put("precious", "old");
    ASSERT_EQ(mkfifo((root + ".wyn-123-0123abcd-1.tmp").c_str(), 0600), 0);
    fs::create_directory(root + ".wyn-123-0123abcd-2.tmp");
    fs::create_symlink("precious", root + ".wyn-123-0123abcd-3.tmp");
    fs::create_symlink("precious", root + ".wyn-123-0123abcd-4-1.tmp");
    ASSERT_EQ(mkfifo((root + ".wyn-123-0123abcd-4-2.tmp").c_str(), 0600), 0);
    save("A.vla");
    saveInBatch("A.vla");
    NameSet expected = odd;
    expected.insert({"A.vla", "precious"});
    EXPECT_EQ(names(), expected);
    EXPECT_EQ(contentOf("precious"), "old");
}

TEST_F(Leftovers, areToldByTheLockOfTheirLeader) {
    const NameSet left = {".wyn-123-0123abcd-1.tmp", ".wyn-123-0123abcd-1-1.tmp",
                          ".wyn-123-0123abcd-1-2.tmp"};
    for (const std::string& name : left) put(name, "left behind");
    const int leader = open((root + ".wyn-123-0123abcd-1.tmp").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(leader, LOCK_EX), 0);
    save("A.vla");
    saveInBatch("A.vla");
    NameSet expected = left;
    expected.insert("A.vla");
    EXPECT_EQ(names(), expected);
    close(leader);
    save("A.vla");
    EXPECT_EQ(names(), NameSet{"A.vla"});
}

TEST_F(Leftovers, areNotTheTemporariesOfAnotherObjectOfTheSameProgram) {
    const auto others = makeRealFileSystem();
    SaveBatch batch{*others};
    others->save(at("X.vla"), "by the other object");
    save("A.vla");
    saveInBatch("B.vla");
    batch.commit();
    EXPECT_EQ(contentOf("X.vla"), "by the other object");
    EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla", "X.vla"}));
}

TEST_F(Leftovers, areNotLookedForAtEverySave) {
    for (int i = 0; i < 20; ++i) save(std::to_string(i) + ".vla");
    EXPECT_EQ(listings, 1);
    put("foreign", "x");
    for (int i = 0; i < 20; ++i) save(std::to_string(i) + ".vla");
    EXPECT_EQ(listings, 2);
    SaveBatch batch{*files};
    for (int i = 0; i < 20; ++i) save(std::to_string(i) + ".vla");
    batch.commit();
    EXPECT_EQ(listings, 3);
    for (int i = 0; i < 20; ++i) save(std::to_string(i) + ".vla");
    EXPECT_EQ(listings, 3);
}

// ---------------------------------------------------------------------------------------------
// A temporary between its making and its lock.

TEST_F(Leftovers, mayBeATemporaryThatIsNotLockedYet) {
    for (const auto& work : {&Leftovers::save, &Leftovers::saveInBatch}) {
        int locks = 0;
        NameSet taken;
        // Another program finds it, and is done with it, before the lock.
        saveCalls.beforeLock = [&] {
            if (++locks > 3) return;
            for (const std::string& name : names()) {
                if (name.ends_with(".tmp")) {
                    taken.insert(name);
                    fs::remove(root + name);
                }
            }
        };
        (this->*work)("A.vla");
        EXPECT_EQ(locks, 4);
        EXPECT_EQ(taken.size(), 3U);
        EXPECT_EQ(names(), NameSet{"A.vla"});
        EXPECT_EQ(contentOf("A.vla"), "saved");
        fs::remove(root + "A.vla");
    }
}

TEST_F(Leftovers, mayBeATemporaryThatAnotherProgramIsAboutToDelete) {
    for (const auto& work : {&Leftovers::save, &Leftovers::saveInBatch}) {
        int taken = -1;
        std::string name;
        saveCalls.beforeLock = [&] {
            if (taken >= 0) return;
            name = *names().begin();
            taken = open((root + name).c_str(), O_RDWR | O_CLOEXEC);
            ASSERT_EQ(syscall(SYS_flock, taken, LOCK_EX | LOCK_NB), 0);
        };
        (this->*work)("A.vla");
        EXPECT_EQ(contentOf("A.vla"), "saved");
        EXPECT_EQ(names(), NameSet{"A.vla"}) << "who makes another one takes the first away";
        struct stat info {};
        EXPECT_EQ(fstat(taken, &info), 0);
        EXPECT_EQ(info.st_nlink, 0U) << "it was put in place";
        close(taken);
        fs::remove(root + "A.vla");
    }
}

TEST_F(Leftovers, doNotComeOfLocksThatAreAlwaysRefused) {
    for (const int error : {EWOULDBLOCK, ENOLCK, ENOTSUP, EINVAL}) {
        for (const auto& work : {&Leftovers::save, &Leftovers::saveInBatch}) {
            saveCalls.lockError = error;
            saveCalls.locks = 0;
            (this->*work)("A.vla");
            EXPECT_EQ(contentOf("A.vla"), "saved") << error;
            EXPECT_EQ(names(), NameSet{"A.vla"}) << error;
            EXPECT_LE(saveCalls.locks, 20) << error;
            fs::remove(root + "A.vla");
        }
    }
}

TEST_F(Leftovers, mayHaveEveryNameThatIsTried) {
    saveCalls.makeError = EEXIST;
    for (const auto& work : {&Leftovers::save, &Leftovers::saveInBatch}) {
        const Error error = raisedBy([&] { (this->*work)("A.vla"); });
        EXPECT_EQ(error.description(), "The file " + root + "A.vla can't be written: File exists.");
    }
    EXPECT_TRUE(names().empty());
}

TEST_F(Leftovers, doNotComeOfTemporariesThatNobodyCanTellOf) {
    put("A.vla", "old");
    saveCalls.unseenName = ".wyn-";
    for (const auto& work : {&Leftovers::save, &Leftovers::saveInBatch}) {
        const Error error = raisedBy([&] { (this->*work)("A.vla"); });
        EXPECT_EQ(error.description(),
                  "The file " + root + "A.vla can't be written: Input/output error.");
        EXPECT_EQ(contentOf("A.vla"), "old");
        EXPECT_EQ(names(), NameSet{"A.vla"});
    }
}

TEST_F(Leftovers, thatNobodyCanTellOfAreLeftAlone) {
    put(".wyn-123-0123abcd-1-1.tmp", "left behind");
    saveCalls.unseenName = ".wyn-123-";
    save("A.vla");
    saveCalls.unseenName.clear();
    EXPECT_EQ(names(), (NameSet{".wyn-123-0123abcd-1-1.tmp", "A.vla"}));
    save("A.vla");
    EXPECT_EQ(names(), NameSet{"A.vla"});
}

TEST_F(Leftovers, ofALeaderThatNobodyCanTellOfAreLeftAlone) {
    const NameSet left = {".wyn-123-0123abcd-1.tmp", ".wyn-123-0123abcd-1-1.tmp",
                          ".wyn-123-0123abcd-1-2.tmp"};
    for (const std::string& name : left) put(name, "left behind");
    saveCalls.unseenName = ".wyn-123-0123abcd-1.tmp";
    save("A.vla");
    saveInBatch("A.vla");
    saveCalls.unseenName.clear();
    NameSet expected = left;
    expected.insert("A.vla");
    EXPECT_EQ(names(), expected);
    save("A.vla");
    EXPECT_EQ(names(), NameSet{"A.vla"});
}

TEST_F(Leftovers, doNotComeOfTemporariesThatOthersDeleteAllTheTime) {
    put("A.vla", "old");
    saveCalls.beforeLock = [&] {
        for (const std::string& name : names())
            if (name != "A.vla") fs::remove(root + name);
    };
    for (const auto& work : {&Leftovers::save, &Leftovers::saveInBatch}) {
        const Error error = raisedBy([&] { (this->*work)("A.vla"); });
        EXPECT_TRUE(holds(error.description(), "Resource temporarily unavailable"))
            << error.description();
        EXPECT_EQ(contentOf("A.vla"), "old");
        EXPECT_EQ(names(), NameSet{"A.vla"});
    }
}

TEST_F(Leftovers, mayBeInPlaceBeforeTheyAreDeleted) {
    put(".wyn-123-0123abcd-1.tmp", "new content");
    int locks = 0;
    bool isMadeAnew = false;
    saveCalls.beforeLock = [&] {
        // The first lock is the cleaner's, on the file that it has opened by now.
        if (++locks > 1) return;
        fs::rename(root + ".wyn-123-0123abcd-1.tmp", root + "X.vla");
        if (isMadeAnew) put(".wyn-123-0123abcd-1.tmp", "another one");
    };
    save("A.vla");
    EXPECT_EQ(contentOf("X.vla"), "new content");
    EXPECT_EQ(names(), (NameSet{"A.vla", "X.vla"}));

    put(".wyn-123-0123abcd-1.tmp", "new content");
    put(".wyn-123-0123abcd-1-1.tmp", "a follower");
    locks = 0;
    isMadeAnew = true;
    save("A.vla");
    EXPECT_EQ(contentOf(".wyn-123-0123abcd-1.tmp"), "another one");
    EXPECT_EQ(contentOf(".wyn-123-0123abcd-1-1.tmp"), "a follower");
}

TEST_F(Leftovers, areCleanedByManyProgramsAtOnce) {
    saveCalls.skipSync = true;
    constexpr int Programs = 4;
    constexpr int Rounds = 60;
    std::vector<std::unique_ptr<Program>> programs;
    for (int number = 0; number < Programs; ++number) {
        programs.push_back(std::make_unique<Program>([&, number](const auto&) {
            const std::string own = std::to_string(number);
            for (int round = 0; round < Rounds; ++round) {
                const auto others = makeRealFileSystem();
                const std::string content = own + " " + std::to_string(round);
                const std::string left = ".wyn-9-0123abcd-" + std::to_string(round + 1);
                put(left + ".tmp", "left behind");
                put(left + "-1.tmp", "left behind");
                SaveBatch batch{*others};
                for (const char* file : {"A", "B", "C"}) {
                    others->save(at(own + file + ".vla"), content);
                }
                batch.commit();
                others->save(at(own + "D.vla"), content);
                for (const char* file : {"A", "B", "C", "D"}) {
                    if (contentOf(own + file + ".vla") != content) _exit(2);
                }
            }
        }));
    }
    for (const auto& program : programs) EXPECT_TRUE(program->end());
    save("LAST.vla");
    for (const std::string& name : names()) EXPECT_TRUE(name.ends_with(".vla")) << name;
    EXPECT_EQ(names().size(), 4U * Programs + 1);
}

// ---------------------------------------------------------------------------------------------
// Killing.

constexpr int KillFiles = 200;

std::string killName(int file) {
    return "SESSION " + std::to_string(file) + ".vla";
}

/// What a file holds: its number throughout, and a length of its own for each version.
std::string killContent(int file, int version) {
    const std::string line = std::to_string(file) + " version " + std::to_string(version) + '\n';
    std::string content;
    const std::size_t length = 300 + static_cast<std::size_t>(file * 37 % 1500 + version * 900);
    while (content.size() < length) content += line;
    return content;
}

class Killing : public Leftovers {
  protected:
    Killing() { saveCalls.skipSync = true; }

    void walk(FileSystem& by, int version) const {
        SaveBatch batch{by};
        for (int file = 0; file < KillFiles; ++file) {
            by.save(at(killName(file)), killContent(file, version));
        }
        batch.commit();
    }

    /// A program that walks, and is killed in the middle in one of three ways.
    void killAWalk(std::mt19937& chance, int way, int version, std::chrono::microseconds usual) {
        const auto upTo = [&](long most) {
            return std::uniform_int_distribution<long>{1, most}(chance);
        };
        const long at = upTo(KillFiles);
        const std::chrono::microseconds delay{upTo(usual.count())};
        Program other{[&](const auto&) {
            saveCalls = SaveCalls{};
            saveCalls.skipSync = true;
            if (way == 0) saveCalls.beforeRename = [&] { killAt(saveCalls.renames, at); };
            if (way == 1) saveCalls.beforeWrite = [&] { killAt(saveCalls.writes, at); };
            walk(*makeRealFileSystem(), version);
        }};
        if (way == 2) {
            std::this_thread::sleep_for(delay);
            other.kill();
        } else {
            EXPECT_FALSE(other.end());
        }
    }
    static void killAt(int now, long at) {
        if (now == at) raise(SIGKILL);
    }

    /// Expects every file whole, and counts those of a version.
    int countVersion(int version) const {
        int count = 0;
        for (int file = 0; file < KillFiles; ++file) {
            const std::string content = contentOf(killName(file));
            const bool isVersion = content == killContent(file, version);
            EXPECT_TRUE(isVersion || content == killContent(file, 1 - version)) << killName(file);
            if (isVersion) ++count;
        }
        return count;
    }
};

TEST_F(Killing, leavesEveryFileWholeAndNothingLyingAbout) {
    using Clock = std::chrono::steady_clock;
    const unsigned seed = std::random_device{}();
    std::cout << "seed " << seed << '\n';
    RecordProperty("seed", std::to_string(seed));
    std::mt19937 chance{seed};
    walk(*files, 0);
    const Clock::time_point start = Clock::now();
    walk(*files, 1);
    const auto usual = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start);

    int rounds = 0;
    int mixed = 0;
    int littered = 0;
    int version = 1;
    while (rounds < 10 || (rounds < 60 && Clock::now() - start < std::chrono::seconds{20})) {
        killAWalk(chance, rounds % 3, 1 - version, usual);
        const int changed = countVersion(1 - version);
        if (changed > 0 && changed < KillFiles) ++mixed;
        if (names().size() > KillFiles) ++littered;
        EXPECT_EQ(files->listItems(root).size(), std::size_t{KillFiles});

        version = 1 - version;
        if (rounds % 2 == 0) {
            files->save(at(killName(0)), killContent(0, version));
            EXPECT_EQ(names().size(), std::size_t{KillFiles});
        }
        walk(*files, version);
        EXPECT_EQ(countVersion(version), KillFiles);
        EXPECT_EQ(names().size(), std::size_t{KillFiles});
        ++rounds;
    }
    std::cout << rounds << " rounds, " << mixed << " killed amid the renames, " << littered
              << " with temporaries left\n";
    EXPECT_GE(mixed, 2);
    EXPECT_GE(littered, 5);
}

TEST_F(Killing, aSaveLeavesTheFileWholeAndNothingLyingAbout) {
    const std::string before(3000, 'o');
    const std::string content(5000, 'n');
    for (const bool atRename : {false, true}) {
        put("A.vla", before);
        Program other{[&](const auto&) {
            if (atRename) {
                saveCalls.beforeRename = [] { raise(SIGKILL); };
            } else {
                saveCalls.beforeSync = [] { raise(SIGKILL); };
            }
            makeRealFileSystem()->save(at("A.vla"), content);
        }};
        EXPECT_FALSE(other.end());
        EXPECT_EQ(contentOf("A.vla"), before);
        EXPECT_EQ(names().size(), 2U + (atRename ? 1U : 0U));
        save("B.vla");
        EXPECT_EQ(names(), (NameSet{"A.vla", "B.vla"}));
    }
}

}  // namespace
}  // namespace wynconfig
