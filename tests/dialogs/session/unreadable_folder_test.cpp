// A store folder that is there but cannot be read, for want of rights or free file numbers or by a
// fault of the disk: nobody takes it for an empty one without a box.
#include "support/exchange_desk.h"

namespace wynconfig {
namespace {

const std::string kDialog = "UnifrmMORAMConfig:";
/// The failure box keeps a hidden form, which lists the sessions when the first box comes up.
const std::string kFirstBox = "frmMORAMMaintenance:loadLstAvailableMORAMs";

/// The store holds the formats "CSV" and "PLAIN" and a full session "DESK", whose only format is
/// "CSV" and which writes its file by it.
class UnreadableFolder : public ExchangeDesk {
  protected:
    void SetUp() override {
        ExchangeDesk::SetUp();
        for (const char* format : {"CSV", "PLAIN"}) putFullFormat(format);
        putFullSession("DESK", {"CSV"});
    }

    void breakSessions() { disk.failOn(Operation::List, "MORAM"); }
    void breakFormats() { disk.failOn(Operation::List, "PARTFORMAT"); }

    /// Announces the box for a folder that can't be read, with this tag.
    void expectUnreadable(const std::string& tag) {
        user().onBox([tag](const SeenBox& box) {
            EXPECT_TRUE(isFailureOf(box.text, tag)) << box.text;
            EXPECT_NE(box.text.find("can't be read"), std::string::npos) << box.text;
            EXPECT_EQ(box.style, 4112);
            return answer::Ok;
        });
    }
    /// Announces the message that refuses a name as taken.
    void expectTaken(const std::string& text) {
        user().onBox([text](const SeenBox& box) {
            EXPECT_EQ(box.text, text);
            EXPECT_EQ(box.style, 16);
            return answer::Ok;
        });
    }
    void announceRename(const std::string& newName) {
        user().onForm("dlgSingleEntry", [newName](User& prompt) {
            prompt.type("txtTextBox", newName);
            prompt.click("OKButton");
        });
    }
    void announceEditor(const std::string& newName, bool refused) {
        user().onForm("frmPartNumberFormat", [newName, refused](User& editor) {
            editor.type("txtFormatName", newName);
            editor.click("btnOk");
            if (refused) editor.click("btnCancel");
        });
    }
};
ON_EVERY_VIEW(UnreadableFolder);

// The formats.

TEST_P(UnreadableFolder, ApplyTellsThatTheFileWritersFormatsCouldNotBeListed) {
    user().onForm("frmMORAMConfig", [this](User& u) {
        breakFormats();
        expectUnreadable("frmTallyvaneConfig:loadCboPartFormat");
        u.click("btnOK");
    });
    name = "DESK";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 0);
    EXPECT_EQ(sessionRows("DESK")["PartFormat"], "");
    EXPECT_EQ(sessionRows("DESK")["FileName"], "list.txt");
}

TEST_P(UnreadableFolder, InMemoryApplyTellsItToo) {
    breakFormats();
    expectUnreadable(kDialog + "loadAvailableFormats");
    expectUnreadable("ConfigGlobalModule:AddFDToConfigPartFormats");
    expectUnreadable("frmTallyvaneConfig:loadCboPartFormat");
    user().onForm("frmMORAMConfig", pressing("btnOK"));
    EXPECT_EQ(component.showMORAMConfigDlgEX(name, sessionXml("MINE", {"NONE SUCH"}), {}), 0);
    EXPECT_EQ(rowsBack()["PartFormat"], "");
}

TEST_P(UnreadableFolder, TheFormatListTellsItAndStaysHidden) {
    breakFormats();
    expectUnreadable(kDialog + "loadAvailableFormats");
    open("DESK", [](User& u) {
        EXPECT_FALSE(u.see("lstAvailableFormats").visible);
        EXPECT_EQ(selectedNames(u), Names{"CSV"});
    });
}

TEST_P(UnreadableFolder, AFormatListThatWasFilledKeepsItsRows) {
    open("DESK", [this](User& u) {
        breakFormats();
        expectUnreadable(kDialog + "loadAvailableFormats");
        user().onForm("frmPartNumberFormat", pressing("btnCancel"));
        u.click("btnNew");
        EXPECT_EQ(available(u), (Names{"CSV", "PLAIN"}));
    });
}

TEST_P(UnreadableFolder, TheFileWriterTellsItAndOffersNoFormat) {
    open("DESK", [this](User& u) {
        breakFormats();
        expectUnreadable("frmTallyvaneConfig:loadCboPartFormat");
        user().onForm("frmTallyvaneConfig", [](User& fileWriter) {
            EXPECT_TRUE(fileWriter.see("cboPartFormat").rows.empty());
            fileWriter.click("btnCancel");
        });
        u.changeTab("SSTab2", 0);
        u.click("btnTallyvane");
    });
}

TEST_P(UnreadableFolder, ANewFormatNameCountsAsTaken) {
    open("DESK", [this](User& u) {
        breakFormats();
        expectUnreadable("frmPartNumberFormat:ApplyChanges");
        expectTaken("{MORAM_CONFIG_MSG_NAME_EXISTS}: PLAIN2. {MORAM_CONFIG_MSG_REENTER_NAME}");
        announceEditor("PLAIN2", true);
        expectUnreadable(kDialog + "btnRename_Click");
        expectTaken("PLAIN2: {MORAM_CONFIG_MSG_NAME_EXISTS}. {MORAM_CONFIG_MSG_REENTER_NAME}");
        announceRename("PLAIN2");
        act(u, "PLAIN", "btnEdit");
        act(u, "PLAIN", "btnRename");
    });
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "PLAIN.vla"}));
}

