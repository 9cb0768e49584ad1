// Adding a session: the add dialog, and the road through it to the item file.
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/session/frmAddMORAMConfig.h"
#include "platform/text/numbers.h"
#include "store/session_record.h"
#include "support/caption_tables.h"
#include "support/desk.h"
#include "support/dialog_checks.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

/// Types a name, chooses a base unless it is empty, and presses OK.
User::Script making(const std::string& name, const std::string& base = "") {
    return [=](User& u) {
        u.type("txtName", name);
        if (!base.empty()) u.choose("cboConfigs", base);
        u.click("btnOK");
    };
}

class AddSession : public Desk {
  protected:
    static inline const std::string kNone = "{ADD_MORAM_CONFIG_NONE}";
    static inline const std::string kBadName =
        "{MORAM_CONFIG_MSG_INVALID_CHARS}\r\n         \\ / : * ? \" < > | .";
    static inline const std::string kBadTitle = "{MORAM_CONFIG_MSG_INVALID_CONFIG}";

    Outcome show(User::Script script, const std::string& proposal = "") {
        user().onForm("frmAddMORAMConfig", std::move(script));
        frmAddMORAMConfig form;
        form.init(proposal);
        form.Show();
        form.Unload();
        return {form.Result(), form.SessionName()};
    }
    /// Presses OK under a name that must be refused with this box; then cancels.
    void expectRefused(const std::string& name, const std::string& left, const std::string& text,
                       const std::string& title) {
        user().finish();
        user().onBox();
        show([&](User& u) {
            u.type("txtName", name);
            u.pressEnter();
            EXPECT_EQ(u.formName(), "frmAddMORAMConfig");
            EXPECT_EQ(u.see("txtName").text, left);
            EXPECT_TRUE(u.see("txtName").focus);
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), 1U) << name;
        expectRefusal(user().boxes()[0], text, title);
    }
    static Rows rowsOf(const Dataset& record) {
        Rows rows;
        for (const DataRow& row : record.Rows()) rows.emplace(row[0], row[1]);
        return rows;
    }
};
ON_EVERY_VIEW(AddSession);

TEST_P(AddSession, OnTheBaseOfAnotherOneThenConfirmed) {
    putProgram("/programs/parts.exe");
    putFormat("CSV");
    putFullSession("BASE", {"CSV"});
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("cboConfigs").rowTexts(), (std::vector<std::string>{kNone, "BASE"}));
        EXPECT_TRUE(u.see("txtName").focus);
        u.type("txtName", "  mine ");
        u.choose("cboConfigs", "BASE");
        EXPECT_EQ(u.see("txtName").text, "MINE");
        u.click("btnOK");
    });
    user().onForm("frmMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "MINE");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        u.click("btnOK");
    });
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 0);
    EXPECT_EQ(name, "MINE");
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"BASE.vla", "MINE.vla"}));
    EXPECT_EQ(sessionRows("MINE"), sessionRows("BASE"));
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(AddSession, OpensOnTheProposedNameWithTheNoneRowChosen) {
    putSession("BASE", {});
    show(
        [](User& u) {
            EXPECT_EQ(u.formTitle(), "{ADD_MORAM_CONFIG_TITLE}");
            EXPECT_EQ(u.see("txtName").text, "PROPOSED");
            EXPECT_TRUE(u.see("txtName").focus);
            EXPECT_EQ(u.see("cboConfigs").selected, 1U);
            EXPECT_EQ(u.see("cboConfigs").text, kNone);
            u.click("btnCancel");
        },
        "PROPOSED");
}

TEST_P(AddSession, ShowingMovesTheFocusToTheName) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_TRUE(u.see("txtName").focus);
        u.click("btnCancel");
    });
    frmAddMORAMConfig form;
    form.init("");
    form.cboConfigs.setFocus();
    form.Show();
}

