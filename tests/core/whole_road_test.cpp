// One road through all of the component: a user adds a session, gives it a new part format and
// confirms.
#include "dialogs/session/frmAddMORAMConfig.h"
#include "support/format_desk.h"

namespace wynconfig {
namespace {

class WholeRoad : public FormatDesk {
  protected:
    void SetUp() override {
        FormatDesk::SetUp();
        putProgram("/programs/parts.exe");
        putFullFormat("CSV");
        putFullSession("BASE", {"CSV"});
        putFullSession("OTHER", {"CSV"});
    }
    void announceAddDialog() {
        user().onForm("frmAddMORAMConfig", [](User& u) {
            EXPECT_EQ(u.see("cboConfigs").rowTexts(),
                      (Names{"{ADD_MORAM_CONFIG_NONE}", "BASE", "OTHER"}));
            u.type("txtName", "base");
            u.choose("cboConfigs", "BASE");
            u.click("btnOK");
            u.type("txtName", " my parts ");
            u.click("btnOK");
        });
        // The first name is that of a session that is there.
        user().onBox();
    }
    void expectTakenSessionName() {
        ASSERT_FALSE(user().boxes().empty());
        expectRefusal(user().boxes()[0],
                      "{MORAM_CONFIG_MSG_NAME_EXISTS} BASE. {MORAM_CONFIG_MSG_REENTER_NAME}",
                      "{MORAM_CONFIG_MSG_FORMAT_NAME}");
    }
    static void expectSessionOnTheLaunchTab(User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "MY PARTS");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet");
        EXPECT_FALSE(u.see("chkReverseList").value);
        EXPECT_TRUE(u.see("rdoBottom").value);
        u.type("txtCommandLineArgs", "/list /loud");
        u.tick("chkReverseList");
    }
    void announceEditor() {
        user().onForm("frmPartNumberFormat", [](User& u) {
            EXPECT_EQ(u.see("txtFormatName").text, "");
            u.type("txtFormatName", "tabbed list");
            u.focus("txtRecord");
            u.pick("lstSpecialSymbols2", "<Part #>");
            u.pick("lstSpecialSymbols2", "<TAB>");
            u.pick("lstSpecialSymbols2", "<Quantity>");
            u.tick("chkFormatPartNumber");
            u.type("txtPartFieldLength", "12");
            u.type("txtPartPad", "0");
            u.click("btnOk");
            // Without a greatest number of records the editor stays open.
            u.type("txtMaxRecords", "250");
            u.click("btnOk");
        });
        user().onBox();
    }
    void expectRecordsAskedFor() {
        ASSERT_EQ(user().boxes().size(), 2U);
        expectRefusal(user().boxes()[1], "{PART_FORMAT_MSG_NUM_MAX_RECORDS}",
                      "{PART_FORMAT_LBL_MAXRECORDS}");
    }
    /// Makes the new format on the part format tab and takes it for the session.
    static void takeNewFormat(User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lblDisplayName2").caption, "MY PARTS");
        EXPECT_EQ(available(u), (Names{"CSV"}));
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
        u.click("btnNew");
        EXPECT_EQ(available(u), (Names{"CSV", "TABBED LIST"}));
        EXPECT_EQ(marked(u), "TABBED LIST");
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
        u.click("btnAdd");
        EXPECT_EQ(selectedNames(u), (Names{"CSV", "TABBED LIST"}));
    }
    static void expectNewFormat(const Dataset& format) {
        EXPECT_EQ(format.Type(), "PARTFORMAT");
        EXPECT_EQ(format.Name(), "TABBED LIST");
        ASSERT_EQ(format.Rows().size(), kFirstFormat.size());
        auto row = format.Rows().begin();
        for (const auto& first : kFirstFormat) EXPECT_EQ((*row++)[0], first.first);
        EXPECT_EQ(format.GetRow("Record")[1], "<Part #><TAB><Quantity>");
        EXPECT_EQ(format.GetRow("FormatPartNumber")[1], "true");
        EXPECT_EQ(format.GetRow("PartFieldLength")[1], "12");
        EXPECT_EQ(format.GetRow("PartAlignment")[1], "right");
        EXPECT_EQ(format.GetRow("PartPadCharacter")[1], "0");
        EXPECT_EQ(format.GetRow("FormatQty")[1], "false");
        EXPECT_EQ(format.GetRow("DescFieldLength")[1], "34");
        EXPECT_EQ(format.GetRow("MaxRecords")[1], "250");
    }
    /// What the session holds in the end: that of its base, but for what the user changed.
    Rows expectedRows() {
        Rows rows = sessionRows("BASE");
        rows["CommandLineArgs"] = "/list /loud";
        rows["ReverseList"] = "true";
        rows["FormatCount"] = "2";
        rows["FORMAT2"] = "TABBED LIST";
        return rows;
    }
};
ON_EVERY_VIEW(WholeRoad);

TEST_P(WholeRoad, AUserAddsASessionGivesItANewFormatAndConfirms) {
    ConfigGlobalModule::g_DatasetMode = true;
    const std::string base = sessionText("BASE");
    const std::string other = sessionText("OTHER");
    announceAddDialog();
    user().onForm("frmMORAMConfig", [this](User& u) {
        EXPECT_FALSE(ConfigGlobalModule::g_DatasetMode);
        EXPECT_EQ(sessionRows("MY PARTS"), sessionRows("BASE")) << "the new file is there by now";
        expectSessionOnTheLaunchTab(u);
        takeNewFormat(u);
        EXPECT_EQ(sessionRows("MY PARTS"), sessionRows("BASE")) << "nothing written before OK";
        u.click("btnOK");
    });
    announceEditor();
    std::string name = "proposed";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "MY PARTS");
    expectTakenSessionName();
    expectRecordsAskedFor();
    EXPECT_EQ(user().forms(), (Names{"frmAddMORAMConfig", "frmMORAMConfig", "frmPartNumberFormat"}))
        << "the hidden passes show nothing";
    EXPECT_EQ(sessionFiles(), (Names{"BASE.vla", "MY PARTS.vla", "OTHER.vla"}));
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "TABBED LIST.vla"}));
    EXPECT_EQ(sessionRows("MY PARTS"), expectedRows());
    expectNewFormat(*formatRecord("TABBED LIST"));
    EXPECT_EQ(sessionText("BASE"), base);
    EXPECT_EQ(sessionText("OTHER"), other);
}

