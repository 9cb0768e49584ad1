// The desktop view and the person who drives it, on a form that has one control of each kind.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <clocale>
#include <map>

#include "support/qt_windows.h"
#include "support/raised.h"
#include "support/temporary_folder.h"
#include "support/test_form.h"
#include "wynconfig/error.h"
#include "wynconfig/qt_view.h"

namespace {

using namespace wynconfig;

class SampleForm : public TestForm {
  public:
    explicit SampleForm(std::string_view formName = "frmSample") : TestForm(formName) {}

    std::function<void()> onResize;

    Tabs SSTab{*this, "SSTab", {"Launch", "Formats"}};
    Container paneLaunch{*this, "paneLaunch"};
    Container paneFormats{*this, "paneFormats"};
    Frame frmNames{*this, "frmNames", "Names"};
    Label lblName{*this, "lblName", "Display Name"};
    Edit txtName{*this, "txtName"};
    Label lblPath{*this, "lblPath", "Program Path"};
    Edit txtPath{*this, "txtPath"};
    Button btnBrowse{*this, "btnBrowse", "Browse"};
    Label lblBase{*this, "lblBase", "Based on"};
    ComboBox cboBase{*this, "cboBase"};
    Frame frmSide{*this, "frmSide", "Orientation"};
    OptionButton rdoTop{*this, "rdoTop", frmSide, "Top"};
    OptionButton rdoBottom{*this, "rdoBottom", frmSide, "Bottom"};
    Frame frmMatch{*this, "frmMatch"};
    Edit txtTitle{*this, "txtTitle"};
    OptionButton rdoContains{*this, "rdoContains", frmMatch, "Contains"};
    OptionButton rdoMatches{*this, "rdoMatches", frmMatch, "Matches"};
    CheckBox chkReverse{*this, "chkReverse", "Reverse <List> Order"};
    Label lblValue{*this, "lblValue", "Display Name"};
    Label lblShown{*this, "lblShown"};
    Label lblItems{*this, "lblItems", "Part Formats"};
    ListView lstItems{*this, "lstItems"};
    ListView lstHeaded{*this, "lstHeaded"};
    Button btnAdd{*this, "btnAdd", ">"};
    Button btnRemove{*this, "btnRemove", "<"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};
    Button btnApply{*this, "btnApply", "Apply"};

  protected:
    void Form_Load() override {
        UniCaption1.bind(*this);
        UniCaption1.setCaption("Sample");
        for (ListView* list : {&lstItems, &lstHeaded}) {
            list->addColumn({"NAME", "Available", 3200, "Stores the name of the item"});
            for (const char* name : {"ALPHA", "BETA", "GAMMA"})
                list->add(std::string("k") + name, name);
        }
        for (const char* item : {"none", "FIRST", "SECOND"}) cboBase.addItem(item);
        cboBase.setSelectedIndex(0);
        connect();
    }
    void Form_Resize() override {
        log.push_back("resize");
        if (onResize) onResize();
    }
    void Form_Unload() override { log.push_back("unload"); }
    FormLayout declareLayout() override;

  private:
    void note(std::string event) { log.push_back(std::move(event)); }
    void connect() {
        for (Control* each : controls()) {
            const std::string name(each->name());
            each->GotFocus = [this, name] { note("+" + name); };
            each->LostFocus = [this, name] { note("-" + name); };
            if (auto* button = dynamic_cast<Button*>(each))
                button->Click = [this, name] { note("click " + name); };
            if (auto* list = dynamic_cast<ListView*>(each))
                list->ItemClick = [this, list] { note("pick " + list->selectedItem()->text); };
        }
        chkReverse.Click = [this] { note("click chkReverse"); };
        SSTab.TabClick = [this](int previous) { note("tab from " + std::to_string(previous)); };
        btnOK.Click = btnCancel.Click = [this] {
            note("close");
            Unload();
        };
    }
};

FormLayout SampleForm::declareLayout() {
    using namespace layout;
    Layout launch = pane(
        paneLaunch,
        {group(frmNames, {field(lblName, txtName), field(lblPath, txtPath, {single(btnBrowse)}),
                          field(lblBase, cboBase)}),
         row({group(frmSide, {single(rdoTop), single(rdoBottom)}),
              growing(group(frmMatch,
                            {single(txtTitle), row({single(rdoContains), single(rdoMatches)})}))}),
         single(chkReverse)});
    Layout formats =
        pane(paneFormats,
             {field(lblValue, lblShown),
              growing(row({growing(titled(lblItems, lstItems)),
                           column({stretch(), single(btnAdd), single(btnRemove), stretch()}),
                           growing(single(lstHeaded))}))});
    return {column({growing(tabs(SSTab, {std::move(launch), std::move(formats)})),
                    row({stretch(), single(btnOK), single(btnCancel), single(btnApply)})}),
            &btnOK, &btnCancel};
}

/// A form without a size and with one button, as a second window.
class SmallForm : public Form {
  public:
    SmallForm() : Form("frmSmall") {}
    Label lblText{*this, "lblText", "Text"};
    Edit txtText{*this, "txtText"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override {
        btnOK.Click = [this] { Unload(); };
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(lblText, txtText), row({stretch(), single(btnOK)})}), &btnOK,
                nullptr};
    }
};