TEST_P(AddSession, ListsTheSessionFolderInBothModes) {
    putSession("beta", {});
    putSession("Alpha", {});
    putSession("C D", {});
    putSession(".hidden", {});
    memory->makeFolder(sessionFolder + "FOLDER.vla");
    g_Session->setName("HOSTS");
    for (const bool inMemory : {false, true}) {
        g_DatasetMode = inMemory;
        show([](User& u) {
            EXPECT_EQ(u.see("cboConfigs").rowTexts(),
                      (std::vector<std::string>{kNone, ".hidden", "Alpha", "beta", "C D"}));
            u.click("btnCancel");
        });
    }
}

TEST_P(AddSession, AnEmptyFolderListsTheNoneRowAlone) {
    show([](User& u) {
        EXPECT_EQ(u.see("cboConfigs").rowTexts(), std::vector<std::string>{kNone});
        u.type("txtName", "FIRST");
        u.click("btnOK");
    });
    EXPECT_TRUE(sessionRows("FIRST").empty());
}

TEST_P(AddSession, FromNothingMakesASessionWithoutRows) {
    putFullSession("BASE", {"CSV"});
    EXPECT_EQ(show(making(" my list ")), (Outcome{0, "MY LIST"}));
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"BASE.vla", "MY LIST.vla"}));
    EXPECT_EQ(sessionRecord("MY LIST")->Type(), "MORAM");
    EXPECT_EQ(sessionRecord("MY LIST")->Name(), "MY LIST");
    EXPECT_TRUE(sessionRows("MY LIST").empty());
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(AddSession, FromABaseTakesItsRowsUnderTheNewName) {
    putFullSession("base", {"CSV", "PLAIN"});
    const std::string before = sessionText("base");
    EXPECT_EQ(show(making("new", "base")), (Outcome{0, "NEW"}));
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"base.vla", "NEW.vla"}));
    EXPECT_EQ(sessionRows("NEW"), sessionRows("base"));
    EXPECT_EQ(sessionRows("NEW").size(), 22U);
    EXPECT_EQ(sessionRecord("NEW")->Type(), "MORAM");
    EXPECT_EQ(sessionRecord("NEW")->Name(), "NEW");
    EXPECT_EQ(sessionText("base"), before);
}

TEST_P(AddSession, ASessionNamedLikeTheNoneRowCountsAsNone) {
    texts->texts["ADD_MORAM_CONFIG_NONE"] = "NONE";
    putFullSession("NONE", {"CSV"});
    frmAddMORAMConfig form;
    user().onForm("frmAddMORAMConfig", [&](User& u) {
        EXPECT_EQ(u.see("cboConfigs").rowTexts(), (std::vector<std::string>{"NONE", "NONE"}));
        form.cboConfigs.setSelectedIndex(1);
        making("new")(u);
    });
    form.init("");
    form.Show();
    EXPECT_TRUE(sessionRows("NEW").empty());
}

TEST_P(AddSession, ASessionNamedLikeTheNoneRowInAnotherCaseIsABase) {
    texts->texts["ADD_MORAM_CONFIG_NONE"] = "NONE";
    putFullSession("None", {"CSV"});
    show(making("new", "None"));
    EXPECT_EQ(sessionRows("NEW"), sessionRows("None"));
    EXPECT_EQ(sessionRows("NEW").size(), 21U);
}