TEST_P(WholeRoad, ASessionMadeFromNothingHoldsItsDefaultsInTheEnd) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "fresh");
        u.click("btnOK");
    });
    user().onForm("frmMORAMConfig", [this](User& u) {
        EXPECT_EQ(sessionRows("FRESH"), Rows{});
        u.changeTab("SSTab2", 1);
        u.click("btnOK");
        EXPECT_TRUE(listHasFocus(u)) << "a session needs a format";
        act(u, "CSV", "btnAdd");
        u.click("btnOK");
        EXPECT_TRUE(u.see("txtProgramPath").focus) << "and a program";
        u.type("txtProgramPath", "\"/programs/parts.exe\"");
        u.click("btnOK");
    });
    user().onBox();
    user().onBox();
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "FRESH");
    const Rows rows = sessionRows("FRESH");
    EXPECT_EQ(rows.size(), 21U);
    EXPECT_EQ(rows.at("ProgramPath"), "\"/programs/parts.exe\"");
    EXPECT_EQ(rows.at("ReverseList"), "true");
    EXPECT_EQ(rows.at("FORMAT1"), "CSV");
    EXPECT_EQ(rows.at("FileAction"), "OverWrite");
}

TEST_P(WholeRoad, ASessionWhoseDialogIsCancelledIsTakenBackButItsNewFormatStays) {
    announceAddDialog();
    user().onForm("frmMORAMConfig", [](User& u) {
        takeNewFormat(u);
        u.click("btnCancel");
    });
    announceEditor();
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(sessionFiles(), (Names{"BASE.vla", "OTHER.vla"}));
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "TABBED LIST.vla"}));
}

TEST_P(WholeRoad, InMemoryTheSameRoadWritesNoFile) {
    ConfigGlobalModule::g_DatasetMode = true;
    announceAddDialog();
    announceEditor();
    user().onForm("frmMORAMConfig", [](User& u) {
        expectSessionOnTheLaunchTab(u);
        takeNewFormat(u);
        EXPECT_EQ(formatsInMemory(), (Names{"CSV"})) << "nothing changes before OK";
        u.click("btnOK");
    });
    disk.resetCounts();
    frmAddMORAMConfig adding;
    adding.init("");
    adding.Show();
    EXPECT_EQ(adding.Result(), 0);
    EXPECT_EQ(adding.SessionName(), "MY PARTS");
    EXPECT_EQ(ConfigGlobalModule::g_Session->Name(), "MY PARTS");
    frmMORAMConfig dialog;
    dialog.initEX(adding.SessionName());
    dialog.Show();
    EXPECT_EQ(dialog.Result(), 0);
    EXPECT_EQ(dialog.SessionName(), "MY PARTS");
    expectTakenSessionName();
    expectRecordsAskedFor();

    EXPECT_EQ(saves(), 0U);
    EXPECT_EQ(sessionFiles(), (Names{"BASE.vla", "OTHER.vla"}));
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
    Rows rows;
    for (const DataRow& row : ConfigGlobalModule::g_Session->Rows()) rows.emplace(row[0], row[1]);
    EXPECT_EQ(rows, expectedRows());
    // The user's format, and the factory format that the session took.
    EXPECT_EQ(hostKeys(), (Names{"TABBED LIST", "CSV"}));
    expectNewFormat(*ConfigGlobalModule::g_PartFormats.Item("TABBED LIST"));
    EXPECT_EQ(headerOf(*ConfigGlobalModule::g_PartFormats.Item("CSV")), "head of CSV");
}

}  // namespace
}  // namespace wynconfig