class QtViewTest : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        view = makeQtView();
    }
    static void TearDownTestSuite() { view.reset(); }
    void SetUp() override {
        installView(view);
        view->onShown({});
    }
    void TearDown() override {
        installView(nullptr);
        EXPECT_NO_THROW(user.finish());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }

    /// Shows the sample and has the person do this, then leave by Cancel unless that is done.
    void show(const User::Script& script) {
        bool ran = false;
        user.onForm("frmSample", [&](User& person) {
            form.log.clear();
            script(person);
            ran = true;
            if (form.loaded()) person.click("btnCancel");
        });
        form.Show();
        user.finish();
        EXPECT_TRUE(ran);
    }
    template <class W>
    static W* widget(const char* name) {
        return window()->findChild<W*>(QString::fromLatin1(name));
    }
    static std::string faultsOf(User& person) {
        return refusalOf([&] { person.finish(); });
    }

    static std::shared_ptr<QtView> view;
    User& user = view->user();
    SampleForm form;
};

std::shared_ptr<QtView> QtViewTest::view;

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(QtViewTest, EveryControlOfTheLayoutHasOneWidgetOfItsName) {
    show([&](User&) {
        std::map<QString, int> found;
        for (const QWidget* each : window()->findChildren<QWidget*>()) ++found[each->objectName()];
        for (const Control* each : controlsOf(form.layout().body)) {
            const QString name = QString::fromUtf8(each->name().data());
            EXPECT_EQ(found[name], 1) << each->name();
        }
    });
}

TEST_F(QtViewTest, ALabelIsTheBuddyOfItsBoxAndNamesIt) {
    show([&](User&) {
        EXPECT_EQ(widget<QLabel>("lblName")->buddy(), widget<QWidget>("txtName"));
        EXPECT_EQ(widget<QLabel>("lblItems")->buddy(), widget<QWidget>("lstItems"));
        EXPECT_EQ(widget<QWidget>("txtPath")->accessibleName(), "Program Path");
        EXPECT_EQ(widget<QWidget>("lstItems")->accessibleName(), "Part Formats");
        form.lblPath.setCaption("Programm");
        form.frmMatch.setCaption("Window Title");
        user.see("lblPath");
        EXPECT_EQ(widget<QWidget>("txtPath")->accessibleName(), "Programm");
        EXPECT_EQ(widget<QWidget>("txtTitle")->accessibleName(), "Window Title");
    });
}

TEST_F(QtViewTest, TheTitleIsThatOfTheCaptionBar) {
    show([&](User& person) {
        EXPECT_EQ(person.formName(), "frmSample");
        EXPECT_EQ(person.formTitle(), "Sample");
        form.UniCaption1.setCaption("Other");
        EXPECT_EQ(person.formTitle(), "Other");
        EXPECT_EQ(person.see("UniCaption1").caption, "Other");
        EXPECT_FALSE(person.see("UniMsgBox1").visible);
    });
}

TEST_F(QtViewTest, DialogsBelongToTheWindowOfTheHost) {
    const auto parent = [&] {
        QWidget* found = nullptr;
        show([&](User&) { found = window()->parentWidget(); });
        return found;
    };
    {
        QWidget host;
        QLineEdit box(&host);
        host.show();
        view->setOwner(&box);
        EXPECT_EQ(parent(), &host);
        view->setOwner(nullptr);
        EXPECT_NE(parent(), &host);
        view->setOwner(static_cast<std::uintptr_t>(host.winId()));
        EXPECT_EQ(parent(), &host);
    }
    EXPECT_EQ(parent(), nullptr);  // the host's window has gone
    view->setOwner(std::uintptr_t{0});
}