// The sessions.

TEST_P(UnreadableFolder, ARenameTellsThatNoSessionFollowed) {
    open("DESK", [this](User& u) {
        breakSessions();
        expectUnreadable(kFirstBox);
        expectUnreadable(kDialog + "UpdatePartNumberFormatsInAllMORAMs");
        announceRename("COMMA");
        act(u, "CSV", "btnRename");
        EXPECT_EQ(available(u), (Names{"COMMA", "PLAIN"}));
    });
    EXPECT_EQ(formatsOf("DESK"), Names{"CSV"});
}

TEST_P(UnreadableFolder, AnEditTellsThatNoSessionFollowed) {
    open("DESK", [this](User& u) {
        breakSessions();
        expectUnreadable(kFirstBox);
        expectUnreadable(kDialog + "UpdatePartNumberFormatsInAllMORAMs");
        announceEditor("COMMA", false);
        act(u, "CSV", "btnEdit");
    });
    EXPECT_EQ(formatFiles(), (Names{"COMMA.vla", "PLAIN.vla"}));
    EXPECT_EQ(formatsOf("DESK"), Names{"CSV"});
}

TEST_P(UnreadableFolder, ADeletionTellsThatNoSessionCouldBeAskedNorFollowed) {
    open("DESK", [this](User& u) {
        breakSessions();
        user().onBox(answer::Yes);
        expectUnreadable(kFirstBox);
        expectUnreadable(kDialog + "CheckForLastPartNumberFormatInAllMORAMs");
        expectUnreadable(kDialog + "UpdatePartNumberFormatsInAllMORAMs");
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(available(u), Names{"PLAIN"});
    });
    EXPECT_EQ(formatsOf("DESK"), Names{"CSV"});
}

