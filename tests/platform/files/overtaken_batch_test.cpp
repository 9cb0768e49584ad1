// Batches that are not to replace what others changed meanwhile: how a change is noticed, and what
// becomes of the file.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/files/faulty_file_system.h"
#include "support/file_system_kit.h"
#include "support/meanwhile.h"

namespace wynconfig {
namespace {

namespace fs = std::filesystem;

class Overtaken : public OnEveryFileSystem {
  protected:
    Overtaken() {
        for (const char* name : {"A.vla", "B.vla", "C.vla"}) disk.save(at(name), "old");
    }

    /// Appends to a file what it is to end in.
    void append(const std::string& name) {
        disk.save(at(name), disk.read(at(name)) + " ours");
        work.push_back(name);
    }
    /// Appends to all three files in a batch, and once more to those that were overtaken.
    void appendToAll() {
        SaveBatch batch{disk};
        for (const char* name : {"A.vla", "B.vla", "C.vla"}) append(name);
        batch.commit([this](const std::vector<ItemPath>& overtaken) {
            for (const ItemPath& path : overtaken) {
                if (!disk.find(path).empty()) append(path.name);
            }
        });
    }
    std::string contentOf(const std::string& name) { return stranger->readExactly(root + name); }

    Meanwhile disk{*files};
    Names work;  ///< the files that were appended to, in this order
};
ON_EVERY_FILE_SYSTEM(Overtaken);

TEST_P(Overtaken, doesNotHappenToFilesThatNobodyElseChanges) {
    disk.resetCounts();
    appendToAll();
    EXPECT_EQ(work, (Names{"A.vla", "B.vla", "C.vla"}));
    for (const std::string& name : work) EXPECT_EQ(contentOf(name), "old ours");
    EXPECT_EQ(disk.count(Operation::Commit), 1U);
}

TEST_P(Overtaken, filesAreReadAndSavedOnceMore) {
    disk.beforeCommit = [this] {
        stranger->write(root + "B.vla", "theirs");
        disk.beforeCommit = [] {};
    };
    appendToAll();
    EXPECT_EQ(work, (Names{"A.vla", "B.vla", "C.vla", "B.vla"}));
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla") + contentOf("C.vla"),
              "old ourstheirs oursold ours");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla"}));
}

TEST_P(Overtaken, filesAreNoticedThatWereReadBeforeTheBatchWasSettled) {
    SaveBatch batch{disk};
    append("A.vla");
    disk.read(at("B.vla"));
    batch.settle();
    stranger->write(root + "B.vla", "theirs");
    batch.goOn();
    disk.save(at("B.vla"), "ours");
    Names overtaken;
    batch.commit([&](const std::vector<ItemPath>& some) {
        for (const ItemPath& path : some) overtaken.push_back(path.name);
    });
    EXPECT_EQ(overtaken, Names{"B.vla"});
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla"), "old ourstheirs");
}

TEST_P(Overtaken, filesAreNoticedUpToTheMomentOfTheirReplacement) {
    disk.beforeReplacing = onceAt("C.vla", [this] { stranger->write(root + "C.vla", "theirs"); });
    appendToAll();
    EXPECT_EQ(contentOf("C.vla"), "theirs ours");
    EXPECT_EQ(work.size(), 4U);
}

TEST_P(Overtaken, filesAreNoticedFromTheFirstReadingOn) {
    SaveBatch batch{disk};
    std::string text = disk.read(at("A.vla"));
    stranger->write(root + "A.vla", "theirs");
    disk.read(at("A.vla"));
    disk.save(at("A.vla"), text + " ours");
    batch.commit([&](const std::vector<ItemPath>&) { append("A.vla"); });
    EXPECT_EQ(contentOf("A.vla"), "theirs ours");
}

TEST_P(Overtaken, filesAreNoticedThatChangeWhileTheyAreRead) {
    disk.afterRead = onceAt("A.vla", [this] { stranger->write(root + "A.vla", "theirs"); });
    appendToAll();
    EXPECT_EQ(contentOf("A.vla"), "theirs ours");
}

TEST_P(Overtaken, filesOfOneLengthAreToldApartByTheirTextWhereTheClockHidesTheChange) {
    disk.clockStands = true;
    disk.beforeCommit = [this] {
        stranger->write(root + "B.vla", "new");
        disk.beforeCommit = [] {};
    };
    appendToAll();
    EXPECT_EQ(contentOf("B.vla"), "new ours");
    EXPECT_EQ(work.size(), 4U) << "A.vla and C.vla have the texts that were read";
}

TEST_P(Overtaken, filesThatAreDeletedAreLeftToTheCaller) {
    disk.beforeCommit = [this] {
        if (files->find(at("B.vla")).empty()) return;
        stranger->erase(root + "B.vla");
    };
    appendToAll();
    EXPECT_EQ(work.size(), 3U);
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "C.vla"}));
    EXPECT_EQ(contentOf("C.vla"), "old ours");
}

TEST_P(Overtaken, filesThatChangeAllTheTimeAreReplacedInTheEnd) {
    int changes = 0;
    disk.beforeCommit = [&] { stranger->write(root + "B.vla", std::to_string(++changes)); };
    appendToAll();
    EXPECT_EQ(contentOf("B.vla"), std::to_string(changes - 1) + " ours");
    EXPECT_EQ(disk.count(Operation::Commit), 50U);
    EXPECT_EQ(work.size(), 52U);
}