TEST_F(QtViewTest, BoxesBelongToTheWindowOfTheHost) {
    QWidget host;
    view->setOwner(&host);
    QWidget* parent = nullptr;
    user.onBox([&](const SeenBox&) {
        parent = window()->parentWidget();
        return answer::Ok;
    });
    view->showMessage({});
    EXPECT_EQ(parent, &host);
    view->setOwner(nullptr);
}

TEST_F(QtViewTest, TheFirstTabStopHasTheFocusAndWasTold) {
    user.onForm("frmSample", [&](User& person) {
        EXPECT_EQ(form.log, (Log{"+txtName"}));
        EXPECT_TRUE(person.see("txtName").focus);
        EXPECT_EQ(form.focused(), &form.txtName);
        person.pressEscape();
    });
    form.Show();
}

TEST_F(QtViewTest, TheFocusGivenBeforeShowingStands) {
    form.txtPath.setFocus();
    show([&](User& person) {
        EXPECT_TRUE(person.see("txtPath").focus);
        EXPECT_FALSE(person.see("txtName").focus);
    });
}

TEST_F(QtViewTest, TypingReachesTheModelWithTheCaretAtTheEnd) {
    show([&](User& person) {
        person.type("txtPath", "C:\\tools");
        EXPECT_EQ(form.txtPath.text(), "C:\\tools");
        EXPECT_EQ(form.txtPath.caret(), 8u);
        EXPECT_EQ(form.log, (Log{"-txtName", "+txtPath"}));
        person.type("txtPath", "x");
        EXPECT_EQ(form.txtPath.text(), "x");
        person.type("txtPath", "");
        EXPECT_EQ(form.txtPath.text(), "");
    });
}

TEST_F(QtViewTest, CaretsCountCharacters) {
    show([&](User& person) {
        person.type("txtName", "a\U0001F600b");
        EXPECT_EQ(form.txtName.text(), "a\U0001F600b");
        EXPECT_EQ(form.txtName.caret(), 3u);
        person.setCaret("txtName", 2);
        EXPECT_EQ(form.txtName.caret(), 2u);
        EXPECT_EQ(widget<QLineEdit>("txtName")->cursorPosition(), 3);
        form.txtName.setCaret(1);
        EXPECT_EQ(person.see("txtName").caret, 1u);
        EXPECT_EQ(widget<QLineEdit>("txtName")->cursorPosition(), 1);
    });
}

TEST_F(QtViewTest, TheCaretOutlivesTheFocus) {
    show([&](User& person) {
        person.type("txtName", "abcdef");
        widget<QLineEdit>("txtName")->setSelection(2, 3);
        EXPECT_EQ(form.txtName.caret(), 2u);
        person.focus("txtPath");
        EXPECT_EQ(form.txtName.caret(), 2u);
        EXPECT_EQ(person.see("txtName").caret, 2u);
        person.focus("txtName");
        EXPECT_EQ(person.see("txtName").caret, 2u);
    });
}

TEST_F(QtViewTest, AClickMovesTheFocusFirst) {
    show([&](User& person) {
        person.click("btnBrowse");
        EXPECT_EQ(form.log, (Log{"-txtName", "+btnBrowse", "click btnBrowse"}));
        form.log.clear();
        person.bareClick("btnApply");
        EXPECT_EQ(form.log, (Log{"click btnApply"}));
        EXPECT_TRUE(person.see("btnBrowse").focus);
    });
}

TEST_F(QtViewTest, EnterAndEscapePressWithoutMovingTheFocus) {
    show([&](User& person) {
        person.pressEnter();
        EXPECT_EQ(form.log, (Log{"close", "unload"}));
    });
    show([&](User& person) {
        person.pressEscape();
        EXPECT_EQ(form.log, (Log{"close", "unload"}));
    });
}

TEST_F(QtViewTest, EnterOnAButtonPressesThatOne) {
    show([&](User& person) {
        person.focus("btnApply");
        form.log.clear();
        person.pressEnter();
        EXPECT_EQ(form.log, (Log{"click btnApply"}));
    });
}

TEST_F(QtViewTest, EnterInAListPressesTheDefaultButton) {
    show([&](User& person) {
        person.changeTab("SSTab", 1);
        person.pick("lstItems", "BETA");
        form.log.clear();
        person.pressEnter();
        EXPECT_EQ(form.log, (Log{"close", "unload"}));
    });
}

TEST_F(QtViewTest, EscapeWithoutACancelButtonDoesNothing) {
    SmallForm small;
    user.onForm("frmSmall", [&](User& person) {
        person.pressEscape();
        EXPECT_TRUE(small.loaded());
        person.pressEnter();
        EXPECT_FALSE(small.loaded());
    });
    small.Show();
}

