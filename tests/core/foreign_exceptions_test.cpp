// A host's resource manager may throw anything at any time. Nothing of it may come back to the host
// from any of the operations, and the component must work on afterwards.
#include <exception>
#include <functional>
#include <string>

#include "services/global_error.h"
#include "support/exchange_desk.h"

namespace wynconfig {
namespace {

using ConfigGlobalModule::g_DatasetMode;
using ConfigGlobalModule::g_PartFormats;
using ConfigGlobalModule::g_Session;

/// What a foreign resource manager throws.
enum class Thrown { Number, Text, Exception };

/// How long it goes on throwing.
enum class Duration { OneCall, EverSince };

/// A resource manager whose calls are counted, and that throws from one of them.
class ThrowingTexts : public ResourceManager {
  public:
    std::string GetString(const std::string& key) override {
        throwWhenDue();
        return "{" + key + "}";
    }
    Font GetFont(long) override {
        throwWhenDue();
        return {};
    }
    void reset() { m_calls = m_dueAt = m_throws = 0; }
    void throwAt(int call, Thrown what, Duration duration) {
        reset();
        m_dueAt = call;
        m_what = what;
        m_duration = duration;
    }
    int calls() const { return m_calls; }
    int throws() const { return m_throws; }

  private:
    void throwWhenDue() {
        ++m_calls;
        const bool due = m_duration == Duration::OneCall ? m_calls == m_dueAt : m_calls >= m_dueAt;
        if (m_dueAt == 0 || !due) return;
        ++m_throws;
        switch (m_what) {
            case Thrown::Number:
                throw 42;
            case Thrown::Text:
                throw std::string("the host's own text");
            case Thrown::Exception:
                throw std::exception();
        }
    }

    int m_calls = 0;
    int m_dueAt = 0;
    int m_throws = 0;
    Thrown m_what = Thrown::Number;
    Duration m_duration = Duration::OneCall;
};

class ForeignExceptions : public ExchangeDesk {
  protected:
    void SetUp() override {
        ExchangeDesk::SetUp();
        component.InitResourceManager(manager);
    }

    /// Everything as an operation finds it: the store, the memory, the mode.
    void prepare() {
        for (const std::string& file : sessionFiles()) memory->remove({sessionFolder, file});
        for (const std::string& file : formatFiles()) memory->remove({formatFolder, file});
        for (const std::string each : {"CSV", "TSV"}) putFullFormat(each);
        putFullSession("BASE", {"CSV", "TSV"});
        putFullSession("DESK", {"CSV", "TSV"});
        g_Session = std::make_shared<Dataset>();
        g_PartFormats = {};
        ConfigGlobalModule::g_TallyvanePartFormat.clear();
        resetGlobalError();
        g_DatasetMode = false;
        name = "desk";
    }

    /// Runs an operation in which the person meets dialogs and boxes, as often as it asks its
    /// resource manager, each time with another call that throws.
    /// @param announce  says what the person does
    void sweep(const std::function<void()>& announce, const std::function<void()>& operation) {
        const auto run = [&] {
            prepare();
            announce();
            EXPECT_NO_THROW(operation());
        };
        manager->reset();
        run();
        const int calls = manager->calls();
        EXPECT_NO_THROW(user().finish()) << "undisturbed";
        // What the widgets add is the way through their event loop: some of the calls will do.
        const int step = onScreen() ? 11 : 1;
        int kind = 0;  // they take turns
        for (int call = 1; call <= calls; call += step) {
            for (const Duration duration : {Duration::OneCall, Duration::EverSince}) {
                manager->throwAt(call, static_cast<Thrown>(kind++ % 3), duration);
                run();
                EXPECT_GE(manager->throws(), 1) << call;
                // What comes up now, and what no longer does, is not what was announced.
                try {
                    user().finish();
                } catch (const UserError&) {
                    continue;
                }
            }
        }
        EXPECT_GT(calls, 0);
        manager->reset();
        run();
        EXPECT_NO_THROW(user().finish()) << "undisturbed again";
        EXPECT_EQ(manager->calls(), calls);
    }

    // What a person does in the dialogs, so that each of their texts is asked for.

