// The file-writer dialog from the session dialog: how its choice joins the selected formats, and
// its unseen run when a session is applied.
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/dialog_checks.h"
#include "support/session_dialog_desk.h"
#include "support/session_keys.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

/// The button of the session dialog that opens the file-writer dialog.
class FileWriterButton : public SessionDialogDesk {
  protected:
    void SetUp() override {
        SessionDialogDesk::SetUp();
        putFormat("CSV");
        putFormat("PLAIN");
        putFullSession("S", {"PLAIN"});
    }
    /// Opens the file-writer dialog from the session dialog on top.
    static void open(User& u, User::Script script) {
        u.changeTab("SSTab2", 0);
        u.onForm("frmTallyvaneConfig", std::move(script));
        u.click("btnTallyvane");
        u.changeTab("SSTab2", 1);
    }
    static User::Script choosing(const std::string& format) {
        return [format](User& u) {
            u.choose("cboPartFormat", format);
            u.tick("chkWriteFileOnly", false);
            u.click("btnOk");
        };
    }
    static std::vector<std::string> selected(User& u) {
        return u.see("lstSelectedFormats2").rowTexts();
    }
};
ON_EVERY_VIEW(FileWriterButton);

TEST_P(FileWriterButton, AConfirmedFormatJoinsTheSelectedOnesWithoutAFontOfItsOwn) {
    edit("S", [this](User& u) {
        open(u, choosing("CSV"));
        EXPECT_EQ(u.see("lstSelectedFormats2").rows,
                  (std::vector<SeenRow>{{"PLAIN", "PLAIN"}, {"CSV", "CSV"}}));
        EXPECT_EQ(dialog().formatTab.lstSelectedFormats2.row(1).font, dialog().font());
        EXPECT_EQ(dialog().formatTab.lstSelectedFormats2.row(2).font, nullptr);
        open(u, choosing("PLAIN"));
        EXPECT_EQ(selected(u), (std::vector<std::string>{"PLAIN", "CSV"}));
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionRows("S")["PartFormat"], "PLAIN") << "OK there stores at once";
    EXPECT_EQ(sessionRows("S")["FormatCount"], "1");
}

#ifndef _WIN32  // which stores no such name
TEST_P(FileWriterButton, TheNoneRowAndBracketsJoinNothing) {
    putFormat("A<B");
    edit("S", [](User& u) {
        open(u, choosing(kNoneRow));
        EXPECT_EQ(g_TallyvanePartFormat, kNoneRow);
        EXPECT_EQ(selected(u), std::vector<std::string>{"PLAIN"});
        open(u, choosing("A<B"));
        EXPECT_EQ(g_TallyvanePartFormat, "A<B");
        EXPECT_EQ(selected(u), std::vector<std::string>{"PLAIN"});
        u.click("btnCancel");
    });
}
#endif

TEST_P(FileWriterButton, BeforeAnyOkNothingJoins) {
    edit("S", [](User& u) {
        open(u, pressing("btnCancel"));
        EXPECT_EQ(selected(u), std::vector<std::string>{"PLAIN"});
        open(u, [](User& t) { t.closeByFrame(); });
        EXPECT_EQ(selected(u), std::vector<std::string>{"PLAIN"});
        u.click("btnCancel");
    });
    EXPECT_EQ(g_TallyvanePartFormat, "");
}

TEST_P(FileWriterButton, CancelAddsTheLastConfirmedFormatAgain) {
    edit("S", [](User& u) {
        open(u, choosing("CSV"));
        u.pick("lstSelectedFormats2", "CSV");
        u.click("btnRemove");
        EXPECT_EQ(selected(u), std::vector<std::string>{"PLAIN"});
        open(u, pressing("btnCancel"));
        EXPECT_EQ(selected(u), (std::vector<std::string>{"PLAIN", "CSV"}));
        u.click("btnCancel");
    });
}

TEST_P(FileWriterButton, TheLastConfirmedFormatReachesTheNextSession) {
    putFullSession("T", {"PLAIN"});
    edit("S", [](User& u) {
        open(u, choosing("CSV"));
        u.click("btnCancel");
    });
    edit("T", [](User& u) {
        open(u, [](User& t) { t.closeByFrame(); });
        EXPECT_EQ(selected(u), (std::vector<std::string>{"PLAIN", "CSV"}));
        u.click("btnCancel");
    });
}

TEST_P(FileWriterButton, ARowOfAnotherCaseIsAnotherRow) {
    putFullSession("S", {"csv"});
    edit("S", [](User& u) {
        open(u, choosing("CSV"));
        EXPECT_EQ(selected(u), (std::vector<std::string>{"csv", "CSV"}));
        u.click("btnCancel");
    });
}

TEST_P(FileWriterButton, SavesUnderTheNameInTheBox) {
    const std::string before = sessionText("S");
    edit("S", [](User& u) {
        u.type("txtDisplayName", "  other ");
        u.onForm("frmTallyvaneConfig", choosing("PLAIN"));
        u.bareClick("btnTallyvane");
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"OTHER.vla", "S.vla"}));
    EXPECT_EQ(sessionText("S"), before);
}