TEST_F(QtViewTest, EnterDoesNotPressADisabledButton) {
    show([&](User& person) {
        form.btnOK.setEnabled(false);
        person.pressEnter();
        EXPECT_TRUE(form.loaded());
        EXPECT_EQ(form.log, Log{});
    });
}

TEST_F(QtViewTest, TheTabKeyFollowsTheLayoutAndPassesOverWhatIsNoStop) {
    show([&](User& person) {
        form.txtPath.setTabStop(false);
        person.pressTab();
        EXPECT_TRUE(person.see("btnBrowse").focus);
        EXPECT_FALSE(person.see("txtPath").tabStop);
        EXPECT_TRUE(person.see("btnBrowse").tabStop);
        person.pressTab();
        EXPECT_TRUE(person.see("cboBase").focus);
        person.focus("txtPath");
        EXPECT_EQ(form.focused(), &form.txtPath);
    });
}

TEST_F(QtViewTest, APickIsToldOnceAndAgainForTheSelectedRow) {
    show([&](User& person) {
        person.changeTab("SSTab", 1);
        person.focus("btnAdd");
        form.log.clear();
        person.pick("lstItems", "BETA");
        EXPECT_EQ(form.log, (Log{"-btnAdd", "+lstItems", "pick BETA"}));
        EXPECT_EQ(form.lstItems.selectedNumber(), 2u);
        form.log.clear();
        person.pick("lstItems", "BETA");
        EXPECT_EQ(form.log, (Log{"pick BETA"}));
        EXPECT_EQ(person.see("lstItems").selected, 2u);
    });
}

TEST_F(QtViewTest, ArrowKeysPickRows) {
    show([&](User& person) {
        person.changeTab("SSTab", 1);
        person.pick("lstItems", "ALPHA");
        form.log.clear();
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QApplication::sendEvent(widget<QTreeView>("lstItems"), &down);
        EXPECT_EQ(form.log, (Log{"pick BETA"}));
    });
}

TEST_F(QtViewTest, ChangesByCodeShowAndRaiseNothing) {
    show([&](User& person) {
        form.txtName.setText("N");
        form.chkReverse.setValue(true);
        form.rdoTop.setValue(true);
        form.rdoBottom.setValue(true);
        form.cboBase.setSelectedIndex(2);
        form.lstItems.add("kDELTA", "DELTA");
        form.lstItems.select("kDELTA");
        form.lblName.setCaption("Name && <b>more</b>");
        form.frmSide.setCaption("Side");
        form.btnApply.setEnabled(false);
        form.btnBrowse.setVisible(false);
        form.txtPath.setBackground(Background::InactiveBorder);
        EXPECT_EQ(person.see("txtName").text, "N");
        EXPECT_TRUE(person.see("chkReverse").value);
        EXPECT_FALSE(person.see("rdoTop").value);
        EXPECT_TRUE(person.see("rdoBottom").value);
        EXPECT_EQ(person.see("cboBase").text, "SECOND");
        EXPECT_EQ(person.see("lstItems").rows[3], (SeenRow{"kDELTA", "DELTA"}));
        EXPECT_EQ(person.see("lstItems").selected, 4u);
        EXPECT_EQ(person.see("lblName").caption, "Name & <b>more</b>");
        EXPECT_EQ(widget<QLabel>("lblName")->textFormat(), Qt::PlainText);
        EXPECT_EQ(person.see("frmSide").caption, "Side");
        EXPECT_FALSE(person.canUse("btnApply"));
        EXPECT_FALSE(person.see("btnBrowse").visible);
        EXPECT_EQ(person.see("txtPath").background, Background::InactiveBorder);
        EXPECT_EQ(person.see("txtName").background, Background::Window);
        form.txtPath.setBackground(Background::Window);
        EXPECT_EQ(person.see("txtPath").background, Background::Window);
        form.SSTab.setTab(1);
        EXPECT_TRUE(person.see("lstItems").visible);
        EXPECT_FALSE(person.see("chkReverse").visible);
        // The focus was on the tab that went; that it went elsewhere is a real move.
        std::erase_if(form.log,
                      [](const std::string& each) { return each[0] == '+' || each[0] == '-'; });
        EXPECT_EQ(form.log, Log{});
    });
}