TEST_P(AddSession, TakesNamesOfAnyScript) {
    const std::vector<std::pair<std::string, std::string>> names{
        {"部品リスト", "部品リスト"},
        {"😀 list", "😀 LIST"},
        {"straße é ÿ", "STRAßE É Ÿ"},
        {"список", "СПИСОК"},
        {"o'neil & co; #1", "O'NEIL & CO; #1"}};
    for (const auto& [typed, name] : names) {
        EXPECT_EQ(show(making(typed)), (Outcome{0, name}));
        EXPECT_TRUE(sessionExists(name)) << name;
        EXPECT_EQ(sessionRecord(name)->Name(), name);
    }
    EXPECT_EQ(sessionFiles().size(), names.size());
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(AddSession, NameIsNormalisedWhenItsBoxLosesTheFocus) {
    show([](User& u) {
        u.type("txtName", "  new one ");
        EXPECT_EQ(u.see("txtName").text, "  new one ");
        u.focus("cboConfigs");
        EXPECT_EQ(u.see("txtName").text, "NEW ONE");
        u.click("btnCancel");
    });
}

TEST_P(AddSession, RefusesAnEmptyName) {
    for (const char* name : {"", "   "})
        expectRefused(name, "", "{MORAM_CONFIG_MSG_ENTER_NEW_NAME}", kBadTitle);
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSession, RefusesEachForbiddenCharacter) {
    for (const char each : std::string("\\/:*?\"<>|.")) {
        const std::string bad = std::string("A") + each + "B";
        expectRefused(bad, bad, kBadName, kBadTitle);
        expectRefused(" " + std::string(1, each) + " ", std::string(1, each), kBadName, kBadTitle);
    }
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSession, RefusesANumber) {
    for (const char* name : {"123", "1E3", "-4", "1,000"})
        expectRefused(name, name, kBadName, kBadTitle);
    expectRefused(" 1e3 ", "1E3", kBadName, kBadTitle);
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSession, NumbersAreReadByTheMarksOfTheUser) {
    setNumberLocale("de-DE");
    expectRefused(",5", ",5", kBadName, kBadTitle);
    setNumberLocale("en-US");
    EXPECT_EQ(show(making(",5")), (Outcome{0, ",5"}));
}

TEST_P(AddSession, RefusesANumberOfFullWidthWhereItIsOne) {
    setNumberLocale("ja-JP");
    for (const char* name : {"１２３", "－５"}) expectRefused(name, name, kBadName, kBadTitle);
    EXPECT_TRUE(sessionFiles().empty());
    setNumberLocale("en-US");
    EXPECT_EQ(show(making("１２３")), (Outcome{0, "１２３"}));
}

TEST_P(AddSession, RefusesANameThatExistsInBothModes) {
    putSession("ABC", {{"WindowTitle", "kept"}});
    putSession("mixed Case", {});
    const std::string title = "{MORAM_CONFIG_MSG_FORMAT_NAME}";
    for (const bool inMemory : {false, true}) {
        g_DatasetMode = inMemory;
        expectRefused("abc", "ABC",
                      "{MORAM_CONFIG_MSG_NAME_EXISTS} ABC. {MORAM_CONFIG_MSG_REENTER_NAME}", title);
        expectRefused(" mixed case", "MIXED CASE",
                      "{MORAM_CONFIG_MSG_NAME_EXISTS} MIXED CASE. {MORAM_CONFIG_MSG_REENTER_NAME}",
                      title);
    }
    EXPECT_EQ(sessionRows("ABC"), (Rows{{"WindowTitle", "kept"}}));
}

TEST_P(AddSession, RefusedNameCanBeMended) {
    putSession("ABC", {});
    for (int i = 0; i < 3; ++i) user().onBox();
    const Outcome outcome = show([](User& u) {
        for (const char* name : {" ", "a.b", "abc", "abcd"}) {
            u.type("txtName", name);
            u.click("btnOK");
        }
    });
    EXPECT_EQ(outcome, (Outcome{0, "ABCD"}));
    EXPECT_TRUE(sessionExists("ABCD"));
    ASSERT_EQ(user().boxes().size(), 3U);
    EXPECT_EQ(user().boxes()[0].text, "{MORAM_CONFIG_MSG_ENTER_NEW_NAME}");
    EXPECT_EQ(user().boxes()[1].text, kBadName);
    EXPECT_EQ(user().boxes()[2].title, "{MORAM_CONFIG_MSG_FORMAT_NAME}");
}

TEST_P(AddSession, CancelAndEscapeGiveNoName) {
    for (const bool byKey : {false, true}) {
        EXPECT_EQ(show(
                      [&](User& u) {
                          u.type("txtName", "new");
                          byKey ? u.pressEscape() : u.click("btnCancel");
                      },
                      "PROPOSED"),
                  (Outcome{1, ""}));
    }
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSession, ClosingByTheFrameGivesTheNameButMakesNoSession) {
    const auto closing = [&](const std::string& typed) {
        return show([&](User& u) {
            u.type("txtName", typed);
            u.closeByFrame();
        });
    };
    EXPECT_EQ(closing(" new "), (Outcome{0, " NEW "})) << "unloading is no loss of the focus";
    EXPECT_EQ(closing(""), (Outcome{1, ""}));
    EXPECT_EQ(closing("  ").result, 1);
    EXPECT_EQ(show([](User& u) { u.closeByFrame(); }, "PROPOSED"), (Outcome{0, "PROPOSED"}));
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSession, InMemoryFromNothingEmptiesTheSharedRecord) {
    g_DatasetMode = true;
    const auto shared = g_Session;
    shared->AddRow({"WindowTitle", "earlier"});
    EXPECT_EQ(show(making("new")), (Outcome{0, "NEW"}));
    EXPECT_EQ(g_Session, shared);
    EXPECT_EQ(g_Session->Name(), "NEW");
    EXPECT_EQ(g_Session->Type(), "MORAM");
    EXPECT_TRUE(g_Session->Rows().empty());
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSession, InMemoryFromABaseLoadsItsFileIntoTheSharedRecord) {
    putFullSession("BASE", {"CSV"});
    const std::string before = sessionText("BASE");
    g_DatasetMode = true;
    const auto shared = g_Session;
    shared->AddRow({"Other", "earlier"});
    EXPECT_EQ(show(making("new", "BASE")), (Outcome{0, "NEW"}));
    EXPECT_EQ(g_Session, shared);
    EXPECT_EQ(g_Session->Name(), "NEW");
    EXPECT_EQ(rowsOf(*g_Session), sessionRows("BASE"));
    EXPECT_EQ(sessionFiles(), std::vector<std::string>{"BASE.vla"});
    EXPECT_EQ(sessionText("BASE"), before);
}

TEST_P(AddSession, ABaseThatVanishedIsToldAndTheDialogStillCloses) {
    for (const bool inMemory : {false, true}) {
        g_DatasetMode = inMemory;
        g_Session->setName("EARLIER");
        putFullSession("BASE", {"CSV"});
        user().finish();
        user().onBox();
        EXPECT_EQ(show([&](User& u) {
                      memory->remove(ItemPath::item(sessionFolder, "BASE"));
                      making("new", "BASE")(u);
                  }),
                  (Outcome{0, "NEW"}));
        ASSERT_EQ(user().boxes().size(), 1U);
        EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "frmAddMORAMConfig:btnOk_Click"));
        EXPECT_NE(user().boxes()[0].text.find("BASE.vla"), std::string::npos);
        EXPECT_EQ(user().boxes()[0].style, 4112);
        EXPECT_EQ(sessionExists("NEW"), !inMemory);
        const auto made = inMemory ? g_Session : sessionRecord("NEW");
        EXPECT_EQ(made->Name(), "NEW");
        EXPECT_TRUE(made->Rows().empty());
        if (!inMemory) memory->remove(ItemPath::item(sessionFolder, "NEW"));
    }
}

