// What a key does in a form, asked without any view, and carried out by a view of another house.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/short_names.h"
#include "wynconfig/characters.h"
#include "wynconfig/form.h"
#include "wynconfig/keyboard.h"
#include "wynconfig/view.h"

namespace wynconfig {
namespace {

using ActKind = KeyAct::Kind;

/// Two tabs: one with boxes and options, one with lists and a combo box.
class KeyedForm : public Form {
  public:
    KeyedForm() : Form("frmSample") {
        for (Control* each : controls()) {
            const std::string name(each->name());
            each->GotFocus = [this, name] { log.push_back("+" + name); };
            each->LostFocus = [this, name] { log.push_back("-" + name); };
            if (auto* button = dynamic_cast<Button*>(each))
                button->Click = [this, name] { log.push_back("click " + name); };
            if (auto* list = dynamic_cast<ListView*>(each))
                list->ItemClick = [this, list] { log.push_back(list->selectedItem()->text); };
        }
    }

    Log log;
    Tabs tabs{*this, "tabs", {"&First", "&Second"}};
    Container paneFirst{*this, "paneFirst"};
    Container paneSecond{*this, "paneSecond"};
    Label lblName{*this, "lblName", "&Name"};
    Edit txtName{*this, "txtName"};
    Frame frmSide{*this, "frmSide", "S&ide"};
    OptionButton rdoTop{*this, "rdoTop", frmSide, "&Top"};
    OptionButton rdoLow{*this, "rdoLow", frmSide, "&Low"};
    CheckBox chkAll{*this, "chkAll", "&All"};
    Label lblItems{*this, "lblItems", "&Items"};
    ListView lstItems{*this, "lstItems"};
    ListView lstSymbols{*this, "lstSymbols"};
    ComboBox cboBase{*this, "cboBase"};
    Button btnUse{*this, "btnUse", "&Use"};
    Button btnDelete{*this, "btnDelete", "Delete"};
    Button btnRename{*this, "btnRename", "Rename"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

  protected:
    void Form_Load() override {
        for (ListView* list : {&lstItems, &lstSymbols}) {
            for (const char* name : {"ALPHA", "BETA", "BOLT"}) list->add(name, name);
        }
        for (const char* item : {"none", "FIRST", "SECOND"}) cboBase.addItem(item);
    }
    FormLayout declareLayout() override {
        using namespace layout;
        Layout first =
            pane(paneFirst, {field(lblName, txtName),
                             group(frmSide, {single(rdoTop), single(rdoLow)}), single(chkAll)});
        Layout second = pane(
            paneSecond, {acting(titled(lblItems, lstItems),
                                {.del = &btnDelete, .rename = &btnRename, .activate = &btnUse}),
                         acting(single(lstSymbols), {.deliberate = true}), single(cboBase),
                         row({single(btnUse), single(btnDelete), single(btnRename)})});
        return {column({layout::tabs(tabs, {std::move(first), std::move(second)}),
                        buttons({&btnOK, &btnCancel})}),
                &btnOK, &btnCancel};
    }
};

/// The smallest view that has a keyboard: it reports keys, and carries out what comes of them.
class KeyView : public View {
  public:
    std::function<void(Form&)> person;

    void press(Form& form, FormKey key) { carryOut(actOfKey(form, key), userInput()); }
    void pressMark(Form& form, const std::string& key) {
        for (const KeyHolder& each : holdersOf(form.layout().body, key))
            carryOut(actOfMark(form, each), userInput());
    }
    void type(Form& form, const std::string& letters) {
        TypeAhead ahead;
        for (const char each : letters)
            carryOut(actOfLetter(form, *form.focused(), ahead, {&each, 1}), userInput());
    }
    void carryOutAll(const KeyAct& act) { carryOut(act, userInput()); }

    void showModal(Form& form) override {
        person(form);
        if (form.loaded()) userInput().closeByFrame(form);
    }
    int showMessage(const MessageRequest&) override { return answer::Ok; }
    std::string browse(const BrowseRequest&) override { return {}; }
    void raise(Form&, bool) override {}
    long deviceContext(Form&) override { return 0; }
};

class KeyPolicy : public ::testing::Test {
  protected:
    void SetUp() override { form.Hide(); }
    void TearDown() override { installView(nullptr); }