TEST_F(QtViewTest, CodeMovesTheFocusToWhatItJustEnabled) {
    form.txtPath.setEnabled(false);
    show([&](User& person) {
        form.txtPath.setEnabled(true);
        form.txtPath.setFocus();
        EXPECT_TRUE(person.see("txtPath").focus);
        EXPECT_EQ(form.log, (Log{"-txtName", "+txtPath"}));
    });
}

TEST_F(QtViewTest, FocusThatIsTurnedOutIsTold) {
    show([&](User& person) {
        form.txtName.setEnabled(false);
        EXPECT_FALSE(person.see("txtName").focus);
        ASSERT_NE(form.focused(), nullptr);
        EXPECT_TRUE(person.see(form.focused()->name()).focus);
    });
}

TEST_F(QtViewTest, TextThatABoxCantShowSurvivesUnseen) {
    const std::string odd = "a\tb\r\nc\x01\xff \U0001F600";
    form.txtPath.setText(odd);
    show([&](User& person) {
        person.focus("txtPath");
        person.setCaret("txtPath", 2);
        person.focus("txtName");
        form.txtPath.setEnabled(false);
        person.see("txtPath");
        EXPECT_EQ(form.txtPath.text(), odd);
    });
}

TEST_F(QtViewTest, AnOptionTurnsOffTheOthersOfItsFrameAlone) {
    show([&](User& person) {
        person.tick("rdoTop");
        person.tick("rdoMatches");
        person.tick("rdoBottom");
        EXPECT_FALSE(person.see("rdoTop").value);
        EXPECT_TRUE(form.rdoBottom.value());
        EXPECT_TRUE(form.rdoMatches.value());
        person.click("rdoBottom");
        EXPECT_TRUE(person.see("rdoBottom").value);
    });
}

TEST_F(QtViewTest, ATickRaisesOneClick) {
    show([&](User& person) {
        person.tick("chkReverse");
        person.tick("chkReverse");
        EXPECT_TRUE(form.chkReverse.value());
        EXPECT_EQ(form.log, (Log{"-txtName", "+chkReverse", "click chkReverse"}));
        person.tick("chkReverse", false);
        EXPECT_FALSE(form.chkReverse.value());
    });
}

TEST_F(QtViewTest, AnItemOfAComboBoxIsChosen) {
    show([&](User& person) {
        person.choose("cboBase", "SECOND");
        EXPECT_EQ(form.cboBase.selectedIndex(), 2);
        EXPECT_EQ(person.see("cboBase").rowTexts(), (Log{"none", "FIRST", "SECOND"}));
        person.choose("cboBase", "FIRST");
        EXPECT_EQ(person.see("cboBase").text, "FIRST");
        EXPECT_EQ(form.log, (Log{"-txtName", "+cboBase"}));
    });
}

TEST_F(QtViewTest, ATabIsChangedOnce) {
    show([&](User& person) {
        person.changeTab("SSTab", 1);
        person.changeTab("SSTab", 1);
        EXPECT_EQ(form.SSTab.tab(), 1);
        EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "tab from 0"), 1);
        EXPECT_TRUE(person.see("paneFormats").visible);
        EXPECT_FALSE(person.see("paneLaunch").visible);
        EXPECT_EQ(person.see("SSTab").rowTexts(), (Log{"Launch", "Formats"}));
    });
}

TEST_F(QtViewTest, TheHandlerOfATabMovesTheFocusToTheNewPane) {
    show([&](User& person) {
        form.SSTab.TabClick = [&](int) { form.btnAdd.setFocus(); };
        person.changeTab("SSTab", 1);
        EXPECT_TRUE(person.see("btnAdd").focus);
        EXPECT_EQ(form.log, (Log{"-txtName", "+btnAdd"}));
    });
}

TEST_F(QtViewTest, AHeadingIsShownOnceOnly) {
    show([&](User&) {
        EXPECT_TRUE(widget<QTreeView>("lstItems")->isHeaderHidden());
        EXPECT_FALSE(widget<QTreeView>("lstHeaded")->isHeaderHidden());
    });
}