TEST_P(FileWriterButton, InMemoryItWritesIntoTheSharedRecord) {
    auto host = std::make_shared<Dataset>();
    host->setName("HOST");
    g_PartFormats.Add(host, "HOST");
    g_Session->Load(ItemPath::item(sessionFolder, "S"));
    const std::string before = sessionText("S");
    editHeld("S", [](User& u) {
        open(u, choosing("HOST"));
        EXPECT_EQ(selected(u), (std::vector<std::string>{"PLAIN", "HOST"}));
        u.click("btnCancel");
    });
    EXPECT_EQ(g_Session->GetRow("PartFormat")[1], "HOST");
    EXPECT_EQ(g_Session->GetRow("WriteFileOnly")[1], "false");
    EXPECT_EQ(sessionText("S"), before);
}

TEST_P(FileWriterButton, WithoutTheOkTextItDoesNothing) {
    edit("S", [this](User& u) {
        g_TallyvanePartFormat = "CSV";
        texts->missing = {"BUTTON_OK"};
        u.click("btnTallyvane");
        texts->missing.clear();
        EXPECT_EQ(u.formName(), "frmMORAMConfig");
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(selected(u), std::vector<std::string>{"PLAIN"});
        u.click("btnCancel");
    });
    EXPECT_EQ(user().forms(), std::vector<std::string>{"frmMORAMConfig"});
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(FileWriterButton, ApplyingASessionRunsItUnseen) {
    putProgram("/programs/parts.exe");
    edit("S", [](User& u) { u.click("btnOK"); });
    EXPECT_EQ(user().forms(), std::vector<std::string>{"frmMORAMConfig"});
    const Rows rows = sessionRows("S");
    EXPECT_EQ(rows.at("PartFormat"), "PLAIN");
    EXPECT_EQ(rows.at("FileName"), "list.txt");
    EXPECT_EQ(rows.at("FileFolder"), "C:\\out");
    EXPECT_EQ(rows.at("FileAction"), "Append");
    EXPECT_EQ(rows.at("WriteFileOnly"), "true");
}

TEST_P(FileWriterButton, ApplyingWithoutTheOkTextLosesTheFileWriterRows) {
    putProgram("/programs/parts.exe");
    edit("S", [this](User& u) {
        texts->missing = {"BUTTON_OK"};
        u.onBox();
        u.onBox();
        u.click("btnOK");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "dlgAdvConfig:init"));
    EXPECT_EQ(user().boxes()[1].text,
              failureText("UnifrmMORAMConfig:ApplyChanges", "no text for BUTTON_OK"));
    const Rows rows = sessionRows("S");
    EXPECT_EQ(rows.at("PartFormat"), kNoneRow);
    EXPECT_EQ(rows.at("FileName"), "");
    EXPECT_EQ(rows.at("FileFolder"), "");
    EXPECT_EQ(rows.at("FileAction"), "OverWrite");
    EXPECT_EQ(rows.at("WriteFileOnly"), "false");
}

}  // namespace
}  // namespace wynconfig
