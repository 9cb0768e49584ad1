// Saving many files in a batch: what is to be seen meanwhile, and what a failure leaves behind.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "platform/files/faulty_file_system.h"
#include "platform/files/file_system.h"
#include "support/file_system_kit.h"
#include "support/save_calls.h"

namespace wynconfig {
namespace {

using namespace std::string_literals;

// ---------------------------------------------------------------------------------------------
// Rules that hold on every kind of file system.

class Batch : public OnEveryFileSystem {
  protected:
    Batch() {
        saveCalls = SaveCalls{};
        for (const char* name : {"A.vla", "B.vla", "C.vla"}) files->save(at(name), "old");
    }
    ~Batch() override { saveCalls = SaveCalls{}; }

    /// Contents of the files of those names, glued.
    std::string contents(const Names& names) {
        std::string all;
        for (const std::string& name : names) all += files->read(at(name)) + ' ';
        return all;
    }
};
ON_EVERY_FILE_SYSTEM(Batch);

TEST_P(Batch, showsTheOldFilesUntilItIsCommitted) {
    SaveBatch batch{*files};
    files->save(at("A.vla"), "new A");
    files->save(at("B.vla"), "new B");
    files->save(at("NEW.vla"), "new file");
    EXPECT_EQ(contents({"A.vla", "B.vla", "C.vla"}), "old old old ");
    EXPECT_EQ(files->find(at("NEW.vla")), "");
    EXPECT_EQ(files->find(at("new.VLA")), "");
    EXPECT_EQ(raisedBy([&] { files->read(at("NEW.vla")); }).number(), errc::FileNotFound);
    EXPECT_EQ(files->listItems(root), (Names{"A.vla", "B.vla", "C.vla"}));

    batch.commit();
    EXPECT_EQ(contents({"A.vla", "B.vla", "C.vla", "NEW.vla"}), "new A new B old new file ");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla", "NEW.vla"}));
}

TEST_P(Batch, discardsWhatWasNotCommitted) {
    {
        const SaveBatch batch{*files};
        files->save(at("A.vla"), "new");
        files->save(at("NEW.vla"), "new");
    }
    EXPECT_EQ(contents({"A.vla"}), "old ");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla"}));
    files->save(at("new.vla"), "at once");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla", "new.vla"}));
    SaveBatch next{*files};
    files->save(at("B.vla"), "next");
    next.commit();
    EXPECT_EQ(contents({"A.vla", "B.vla", "new.vla"}), "old next at once ");
}

TEST_P(Batch, ends) {
    SaveBatch batch{*files};
    files->save(at("A.vla"), "new");
    batch.commit();
    files->save(at("B.vla"), "at once");
    EXPECT_EQ(contents({"A.vla", "B.vla"}), "new at once ");
    batch.commit();
    EXPECT_EQ(contents({"A.vla", "B.vla"}), "new at once ");
}

TEST_P(Batch, mayBeEmpty) {
    SaveBatch batch{*files};
    batch.commit();
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla"}));
}

TEST_P(Batch, takesTheLastSaveOfAFile) {
    SaveBatch batch{*files};
    files->save(at("A.vla"), "first");
    files->save(at("New.vla"), "first");
    files->save(at("a.VLA"), "second");
    files->save(at("NEW.vla"), "second");
    files->save({root + ".\\", "A.vla"}, "third");
    batch.commit();
    EXPECT_EQ(contents({"A.vla", "New.vla"}), "third second ");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla", "New.vla"}));
}

TEST_P(Batch, keepsTheSpellingOfFilesAndFolders) {
    stranger->makeExactly(root + "moram");
    stranger->write(root + "moram/Mixed Case.vla", "old");
    SaveBatch batch{*files};
    files->save({root + "MORAM\\", "MIXED CASE.vla"}, "new");
    files->save({root + "MORAM\\", "Other.vla"}, "new");
    batch.commit();
    EXPECT_EQ(stranger->names(root + "moram"), (Names{"Mixed Case.vla", "Other.vla"}));
    EXPECT_EQ(files->read({root + "moram\\", "Mixed Case.vla"}), "new");
}

TEST_P(Batch, goesOnBehindFilesThatFail) {
    files->makeFolder(root + "Q.vla");
    SaveBatch batch{*files};
    files->save(at("A.vla"), "new");
    const std::string big((std::size_t{64} << 20) + 1, 'x');
    EXPECT_EQ(raisedBy([&] { files->save(at("B.vla"), big); }).number(), errc::FileAccess);
    for (const ItemPath& path :
         {at("Q.vla"), at("q.VLA"), at("..\\A.vla"), at(""), ItemPath{root + "NONE\\", "A.vla"},
          at(std::string(300, 'n') + ".vla")}) {
        const Error error = raisedBy([&] { files->save(path, "new"); });
        EXPECT_EQ(error.number(), errc::FileAccess) << path.text();
        EXPECT_TRUE(holds(error.description(), "can't be written")) << error.description();
    }
    files->save(at("C.vla"), "new");
    batch.commit();
    EXPECT_EQ(contents({"A.vla", "B.vla", "C.vla"}), "new old new ");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla", "Q.vla"}));
}

TEST_P(Batch, triesAllFilesAndRaisesTheFirstFailure) {
    SaveBatch batch{*files};
    for (const char* name : {"A.vla", "B1.vla", "B2.vla", "C.vla"}) files->save(at(name), "new");
    stranger->makeExactly(root + "B1.vla");
    stranger->makeExactly(root + "B2.vla");
    const Error error = raisedBy([&] { batch.commit(); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_EQ(error.description(), "The file " + root + "B1.vla can't be written: Is a directory.");
    EXPECT_EQ(contents({"A.vla", "B.vla", "C.vla"}), "new old new ");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "B1.vla", "B2.vla", "C.vla"}));
}

TEST_P(Batch, joinsTheOneThatIsOpen) {
    {
        SaveBatch outer{*files};
        files->save(at("A.vla"), "outer");
        {
            SaveBatch inner{*files};
            files->save(at("B.vla"), "inner");
            inner.commit();
        }
        EXPECT_EQ(contents({"A.vla", "B.vla"}), "old old ");
        {
            const SaveBatch inner{*files};
            files->save(at("C.vla"), "left to the outer one");
        }
        EXPECT_EQ(contents({"A.vla", "B.vla", "C.vla"}), "old old old ");
        outer.commit();
        EXPECT_EQ(contents({"A.vla", "B.vla", "C.vla"}), "outer inner left to the outer one ");
    }
    {
        const SaveBatch outer{*files};
        SaveBatch inner{*files};
        files->save(at("A.vla"), "discarded");
        inner.commit();
    }
    EXPECT_EQ(contents({"A.vla"}), "outer ");
}

TEST_P(Batch, canBeSettledInTheMidstOfIt) {
    SaveBatch batch{*files};
    files->save(at("A.vla"), "before");
    batch.settle();
    EXPECT_EQ(contents({"A.vla"}), "before ");
    files->save(at("B.vla"), "at once");
    EXPECT_EQ(contents({"B.vla"}), "at once ");
    {
        SaveBatch between{*files};
        files->save(at("B.vla"), "by itself");
        EXPECT_EQ(contents({"B.vla"}), "at once ");
        between.commit();
    }
    EXPECT_EQ(contents({"B.vla"}), "by itself ");
    batch.goOn();
    files->save(at("C.vla"), "behind");
    EXPECT_EQ(contents({"C.vla"}), "old ");
    batch.commit();
    EXPECT_EQ(contents({"A.vla", "B.vla", "C.vla"}), "before by itself behind ");
    batch.goOn();
    files->save(at("A.vla"), "over");
    EXPECT_EQ(contents({"A.vla"}), "over ");
}

TEST_P(Batch, isNotSettledByOneThatJoinedIt) {
    SaveBatch outer{*files};
    files->save(at("A.vla"), "new");
    SaveBatch inner{*files};
    inner.settle();
    EXPECT_EQ(contents({"A.vla"}), "old ");
    inner.goOn();
    outer.commit();
    EXPECT_EQ(contents({"A.vla"}), "new ");
}

TEST_P(Batch, savesInSeveralFolders) {
    for (const char* name : {"X", "Y", "Z"}) files->makeFolder(root + name);
    SaveBatch batch{*files};
    for (const char* name : {"X", "Y", "Z", "X", "Y", "Z"}) {
        files->save({root + name + "\\", "A.vla"}, name + " 1"s);
        files->save({root + name + "\\", "B.vla"}, name + " 2"s);
    }
    files->save(at("A.vla"), "new");
    EXPECT_TRUE(files->listItems(root + "X").empty());
    batch.commit();
    EXPECT_EQ(contents({"A.vla"}), "new ");
    for (const char* name : {"X", "Y", "Z"}) {
        EXPECT_EQ(files->read({root + name + "\\", "A.vla"}), name + " 1"s);
        EXPECT_EQ(files->read({root + name + "\\", "B.vla"}), name + " 2"s);
        EXPECT_EQ(stranger->names(root + name), (Names{"A.vla", "B.vla"}));
    }
}

TEST_P(Batch, isFoundInAnyCaseBehindTheCommit) {
    EXPECT_EQ(files->find(at("MINE 1.VLA")), "");
    SaveBatch batch{*files};
    for (int i = 0; i < 50; ++i) files->save(at("Mine " + std::to_string(i) + ".vla"), "mine");
    EXPECT_EQ(files->find(at("MINE 1.VLA")), "");
    stranger->write(root + "Foreign.vla", "foreign");
    batch.commit();
    for (int i = 0; i < 50; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_EQ(files->find(at("MINE " + number + ".VLA")), "Mine " + number + ".vla");
    }
    EXPECT_EQ(files->find(at("FOREIGN.VLA")), "Foreign.vla");
    files->save(at("MINE 7.VLA"), "again");
    files->save(at("FOREIGN.VLA"), "again");
    EXPECT_EQ(contents({"Mine 7.vla", "Foreign.vla"}), "again again ");
    files->remove(at("MINE 8.VLA"));
    EXPECT_EQ(files->find(at("MINE 8.VLA")), "");
    EXPECT_EQ(stranger->names(root).size(), 53U);
}

TEST_P(Batch, knowsNothingOfTheOneBefore) {
    if (!tellsCase()) GTEST_SKIP() << "this disk takes names that differ in case alone for one";
    files->makeFolder(root + "Sub");
    {
        SaveBatch batch{*files};
        files->save({root + "SUB\\", "A.vla"}, "first");
        files->save(at("NEW.vla"), "first");
        batch.commit();
    }
    stranger->makeExactly(root + "SUB");
    stranger->write(root + "other.vla", "old");
    SaveBatch batch{*files};
    files->save({root + "SUB\\", "A.vla"}, "second");
    files->save(at("OTHER.vla"), "second");
    batch.commit();
    EXPECT_EQ(stranger->readExactly(root + "Sub/A.vla"), "first");
    EXPECT_EQ(stranger->readExactly(root + "SUB/A.vla"), "second");
    EXPECT_EQ(stranger->readExactly(root + "other.vla"), "second");
}

TEST_P(Batch, knowsNothingOfWhatADiscardedOneRead) {
    {
        const SaveBatch batch{*files};
        files->read(at("A.vla"));
    }
    stranger->write(root + "A.vla", "foreign");
    SaveBatch batch{*files};
    files->save(at("A.vla"), files->read(at("A.vla")) + " and own");
    int rounds = 0;
    batch.commit([&](const auto&) { ++rounds; });
    EXPECT_EQ(rounds, 0);
    EXPECT_EQ(contents({"A.vla"}), "foreign and own ");
}

TEST_P(Batch, leavesTheNextOneAloneOnceItIsCommitted) {
    std::optional<SaveBatch> batch;
    batch.emplace(*files);
    batch->commit();
    SaveBatch next{*files};
    files->save(at("A.vla"), "next");
    batch.reset();
    EXPECT_EQ(contents({"A.vla"}), "old ");
    next.commit();
    EXPECT_EQ(contents({"A.vla"}), "next ");
}

TEST_P(Batch, removesWhatOthersMadeMeanwhile) {
    SaveBatch batch{*files};
    files->save(at("NEW.vla"), "new");  // by now the batch knows the folder's names
    stranger->write(root + "Other.vla", "foreign");
    files->remove(at("OTHER.vla"));
    batch.commit();
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla", "NEW.vla"}));
}

TEST_P(Batch, leavesNoNamesBehindThatASaveGoesBy) {
    SaveBatch batch{*files};
    files->save(at("NEW.vla"), "new");
    batch.commit();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));  // so that the clock has moved on
    stranger->write(root + "Other.vla", "foreign");
    files->save(at("OTHER.vla"), "own");
    EXPECT_EQ(stranger->names(root), (Names{"A.vla", "B.vla", "C.vla", "NEW.vla", "Other.vla"}));
    EXPECT_EQ(contents({"Other.vla"}), "own ");
}