TEST_P(AddSession, ADamagedBaseIsToldAndTheDialogStillCloses) {
    memory->save(ItemPath::item(sessionFolder, "BASE"), "no record");
    user().onBox();
    EXPECT_EQ(show(making("new", "BASE")), (Outcome{0, "NEW"}));
    EXPECT_TRUE(isFailureOf(user().boxes().at(0).text, "frmAddMORAMConfig:btnOk_Click"));
    EXPECT_TRUE(sessionRows("NEW").empty());
}

TEST_P(AddSession, ASaveThatFailsIsToldAndTheDialogStillCloses) {
    disk.failOn(FaultyFileSystem::Operation::Save);
    user().onBox();
    EXPECT_EQ(show(making("new")), (Outcome{0, "NEW"}));
    disk.failNowhere();
    memory->makeFolder(sessionFolder + "FOLDER.vla");
    user().onBox();
    EXPECT_EQ(show(making("folder")), (Outcome{0, "FOLDER"}));
    g_SessionFolder = "/nowhere/MORAM\\";
    user().onBox();
    EXPECT_EQ(show(making("new")), (Outcome{0, "NEW"}));
    ASSERT_EQ(user().boxes().size(), 3U);
    for (const SeenBox& box : user().boxes())
        EXPECT_TRUE(isFailureOf(box.text, "frmAddMORAMConfig:btnOk_Click")) << box.text;
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSession, ANameTooLongToCheckIsToldAndRefused) {
    user().onBox();
    user().onBox();
    frmAddMORAMConfig form;
    user().onForm("frmAddMORAMConfig", [&](User& u) {
        form.txtName.setText(std::string(32768, 'A'));
        u.click("btnOK");
        u.click("btnCancel");
    });
    form.init("");
    form.Show();
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "frmAddMORAMConfig:btnOk_Click"));
    expectRefusal(user().boxes()[1], kBadName, kBadTitle);
}