    KeyAct act(FormKey key, std::size_t markedRow = 0) { return actOfKey(form, key, markedRow); }
    KeyAct press(Button& button) { return {ActKind::Press, &button}; }
    /// Shows the form and lets the person do this; gives the events.
    Log show(const std::function<void(KeyView&)>& person) {
        const auto view = std::make_shared<KeyView>();
        view->person = [&](Form&) {
            form.log.clear();
            person(*view);
        };
        installView(view);
        form.Show();
        return form.log;
    }

    KeyedForm form;
    const KeyAct nothing{};
};

TEST_F(KeyPolicy, EnterPressesTheDefaultButtonFromABox) {
    form.txtName.setFocus();
    EXPECT_EQ(act(FormKey::Enter), press(form.btnOK));
    form.btnOK.setEnabled(false);
    EXPECT_EQ(act(FormKey::Enter), nothing);
}

TEST_F(KeyPolicy, EnterPressesTheButtonThatHasTheFocusAndNoOther) {
    form.btnCancel.setFocus();
    EXPECT_EQ(act(FormKey::Enter), press(form.btnCancel));
    form.btnCancel.setEnabled(false);
    EXPECT_EQ(act(FormKey::Enter), nothing);
}

TEST_F(KeyPolicy, EscapePressesTheCancelButtonFromAnywhere) {
    for (Control* each :
         {static_cast<Control*>(&form.txtName), static_cast<Control*>(&form.btnOK)}) {
        each->setFocus();
        EXPECT_EQ(act(FormKey::Escape), press(form.btnCancel));
    }
    form.btnCancel.setVisible(false);
    EXPECT_EQ(act(FormKey::Escape), nothing);
}

TEST_F(KeyPolicy, KeysInAListPressTheButtonsBehindThem) {
    form.tabs.setTab(1);
    form.lstItems.setFocus();
    EXPECT_EQ(act(FormKey::Delete), nothing);
    EXPECT_EQ(act(FormKey::Enter), press(form.btnOK));
    form.lstItems.select(2);
    EXPECT_EQ(act(FormKey::Delete), press(form.btnDelete));
    EXPECT_EQ(act(FormKey::F2), press(form.btnRename));
    EXPECT_EQ(act(FormKey::Enter), press(form.btnUse));
    EXPECT_EQ(actOfDoubleClick(form, form.lstItems), press(form.btnUse));
    form.btnUse.setEnabled(false);
    form.btnRename.setVisible(false);
    EXPECT_EQ(act(FormKey::Enter), press(form.btnOK));
    EXPECT_EQ(act(FormKey::F2), nothing);
    EXPECT_EQ(actOfDoubleClick(form, form.lstItems), nothing);
}

TEST_F(KeyPolicy, KeysOfListsAreLeftToOtherControls) {
    form.lstItems.select(2);
    form.txtName.setFocus();
    EXPECT_EQ(act(FormKey::Delete), nothing);
    EXPECT_EQ(act(FormKey::F2), nothing);
}

TEST_F(KeyPolicy, EnterPicksTheMarkedRowWherePicksAreDeliberate) {
    form.tabs.setTab(1);
    form.lstSymbols.setFocus();
    EXPECT_EQ(act(FormKey::Enter), (KeyAct{ActKind::Pick, &form.lstSymbols, 1}));
    form.lstSymbols.select(2);
    EXPECT_EQ(act(FormKey::Enter), (KeyAct{ActKind::Pick, &form.lstSymbols, 2}));
    EXPECT_EQ(act(FormKey::Enter, 3), (KeyAct{ActKind::Pick, &form.lstSymbols, 3}));
    form.lstSymbols.clear();
    EXPECT_EQ(act(FormKey::Enter), press(form.btnOK));
}

TEST_F(KeyPolicy, PanesAreTurnedAroundTheEnds) {
    EXPECT_EQ(act(FormKey::NextPane), (KeyAct{ActKind::TurnTab, &form.tabs, 2}));
    EXPECT_EQ(act(FormKey::PreviousPane), (KeyAct{ActKind::TurnTab, &form.tabs, 2}));
    form.tabs.setTab(1);
    EXPECT_EQ(act(FormKey::NextPane), (KeyAct{ActKind::TurnTab, &form.tabs, 1}));
    form.tabs.setEnabled(false);
    EXPECT_EQ(act(FormKey::NextPane), nothing);
}

TEST_F(KeyPolicy, TabGoesRoundThroughWhatCanBeUsed) {
    form.chkAll.setEnabled(false);
    form.rdoTop.setTabStop(false);
    Log forward;
    Log backward;
    for (int i = 0; i < 5; ++i) {
        const KeyAct next = act(FormKey::Tab);
        ASSERT_EQ(next.kind, ActKind::Focus);
        next.control->setFocus();
        forward.emplace_back(next.control->name());
    }
    EXPECT_EQ(forward, (Log{"txtName", "rdoLow", "btnOK", "btnCancel", "txtName"}));
    for (int i = 0; i < 4; ++i) {
        const KeyAct next = act(FormKey::BackTab);
        next.control->setFocus();
        backward.emplace_back(next.control->name());
    }
    EXPECT_EQ(backward, (Log{"btnCancel", "btnOK", "rdoLow", "txtName"}));
}

TEST_F(KeyPolicy, TheOrderOfTheTabKeyIsThatOfTheLayout) {
    Log names;
    for (const Control* each : tabOrder(form.layout().body)) names.emplace_back(each->name());
    EXPECT_EQ(names, (Log{"tabs", "txtName", "rdoTop", "rdoLow", "chkAll", "lstItems", "lstSymbols",
                          "cboBase", "btnUse", "btnDelete", "btnRename", "btnOK", "btnCancel"}));
}

TEST_F(KeyPolicy, AStopIsFoundFromWithinAndFromWithout) {
    const std::vector<Control*> order{&form.txtName, &form.chkAll, &form.btnOK};
    const auto any = [](const Control&) { return true; };
    const auto none = [](const Control&) { return false; };
    const auto self = [this](const Control& each) { return &each == &form.chkAll; };
    EXPECT_EQ(nextStop(order, nullptr, true, any), &form.txtName);
    EXPECT_EQ(nextStop(order, nullptr, false, any), &form.btnOK);
    EXPECT_EQ(nextStop(order, &form.btnCancel, true, any), &form.txtName);
    EXPECT_EQ(nextStop(order, &form.btnOK, true, any), &form.txtName);
    EXPECT_EQ(nextStop(order, &form.txtName, false, any), &form.btnOK);
    EXPECT_EQ(nextStop(order, &form.chkAll, true, self), &form.chkAll);
    EXPECT_EQ(nextStop(order, &form.chkAll, true, none), nullptr);
    EXPECT_EQ(nextStop({}, nullptr, true, any), nullptr);
}

TEST_F(KeyPolicy, AMarkedKeyLeadsOrPresses) {
    EXPECT_EQ(actOfMark(form, {&form.lblName}), (KeyAct{ActKind::Focus, &form.txtName}));
    form.rdoLow.setValue(true);
    EXPECT_EQ(actOfMark(form, {&form.frmSide}), (KeyAct{ActKind::Focus, &form.rdoLow}));
    EXPECT_EQ(actOfMark(form, {&form.chkAll}), (KeyAct{ActKind::Press, &form.chkAll, 0, true}));
    EXPECT_EQ(actOfMark(form, {&form.tabs, 1}), (KeyAct{ActKind::TurnTab, &form.tabs, 2}));
    form.txtName.setEnabled(false);
    EXPECT_EQ(actOfMark(form, {&form.lblName}), nothing);
}

TEST_F(KeyPolicy, AKeyIsHeldByWhatCanBeUsedNow) {
    const auto holders = [this](const char* key) {
        Log names;
        for (const KeyHolder& each : holdersOf(form.layout().body, key))
            names.push_back(std::string(each.control->name()) + " " + std::to_string(each.tab));
        return names;
    };
    EXPECT_EQ(holders("S"), (Log{"tabs 1"}));
    EXPECT_EQ(holders("I"), (Log{"frmSide -1"}));
    EXPECT_EQ(holders("U"), Log{});
    form.tabs.setTab(1);
    EXPECT_EQ(holders("I"), (Log{"lblItems -1"}));
    EXPECT_EQ(holders("U"), (Log{"btnUse -1"}));
    form.btnDelete.setCaption("Destro&u");
    EXPECT_EQ(holders("U"), (Log{"btnUse -1", "btnDelete -1"}));
    form.lstItems.setEnabled(false);
    EXPECT_EQ(holders("I"), Log{});
}

TEST_F(KeyPolicy, LettersGoToWhatBeginsSo) {
    TypeAhead ahead;
    EXPECT_FALSE(ahead.begun());
    EXPECT_EQ(actOfLetter(form, form.lstItems, ahead, "b"),
              (KeyAct{ActKind::GoTo, &form.lstItems, 2}));
    EXPECT_TRUE(ahead.begun());
    EXPECT_EQ(actOfLetter(form, form.lstItems, ahead, "o"),
              (KeyAct{ActKind::GoTo, &form.lstItems, 3}));
    EXPECT_EQ(actOfLetter(form, form.lstItems, ahead, "x"), nothing);
    ahead.forget();
    EXPECT_EQ(actOfLetter(form, form.cboBase, ahead, "S"),
              (KeyAct{ActKind::GoTo, &form.cboBase, 3}));
    ahead.forget();
    EXPECT_EQ(actOfLetter(form, form.lstSymbols, ahead, "b"), nothing);
    EXPECT_EQ(actOfLetter(form, form.txtName, ahead, "b"), nothing);
}

TEST_F(KeyPolicy, AViewOfAnotherHouseOnlyReportsAndObeys) {
    const Log events = show([&](KeyView& view) {
        view.press(form, FormKey::Tab);
        view.pressMark(form, "A");
        EXPECT_TRUE(form.chkAll.value());
        view.pressMark(form, "L");
        EXPECT_TRUE(form.rdoLow.value());
        view.pressMark(form, "S");
        view.pressMark(form, "I");
        view.type(form, "bo");
        EXPECT_EQ(form.lstItems.selectedNumber(), 3U);
        view.press(form, FormKey::Enter);
        form.cboBase.setFocus();
        view.type(form, "f");
        EXPECT_EQ(form.cboBase.text(), "FIRST");
        view.press(form, FormKey::PreviousPane);
        EXPECT_EQ(form.tabs.tab(), 0);
        view.press(form, FormKey::Escape);
    });
    EXPECT_EQ(events,
              (Log{"+txtName", "-txtName", "+chkAll", "-chkAll", "+rdoLow", "-rdoLow", "+lstItems",
                   "BETA", "BOLT", "click btnUse", "-lstItems", "+cboBase", "click btnCancel"}));
}

TEST_F(KeyPolicy, WhatASelectedRowIsGoneToIsToldNoMore) {
    form.lstItems.select(2);
    form.tabs.setTab(1);
    const Log events = show([&](KeyView& view) {
        view.carryOutAll({ActKind::GoTo, &form.lstItems, 2});
        view.carryOutAll({ActKind::Pick, &form.lstItems, 2});
    });
    EXPECT_EQ(events, (Log{"BETA"}));
}

TEST_F(KeyPolicy, NothingIsPressedThatLeavingTheBoxBeforeSwitchedOff) {
    form.txtName.setFocus();
    form.txtName.LostFocus = [&] { form.chkAll.setEnabled(false); };
    show([&](KeyView& view) {
        view.carryOutAll({ActKind::Press, &form.chkAll, 0, true});
        EXPECT_FALSE(form.chkAll.value());
    });
}

TEST_F(KeyPolicy, NothingIsDoneToAFormThatLeavingTheBoxClosed) {
    form.txtName.setFocus();
    form.txtName.LostFocus = [&] { form.Unload(); };
    show([&](KeyView& view) {
        view.carryOutAll({ActKind::Press, &form.chkAll, 0, true});
        EXPECT_FALSE(form.loaded());
        view.carryOutAll({});
    });
}

TEST(Carets, CountCharacters) {
    EXPECT_EQ(charCount("a\u00e9\U0001F527z"), 4U);
    EXPECT_EQ(byteOffset("a\u00e9\U0001F527z", 3), 7U);
    EXPECT_EQ(byteOffset("ab", 5), 2U);
}

}  // namespace
}  // namespace wynconfig
