// What the keyboard does in a form, on every view: the keys that captions mark.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/raised.h"
#include "support/test_form.h"

namespace wynconfig {
namespace {

/// A form with a key on everything that can have one.
class KeyForm : public TestForm {
  public:
    KeyForm() : TestForm("frmKeys") {
        for (Button* each : {&btnBrowse, &btnPlain})
            each->Click = [this, each] { log.push_back("click " + std::string(each->name())); };
        btnOK.Click = [this] { Unload(); };
        chkReverse.Click = [this] { log.push_back("click chkReverse"); };
        tabAll.TabClick = [this](int from) { log.push_back("tab from " + std::to_string(from)); };
        txtName.LostFocus = [this] { log.push_back("-txtName"); };
    }

    Tabs tabAll{*this, "tabAll", {"&First", "&Second (R&&D)"}};
    Container paneFirst{*this, "paneFirst"};
    Container paneSecond{*this, "paneSecond"};
    Label lblName{*this, "lblName", "&Name"};
    Edit txtName{*this, "txtName"};
    Label lblPath{*this, "lblPath", "Pfad(&P)"};
    Edit txtPath{*this, "txtPath"};
    Button btnBrowse{*this, "btnBrowse", "&Browse"};
    Frame frmSide{*this, "frmSide", "S&ide"};
    OptionButton rdoTop{*this, "rdoTop", frmSide, "&Top"};
    OptionButton rdoBottom{*this, "rdoBottom", frmSide, "Botto&m"};
    CheckBox chkReverse{*this, "chkReverse", "&Reverse"};
    Label lblAlign{*this, "lblAlign", "&Alignment"};
    OptionButton rdoLeft{*this, "rdoLeft", "Left"};
    OptionButton rdoRight{*this, "rdoRight", "Right"};
    Label lblShown{*this, "lblShown", "&Shown name"};
    Label lblValue{*this, "lblValue"};
    Label lblItems{*this, "lblItems", "&Items"};
    ListView lstItems{*this, "lstItems"};
    Label lblBase{*this, "lblBase", "B&ase"};
    ComboBox cboBase{*this, "cboBase"};
    Button btnPlain{*this, "btnPlain", "New&"};
    Button btnOK{*this, "btnOK", "&OK"};

