// A program is killed at any moment of its saves, walks and deletions, again and again, on one
// store. WYNCONFIG_KILLS says how often.
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "support/store_work.h"
#include "support/temporary_folder.h"
#include "wynconfig/error.h"
#include "wynconfig/store.h"

namespace wynconfig {
namespace {

constexpr const char* kNumber = "CommandLineArgs";  ///< the row that holds it

/// Gives a part format that sessions have another name. A walk that was broken off may have left it
/// under two; the one that nobody has goes.
void renameFormat(const Store& store, int number) {
    int many = 0;
    for (const std::string& name : store.names(ItemKind::PartFormat)) {
        if (name == "TAB") continue;
        if (store.sessionsWith(name).empty())
            store.moveToDeleted(ItemKind::PartFormat, name);
        else
            store.rename(name, std::to_string(number) + "-" + std::to_string(++many));
    }
}

/// Saves one session alone, with a number that grows, carries a part format's name through all
/// sessions, and deletes and restores one, until it is killed. Hands each number over once it is
/// saved.
void workWithoutEnd(const Store& store, int number, int pipe) {
    for (;;) {
        const auto session = store.read(ItemKind::Session, "A");
        const DataRow row{kNumber, std::to_string(++number)};
        session->UpdateRow(row, row);
        session->Save(store.path(ItemKind::Session, "A"));
        if (::write(pipe, &number, sizeof number) != sizeof number) return;
        renameFormat(store, number);
        store.moveToDeleted(ItemKind::Session, "B");
        store.restore(ItemKind::Session, "B");
    }
}

class Kills : public testing::Test {
  protected:
    Kills() {
        m_worker.putStore(false);
        const auto session = store.read(ItemKind::Session, "A");
        const DataRow row{kNumber, "0"};
        session->UpdateRow(row, row);
        session->Save(store.path(ItemKind::Session, "A"));
    }

    /// Lets a program work for so long, from its start or from its first save on.
    void kill(std::chrono::microseconds after, bool atWork) {
        int ends[2] = {-1, -1};
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t process = ::fork();
        ASSERT_GE(process, 0);
        if (process == 0) {
            ::close(ends[0]);
            try {
                workWithoutEnd(store, m_saved, ends[1]);
            } catch (const Error& error) {
                const std::string told = error.description() + "\n";
                static_cast<void>(!::write(STDERR_FILENO, told.data(), told.size()));
            }
            ::_exit(1);
        }
        ::close(ends[1]);
        struct pollfd report {
            ends[0], POLLIN, 0
        };
        if (atWork) {
            ASSERT_EQ(::poll(&report, 1, 60000), 1) << "it saves nothing";
        }
        ::usleep(static_cast<useconds_t>(after.count()));
        ::kill(process, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(process, &status, 0), process);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it ended by itself";
        for (int number = 0; ::read(ends[0], &number, sizeof number) == sizeof number;)
            m_saved = number;
        ::close(ends[0]);
    }

    /// Everything that was stored is there, whole, and as it was said to be.
    void check() {
        const auto deleted = store.deletedNames(ItemKind::Session);
        const bool isDeleted = std::count(deleted.begin(), deleted.end(), "B") > 0;
        if (isDeleted && !store.has(ItemKind::Session, "B")) store.restore(ItemKind::Session, "B");
        for (const char* name : {"A", "B", "C"})
            ASSERT_TRUE(store.has(ItemKind::Session, name)) << name;
        ASSERT_GE(store.names(ItemKind::PartFormat).size(), 2U);
        for (const StoreFault& fault : store.check())
            ADD_FAILURE() << fault.item << ": " << fault.what;
        const int stored = std::stoi(store.read(ItemKind::Session, "A")->GetRow(kNumber)[1]);
        EXPECT_GE(stored, m_saved);
        EXPECT_LE(stored, m_saved + 1);
        m_saved = stored;
    }

    int saved() const { return m_saved; }

    /// What the killed programs left is cleaned away by the next save in its folder.
    void expectNoTemporaries() const {
        for (const auto kind : {ItemKind::Session, ItemKind::PartFormat}) {
            const std::string name = store.names(kind).front();
            store.read(kind, name)->Save(store.path(kind, name));
            // A deletion is a save in the folder of the deleted.
            store.moveToDeleted(kind, name);
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.path()))
            EXPECT_NE(entry.path().extension(), ".tmp") << entry.path();
    }

  private:
    TemporaryFolder m_folder;
    StoreWorker m_worker{m_folder.path()};
    int m_saved = 0;

  protected:
    const Store store{m_worker.root()};
};

TEST_F(Kills, LoseNothing) {
    const char* const wanted = std::getenv("WYNCONFIG_KILLS");
    const int kills = wanted ? std::atoi(wanted) : 100;
    std::mt19937 chance;  // NOLINT(cert-msc51-cpp): the same delays each time
    std::uniform_int_distribution<int> delay(0, 6000);
    for (int i = 0; i < kills && !HasFatalFailure(); ++i) {
        kill(std::chrono::microseconds(delay(chance)), i % 2 == 1);
        check();
    }
    expectNoTemporaries();
    EXPECT_GE(saved(), kills / 2) << "every second one had saved something";
}

}  // namespace
}  // namespace wynconfig