    void announceEditor(const std::string& typedName) {
        user().onForm("frmPartNumberFormat", [typedName](User& u) {
            u.type("txtFormatName", typedName);
            u.type("txtMaxRecords", "none");
            u.click("btnOk");
            u.type("txtMaxRecords", "5");
            u.click("btnOk");
        });
    }
    void announceSubDialogs() {
        user().onForm("dlgAdvConfig", [](User& u) {
            u.type("txtWindowTitleClassDelay", "none");
            u.click("OKButton");
            u.type("txtWindowTitleClassDelay", "1");
            u.click("OKButton");
        });
        user().onBrowse("");
        user().onForm("frmTallyvaneConfig", [](User& u) {
            u.type("txtFileName", "a|b");
            u.click("btnOk");
            u.type("txtFileName", "a.txt");
            u.click("btnBrowseFolder");
            u.click("btnOk");
        });
    }
    /// The launch tab with its sub-dialogs, then the format tab with the editor, a copy, a rename
    /// and a deletion, two refused ways of applying and one that goes through.
    void announceFullConfiguring(const std::string& own) {
        user().onBrowse("");
        announceSubDialogs();
        announceEditor("fresh");
        announceEditor("edited");
        user().onForm("dlgSingleEntry", [](User& u) {
            u.type("txtTextBox", "a.b");
            u.click("OKButton");
        });
        user().onForm("dlgSingleEntry", [](User& u) {
            u.type("txtTextBox", "renamed");
            u.click("OKButton");
        });
        user().onForm("frmMORAMConfig", [own](User& u) {
            u.click("btnBrowseFile");
            u.click("btnAdvanced");
            u.click("btnTallyvane");
            u.changeTab("SSTab2", 1);
            u.click("btnNew");
            act(u, "FRESH", "btnEdit");
            act(u, own, "btnCopy");
            act(u, "COPY OF " + own, "btnRename");
            act(u, "COPY OF " + own, "btnRename");
            act(u, "RENAMED", "btnDelete");
            u.changeTab("SSTab2", 0);
            u.type("txtDisplayName", "12");
            u.click("btnApply");
            u.type("txtDisplayName", "desk");
            u.type("txtProgramPath", "");
            u.click("btnApply");
            u.type("txtProgramPath", "/programs/parts.exe");
            u.click("btnOK");
        });
        for (int box = 0; box < 5; ++box) user().onBox();
        // The question before the deletion comes sixth: behind the refusals of the two sub-dialogs,
        // of the editor, twice, and of the rename.
        user().onBox(answer::Yes);
        user().onBox();
        user().onBox();
    }
    void announceAdding(const std::string& typedName) {
        user().onForm("frmAddMORAMConfig", [typedName](User& u) {
            u.click("btnOK");
            u.type("txtName", "a.b");
            u.click("btnOK");
            u.type("txtName", "base");
            u.click("btnOK");
            u.type("txtName", typedName);
            u.choose("cboConfigs", "BASE");
            u.click("btnOK");
        });
        for (int box = 0; box < 3; ++box) user().onBox();
    }
    void announceMaintenance() {
        user().onForm("frmMORAMMaintenance", [](User& u) {
            u.click("btnNew");
            u.pick("lstAvailableMORAMs2", "DESK");
            u.click("btnEdit");
            u.pick("lstAvailableMORAMs2", "NEW");
            u.click("btnDelete");
            u.pick("lstAvailableMORAMs2", "DESK");
            u.click("btnOK");
        });
        announceAdding("new");
        user().onForm("frmMORAMConfig", pressing("btnOK"));
        user().onForm("frmMORAMConfig", pressing("btnOK"));
        user().onBox(answer::Yes);
    }
    static void expectResult(long result) { EXPECT_TRUE(result == 0 || result == 1) << result; }

