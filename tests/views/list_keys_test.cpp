// What the keyboard and the mouse do in lists and combo boxes beside picking, on every view.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialogs/session/frmMORAMMaintenance.h"
#include "support/part_format_desk.h"
#include "support/session_dialog_desk.h"
#include "support/test_form.h"

namespace wynconfig {
namespace {

/// A list with acts, one without, and one where a pick acts.
class ListForm : public TestForm {
  public:
    ListForm() : TestForm("frmLists") {
        for (Button* each : {&btnDelete, &btnRename, &btnOpen})
            each->Click = [this, each] { log.push_back(std::string(each->name())); };
        for (ListView* each : {&lstActs, &lstPlain, &lstTokens})
            each->ItemClick = [this, each] { log.push_back(each->selectedItem()->text); };
        btnOK.Click = [this] { Unload(); };
    }

    std::vector<std::string> rows{"ALPHA", "BALL", "BETA", "beta two", "Öl", "部品"};
    Edit txtName{*this, "txtName"};
    ListView lstActs{*this, "lstActs"};
    ListView lstPlain{*this, "lstPlain"};
    ListView lstTokens{*this, "lstTokens"};
    ComboBox cboBase{*this, "cboBase"};
    Button btnDelete{*this, "btnDelete", "Delete"};
    Button btnRename{*this, "btnRename", "Rename"};
    Button btnOpen{*this, "btnOpen", "Open"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override {
        for (const std::string& row : rows) {
            for (ListView* each : {&lstActs, &lstPlain, &lstTokens}) each->add(row, row);
            cboBase.addItem(row);
        }
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {
            column({single(txtName),
                    row({acting(single(lstActs),
                                {.del = &btnDelete, .rename = &btnRename, .activate = &btnOpen}),
                         single(lstPlain), acting(single(lstTokens), {.deliberate = true})}),
                    single(cboBase), row({single(btnDelete), single(btnRename), single(btnOpen)}),
                    buttons({&btnOK})}),
            &btnOK, &btnOK};
    }
};

class ListKeys : public TestFormDesk<ListForm> {};
ON_EVERY_VIEW(ListKeys);

TEST_P(ListKeys, PressTheButtonsBehindThem) {
    show([&](User& u) {
        u.pick("lstActs", "BETA");
        u.pressDelete();
        u.pressF2();
        u.pressEnter();
        EXPECT_EQ(form.log, (Log{"BETA", "btnDelete", "btnRename", "btnOpen"}));
        EXPECT_TRUE(u.see("lstActs").focus);
        EXPECT_EQ(u.see("lstActs").selected, 3u);
    });
}

TEST_P(ListKeys, PressNothingThatCantBeUsed) {
    show([&](User& u) {
        u.pick("lstActs", "BETA");
        form.log.clear();
        form.btnDelete.setEnabled(false);
        form.btnRename.setVisible(false);
        form.btnOpen.setVisible(false);
        u.pressDelete();
        u.pressF2();
        EXPECT_EQ(form.log, Log{});
        u.pressEnter();
        EXPECT_EQ(form.log, Log{});
        EXPECT_FALSE(form.loaded());
    });
}

TEST_P(ListKeys, PressNothingWithoutASelectedRow) {
    show([&](User& u) {
        u.focus("lstActs");
        u.pressDelete();
        u.pressF2();
        EXPECT_EQ(form.log, Log{});
        u.pressEnter();
        EXPECT_EQ(form.log, Log{});
        EXPECT_FALSE(form.loaded());
    });
}

TEST_P(ListKeys, AreThoseOfTheListThatHasTheFocus) {
    show([&](User& u) {
        u.pick("lstActs", "BETA");
        u.pick("lstPlain", "BETA");
        form.log.clear();
        u.pressDelete();
        u.pressF2();
        EXPECT_EQ(form.log, Log{});
        u.type("txtName", "a\U0001F600bc");
        u.setCaret("txtName", 1);
        u.pressDelete();
        u.pressF2();
        EXPECT_EQ(form.log, Log{});
        EXPECT_EQ(u.see("txtName").text, "abc");
        EXPECT_EQ(form.txtName.caret(), 1u);
        u.setCaret("txtName", 3);
        u.pressDelete();
        EXPECT_EQ(form.txtName.text(), "abc");
        u.focus("lstPlain");
        u.pressEnter();
        EXPECT_FALSE(form.loaded());
    });
}

TEST_P(ListKeys, ADoubleClickPicksOnceAndActs) {
    show([&](User& u) {
        u.doubleClick("lstActs", "BALL");
        EXPECT_EQ(form.log, (Log{"BALL", "btnOpen"}));
        form.log.clear();
        form.btnOpen.setEnabled(false);
        u.doubleClick("lstActs", "BETA");
        EXPECT_EQ(form.log, (Log{"BETA", "BETA"}));
        form.log.clear();
        u.doubleClick("lstPlain", "BETA");
        EXPECT_EQ(form.log, (Log{"BETA", "BETA"}));
        form.log.clear();
        u.pick("lstActs", "BETA");
        EXPECT_EQ(form.log, Log{"BETA"});
        EXPECT_THROW(u.doubleClick("lstActs", "NONE"), UserError);
    });
}

TEST_P(ListKeys, ADoubleClickMayEndTheForm) {
    form.btnOpen.Click = [&] { form.Unload(); };
    show([&](User& u) {
        u.doubleClick("lstActs", "BALL");
        EXPECT_FALSE(form.loaded());
    });
}

TEST_P(ListKeys, LettersPickTheFirstRowThatBeginsSo) {
    show([&](User& u) {
        u.typeAhead("lstPlain", "be");
        EXPECT_EQ(form.log, (Log{"BALL", "BETA"}));
        EXPECT_EQ(u.see("lstPlain").selected, 3u);
        EXPECT_TRUE(u.see("lstPlain").focus);
        u.typeAhead("lstPlain", "BETA T");
        EXPECT_EQ(u.see("lstPlain").selected, 4u);
        form.log.clear();
        u.typeAhead("lstPlain", "ö");
        u.typeAhead("lstPlain", "部");
        EXPECT_EQ(form.log, (Log{"Öl", "部品"}));
        u.typeAhead("lstPlain", "部x");
        u.typeAhead("lstPlain", "z");
        EXPECT_EQ(form.log, (Log{"Öl", "部品"}));
    });
}

TEST_P(ListKeys, ALetterAgainAndAgainGoesThroughItsRows) {
    show([&](User& u) {
        u.typeAhead("lstPlain", "bbbbb");
        EXPECT_EQ(form.log, (Log{"BALL", "BETA", "beta two", "BALL", "BETA"}));
        form.log.clear();
        u.typeAhead("lstPlain", "aa");
        EXPECT_EQ(form.log, Log{"ALPHA"});
    });
}

TEST_P(ListKeys, LettersChooseInAComboBox) {
    show([&](User& u) {
        u.typeAhead("cboBase", "be");
        EXPECT_EQ(u.see("cboBase").text, "BETA");
        EXPECT_EQ(form.cboBase.selectedIndex(), 2);
        u.typeAhead("cboBase", "beta t");
        EXPECT_EQ(form.cboBase.text(), "beta two");
        u.typeAhead("cboBase", "x");
        EXPECT_EQ(u.see("cboBase").text, "beta two");
        EXPECT_THROW(u.typeAhead("txtName", "x"), UserError);
    });
}

TEST_P(ListKeys, WherePicksActLettersPickNothing) {
    show([&](User& u) {
        u.typeAhead("lstTokens", "beta");
        EXPECT_EQ(form.log, Log{});
        EXPECT_EQ(u.see("lstTokens").selected, 0u);
        u.pressEnter();
        EXPECT_EQ(form.log, Log{"ALPHA"});
        u.pick("lstTokens", "BETA");
        u.pressEnter();
        EXPECT_EQ(form.log, (Log{"ALPHA", "BETA", "BETA"}));
        u.doubleClick("lstTokens", "BALL");
        EXPECT_EQ(form.log, (Log{"ALPHA", "BETA", "BETA", "BALL", "BALL"}));
        EXPECT_TRUE(form.loaded());
    });
}

TEST_P(ListKeys, FindLettersInTenThousandRowsAtOnce) {
    form.rows.clear();
    for (int i = 0; i < 10000; ++i) form.rows.push_back("PART FORMAT " + std::to_string(i));
    show([&](User& u) {
        u.typeAhead("lstPlain", "part format 9999");
        EXPECT_EQ(form.lstPlain.selectedItem()->text, "PART FORMAT 9999");
    });
}

class FormatTabKeys : public FullSessionDesk {};
ON_EVERY_VIEW(FormatTabKeys);

TEST_P(FormatTabKeys, MoveFormatsBetweenTheLists) {
    putFormat("TAB");
    putFormat("ZIP");
    open("DESK", [](User& u) {
        u.changeTab("SSTab2", 1);
        u.doubleClick("lstAvailableFormats", "ZIP");
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), (Log{"CSV", "ZIP"}));
        u.typeAhead("lstAvailableFormats", "t");
        u.pressEnter();
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), (Log{"CSV", "ZIP", "TAB"}));
        u.doubleClick("lstSelectedFormats2", "CSV");
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), (Log{"ZIP", "TAB"}));
        u.pick("lstSelectedFormats2", "TAB");
        u.pressDelete();
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), Log{"ZIP"});
        u.pick("lstSelectedFormats2", "ZIP");
        u.pressEnter();
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), Log{});
    });
}