TEST_F(QtViewTest, RefusedActsSayWhatIsThere) {
    show([&](User& person) {
        const std::string missing = refusalOf([&] { person.click("btnNone"); });
        EXPECT_TRUE(contains(missing, "btnNone")) << missing;
        EXPECT_TRUE(contains(missing, "txtName") && contains(missing, "btnApply")) << missing;
        form.btnApply.setEnabled(false);
        form.btnBrowse.setVisible(false);
        EXPECT_EQ(refusalOf([&] { person.click("btnApply"); }), "btnApply is disabled");
        EXPECT_EQ(refusalOf([&] { person.bareClick("btnApply"); }), "btnApply is disabled");
        EXPECT_EQ(refusalOf([&] { person.click("btnBrowse"); }), "btnBrowse is hidden");
        EXPECT_EQ(refusalOf([&] { person.pick("lstItems", "ALPHA"); }), "lstItems is hidden");
        EXPECT_EQ(refusalOf([&] { person.choose("cboBase", "THIRD"); }),
                  "cboBase has no item \"THIRD\"");
        EXPECT_EQ(refusalOf([&] { person.changeTab("SSTab", 2); }), "SSTab has no tab 2");
        EXPECT_NE(refusalOf([&] { person.type("chkReverse", "x"); }), "");
        EXPECT_NE(refusalOf([&] { person.click("txtName"); }), "");
        EXPECT_NE(refusalOf([&] { person.focus("lblName"); }), "");
        person.changeTab("SSTab", 1);
        EXPECT_EQ(refusalOf([&] { person.pick("lstItems", "OMEGA"); }),
                  "lstItems has no row \"OMEGA\"");
    });
}

TEST_F(QtViewTest, FormsNest) {
    SmallForm small;
    show([&](User& person) {
        form.btnApply.Click = [&] { small.Show(); };
        user.onForm("frmSmall", [&](User&) {
            EXPECT_EQ(person.formName(), "frmSmall");
            EXPECT_NE(refusalOf([&] { person.see("txtName"); }), "");
            person.type("txtText", "abc");
            EXPECT_EQ(small.txtText.text(), "abc");
            person.click("btnOK");
            EXPECT_EQ(person.formName(), "frmSample");
        });
        person.click("btnApply");
        EXPECT_FALSE(small.loaded());
        EXPECT_EQ(person.formName(), "frmSample");
        EXPECT_EQ(form.log, (Log{"-txtName", "+btnApply"}));
        person.type("txtName", "still here");
        EXPECT_EQ(form.txtName.text(), "still here");
    });
    EXPECT_EQ(user.formName(), "");
}

TEST_F(QtViewTest, BoxesAreAnsweredByTheirButtons) {
    EXPECT_EQ(form.UniMsgBox1.ShowMsg("t", boxstyle::OkOnly, "T", "Ok"), answer::Ok);
    EXPECT_TRUE(contains(faultsOf(user), "unannounced"));
    user.onBox(answer::Yes);
    EXPECT_EQ(form.UniMsgBox1.ShowMsg("t", boxstyle::YesNo, "T", ""), answer::Yes);
    user.onBox(answer::No);
    EXPECT_EQ(form.UniMsgBox1.ShowMsg("t", boxstyle::YesNo, "T", ""), answer::No);
    EXPECT_EQ(form.UniMsgBox1.ShowMsg("t", boxstyle::YesNo, "T", ""), answer::No);
    EXPECT_TRUE(contains(faultsOf(user), "unannounced"));
    user.onBox(answer::Yes);
    EXPECT_EQ(form.UniMsgBox1.ShowMsg("t", boxstyle::OkOnly, "T", ""), answer::Ok);
    EXPECT_TRUE(contains(faultsOf(user), "has no button 6"));
    form.Unload();
}

TEST_F(QtViewTest, ABoxShowsItsTextAsItIs) {
    const std::string text = "<b>bold</b> & more\r\n         \\ / : * ? \" < > | ";
    user.onBox([&](const SeenBox& seen) {
        EXPECT_EQ(seen.text, text);
        EXPECT_EQ(seen.okCaption, "Okay");
        const auto* box = qobject_cast<QMessageBox*>(window());
        if (!box) {
            ADD_FAILURE() << "no message box on the screen";
            return answer::Ok;
        }
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->text().toStdString(), "<b>bold</b> & more\n         \\ / : * ? \" < > | ");
        EXPECT_EQ(box->windowTitle(), "Title");
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        EXPECT_TRUE(box->windowFlags() & Qt::WindowStaysOnTopHint);
        EXPECT_EQ(box->button(QMessageBox::Ok)->text(), "Okay");
        return answer::Ok;
    });
    form.UniMsgBox1.ShowMsg(text, boxstyle::Critical | boxstyle::SystemModal, "Title", "Okay");
    form.Unload();
}

