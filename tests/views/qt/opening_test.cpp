// What a dialog looks like to the person at its first moment and at a refusal: what typing would
// replace, what was refused, and that all of it is within reach on a small screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <memory>
#include <set>
#include <string>

#include "support/dialog_walk.h"
#include "support/languages.h"
#include "support/test_form.h"
#include "views/qt/widgets.h"

namespace wynconfig {
namespace {

QLineEdit* boxInFocus() {
    return qobject_cast<QLineEdit*>(window()->focusWidget());
}

QLineEdit& editOf(const Control& control) {
    return *static_cast<QLineEdit*>(widgetOf(control));
}

void pressLetter(const QString& letter) {
    QKeyEvent down(QEvent::KeyPress, letter.front().toUpper().unicode(), Qt::NoModifier, letter);
    QApplication::sendEvent(window()->focusWidget(), &down);
}

class Opening : public DialogWalk {
  protected:
    void TearDown() override {
        QApplication::setLayoutDirection(Qt::LeftToRight);
        DialogWalk::TearDown();
    }
    void showSession(const std::function<void(User&, frmMORAMConfig&)>& script) {
        frmMORAMConfig form;
        form.init("DESK");
        user().onForm("frmMORAMConfig", [&](User& u) {
            script(u, form);
            u.closeByFrame();
        });
        form.Show();
    }
};
INSTANTIATE_TEST_SUITE_P(Views, Opening, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(Opening, SelectsTheTextOfTheBoxThatHasTheFocus) {
    std::set<std::string> looked;
    showEach([&](User& u, Form& form) {
        const QLineEdit* box = boxInFocus();
        if (!box || box->text().isEmpty()) return;
        EXPECT_EQ(box->selectedText(), box->text());
        EXPECT_EQ(u.see(form.focused()->name()).caret, 0U);
        looked.emplace(form.name());
    });
    EXPECT_EQ(looked, (std::set<std::string>{"frmMORAMConfig"}));
}

TEST_P(Opening, HasALetterReplaceTheNameThatIsToBeChanged) {
    dlgSingleEntry form;
    form.setTextBox("OLD");
    user().onForm("dlgSingleEntry", [&](User& u) {
        pressLetter("n");
        EXPECT_EQ(u.see("txtTextBox").text, "n");
        pressLetter("o");
        EXPECT_EQ(u.see("txtTextBox").text, "no");
        u.closeByFrame();
    });
    form.Show();
}

/// A form with a text and a caret.
class CaretForm : public TestForm {
  public:
    CaretForm() : TestForm("frmCaret") {}
    Label lblName{*this, "lblName", "Name"};
    Edit txtName{*this, "txtName"};

  protected:
    void Form_Load() override {
        txtName.setText("ABC");
        txtName.setCaret(1);
    }
    FormLayout declareLayout() override { return {layout::field(lblName, txtName)}; }
};

TEST_P(Opening, LeavesACaretThatCodeHasSet) {
    CaretForm form;
    user().onForm("frmCaret", [&](User& u) {
        EXPECT_FALSE(boxInFocus()->hasSelectedText());
        pressLetter("x");
        EXPECT_EQ(u.see("txtName").text, "AxBC");
        u.closeByFrame();
    });
    form.Show();
}

bool isMarked(const Control& control) {
    return widgetOf(control)->palette().color(QPalette::Base) !=
           window()->palette().color(QPalette::Base);
}

class Refusal : public Opening {};
INSTANTIATE_TEST_SUITE_P(Views, Refusal, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(Refusal, MarksTheBoxUntilItsTextChanges) {
    showSession([&](User& u, frmMORAMConfig& form) {
        const Edit& name = form.txtDisplayName;
        u.type("txtDisplayName", "");
        EXPECT_FALSE(isMarked(name));
        u.onBox();
        u.click("btnOK");
        EXPECT_EQ(u.see("txtDisplayName").focus, true);
        EXPECT_TRUE(isMarked(name));
        EXPECT_FALSE(editOf(name).hasSelectedText());
        pressLetter("n");
        EXPECT_FALSE(isMarked(name));
        // Refused by Enter, which leaves the focus where it is.
        u.type("txtDisplayName", "A.B");
        u.onBox();
        u.pressEnter();
        EXPECT_TRUE(isMarked(name));
        u.setCaret("txtDisplayName", 2);
        EXPECT_TRUE(isMarked(name)) << "the text is still the one that was refused";
        u.type("txtDisplayName", "AB");
        EXPECT_FALSE(isMarked(name));
    });
}

TEST_P(Refusal, IsForgottenWhenThePersonGoesElsewhere) {
    showSession([&](User& u, frmMORAMConfig& form) {
        u.type("txtDisplayName", "");
        u.onBox();
        u.click("btnOK");
        EXPECT_TRUE(isMarked(form.txtDisplayName));
        u.pressTab();
        EXPECT_FALSE(isMarked(form.txtDisplayName));
    });
}

TEST_P(Refusal, MarksAListToo) {
    showSession([&](User& u, frmMORAMConfig& form) {
        u.changeTab("SSTab2", 1);
        u.pick("lstSelectedFormats2", "CSV");
        u.click("btnRemove");
        u.onBox();
        u.click("btnOK");
        EXPECT_TRUE(isMarked(form.formatTab.lstAvailableFormats));
        EXPECT_FALSE(isMarked(form.formatTab.lstSelectedFormats2));
        u.pick("lstAvailableFormats", "CSV");
        EXPECT_FALSE(isMarked(form.formatTab.lstAvailableFormats));
    });
}

TEST_P(Refusal, IsNotWhatAnotherFocusIsFor) {
    showSession([&](User& u, frmMORAMConfig& form) {
        form.txtDisplayName.setFocus();
        EXPECT_FALSE(isMarked(form.txtDisplayName));
        u.type("txtDisplayName", "");
        u.onBox();
        u.click("btnOK");
        u.type("txtDisplayName", "DESK");
        form.txtProgramPath.setFocus();
        EXPECT_FALSE(isMarked(form.txtProgramPath));
    });
}

/// The same texts in letters of twice the size.
struct LargeFont : ResourceManager {
    std::shared_ptr<ResourceManager> english = makeBundleResourceManager(WYNCONFIG_RESOURCES);
    std::string GetString(const std::string& key) override { return english->GetString(key); }
    Font GetFont(long handle) override {
        Font font = english->GetFont(handle);
        font.pointSize = 22;
        return font;
    }
};

/// Goes to everything that takes the focus, and looks whether it can be seen.
class SmallScreen : public Opening {
  protected:
    /// @return how many controls stood where it scrolls
    int goToEach() {
        int scrolled = 0;
        lookAtEachControl([&](User& u, Form& form, Control& control) {
            const QRect screen = window()->screen()->availableGeometry();
            EXPECT_LE(window()->height(), screen.height());
            EXPECT_LE(window()->width(), screen.width());
            if (!takesFocus(control) || !control.enabled()) return;
            u.focus(control.name());
            EXPECT_EQ(form.focused(), &control);
            const QWidget* const shown = window()->focusWidget();
            const QRect visible = shown->visibleRegion().boundingRect();
            EXPECT_GE(visible.height(), std::min(shown->height(), 40)) << control.name();
            EXPECT_GE(visible.width(), std::min(shown->width(), 100)) << control.name();
            if (window()->findChild<desktop::ScrolledContent*>()) ++scrolled;
        });
        return scrolled;
    }
};
INSTANTIATE_TEST_SUITE_P(Views, SmallScreen, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(SmallScreen, HasAllOfADialogWithinReach) {
    component.InitResourceManager(std::make_shared<LargeFont>());
    EXPECT_GT(goToEach(), 20);
}

TEST_P(SmallScreen, HasEveryLanguageWithinReach) {
    for (const std::string& language : allLanguages()) {
        SCOPED_TRACE(language);
        component.InitResourceManager(textsIn(language));
        goToEach();
    }
}

TEST_P(SmallScreen, KeepsTheButtonsThatEndTheDialogInSight) {
    component.InitResourceManager(std::make_shared<LargeFont>());
    frmPartNumberFormat form;
    form.init("");
    user().onForm("frmPartNumberFormat", [&](User& u) {
        EXPECT_NE(window()->findChild<desktop::ScrolledContent*>(), nullptr);
        for (const Button* each : {&form.btnOk, &form.btnCancel}) {
            const QWidget* const button = widgetOf(*each);
            EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect()) << each->name();
        }
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(Opening, ScrollsNothingOnAUsualScreen) {
    showEach(
        [](User&, Form&) { EXPECT_EQ(window()->findChild<desktop::ScrolledContent*>(), nullptr); });
}

/// The number of the character that is drawn at one side of a box.
int characterAtSide(QLineEdit& box, bool left) {
    box.grab();  // it finds the place of its text when it paints
    return box.cursorPositionAt({left ? 2 : box.width() - 2, box.height() / 2});
}

TEST_P(Opening, HasPathsAndNamesRunInTheirOwnDirection) {
    component.InitResourceManager(textsIn("ar"));
    QApplication::setLayoutDirection(Qt::RightToLeft);
    showSession([&](User& u, frmMORAMConfig& form) {
        QLineEdit& path = editOf(form.txtProgramPath);
        QLineEdit& name = editOf(form.txtDisplayName);
        u.type("txtProgramPath", "/parts/list-1.");
        EXPECT_EQ(characterAtSide(path, false), path.text().size()) << "the full stop is its end";
        EXPECT_LT(path.cursorPositionAt({path.width() / 2, path.height() / 2}), 5)
            << "it stands where other texts of the window do";
        u.type("txtDisplayName", "قائمة 1.");
        EXPECT_EQ(characterAtSide(name, false), 0);
        u.type("txtDisplayName", "35-0171-A");
        EXPECT_EQ(characterAtSide(name, false), name.text().size());
    });
    QApplication::setLayoutDirection(Qt::LeftToRight);
    component.InitResourceManager(textsIn("en"));
    showSession([&](User& u, frmMORAMConfig& form) {
        QLineEdit& name = editOf(form.txtDisplayName);
        u.type("txtDisplayName", "قائمة 1.");
        EXPECT_EQ(characterAtSide(name, true), name.text().size());
    });
}

}  // namespace
}  // namespace wynconfig
