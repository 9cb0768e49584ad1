// A store without sessions, and the way from one store to another.
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <fstream>
#include <functional>

#include "installed_view.h"
#include "support/host_window.h"
#include "support/ordinary_user.h"
#include "window/remembered.h"
#include "window/session_panel.h"
#include "window/store_dialogs.h"
#include "wynconfig/scripted_view.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using wynconfig::ItemKind;

class HostFirstSteps : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        fs::create_directory(empty.root);
    }

    /// Does this to the dialog of the host's own that comes up next, and presses a button of it.
    void inDialog(const char* button, const std::function<void(QDialog&)>& act) {
        QTimer::singleShot(0, qApp, [=] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            if (act) act(*dialog);
            auto* found = dialog->findChild<QPushButton*>(button);
            if (found && found->isEnabled())
                found->click();
            else
                dialog->reject();
        });
    }
    bool isOffered() const { return widget<SentenceLabel>("firstSteps").isVisible(); }

    StoreFolders empty{folder / "empty"};
};

TEST_F(HostFirstSteps, AreOfferedOfAnEmptyStoreAlone) {
    EXPECT_FALSE(isOffered());
    window->sessions().openStore(empty.root);
    EXPECT_TRUE(isOffered());
    EXPECT_TRUE(told("firstSteps").starts_with("This store is empty."));
    window->sessions().openStore(store.root);
    EXPECT_FALSE(isOffered());
}

TEST_F(HostFirstSteps, MakeAPartFormatAndASession) {
    window->sessions().openStore(empty.root);
    const auto view = std::make_shared<wynconfig::ScriptedView>();
    const InstalledView installed(view);
    view->user().onForm("frmAddMORAMConfig", [](wynconfig::User& user) {
        user.type("txtName", "first");
        user.click("btnOK");
    });
    view->user().onForm("frmMORAMConfig", [&](wynconfig::User& user) {
        user.type("txtProgramPath", (store.programs() / "label-printer").string());
        user.changeTab("SSTab2", 1);
        user.pick("lstAvailableFormats", "TAB SEPARATED");
        user.click("btnAdd");
        user.click("btnOK");
    });
    inDialog("ok", [](QDialog& dialog) {
        auto& choice = *dialog.findChild<QComboBox*>("format");
        choice.setCurrentText("TAB SEPARATED");
        EXPECT_EQ(dialog.findChild<QPlainTextEdit*>("example")->toPlainText(),
                  "10-0120‹TAB›2‹TAB›Oil filter‹CR›‹LF›\n"
                  "10-0183‹TAB›1‹TAB›Air filter element‹CR›‹LF›\n");
    });
    click("firstSession");
    view->user().finish();
    EXPECT_EQ(empty.names(ItemKind::PartFormat), (std::vector<std::string>{"TAB SEPARATED"}));
    EXPECT_EQ(empty.names(ItemKind::Session), (std::vector<std::string>{"FIRST"}));
    EXPECT_EQ(readFile(empty.formats() / "TAB SEPARATED.vla"),
              readFile(store.formats() / "TAB SEPARATED.vla"));
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(widget<QComboBox>("session").currentText(), "FIRST");
}

TEST_F(HostFirstSteps, DoNothingWhenTheUserCancels) {
    window->sessions().openStore(empty.root);
    inDialog("none", {});
    click("firstSession");
    EXPECT_TRUE(empty.names(ItemKind::PartFormat).empty());
    EXPECT_EQ(told("lastResult"), "Make the first session: Nothing was done.");
    EXPECT_TRUE(isOffered());
}

TEST_F(HostFirstSteps, LeaveAPartFormatThatIsThereAlone) {
    fs::create_directories(empty.formats());
    fs::copy_file(store.formats() / "FIXED WIDTH.vla", empty.formats() / "FIXED WIDTH.vla");
    window->sessions().openStore(empty.root);
    EXPECT_TRUE(told("firstSteps").starts_with("This store has no session yet."));
    click("firstSession");  // no view is installed: it is cancelled
    EXPECT_EQ(told("lastResult"), "Make the first session: not confirmed.");
    EXPECT_EQ(empty.names(ItemKind::PartFormat), (std::vector<std::string>{"FIXED WIDTH"}));
}

class HostOtherStore : public HostFirstSteps {
  protected:
    /// What the dialog says of a folder, and whether it can be opened.
    std::pair<std::string, bool> judged(const fs::path& path) {
        std::pair<std::string, bool> seen;
        inDialog("none", [&](QDialog& dialog) {
            dialog.findChild<QLineEdit*>("storeFolder")
                ->setText(QString::fromStdString(path.string()));
            seen = {dialog.findChild<SentenceLabel*>("storeNote")->told().toStdString(),
                    dialog.findChild<QPushButton*>("ok")->isEnabled()};
        });
        EXPECT_FALSE(askForStore(window.get(), store.root).has_value());
        return seen;
    }
    using Seen = std::pair<std::string, bool>;
};

