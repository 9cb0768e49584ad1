// Adding a session in the in-memory mode: the add dialog, then the session dialog, and what the
// host is told after each way out of the two.
#include "support/exchange_desk.h"

namespace wynconfig {
namespace {

using ConfigGlobalModule::g_DatasetMode;

/// The store holds the factory format "CSV" and the factory session "BASE"; memory holds what an
/// earlier exchange left.
class ExchangeAdd : public ExchangeDesk {
  protected:
    void SetUp() override {
        ExchangeDesk::SetUp();
        putFullFormat("CSV");
        putFullSession("BASE", {"CSV"});
        exchange(kOld, {formatXml("LEFT OVER")}, pressing("btnCancel"));
        g_DatasetMode = false;
        user().finish();
        name = "proposed";
    }
    void announceAdding(const std::string& typed, const std::string& base = "") {
        user().onForm("frmAddMORAMConfig", [=](User& u) {
            u.type("txtName", typed);
            if (!base.empty()) u.choose("cboConfigs", base);
            u.click("btnOK");
        });
    }
    void announceConfiguring(User::Script script) {
        user().onForm("frmMORAMConfig", std::move(script));
    }
    /// The new session is the record in memory, and nothing was left of the old formats.
    void expectNewRecord(const std::string& sessionName) {
        EXPECT_EQ(sessionBack()->Name(), sessionName);
        EXPECT_EQ(sessionBack()->Type(), "MORAM");
        EXPECT_EQ(sessionFiles(), (Names{"BASE.vla"}));
    }

    const std::string kOld = sessionXml("OLD", {"CSV"});
};
ON_EVERY_VIEW(ExchangeAdd);

TEST_P(ExchangeAdd, ConfirmingBothDialogsGivesZeroTheNameAndTheRecord) {
    announceAdding(" new ", "BASE");
    announceConfiguring([](User& u) {
        EXPECT_TRUE(g_DatasetMode);
        EXPECT_EQ(u.see("txtDisplayName").text, "NEW");
        EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet");
        u.type("txtCommandLineArgs", "/new");
        u.click("btnOK");
    });
    EXPECT_EQ(addInMemory(), 0);
    EXPECT_EQ(name, "NEW");
    expectNewRecord("NEW");
    Rows expected = fullRows({"CSV"});
    expected["CommandLineArgs"] = "/new";
    EXPECT_EQ(rowsBack(), expected);
    EXPECT_EQ(formatsBack(), (Names{"CSV"}));
    EXPECT_TRUE(g_DatasetMode);
}

TEST_P(ExchangeAdd, MadeFromNothingItOpensOnDefaults) {
    announceAdding("new");
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtProgramPath").text, "");
        EXPECT_TRUE(u.see("chkReverseList").value);
        EXPECT_TRUE(u.see("rdoTop").value);
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(selectedNames(u), Names{});
        u.click("btnCancel");
    });
    EXPECT_EQ(addInMemory(), 1);
    expectNewRecord("NEW");
    EXPECT_TRUE(sessionBack()->Rows().empty());
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(ExchangeAdd, CancellingTheSessionDialogGivesOneTogetherWithTheName) {
    announceAdding("new", "BASE");
    announceConfiguring(pressing("btnCancel"));
    EXPECT_EQ(addInMemory(), 1);
    EXPECT_EQ(name, "NEW");
    expectNewRecord("NEW");
    EXPECT_EQ(rowsBack(), fullRows({"CSV"})) << "the new session is not taken back";
}

TEST_P(ExchangeAdd, CancelAfterApplyGivesZero) {
    announceAdding("new", "BASE");
    announceConfiguring([](User& u) {
        u.click("btnApply");
        u.click("btnCancel");
    });
    EXPECT_EQ(addInMemory(), 0);
    EXPECT_EQ(name, "NEW");
}

TEST_P(ExchangeAdd, TheFrameOfTheSessionDialogGivesOneAndTheNameThatItEndedOn) {
    announceAdding("new", "BASE");
    announceConfiguring([](User& u) {
        u.type("txtDisplayName", "newer");
        u.click("btnApply");
        u.closeByFrame();
    });
    EXPECT_EQ(addInMemory(), 1);
    EXPECT_EQ(name, "NEWER");
    expectNewRecord("NEWER");
}

TEST_P(ExchangeAdd, CancellingTheAddDialogGivesOneAndNoName) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtName").text, "PROPOSED");
        u.type("txtName", "new");
        u.click("btnCancel");
    });
    EXPECT_EQ(addInMemory(), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(user().forms(), (Names{"frmAddMORAMConfig"}));
    EXPECT_EQ(component.GetDatasetSessionData(), kOld) << "the old session is still there";
}

