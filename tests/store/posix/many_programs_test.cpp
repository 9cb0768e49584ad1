// Several programs at work on one store at the same time: two that edit sessions, one that deletes
// and makes them, one that renames a part format over and over. WYNCONFIG_PROGRAMS_SECONDS tells
// how long they are at it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "store/session_record.h"
#include "store/session_walk.h"
#include "support/file_system_kit.h"
#include "wynconfig/keys.h"
#include "wynconfig/store.h"

namespace wynconfig {
namespace {

constexpr int kSessions = 40;  ///< of each program that has sessions of its own

/// What a program did and saw.
struct Tally {
    int works = 0;
    int lost = 0;    ///< saves of its own that were gone when it looked again
    int undead = 0;  ///< sessions that it had deleted, and that were back
    int failures = 0;
};

/// A program of its own, by this one's code, until its time is over.
class Worker {
  public:
    explicit Worker(const std::function<void(Tally&)>& work) {
        EXPECT_EQ(pipe2(m_pipe, O_CLOEXEC), 0);
        m_process = fork();
        EXPECT_GE(m_process, 0);
        if (m_process != 0) return;
        Tally tally;
        const auto files = makeRealFileSystem();
        setFileSystem(files.get());
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds{seconds()};
        while (std::chrono::steady_clock::now() < end) {
            try {
                work(tally);
            } catch (const Error& error) {
                if (++tally.failures < 4) std::cerr << error.description() << '\n';
            }
            ++tally.works;
        }
        const auto written = write(m_pipe[1], &tally, sizeof tally);
        _exit(written == sizeof tally ? 0 : 1);
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker() {
        for (const int end : m_pipe) close(end);
    }

    /// Waits for its end.
    Tally tally() {
        Tally tally;
        int status = 0;
        EXPECT_EQ(waitpid(m_process, &status, 0), m_process);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
        EXPECT_EQ(read(m_pipe[0], &tally, sizeof tally), ssize_t{sizeof tally});
        return tally;
    }

  private:
    static int seconds() {
        const char* const asked = std::getenv("WYNCONFIG_PROGRAMS_SECONDS");
        return asked ? std::atoi(asked) : 1;
    }

    pid_t m_process = 0;
    int m_pipe[2] = {-1, -1};
};

class ManyPrograms : public OnTheDisk {
  protected:
    ManyPrograms() {
        for (const char* name : {"MORAM", "PARTFORMAT"}) files->makeFolder(root + name);
        setFileSystem(files.get());
        SaveBatch batch(*files);
        saveFormat("TURN 0");
        saveFormat("SAME");
        for (int i = 0; i < kSessions; ++i) {
            makeSession(nameOf("ONE", i), "TURN 0");
            makeSession(nameOf("TWO", i), "TURN 0");
            makeSession(nameOf("DEL", i), "SAME");
        }
        batch.commit();
    }
    ~ManyPrograms() override { setFileSystem(nullptr); }

    static std::string nameOf(const std::string& who, int number) {
        return who + " " + std::to_string(number % kSessions);
    }
    ItemPath fileOf(const std::string& name) const {
        return ItemPath::item(store.folder(ItemKind::Session), name);
    }
    void saveFormat(const std::string& name) const {
        Dataset format;
        format.Create("PARTFORMAT", name, "", session::kColumns);
        format.Save(ItemPath::item(store.folder(ItemKind::PartFormat), name));
    }
    void makeSession(const std::string& name, const std::string& format) const {
        Dataset record;
        record.Create("MORAM", name, "", session::kColumns);
        record.AddRow({session::kFormatCount, "1"});
        record.AddRow({session::formatKey(1), format});
        record.AddRow({session::kWindowTitle, "0"});
        record.Save(fileOf(name));
    }