    const std::shared_ptr<ThrowingTexts> manager = std::make_shared<ThrowingTexts>();
};
ON_EVERY_VIEW(ForeignExceptions);

TEST_P(ForeignExceptions, ReadingTheSessionBackLetsNothingOut) {
    const std::string beyond(kMaxItemSize, 'X');
    sweep(
        [&] {
            g_Session->setName(beyond);
            user().onBox();
        },
        [&] { EXPECT_EQ(component.GetDatasetSessionData(), ""); });
}

TEST_P(ForeignExceptions, ReadingTheFormatsBackLetsNothingOut) {
    const std::string beyond(kMaxItemSize, 'X');
    sweep(
        [&] {
            addHostFormat("TAPE");
            addHostFormat("LONG");
            g_PartFormats.Item("LONG")->setName(beyond);
            user().onBox();
        },
        [&] {
            EXPECT_EQ(component.GetDatasetFormatsData(),
                      (Texts{formatXml("TAPE"), formatXml("TAPE")}));
        });
}

TEST_P(ForeignExceptions, MigratingLetsNothingOut) {
    sweep(
        [this] {
            putSession("LACKING", {{"FormatCount", "3"}, {"FORMAT1", "CSV"}});
            user().onBox();
            user().onBox();
        },
        [this] { EXPECT_TRUE(component.MigrateSession("/store/", "LACKING")); });
}

TEST_P(ForeignExceptions, OpeningASessionLetsNothingOut) {
    sweep([this] { announceFullConfiguring("TSV"); },
          [this] { expectResult(component.showMORAMConfigDlg(name)); });
}

TEST_P(ForeignExceptions, OpeningASessionInMemoryLetsNothingOut) {
    sweep([this] { announceFullConfiguring("TAPE"); },
          [this] {
              expectResult(component.showMORAMConfigDlgEX(name, sessionXml("DESK", {"TAPE"}),
                                                          {formatXml("TAPE")}));
          });
}

TEST_P(ForeignExceptions, RefusingTextsLetsNothingOut) {
    sweep([this] { user().onBox(); },
          [this] { EXPECT_EQ(component.showMORAMConfigDlgEX(name, "no xml", {}), 1); });
}

TEST_P(ForeignExceptions, TheMaintenanceDialogLetsNothingOut) {
    sweep([this] { announceMaintenance(); },
          [this] { expectResult(component.showMORAMMaintenanceDlg(name)); });
}

TEST_P(ForeignExceptions, AddingASessionLetsNothingOut) {
    sweep(
        [this] {
            name.clear();
            announceAdding("new");
            user().onForm("frmMORAMConfig", pressing("btnOK"));
        },
        [this] { expectResult(component.showAddMORAMConfigDlg(name)); });
}

TEST_P(ForeignExceptions, AddingASessionInMemoryLetsNothingOut) {
    sweep(
        [this] {
            name.clear();
            announceAdding("new");
            user().onForm("frmMORAMConfig", pressing("btnOK"));
        },
        [this] { expectResult(component.showAddMORAMConfigDlgEX(name)); });
}

TEST_P(ForeignExceptions, SettingAStoreThatCannotBeMadeLetsNothingOut) {
    sweep(
        [this] {
            user().onBox();
            user().onBox();
        },
        [this] {
            component.init("/no/such/");
            EXPECT_FALSE(memory->folderExists("/no"));
            // The store that the next round prepares.
            ConfigGlobalModule::g_SessionFolder = sessionFolder;
            ConfigGlobalModule::g_PartFormatFolder = formatFolder;
        });
}

TEST_P(ForeignExceptions, TheResourceManagerIsTakenWithoutBeingAsked) {
    manager->throwAt(1, Thrown::Number, Duration::EverSince);
    EXPECT_NO_THROW(component.InitResourceManager(manager));
    EXPECT_NO_THROW(component.InitResourceManager(nullptr));
    EXPECT_NO_THROW(component.InitResourceManager(manager));
    EXPECT_EQ(manager->calls(), 0);
}

TEST_P(ForeignExceptions, TheSessionManagerLetsNothingOut) {
    sweep(
        [this] {
            user().onForm("frmSessionManager", [](User& u) {
                u.pick("lstAvailableTESessions", "DESK");
                u.click("btnOK");
            });
        },
        [this] { EXPECT_NO_THROW(component.showSessionManagerDlg("BASE,DESK")); });
}

TEST_P(ForeignExceptions, TheConfigurableSessionManagerLetsNothingOut) {
    sweep(
        [this] {
            user().onForm("frmSessionManager", [](User& u) {
                u.click("btnAdd");
                u.pick("lstAvailableTESessions", "BASE");
                u.click("btnEdit");
                u.pick("lstAvailableTESessions", "BASE");
                u.click("btnDelete");
                u.click("btnOK");
            });
            announceMaintenance();
            user().onForm("frmMORAMConfig", pressing("btnOK"));
        },
        [this] { EXPECT_NO_THROW(component.showConfigurableSessionManagerDlg("BASE")); });
}

}  // namespace
}  // namespace wynconfig