  protected:
    void Form_Load() override {
        UniCaption1.bind(*this);
        UniCaption1.setCaption("Name && &Path");
        lblValue.setCaption("R&D");
        lstItems.addColumn({"NAME", "A&ll", 3200, ""});
        lstItems.add("R&D", "R&D");
        cboBase.addItem("&Base");
        cboBase.setSelectedIndex(0);
        txtName.setText("T&C");
    }
    FormLayout declareLayout() override {
        using namespace layout;
        Layout first = pane(
            paneFirst, {field(lblName, txtName), field(lblPath, txtPath, {single(btnBrowse)}),
                        group(frmSide, {single(rdoTop), single(rdoBottom)}), single(chkReverse),
                        field(lblAlign, rdoLeft, {single(rdoRight)}), field(lblShown, lblValue)});
        Layout second = pane(paneSecond, {titled(lblItems, lstItems), field(lblBase, cboBase)});
        return {column({tabs(tabAll, {std::move(first), std::move(second)}),
                        row({single(btnPlain), single(btnOK)})}),
                &btnOK, &btnOK};
    }
};

class Keyboard : public TestFormDesk<KeyForm> {};
ON_EVERY_VIEW(Keyboard);

TEST_P(Keyboard, CaptionsAreSeenWithoutTheirMarks) {
    show([](User& u) {
        const std::vector<std::vector<std::string>> captions = {
            {"lblName", "Name", "N"},       {"lblPath", "Pfad", "P"},
            {"btnBrowse", "Browse", "B"},   {"frmSide", "Side", "I"},
            {"rdoBottom", "Bottom", "M"},   {"chkReverse", "Reverse", "R"},
            {"lblAlign", "Alignment", "A"}, {"btnPlain", "New", ""}};
        for (const auto& each : captions) {
            EXPECT_EQ(u.see(each[0]).caption, each[1]);
            EXPECT_EQ(u.see(each[0]).key, each[2]) << each[0];
        }
        EXPECT_EQ(u.see("tabAll").rows,
                  (std::vector<SeenRow>{{"F", "First"}, {"S", "Second (R&D)"}}));
        EXPECT_EQ(u.formTitle(), "Name & Path");
        EXPECT_EQ(u.see("UniCaption1").caption, "Name & Path");
    });
}

TEST_P(Keyboard, ValuesAndRowsAreSeenAsTheyStand) {
    show([&](User& u) {
        EXPECT_EQ(u.see("lblValue").caption, "R&D");
        EXPECT_EQ(u.see("lblValue").key, "");
        EXPECT_EQ(u.see("txtName").text, "T&C");
        EXPECT_EQ(u.see("lstItems").rowTexts(), Log{"R&D"});
        EXPECT_EQ(u.see("cboBase").text, "&Base");
        EXPECT_EQ(u.see("cboBase").rowTexts(), Log{"&Base"});
        form.lblValue.setCaption("&&P(&P)");
        EXPECT_EQ(u.see("lblValue").caption, "&&P(&P)");
    });
}

TEST_P(Keyboard, DeleteTakesOneCharacterFromATextThatTheDialogOpenedAt) {
    show([](User& u) {
        EXPECT_TRUE(u.see("txtName").focus);
        EXPECT_EQ(u.see("txtName").caret, 0U);
        u.pressDelete();
        EXPECT_EQ(u.see("txtName").text, "&C");
        u.pressDelete();
        EXPECT_EQ(u.see("txtName").text, "C");
    });
}

TEST_P(Keyboard, ALabelOfAValueMarksNoKey) {
    show([](User& u) {
        EXPECT_EQ(u.see("lblShown").caption, "Shown name");
        EXPECT_EQ(u.see("lblShown").key, "");
        u.pressMnemonic("S");
        EXPECT_EQ(u.see("tabAll").selected, 2u);
    });
}

TEST_P(Keyboard, TheKeyOfALabelLeadsToItsBox) {
    show([&](User& u) {
        u.pressMnemonic("P");
        EXPECT_TRUE(u.see("txtPath").focus);
        EXPECT_EQ(form.focused(), &form.txtPath);
        EXPECT_EQ(form.log, Log{"-txtName"});
        u.pressMnemonic("N");
        EXPECT_TRUE(u.see("txtName").focus);
        EXPECT_EQ(u.see("txtName").text, "T&C");
        u.changeTab("tabAll", 1);
        u.pressMnemonic("A");
        EXPECT_TRUE(u.see("cboBase").focus);
        u.pressMnemonic("I");
        EXPECT_TRUE(u.see("lstItems").focus);
        EXPECT_EQ(u.see("lstItems").selected, 0u);
    });
}

TEST_P(Keyboard, TheKeyOfALabelOrFrameLeadsToTheChosenOption) {
    show([&](User& u) {
        u.pressMnemonic("A");
        EXPECT_TRUE(u.see("rdoLeft").focus);
        EXPECT_FALSE(u.see("rdoLeft").value);
        u.pressMnemonic("I");
        EXPECT_TRUE(u.see("rdoTop").focus);
        form.rdoRight.setValue(true);
        form.rdoBottom.setValue(true);
        u.pressMnemonic("A");
        EXPECT_TRUE(u.see("rdoRight").focus);
        u.pressMnemonic("I");
        EXPECT_TRUE(u.see("rdoBottom").focus);
    });
}

TEST_P(Keyboard, TheKeyOfAButtonPressesItAndTakesTheFocus) {
    show([&](User& u) {
        u.pressMnemonic("B");
        EXPECT_EQ(form.log, (Log{"-txtName", "click btnBrowse"}));
        EXPECT_TRUE(u.see("btnBrowse").focus);
        u.pressMnemonic("O");
        EXPECT_FALSE(form.loaded());
    });
}

TEST_P(Keyboard, TheKeysOfCheckBoxesAndOptionsTurnThem) {
    show([&](User& u) {
        u.pressMnemonic("R");
        EXPECT_TRUE(u.see("chkReverse").value);
        u.pressMnemonic("R");
        EXPECT_FALSE(form.chkReverse.value());
        EXPECT_EQ(form.log, (Log{"-txtName", "click chkReverse", "click chkReverse"}));
        u.pressMnemonic("T");
        EXPECT_TRUE(form.rdoTop.value());
        u.pressMnemonic("M");
        EXPECT_TRUE(form.rdoBottom.value());
        EXPECT_FALSE(u.see("rdoTop").value);
        EXPECT_TRUE(u.see("rdoBottom").focus);
    });
}

TEST_P(Keyboard, TheKeyOfATabTurnsToIt) {
    show([&](User& u) {
        u.pressMnemonic("S");
        EXPECT_EQ(form.tabAll.tab(), 1);
        EXPECT_EQ(u.see("tabAll").selected, 2u);
        EXPECT_TRUE(u.see("lstItems").visible);
        u.pressMnemonic("F");
        EXPECT_EQ(form.tabAll.tab(), 0);
        EXPECT_EQ(form.log.back(), "tab from 1");
    });
}

TEST_P(Keyboard, AKeyOfNothingOrOfTwoThingsIsRefused) {
    show([&](User& u) {
        EXPECT_NE(refusalOf([&] { u.pressMnemonic("X"); }), "");
        EXPECT_NE(refusalOf([&] { u.pressMnemonic(""); }), "");
        form.btnBrowse.setEnabled(false);
        EXPECT_NE(refusalOf([&] { u.pressMnemonic("B"); }), "");
        form.btnBrowse.setEnabled(true);
        form.btnPlain.setCaption("A&bout");
        const std::string two = refusalOf([&] { u.pressMnemonic("B"); });
        EXPECT_NE(two.find("btnBrowse btnPlain"), std::string::npos) << two;
        form.btnBrowse.setVisible(false);
        u.pressMnemonic("B");
        EXPECT_EQ(form.log.back(), "click btnPlain");
        form.txtPath.setEnabled(false);
        EXPECT_NE(refusalOf([&] { u.pressMnemonic("P"); }), "");
    });
}

TEST_P(Keyboard, BoxesAreSeenWithoutMarks) {
    show([&](User& u) {
        u.onBox();
        form.UniMsgBox1.ShowMsg("Text of T&C", 0, "&Name && more", "O&k");
        const SeenBox& box = u.boxes().back();
        EXPECT_EQ(box.text, "Text of T&C");
        EXPECT_EQ(box.title, "Name & more");
        EXPECT_EQ(box.okCaption, "Ok");
        u.onBrowse("");
        form.UniBrowse.browse(true, "&Select && go", "&OK", "Abbruch(&C)", nullptr);
        const BrowseRequest& request = u.browses().back();
        EXPECT_EQ(request.title, "Select & go");
        EXPECT_EQ(request.okCaption, "OK");
        EXPECT_EQ(request.cancelCaption, "Abbruch");
    });
}

}  // namespace
}  // namespace wynconfig