TEST_P(UnreadableFolder, ANewSessionNameCountsAsTaken) {
    breakSessions();
    expectUnreadable(kFirstBox);
    expectUnreadable("frmAddMORAMConfig:loadCboConfigs");
    expectUnreadable("frmAddMORAMConfig:btnOk_Click");
    expectTaken("{MORAM_CONFIG_MSG_NAME_EXISTS} NEW. {MORAM_CONFIG_MSG_REENTER_NAME}");
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("cboConfigs").rowTexts(), Names{"{ADD_MORAM_CONFIG_NONE}"});
        u.type("txtName", "NEW");
        u.click("btnOK");
        u.click("btnCancel");
    });
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(sessionFiles(), Names{"DESK.vla"});
}

TEST_P(UnreadableFolder, ASessionsNewNameCountsAsTaken) {
    open("DESK", [this](User& u) {
        breakSessions();
        expectUnreadable(kFirstBox);
        expectUnreadable(kDialog + "ApplyChanges");
        expectTaken("{MORAM_CONFIG_MSG_NAME_EXISTS} NEW. {MORAM_CONFIG_MSG_REENTER_NAME}");
        u.changeTab("SSTab2", 0);
        u.type("txtDisplayName", "NEW");
        u.click("btnApply");
    });
    EXPECT_EQ(sessionFiles(), Names{"DESK.vla"});
}

TEST_P(UnreadableFolder, ASessionThatIsNotFoundOpensEmptyBehindABox) {
    breakSessions();
    expectUnreadable(kFirstBox);
    expectUnreadable(kDialog + "init");
    open("desk2", [](User& u) { EXPECT_FALSE(u.see("lstSelectedFormats2").visible); });
}

// The operations of the component.

TEST_P(UnreadableFolder, InitTellsOfACatalogueThatItCanNeitherFindNorWrite) {
    disk.failOn(Operation::List, "/new");
    memory->makeFolder("/new");
    memory->makeFolder("/new/PARTFORMAT");
    const std::string tag = "Class_Initialize: WYN config folders not available";
    // The folder of the sessions can't be made, nor can it be told from one of another spelling.
    for (const std::string& each : {kFirstBox, tag, tag, tag, tag}) expectUnreadable(each);
    component.init("/new/");
    EXPECT_FALSE(memory->folderExists("/new/MORAM"));
}

TEST_P(UnreadableFolder, AMigrationEndsBehindABox) {
    breakSessions();
    expectUnreadable(kFirstBox);
    expectUnreadable("WYNConfig:MigrateSession");
    EXPECT_FALSE(component.MigrateSession("/store/", "desk"));
    disk.failNowhere();
    breakFormats();
    putFullSession("OTHER", {"NONE SUCH"});
    expectUnreadable("ConfigGlobalModule:MigratePartFormats");
    EXPECT_FALSE(component.MigrateSession("/store/", "OTHER"));
}

TEST_P(UnreadableFolder, AFormatHandedInIsKept) {
    breakFormats();
    expectUnreadable("WYNConfig:showMORAMConfigDlgEX");
    expectUnreadable(kDialog + "loadAvailableFormats");
    user().onForm("frmMORAMConfig", pressing("btnCancel"));
    EXPECT_EQ(component.showMORAMConfigDlgEX(name, sessionXml("MINE", {"OWN"}), {formatXml("OWN")}),
              1);
    EXPECT_EQ(hostKeys(), Names{"OWN"});
}

TEST_P(UnreadableFolder, AMissingFolderIsNoFailure) {
    ConfigGlobalModule::g_SessionFolder = "/gone/MORAM\\";
    ConfigGlobalModule::g_PartFormatFolder = "/gone/PARTFORMAT\\";
    user().onForm("frmMORAMConfig", pressing("btnCancel"));
    EXPECT_EQ(component.showMORAMConfigDlgEX(name, sessionXml("MINE", {"CSV"}), {}), 1);
    user().onForm("frmMORAMMaintenance", pressing("btnCancel"));
    EXPECT_EQ(component.showMORAMMaintenanceDlg(name), 1);
    EXPECT_TRUE(user().boxes().empty());
}

}  // namespace
}  // namespace wynconfig