TEST_P(Batch, isTakenBackByRemoving) {
    SaveBatch batch{*files};
    for (const char* name : {"A.vla", "B.vla", "New.vla"}) files->save(at(name), "new");
    files->remove(at("a.VLA"));
    files->remove(at("NEW.vla"));
    EXPECT_EQ(stranger->names(root).size() - (GetParam() == FilesOn::Disk ? 2 : 0), 2U)
        << "B.vla and C.vla, and on the disk the temporary of B.vla and the mark of the batch";
    EXPECT_EQ(raisedBy([&] { files->remove(at("NEW.vla")); }).number(), errc::FileNotFound);
    EXPECT_EQ(raisedBy([&] { files->remove(at("A.vla")); }).number(), errc::FileNotFound);
    batch.commit();
    EXPECT_EQ(stranger->names(root), (Names{"B.vla", "C.vla"}));
    EXPECT_EQ(contents({"B.vla"}), "new ");
}

TEST_P(Batch, readsAFolderOnceForThousandsOfNewFiles) {
    saveCalls.skipSync = true;
    const int many =
        kOnWindows && GetParam() == FilesOn::Disk ? 200 : 2000;  // no sync can be skipped there
    FaultyFileSystem counted{*files};
    SaveBatch batch{counted};
    for (int i = 0; i < many; ++i) {
        counted.save(at("Item " + std::to_string(i) + ".vla"), "x");
        if (i % 10 == 0) counted.save(at("A.vla"), std::to_string(i));
    }
    batch.commit();
    EXPECT_LE(counted.count(Operation::List), 1U);
    EXPECT_EQ(files->listItems(root).size(), static_cast<std::size_t>(many) + 3);
    EXPECT_EQ(contents({"A.vla"}), std::to_string(many - 10) + " ");
}

