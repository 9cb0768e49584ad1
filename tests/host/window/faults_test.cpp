// A store of which something can't be read: the window comes up all the same, and says what.
#include <sys/stat.h>

#include <QLabel>
#include <algorithm>

#include "support/host_window.h"
#include "support/ordinary_user.h"
#include "window/session_panel.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class HostFaults : public HostWindow {
  protected:
    /// What the window shows on the store as it is now.
    std::string shown() {
        window.reset();
        window = std::make_unique<MainWindow>(workplace);
        window->show();
        QCoreApplication::processEvents();
        EXPECT_EQ(widget<QLabel>("faults").isVisible(), !told("faults").empty());
        return told("faults");
    }
    static std::string sentence(const char* kind, const fs::path& path, const std::string& why) {
        return std::string("The ") + kind + " " + path.string() + " can't be read: " + why + ".";
    }
    /// Puts a link that leads to itself in the place of a file or folder.
    static void loop(const fs::path& path) {
        fs::remove_all(path);
        fs::create_symlink(path.filename(), path);
    }
    static void putPipe(const fs::path& path) {
        fs::remove_all(path);
        ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    }

    const std::string circle = "Too many levels of symbolic links";
};

TEST_F(HostFaults, AreNoneOfAStoreAsItShouldBe) {
    EXPECT_EQ(shown(), "");
}

TEST_F(HostFaults, OfEveryFolderAreTold) {
    for (const fs::path& each : {store.formats() / "deleted", store.formats(),
                                 store.sessions() / "deleted", store.sessions()}) {
        const fs::path aside = store.root / "aside";
        fs::create_directories(each);
        fs::rename(each, aside);
        loop(each);
        EXPECT_EQ(shown(), sentence("folder", each, circle));
        putPipe(each);
        EXPECT_EQ(shown(), sentence("folder", each, "it is no folder"));
        fs::remove(each);
        fs::create_symlink("nowhere", each);
        EXPECT_EQ(shown(), sentence("folder", each, "its link leads nowhere"));
        EXPECT_TRUE(store.exist()) << "a sample store would be made in its place";
        fs::remove(each);
        fs::rename(aside, each);
    }
    EXPECT_EQ(shown(), "");
}

TEST_F(HostFaults, OfTheRootIsTheOnlyOne) {
    fs::rename(store.root, folder / "aside");
    loop(store.root);
    EXPECT_EQ(shown(), sentence("folder", store.root, circle));
    EXPECT_TRUE(store.exist());
}

TEST_F(HostFaults, OfTheSessionListAreToldAndItIsNotOpened) {
    putPipe(store.sessionList());
    EXPECT_EQ(shown(), sentence("file", store.sessionList(), "it is no plain file"));
    EXPECT_THROW(workplace.sessionList(), std::runtime_error);
    EXPECT_THROW(workplace.keepSessionList("DESK"), std::runtime_error);
    EXPECT_TRUE(fs::is_fifo(store.sessionList()));
    loop(store.sessionList());
    EXPECT_EQ(shown(), sentence("file", store.sessionList(), circle));
    EXPECT_THROW(workplace.sessionList(), std::runtime_error);
}

TEST_F(HostFaults, OfTheMarkOfAnUnfinishedStoreAreNoReasonToMakeOne) {
    loop(store.unfinishedMark());
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(store.exist());
}

TEST_F(HostFaults, OfTheDatabaseAreToldAndItIsNotOpened) {
    putPipe(store.database());
    shown();
    window->sessions().selectInDatabase(wynconfig::ItemKind::Session, "DESK");
    const auto labels = window->sessions().findChildren<SentenceLabel*>();
    EXPECT_TRUE(std::ranges::any_of(labels, [&](const SentenceLabel* label) {
        return label->told().toStdString() == "The database " + store.database().string() +
                                                  " can't be reached: it is no plain file";
    }));
}

TEST_F(HostFaults, GoAsSoonAsTheStoreCanBeRead) {
    fs::rename(store.sessions(), folder / "aside");
    loop(store.sessions());
    shown();
    EXPECT_EQ(widget<QComboBox>("session").count(), 0);
    EXPECT_TRUE(
        text("plan").starts_with("Nothing will be sent:\nNo session of the store can be read.\n"));
    fs::remove(store.sessions());
    fs::rename(folder / "aside", store.sessions());
    emit window->sessions().performed();
    EXPECT_FALSE(widget<QLabel>("faults").isVisible());
    EXPECT_GT(widget<QComboBox>("session").count(), 0);
}

TEST_F(HostFaults, OfRightsAreTold) {
    wynconfig::asOrdinaryUser({folder.path(), store.root.string(), store.sessions().string()}, [&] {
        fs::permissions(store.sessions(), fs::perms::none);
        EXPECT_EQ(shown(), sentence("folder", store.sessions(), "you have no right to do so"));
        EXPECT_EQ(widget<QComboBox>("session").count(), 0);
        fs::permissions(store.root, fs::perms::none);
        EXPECT_EQ(shown(), sentence("folder", store.root, "you have no right to do so"));
        EXPECT_TRUE(store.exist());
        for (const fs::path& each : {store.root, store.sessions()})
            fs::permissions(each, fs::perms::owner_all);
    });
}

}  // namespace
}  // namespace host
