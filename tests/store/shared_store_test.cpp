// Sessions of a store that other programs change while a part format's name is carried through
// them: nobody's work is lost, and nothing comes back that was deleted.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "store/session_record.h"
#include "store/session_walk.h"
#include "support/file_system_kit.h"
#include "support/meanwhile.h"
#include "support/rows.h"
#include "wynconfig/keys.h"
#include "wynconfig/store.h"

namespace wynconfig {
namespace {

class SharedStore : public OnEveryFileSystem {
  protected:
    SharedStore() {
        setFileSystem(&disk);
        for (const char* name : {"MORAM", "PARTFORMAT"}) files->makeFolder(root + name);
        for (const std::string name : {"A", "B", "C"}) putSession(name, "OLD");
        putFormat("OLD", "1");
    }
    ~SharedStore() override { setFileSystem(nullptr); }

    static std::string sessionText(const std::string& name, const std::string& format,
                                   const std::string& title) {
        return xmlOf(*recordOf("MORAM", name,
                               {{session::kFormatCount, "1"},
                                {session::formatKey(1), format},
                                {session::kWindowTitle, title}}));
    }
    static std::string formatText(const std::string& name, const std::string& records) {
        return xmlOf(*recordOf("PARTFORMAT", name, {{"MaxRecords", records}}));
    }
    /// What another program does: it saves and deletes past the file system under test.
    void putSession(const std::string& name, const std::string& format,
                    const std::string& title = "") {
        stranger->write(sessions + name + ".vla", sessionText(name, format, title));
    }
    void putFormat(const std::string& name, const std::string& records) {
        stranger->write(formats + name + ".vla", formatText(name, records));
    }
    void eraseSession(const std::string& name) { stranger->erase(sessions + name + ".vla"); }

    /// Format and window title of a session.
    std::string seen(const std::string& name) {
        const auto record = store.read(ItemKind::Session, name);
        return record->GetRow(session::formatKey(1))[1] + " " +
               record->GetRow(session::kWindowTitle)[1];
    }
    /// The walk as a dialog makes it: failures are told, and the next statement runs.
    void carry() {
        const auto telling = [this](const auto& statement) {
            try {
                statement();
            } catch (const Error& error) {
                told.push_back(error.description());
            }
        };
        rewriteSessions(store.folder(ItemKind::Session), telling, [&](Dataset& record) {
            ++carried;
            telling([&] { session::carryFormat(record, "OLD", "NEW"); });
        });
    }

    Meanwhile disk{*files};
    Store store{root};
    const std::string sessions = root + "MORAM/";
    const std::string formats = root + "PARTFORMAT/";
    Names told;
    int carried = 0;

  private:
    static std::shared_ptr<Dataset> recordOf(const std::string& type, const std::string& name,
                                             const Stored& rows) {
        auto record = std::make_shared<Dataset>();
        record->Create(type, name, "", session::kColumns);
        for (const auto& [key, data] : rows) record->AddRow({key, data});
        return record;
    }
};
ON_EVERY_FILE_SYSTEM(SharedStore);

TEST_P(SharedStore, AWalkKeepsWhatOthersSavedBetweenALoadAndTheCommit) {
    disk.afterRead = onceAt("C.vla", [this] {
        putSession("A", "OLD", "theirs");
        putSession("C", "OLD", "theirs");
    });
    carry();
    EXPECT_EQ(seen("A"), "NEW theirs");
    EXPECT_EQ(seen("B"), "NEW ");
    EXPECT_EQ(seen("C"), "NEW theirs");
    EXPECT_EQ(carried, 5);
    EXPECT_EQ(told, Names{});
    EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Commit), 2U) << "one more for both";
}

TEST_P(SharedStore, AWalkKeepsWhatOthersSavedWhileItPutsItsFilesInPlace) {
    disk.beforeReplacing = onceAt("B.vla", [this] {
        putSession("A", "OTHER", "behind it");
        putSession("C", "OLD", "before it");
    });
    carry();
    EXPECT_EQ(seen("A"), "OTHER behind it") << "it has its turn, and the last save wins";
    EXPECT_EQ(seen("C"), "NEW before it");
}

TEST_P(SharedStore, ASessionThatIsDeletedDuringAWalkStaysDeletedWithoutAWord) {
    disk.afterRead = onceAt("B.vla", [this] {
        eraseSession("A");  // loaded
        eraseSession("C");  // listed
    });
    carry();
    EXPECT_EQ(store.names(ItemKind::Session), Names{"B"});
    EXPECT_EQ(seen("B"), "NEW ");
    EXPECT_EQ(told, Names{});
    EXPECT_EQ(stranger->names(root + "MORAM"), Names{"B.vla"});
}