TEST_P(AddSession, CaptionsComeByKeyOrAllByDefault) {
    expectTexts<frmAddMORAMConfig>(*texts, kAddTexts, {{"frmSession", ""}});
}

TEST_P(AddSession, SharesTheFontAndDoesWithoutIt) {
    frmAddMORAMConfig form;
    form.init("");
    expectFontEverywhere(form, texts->font);
    form.Unload();
    texts->fontFailing = true;
    form.init("");
    EXPECT_EQ(form.font(), nullptr);
    EXPECT_EQ(form.btnOK.caption(), "{BUTTON_OK}");
}

TEST_P(AddSession, LoadsOnceAndKeepsItsOutcomeOverUnloading) {
    user().onForm("frmAddMORAMConfig", pressing("btnOK"));
    frmAddMORAMConfig form;
    EXPECT_FALSE(form.loaded());
    form.init("NEW");
    EXPECT_TRUE(form.loaded());
    EXPECT_TRUE(form.UniCaption1.bound());
    form.Show();
    form.Unload();
    EXPECT_EQ(form.Result(), 0);
    EXPECT_EQ(form.SessionName(), "NEW");
    EXPECT_FALSE(form.UniCaption1.bound());
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "ADD_MORAM_CONFIG_TITLE"), 1);
}

TEST_P(AddSession, MissingOkTextIsToldAndLeavesTheBoxesWithoutCaption) {
    texts->missing = {"BUTTON_OK"};
    user().onBox();
    user().onBox();
    show([](User& u) {
        EXPECT_EQ(u.formTitle(), "Add a session");
        EXPECT_EQ(u.see("cboConfigs").rowTexts(), std::vector<std::string>{kNone});
        u.click("btnOK");
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0], failureText("frmAddMORAMConfig:init", "no text for BUTTON_OK"),
                  "");
    expectRefusal(user().boxes()[1], "{MORAM_CONFIG_MSG_ENTER_NEW_NAME}", kBadTitle, "");
}

TEST_P(AddSession, MissingNoneTextCostsTheNoneRowAndMakesFromNothing) {
    putFullSession("BASE", {"CSV"});
    texts->missing = {"ADD_MORAM_CONFIG_NONE"};
    user().onBox();
    user().onBox();
    const Outcome outcome = show([](User& u) {
        EXPECT_EQ(u.see("cboConfigs").rowTexts(), std::vector<std::string>{"BASE"});
        EXPECT_EQ(u.see("cboConfigs").selected, 1U);
        making("new")(u);
    });
    EXPECT_EQ(outcome, (Outcome{0, "NEW"}));
    const std::string description = "no text for ADD_MORAM_CONFIG_NONE";
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0], failureText("frmAddMORAMConfig:loadCboConfigs", description));
    expectFailure(user().boxes()[1], failureText("frmAddMORAMConfig:btnOk_Click", description));
    EXPECT_TRUE(sessionRows("NEW").empty());
}