TEST_F(HostOtherStore, IsJudgedWhileItIsTyped) {
    EXPECT_EQ(judged(store.root),
              Seen("This folder holds a store; sessions: 7, part formats: 8.", true));
    EXPECT_EQ(judged(empty.root), Seen("A new store will be made there.", true));
    EXPECT_EQ(judged(store.lists().parent_path() / "gone"),
              Seen("There is no such folder.", false));
    EXPECT_EQ(judged(""), Seen("Enter the folder, or browse for it.", false));
    std::ofstream(empty.root / "letter.txt") << "a file";
    EXPECT_EQ(judged(empty.root), Seen("This folder holds other files, but no store. A new store "
                                       "will be made among them.",
                                       true));
    const fs::path file = empty.root / "letter.txt";
    EXPECT_EQ(judged(file),
              Seen("The folder " + file.string() + " can't be read: it is no folder.", false));
    fs::create_symlink("nowhere", empty.sessions());
    EXPECT_EQ(judged(empty.root), Seen("The folder " + empty.sessions().string() +
                                           " can't be read: its link leads nowhere.",
                                       false));
}

TEST_F(HostOtherStore, IsJudgedByTheRightsOfTheUser) {
    wynconfig::asOrdinaryUser({folder.path(), store.root.string(), empty.root.string()}, [&] {
        for (const fs::path& each : {store.root, empty.root})
            fs::permissions(each, fs::perms::owner_read | fs::perms::owner_exec);
        EXPECT_EQ(judged(store.root), Seen("This folder holds a store; sessions: 7, part formats: "
                                           "8. You have no right to change it.",
                                           true));
        EXPECT_EQ(
            judged(empty.root),
            Seen("This folder holds no store, and you have no right to make one there.", false));
        for (const fs::path& each : {store.root, empty.root})
            fs::permissions(each, fs::perms::owner_all);
    });
}

class HostRecentStores : public HostFirstSteps {
  protected:
    void SetUp() override {
        HostFirstSteps::SetUp();
        startAgain();
    }
    void startAgain() {
        window.reset();
        remembered.emplace(folder / "settings" / "window.ini");
        window = std::make_unique<MainWindow>(workplace, &*remembered);
        window->show();
    }
    std::vector<std::string> listed() {
        auto& menu = widget<QMenu>("recentStores");
        emit menu.aboutToShow();
        std::vector<std::string> texts;
        for (const QAction* each : menu.actions())
            texts.push_back(withoutMarks(each->text()).toStdString());
        EXPECT_EQ(menu.isEnabled(), !texts.empty());
        return texts;
    }
    std::optional<Remembered> remembered;
};

TEST_F(HostRecentStores, AreTheOthersThatWereOpen) {
    EXPECT_TRUE(listed().empty());
    window->sessions().openStore(empty.root);
    EXPECT_EQ(listed(), (std::vector<std::string>{store.root.string()}));
    window->sessions().openStore(store.root);
    EXPECT_EQ(listed(), (std::vector<std::string>{empty.root.string()}));
    startAgain();
    EXPECT_EQ(listed(), (std::vector<std::string>{empty.root.string()}));
    widget<QMenu>("recentStores").actions().front()->trigger();
    EXPECT_EQ(workplace.store().root, empty.root);
    EXPECT_EQ(told("lastResult"),
              "Open a recent store: The store " + empty.root.string() + " is open now.");
}

TEST_F(HostRecentStores, ThatAreGoneAreToldAndTheOpenOneStays) {
    window->sessions().openStore(empty.root);
    window->sessions().openStore(store.root);
    fs::remove_all(empty.root);
    QTimer::singleShot(0, qApp, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        box->reject();
    });
    listed();
    widget<QMenu>("recentStores").actions().front()->trigger();
    EXPECT_EQ(workplace.store().root, store.root);
    EXPECT_EQ(told("lastResult"), "Open a recent store: The folder " + empty.root.string() +
                                      " is not there. The store that is open stays so.");
}

TEST_F(HostRecentStores, AreNotMoreThanAMenuHasRoomFor) {
    for (int i = 0; i < 20; ++i) remembered->keepStore(QString::number(i));
    EXPECT_EQ(remembered->stores().size(), 8);
    EXPECT_EQ(remembered->stores().front(), "19");
    remembered->keepStore("15");
    EXPECT_EQ(remembered->stores().mid(0, 2), (QStringList{"15", "19"}));
    EXPECT_EQ(remembered->stores().size(), 8);
}

}  // namespace
}  // namespace host