TEST_P(Overtaken, filesAreReplacedWhereNothingIsToBeDoneAgain) {
    SaveBatch batch{disk};
    append("A.vla");
    stranger->write(root + "A.vla", "theirs");
    batch.commit();
    EXPECT_EQ(contentOf("A.vla"), "old ours");
}

TEST_P(Overtaken, filesThatWereNotReadAreReplaced) {
    SaveBatch batch{disk};
    disk.save(at("A.vla"), "ours");
    stranger->write(root + "A.vla", "theirs");
    batch.commit([](const std::vector<ItemPath>&) { FAIL(); });
    EXPECT_EQ(contentOf("A.vla"), "ours");
}

TEST_P(Overtaken, filesFollowAlsoWhenAnotherOneFails) {
    SaveBatch batch{disk};
    append("A.vla");
    append("B.vla");
    disk.save(at("NEW.vla"), "new");
    stranger->write(root + "B.vla", "theirs");
    stranger->makeExactly(root + "NEW.vla");
    const Error error =
        raisedBy([&] { batch.commit([this](const std::vector<ItemPath>&) { append("B.vla"); }); });
    EXPECT_EQ(error.description(),
              "The file " + root + "NEW.vla can't be written: Is a directory.");
    EXPECT_EQ(contentOf("A.vla"), "old ours");
    EXPECT_EQ(contentOf("B.vla"), "theirs ours");
}

TEST_P(Overtaken, filesBelongToTheOuterBatch) {
    SaveBatch outer{disk};
    {
        SaveBatch inner{disk};
        append("A.vla");
        stranger->write(root + "A.vla", "theirs");
        inner.commit([](const std::vector<ItemPath>&) { FAIL(); });
    }
    outer.commit([this](const std::vector<ItemPath>&) { append("A.vla"); });
    EXPECT_EQ(contentOf("A.vla"), "theirs ours");
}

TEST_P(Overtaken, filesStayWhenTheirRepetitionRaises) {
    {
        SaveBatch batch{disk};
        append("A.vla");
        append("B.vla");
        stranger->write(root + "B.vla", "theirs");
        const Error error = raisedBy([&] {
            batch.commit([this](const std::vector<ItemPath>&) {
                append("B.vla");
                throw Error(errc::InvalidCall, "enough");
            });
        });
        EXPECT_EQ(error.number(), errc::InvalidCall);
    }
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla"), "old ourstheirs");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla"}));
    disk.save(at("B.vla"), "at once");
    EXPECT_EQ(contentOf("B.vla"), "at once");
}

class OvertakenOnDisk : public OnTheDisk {};

TEST_F(OvertakenOnDisk, aFileIsToldByItsVersionAloneOnceTheClockHasMovedOn) {
    put("A.vla", "old");
    put("B.vla", "old");
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    FaultyFileSystem counted{*files};
    SaveBatch batch{counted};
    for (const char* name : {"A.vla", "B.vla"})
        counted.save(at(name), counted.read(at(name)) + "!");
    // As long as before, and with the former time of its last writing.
    const auto before = fs::last_write_time(root + "B.vla");
    put("B.vla", "new");
    fs::last_write_time(root + "B.vla", before);
    batch.commit([&](const std::vector<ItemPath>& overtaken) {
        EXPECT_EQ(counted.count(Operation::Read), 2U) << "no text was compared";
        ASSERT_EQ(overtaken.size(), 1U);
        EXPECT_EQ(overtaken[0].text(), root + "B.vla");
        counted.save(overtaken[0], counted.read(overtaken[0]) + "!");
    });
    EXPECT_EQ(contentOf("A.vla") + contentOf("B.vla"), "old!new!");
}

TEST_F(OvertakenOnDisk, aFileThatWentWithItsFolderIsAFailure) {
    if (kOnWindows) GTEST_SKIP() << "a folder in which files are being saved can't go there";
    fs::create_directory(root + "X");
    const ItemPath file{root + "X/", "A.vla"};
    files->save(file, "old");
    SaveBatch batch{*files};
    files->save(file, files->read(file) + "!");
    fs::remove_all(root + "X");
    const Error error =
        raisedBy([&] { batch.commit([](const std::vector<ItemPath>&) { FAIL(); }); });
    EXPECT_TRUE(holds(error.description(), root + "X/A.vla can't be written"))
        << error.description();
}

/// Files of which no state is settled, so that each has to be read to be told from another.
class Unsettled : public FaultyFileSystem {
  public:
    using FaultyFileSystem::FaultyFileSystem;

  protected:
    std::optional<Version> versionOf(const std::string& path) override {
        std::optional<Version> version = FaultyFileSystem::versionOf(path);
        if (version) version->settled = false;
        return version;
    }
};

TEST(OvertakenInMemory, isAFileThatCantBeReadOnceMore) {
    const auto memory = makeMemoryFileSystem();
    Unsettled disk{*memory};
    const ItemPath path{"", "A.vla"};
    disk.save(path, "old");
    SaveBatch batch{disk};
    disk.save(path, disk.read(path) + " ours");
    disk.failOn(Operation::Read, "A", 0, 1);
    Names overtaken;
    batch.commit([&](const std::vector<ItemPath>& paths) {
        for (const ItemPath& each : paths) overtaken.push_back(each.name);
    });
    EXPECT_EQ(overtaken, Names{"A.vla"});
    EXPECT_EQ(memory->read(path), "old");
}

}  // namespace
}  // namespace wynconfig