TEST_P(AddSession, MissingTextsOfARefusalAreToldAndTheRefusalStands) {
    putSession("ABC", {});
    struct Refusal {
        std::string name, missing, text, title;
    };
    const std::string exists = "{MORAM_CONFIG_MSG_NAME_EXISTS} ABC. ";
    const std::vector<Refusal> refusals{
        {"", "MORAM_CONFIG_MSG_ENTER_NEW_NAME", "", kBadTitle},
        {"", "MORAM_CONFIG_MSG_INVALID_CONFIG", "{MORAM_CONFIG_MSG_ENTER_NEW_NAME}", ""},
        {"A.B", "MORAM_CONFIG_MSG_INVALID_CHARS", kBadName.substr(kBadName.find('\r')), kBadTitle},
        {"A.B", "MORAM_CONFIG_MSG_INVALID_CONFIG", kBadName, ""},
        {"ABC", "MORAM_CONFIG_MSG_NAME_EXISTS", " ABC. {MORAM_CONFIG_MSG_REENTER_NAME}",
         "{MORAM_CONFIG_MSG_FORMAT_NAME}"},
        {"ABC", "MORAM_CONFIG_MSG_REENTER_NAME", exists, "{MORAM_CONFIG_MSG_FORMAT_NAME}"},
        {"ABC", "MORAM_CONFIG_MSG_FORMAT_NAME", exists + "{MORAM_CONFIG_MSG_REENTER_NAME}", ""}};
    for (const Refusal& each : refusals) {
        texts->missing = {each.missing};
        user().finish();
        user().onBox();
        user().onBox();
        show([&](User& u) {
            u.type("txtName", each.name);
            u.click("btnOK");
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), 2U) << each.missing;
        expectFailure(user().boxes()[0],
                      failureText("frmAddMORAMConfig:btnOk_Click", "no text for " + each.missing));
        expectRefusal(user().boxes()[1], each.text, each.title);
    }
}

/// The operation of the host: the add dialog, then the session dialog on the new session.
class AddSessionOperation : public AddSession {};
ON_EVERY_VIEW(AddSessionOperation);

TEST_P(AddSessionOperation, ProposesTheNameInUpperCaseAndGivesNothingOnCancel) {
    user().onForm("frmAddMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtName").text, "MINE");
        u.click("btnCancel");
    });
    std::string name = "mine";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_EQ(user().forms(), std::vector<std::string>{"frmAddMORAMConfig"});
}

TEST_P(AddSessionOperation, LeavesTheInMemoryMode) {
    g_DatasetMode = true;
    user().onForm("frmAddMORAMConfig", making("new"));
    user().onForm("frmMORAMConfig", [this](User& u) {
        EXPECT_TRUE(sessionExists("NEW"));
        u.click("btnCancel");
    });
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_FALSE(g_DatasetMode);
}

TEST_P(AddSessionOperation, CancellingTheSessionDialogTakesTheNewSessionBack) {
    user().onForm("frmAddMORAMConfig", making("new"));
    user().onForm("frmMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "NEW");
        EXPECT_TRUE(u.see("chkReverseList").value);
        u.click("btnCancel");
    });
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSessionOperation, ClosedByTheFrameOnAnExistingNameThenCancelledDeletesThatSession) {
    putFullSession("OLD", {"CSV"});
    user().onForm("frmAddMORAMConfig", [](User& u) { u.closeByFrame(); });
    user().onForm("frmMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "OLD");
        u.click("btnCancel");
    });
    std::string name = "old";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AddSessionOperation, ClosedByTheFrameOnANewNameOpensAnEmptySessionDialog) {
    user().onForm("frmAddMORAMConfig", [](User& u) { u.closeByFrame(); });
    user().onForm("frmMORAMConfig", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        u.click("btnCancel");
    });
    std::string name = "new";
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_TRUE(sessionFiles().empty());
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(AddSessionOperation, ClosedByTheFrameWithoutANameEndsThere) {
    user().onForm("frmAddMORAMConfig", [](User& u) { u.closeByFrame(); });
    std::string name;
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(user().forms(), std::vector<std::string>{"frmAddMORAMConfig"});
}

}  // namespace
}  // namespace wynconfig