TEST_P(ExchangeAdd, TheFormatsInMemoryGoWhateverComesOfTheDialogs) {
    user().onForm("frmAddMORAMConfig", pressing("btnCancel"));
    addInMemory();
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
    EXPECT_TRUE(g_DatasetMode) << "and the mode is on";

    exchange(kOld, {formatXml("LEFT OVER")}, pressing("btnCancel"));
    user().onForm("frmAddMORAMConfig", [this](User& u) {
        EXPECT_EQ(formatsBack(), (Names{"LEFT OVER"})) << "not before that dialog closed";
        u.type("txtName", "new");
        u.click("btnOK");
    });
    announceConfiguring([](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(available(u), (Names{"CSV"}));
        u.click("btnCancel");
    });
    addInMemory();
    EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
}

TEST_P(ExchangeAdd, ClosedByItsFrameTheAddDialogOpensTheOldSessionUnderTheNewName) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "new");
        u.closeByFrame();
    });
    announceConfiguring([](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "NEW");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        u.click("btnCancel");
    });
    EXPECT_EQ(addInMemory(), 1);
    EXPECT_EQ(name, "NEW");
    EXPECT_EQ(component.GetDatasetSessionData(), kOld);
}

TEST_P(ExchangeAdd, ClosedByItsFrameThenConfirmedTheOldSessionTakesTheNewName) {
    user().onForm("frmAddMORAMConfig", [](User& u) { u.closeByFrame(); });
    announceConfiguring(pressing("btnOK"));
    EXPECT_EQ(addInMemory(), 0);
    EXPECT_EQ(name, "PROPOSED");
    expectNewRecord("PROPOSED");
    EXPECT_EQ(rowsBack(), fullRows({"CSV"}));
}

TEST_P(ExchangeAdd, ClosedByItsFrameWithoutANameItEndsThere) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "  ");
        u.closeByFrame();
    });
    EXPECT_EQ(addInMemory(), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(user().forms(), (Names{"frmAddMORAMConfig"}));
}

TEST_P(ExchangeAdd, ANameOfTheStoreIsRefusedHereToo) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        u.type("txtName", "base");
        u.click("btnOK");
        u.click("btnCancel");
    });
    user().onBox();
    EXPECT_EQ(addInMemory(), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0],
                  "{MORAM_CONFIG_MSG_NAME_EXISTS} BASE. {MORAM_CONFIG_MSG_REENTER_NAME}",
                  "{MORAM_CONFIG_MSG_FORMAT_NAME}");
}

TEST_P(ExchangeAdd, ABaseThatCannotBeReadGivesASessionWithoutRowsBehindABox) {
    memory->save(ItemPath::item(sessionFolder, "BASE"), "<no record");
    announceAdding("new", "BASE");
    announceConfiguring(pressing("btnCancel"));
    user().onBox();
    EXPECT_EQ(addInMemory(), 1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, "frmAddMORAMConfig:btnOk_Click");
    EXPECT_EQ(name, "NEW");
    EXPECT_EQ(sessionBack()->Name(), "NEW");
    EXPECT_TRUE(sessionBack()->Rows().empty());
}

TEST_P(ExchangeAdd, WhatWasAddedCanBeHandedInAgain) {
    announceAdding("new", "BASE");
    announceConfiguring(pressing("btnOK"));
    addInMemory();
    const std::string session = component.GetDatasetSessionData();
    EXPECT_EQ(exchange(session, component.GetDatasetFormatsData(), pressing("btnOK")), 0);
    EXPECT_EQ(component.GetDatasetSessionData(), session);
}

}  // namespace
}  // namespace wynconfig