TEST_F(QtViewTest, ABoxOfAFormThatWasNeverShownStandsOverTheFormOnTop) {
    SampleForm hidden("frmHidden");
    show([&](User& person) {
        form.btnApply.Click = [&] { hidden.UniMsgBox1.ShowMsg("t", 0, "T", ""); };
        user.onBox([&](const SeenBox&) {
            EXPECT_EQ(window()->parentWidget()->objectName(), "frmSample");
            const auto* box = qobject_cast<QMessageBox*>(window());
            EXPECT_TRUE(box && box->icon() == QMessageBox::NoIcon);
            return answer::Ok;
        });
        person.click("btnApply");
        EXPECT_EQ(form.log, (Log{"-txtName", "+btnApply"}));
    });
}

TEST_F(QtViewTest, BrowsingGivesThePathPicked) {
    const TemporaryFolder folder;
    const std::string& dir = folder.path();
    const std::string file = dir + "/program.exe";
    ASSERT_TRUE(QFile(QString::fromStdString(file)).open(QIODevice::WriteOnly));
    user.onBrowse(file);
    EXPECT_EQ(form.UniBrowse.browse(true, "Select", "OK", "Cancel", nullptr), file);
    EXPECT_EQ(user.browses().at(0).title, "Select");
    user.onBrowse(dir);
    EXPECT_EQ(form.UniBrowse.browse(false, "Select", "OK", "Cancel", nullptr), dir);
    user.onBrowse("");
    EXPECT_EQ(form.UniBrowse.browse(false, "Select", "OK", "Cancel", nullptr), "");
    user.finish();
    user.onBrowse(dir + "/none");
    EXPECT_EQ(form.UniBrowse.browse(true, "Select", "OK", "Cancel", nullptr), "");
    EXPECT_TRUE(contains(faultsOf(user), "/none"));
    EXPECT_EQ(form.UniBrowse.browse(true, "Select", "OK", "Cancel", nullptr), "");
    EXPECT_TRUE(contains(faultsOf(user), "unannounced"));
    form.Unload();
}

TEST_F(QtViewTest, TheFrameClosesAForm) {
    show([&](User& person) {
        person.closeByFrame();
        EXPECT_FALSE(form.loaded());
        EXPECT_EQ(form.log, (Log{"unload"}));
    });
}

TEST_F(QtViewTest, AnUnannouncedFormIsCancelledAndNamed) {
    form.Show();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.log, (Log{"+txtName", "close", "unload"}));
    EXPECT_TRUE(contains(faultsOf(user), "frmSample"));
}

TEST_F(QtViewTest, AFormLeftOpenIsClosedAndNamed) {
    SmallForm small;
    user.onForm("frmSmall", [](User&) {});
    small.Show();
    EXPECT_FALSE(small.loaded());
    EXPECT_TRUE(contains(faultsOf(user), "frmSmall was left open"));
}

TEST_F(QtViewTest, AScriptThatFailsCancelsTheForm) {
    user.onForm("frmSample", [](User& person) { person.click("btnNone"); });
    form.Show();
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(contains(faultsOf(user), "there is no btnNone"));
}

TEST_F(QtViewTest, AHandlerThatFailsLeavesTheFormOpen) {
    show([&](User& person) {
        form.btnApply.Click = [] { throw Error(errc::InvalidCall, "failed"); };
        form.chkReverse.Click = [] { throw 1; };
        person.click("btnApply");
        person.click("chkReverse");
        EXPECT_TRUE(form.loaded());
        EXPECT_TRUE(person.see("btnApply").visible);
    });
}

TEST_F(QtViewTest, TenThousandRowsAreLaidOutOnce) {
    for (int i = 0; i < 10000; ++i)
        form.lstItems.add("k" + std::to_string(i), "R" + std::to_string(i));
    show([&](User& person) {
        person.changeTab("SSTab", 1);
        QAbstractItemModel* rows = widget<QTreeView>("lstItems")->model();
        EXPECT_EQ(rows->rowCount(), 10003);
        int resets = 0;
        QObject::connect(rows, &QAbstractItemModel::modelReset, rows, [&] { ++resets; });
        person.pick("lstItems", "R9999");
        form.lstItems.setEnabled(false);
        form.lstItems.setEnabled(true);
        person.canUse("btnAdd");
        EXPECT_EQ(resets, 0);
        EXPECT_EQ(form.lstItems.selectedItem()->key, "k9999");
        for (int i = 0; i < 100; ++i) form.lstItems.remove("k" + std::to_string(i));
        person.canUse("btnAdd");
        EXPECT_EQ(resets, 1);
        EXPECT_EQ(rows->rowCount(), 9903);
    });
}