    /// Counts the next session of its own on.
    /// @param again  does it once more where another program was faster
    void edit(Tally& tally, const std::string& who, std::vector<int>& counts, bool again) const {
        int& count = counts[static_cast<std::size_t>(tally.works % kSessions)];
        const ItemPath file = fileOf(nameOf(who, tally.works));
        const auto countOn = [&](const std::vector<ItemPath>&) {
            Dataset record;
            record.Load(file);
            const int seen = std::atoi(record.GetRow(session::kWindowTitle)[1].c_str());
            if (seen != count) ++tally.lost;
            count = seen;
            const DataRow row{session::kWindowTitle, std::to_string(seen + 1)};
            record.UpdateRow(row, row);
            record.Save(file);
        };
        if (again) {
            SaveBatch batch(fileSystem());
            countOn({});
            batch.commit(countOn);
        } else {
            countOn({});
        }
        ++count;
    }
    /// Deletes the next session of its own, or makes it when it did so before.
    void comeAndGo(Tally& tally) const {
        const std::string name = nameOf("DEL", tally.works);
        const bool isDeleted = tally.works / kSessions % 2 == 1;
        const bool isThere = store.has(ItemKind::Session, name);
        if (!isDeleted) {
            fileSystem().remove(fileOf(name));
            return;
        }
        if (isThere) ++tally.undead;
        makeSession(name, "SAME");
    }
    /// Gives the part format its next name, by turns as an administrator and as a dialog does it.
    void rename(Tally& tally) const {
        const std::string from = "TURN " + std::to_string(tally.works);
        const std::string to = "TURN " + std::to_string(tally.works + 1);
        if (tally.works % 2 == 0) {
            store.rename(from, to);
            return;
        }
        saveFormat(to);
        const auto raising = [](const auto& statement) { statement(); };
        rewriteSessions(store.folder(ItemKind::Session), raising,
                        [&](Dataset& record) { session::carryFormat(record, from, to); });
        fileSystem().remove(ItemPath::item(store.folder(ItemKind::PartFormat), from));
    }
    /// How many sessions of a program name a part format that is not there.
    int orphansOf(const std::string& who) const {
        int count = 0;
        for (const StoreFault& fault : store.check()) {
            const bool isOrphan = fault.cause == StoreFault::Cause::MissingFormat;
            if (isOrphan && fault.item.starts_with(who)) ++count;
        }
        return count;
    }

    Store store{root};
};

TEST_F(ManyPrograms, KeepEachOthersWork) {
    std::vector<int> ofOne(kSessions);
    std::vector<int> ofTwo(kSessions);
    Worker one{[&](Tally& tally) { edit(tally, "ONE", ofOne, false); }};
    Worker two{[&](Tally& tally) { edit(tally, "TWO", ofTwo, true); }};
    Worker deleter{[&](Tally& tally) { comeAndGo(tally); }};
    Worker renamer{[&](Tally& tally) { rename(tally); }};

    const Tally byOne = one.tally();
    const Tally byTwo = two.tally();
    const Tally deleted = deleter.tally();
    const Tally renamed = renamer.tally();
    const int saves = byOne.works + byTwo.works;
    const int lost = byOne.lost + byTwo.lost;
    std::cout << saves << " saves, " << byOne.lost << " and " << byTwo.lost << " lost; "
              << deleted.works << " deleted and made, " << deleted.undead << " came back; "
              << renamed.works << " renames, with a part format that is gone: " << orphansOf("ONE")
              << " sessions of the program that saves over them, " << orphansOf("TWO")
              << " of the one that looks\n";

    for (const Tally& each : {byOne, byTwo, deleted, renamed}) {
        EXPECT_GT(each.works, 0);
        EXPECT_EQ(each.failures, 0);
    }
    // Between the last look at a file and its replacement lies a moment that nothing closes.
    EXPECT_LT(lost, 2 + saves / 20);
    EXPECT_LT(deleted.undead, 2 + deleted.works / 20);
    // Without that look it is all of them, within a second.
    EXPECT_LT(orphansOf("TWO"), kSessions / 2);
    files->save(fileOf("LAST"), "x");
    for (const auto& entry : std::filesystem::directory_iterator(root + "MORAM"))
        EXPECT_EQ(entry.path().extension(), ".vla") << entry.path();
}

}  // namespace
}  // namespace wynconfig