// ---------------------------------------------------------------------------------------------
// Failing on demand.

class FaultyBatch : public testing::Test {
  protected:
    FaultyBatch() {
        for (const char* name : {"A.vla", "B.vla"}) memory->save({"", name}, "old");
    }
    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    FaultyFileSystem files{*memory};
};

TEST_F(FaultyBatch, failsTheStatementOfASave) {
    files.failOn(Operation::Save, "A");
    SaveBatch batch{files};
    const Error error = raisedBy([&] { files.save({"", "A.vla"}, "new"); });
    EXPECT_EQ(error.description(), "The file A.vla can't be written: No space left on device.");
    files.save({"", "B.vla"}, "new");
    batch.commit();
    EXPECT_EQ(memory->read({"", "A.vla"}), "old");
    EXPECT_EQ(memory->read({"", "B.vla"}), "new");
    EXPECT_EQ(files.count(Operation::Save), 2U);
    EXPECT_EQ(files.count(Operation::Commit), 1U);
}

TEST_F(FaultyBatch, failsTheCommit) {
    files.failOn(Operation::Commit, "", 0, 1);
    SaveBatch batch{files};
    files.save({"", "A.vla"}, "new");
    files.save({"", "NEW.vla"}, "new");
    const Error error = raisedBy([&] { batch.commit(); });
    EXPECT_EQ(error.number(), errc::FileAccess);
    EXPECT_TRUE(holds(error.description(), "No space left on device")) << error.description();
    EXPECT_EQ(memory->read({"", "A.vla"}), "old");
    EXPECT_EQ(memory->listItems(""), (Names{"A.vla", "B.vla"}));

    SaveBatch next{files};
    files.save({"", "B.vla"}, "new");
    next.commit();
    EXPECT_EQ(memory->read({"", "A.vla"}), "old");
    EXPECT_EQ(memory->read({"", "B.vla"}), "new");
    EXPECT_EQ(files.count(Operation::Commit), 2U);
}

TEST_F(FaultyBatch, failsTheCommitOfOneFolder) {
    files.makeFolder("X");
    files.failOn(Operation::Commit, "X");
    SaveBatch other{files};
    files.save({"", "A.vla"}, "new");
    other.commit();
    EXPECT_EQ(memory->read({"", "A.vla"}), "new");
    SaveBatch batch{files};
    files.save({"X\\", "A.vla"}, "new");
    EXPECT_EQ(raisedBy([&] { batch.commit(); }).number(), errc::FileAccess);
    EXPECT_TRUE(memory->listItems("X").empty());
}

TEST_F(FaultyBatch, countsNoCommitOfNothing) {
    files.failOn(Operation::Commit);
    SaveBatch batch{files};
    batch.commit();
    EXPECT_EQ(files.count(Operation::Commit), 0U);
}

}  // namespace
}  // namespace wynconfig