TEST_P(SharedStore, ASessionThatOthersSpoiltMeanwhileIsToldAndTakesTheRecordBeforeIt) {
    disk.afterRead = onceAt("C.vla", [this] { stranger->write(sessions + "A.vla", "no record"); });
    carry();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(holds(told[0], "A.vla holds no record")) << told[0];
    EXPECT_EQ(store.read(ItemKind::Session, "A")->Name(), "C") << "the one loaded last";
}

TEST_P(SharedStore, ASessionThatOthersMendedMeanwhileIsCarriedAsMended) {
    stranger->write(sessions + "B.vla", "no record");
    disk.afterRead = onceAt("C.vla", [this] { putSession("B", "OLD", "mended"); });
    carry();
    EXPECT_EQ(told.size(), 1U) << "it was spoilt when it was loaded first";
    EXPECT_EQ(seen("B"), "NEW mended");
}

TEST_P(SharedStore, WhatOthersSavedBeforeAFailureIsKeptAndNotTakenForTheFailedOne) {
    stranger->write(sessions + "B.vla", "no record");
    disk.afterRead = onceAt("B.vla", [this] { putSession("A", "OLD", "theirs"); });
    carry();
    EXPECT_EQ(told.size(), 1U);
    EXPECT_EQ(seen("A"), "NEW theirs");
    EXPECT_EQ(seen("B"), "NEW ") << "the record that was loaded before it";
    EXPECT_EQ(seen("C"), "NEW ");
}

TEST_P(SharedStore, ARenameKeepsWhatOthersSavedMeanwhile) {
    putSession("D", "ANY");
    disk.afterRead = onceAt("D.vla", [this] {
        putSession("A", "OLD", "theirs");
        putSession("B", "ANY", "theirs");
        eraseSession("C");
    });
    std::size_t most = 0;
    EXPECT_EQ(store.rename("OLD", "NEW",
                           [&](std::size_t done, std::size_t all) {
                               most = std::max(most, done);
                               EXPECT_EQ(all, 4U);
                           }),
              Names{"A"});
    EXPECT_EQ(most, 4U);
    EXPECT_EQ(seen("A"), "NEW theirs");
    EXPECT_EQ(seen("B"), "ANY theirs");
    EXPECT_EQ(store.names(ItemKind::Session), (Names{"A", "B", "D"}));
    EXPECT_EQ(store.names(ItemKind::PartFormat), Names{"NEW"});
}

TEST_P(SharedStore, ARenameThatIsTakenBackKeepsWhatOthersSavedMeanwhile) {
    putSession("D", "OLD");
    disk.afterRead = onceAt("D.vla", [this] { putSession("A", "OLD", "before the commit"); });
    disk.failOn(FaultyFileSystem::Operation::Remove, "OLD.vla");
    disk.beforeReplacing = onceAt("D.vla", [this] {
        putSession("B", "NEW", "behind the commit");
        eraseSession("C");
    });
    EXPECT_EQ(raisedBy([&] { store.rename("OLD", "NEW"); }).number(), errc::FileAccess);
    EXPECT_EQ(seen("A"), "OLD before the commit");
    EXPECT_EQ(seen("B"), "NEW behind the commit");
    EXPECT_EQ(seen("D"), "OLD ");
    EXPECT_EQ(store.names(ItemKind::Session), (Names{"A", "B", "D"}));
    EXPECT_EQ(store.names(ItemKind::PartFormat), Names{"OLD"});
}

TEST_P(SharedStore, ASaveThatIsTakenBackPutsBackWhatOthersSavedRightBeforeIt) {
    const auto ours = std::make_shared<Dataset>();
    ours->Create("MORAM", "A", "", session::kColumns);
    const auto other = std::make_shared<Dataset>();
    other->Create("MORAM", "B", "", session::kColumns);
    disk.beforeCommit = [this] {
        putSession("A", "OLD", "theirs");
        stranger->erase(sessions + "B.vla");
        stranger->makeExactly(sessions + "B.vla");
        disk.beforeCommit = [] {};
    };
    const auto save = [&] { store.save({{ItemKind::Session, ours}, {ItemKind::Session, other}}); };
    EXPECT_EQ(raisedBy(save).number(), errc::FileAccess);
    EXPECT_EQ(seen("A"), "OLD theirs");
}

TEST_P(SharedStore, ASaveReplacesWhatOthersSavedMeanwhile) {
    const auto ours = std::make_shared<Dataset>();
    ours->Create("MORAM", "A", "", session::kColumns);
    disk.beforeCommit = [this] {
        putSession("A", "OLD", "theirs");
        disk.beforeCommit = [] {};
    };
    store.save({{ItemKind::Session, ours}});
    EXPECT_TRUE(store.read(ItemKind::Session, "A")->Rows().empty());
}

}  // namespace
}  // namespace wynconfig