TEST_P(FormatTabKeys, RenameAndDeleteAnAvailableFormat) {
    putFormat("ZIP");
    open("DESK", [&](User& u) {
        u.changeTab("SSTab2", 1);
        u.pick("lstAvailableFormats", "ZIP");
        u.onForm("dlgSingleEntry", [](User& prompt) { prompt.pressEscape(); });
        u.pressF2();
        u.onBox(answer::Yes);
        u.pressDelete();
        EXPECT_EQ(u.see("lstAvailableFormats").rowTexts(), Log{"CSV"});
    });
}

class MaintenanceKeys : public Desk {};
ON_EVERY_VIEW(MaintenanceKeys);

TEST_P(MaintenanceKeys, ADoubleClickTakesTheSession) {
    putSession("DESK", {});
    putSession("NIGHT", {});
    frmMORAMMaintenance form;
    form.init("DESK");
    user().onForm("frmMORAMMaintenance",
                  [](User& u) { u.doubleClick("lstAvailableMORAMs2", "NIGHT"); });
    form.Show();
    EXPECT_EQ(form.SessionName(), "NIGHT");
    EXPECT_EQ(form.Result(), 0);
}

class SymbolKeys : public PartFormatDesk {};
ON_EVERY_VIEW(SymbolKeys);

TEST_P(SymbolKeys, LettersWriteNoSymbolAndEnterWritesOne) {
    edit("", [](User& u) {
        u.typeAhead("lstSpecialSymbols2", "<T");
        EXPECT_EQ(u.see("txtHeader").text, "");
        u.pick("lstSpecialSymbols2", "<TAB>");
        u.pressEnter();
        EXPECT_EQ(u.see("txtHeader").text, "<TAB><TAB>");
        u.click("btnCancel");
    });
}

}  // namespace
}  // namespace wynconfig