TEST_F(QtViewTest, AFormOfFixedSizeSnapsBack) {
    form.setSize(12000, 9000);
    form.onResize = [&] { form.setSize(12000, 9000); };
    show([&](User& person) {
        const QSize before = window()->size();
        EXPECT_GE(before.width(), 12000 * 96 / 1440);
        person.resize(3000, 3000);
        person.canUse("btnOK");
        EXPECT_EQ(form.log, (Log{"resize"}));
        EXPECT_EQ(window()->size(), before);
        EXPECT_EQ(form.width(), 12000);
    });
}

TEST_F(QtViewTest, AFormWithoutASizeCanBePulled) {
    show([&](User& person) {
        const QSize natural = window()->size();
        EXPECT_GE(natural.width(), window()->minimumSizeHint().width());
        person.resize(15000, 12000);
        person.canUse("btnOK");
        EXPECT_EQ(form.log, (Log{"resize"}));
        EXPECT_EQ(form.width(), 15000);
        EXPECT_EQ(window()->width(), 1000);
        EXPECT_EQ(window()->height(), 800);
    });
}

TEST_F(QtViewTest, NothingIsCutOff) {
    form.setSize(1, 1);
    show([&](User& person) {
        for (const Control* each : controlsOf(form.layout().body)) {
            if (dynamic_cast<const CaptionedControl*>(each) == nullptr) continue;
            const int tab = person.see("paneLaunch").visible ? 0 : 1;
            const auto* shown = widget<QWidget>(std::string(each->name()).c_str());
            if (!shown->isVisible()) person.changeTab("SSTab", 1 - tab);
            EXPECT_TRUE(person.see(each->name()).visible) << each->name();
            EXPECT_GE(shown->width(), shown->minimumSizeHint().width()) << each->name();
            EXPECT_GE(shown->height(), shown->minimumSizeHint().height()) << each->name();
        }
        EXPECT_EQ(widget<QWidget>("btnOK")->width(), widget<QWidget>("btnCancel")->width());
        EXPECT_EQ(widget<QWidget>("btnOK")->width(), widget<QWidget>("btnApply")->width());
    });
}

TEST_F(QtViewTest, TheWatcherSeesWhatCameUpBeforeThePersonActs) {
    Log shown;
    view->onShown([&](const std::string& name) {
        EXPECT_TRUE(window() && window()->isVisible());
        EXPECT_EQ(form.loaded(), true);
        shown.push_back(name);
    });
    show([&](User& person) {
        EXPECT_EQ(shown, (Log{"frmSample"}));
        form.btnApply.Click = [&] {
            form.UniMsgBox1.ShowMsg("t", 0, "T", "");
            form.UniBrowse.browse(false, "B", "", "", nullptr);
        };
        user.onBox();
        user.onBrowse("");
        person.click("btnApply");
    });
    EXPECT_EQ(shown, (Log{"frmSample", "box", "browse"}));
}

TEST_F(QtViewTest, APictureIsSaved) {
    const TemporaryFolder folder;
    const std::string file = (folder / "top.png").string();
    EXPECT_THROW(view->savePicture(file), UserError);
    show([&](User&) {
        view->savePicture(file);
        EXPECT_GT(QFile(QString::fromStdString(file)).size(), 1000);
        EXPECT_THROW(view->savePicture(folder.path() + "/none/top.png"), UserError);
    });
}

TEST_F(QtViewTest, RaisingMakesNoWindowAndStandsWhenShown) {
    view->raise(form, true);
    EXPECT_GT(view->deviceContext(form), 0);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
    show([&](User&) {
        EXPECT_TRUE(window()->windowFlags() & Qt::WindowStaysOnTopHint);
        view->raise(form, false);
    });
    show([&](User&) { EXPECT_FALSE(window()->windowFlags() & Qt::WindowStaysOnTopHint); });
}

TEST_F(QtViewTest, WithoutAUserThePersonAtTheDeskIsWaitedFor) {
    view->dismissUser();
    bool waited = false;
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(0, [&] {
            waited = form.loaded();
            window()->findChild<QPushButton*>("btnOK")->click();
        });
    });
    form.Show();
    EXPECT_TRUE(waited);
    EXPECT_EQ(form.log, (Log{"+txtName", "close", "unload"}));
    view->user();
}

TEST_F(QtViewTest, NumbersOfTheProcessReadAsBefore) {
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST_F(QtViewTest, AFormCanUnloadAsItComesUp) {
    form.txtName.setText("loads the form");
    form.txtName.GotFocus = [&] { form.Unload(); };
    form.Show();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(user.forms(), Log{});
}

}  // namespace
