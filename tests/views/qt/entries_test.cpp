// Entries that no keyboard and no mouse made: by screen readers and dictation, input methods,
// drops, undoing and menus. What the screen shows then is what the dialog knows, and the dialog
// hears of each act once, in the order in which it hears of a person's clicks.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTabBar>
#include <QTabWidget>
#include <QWheelEvent>
#include <memory>
#include <utility>
#include <vector>

#include "support/dialog_walk.h"

namespace wynconfig {
namespace {

QAccessibleInterface* accessOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
}

void act(QWidget* widget, const QString& action) {
    QAccessibleActionInterface* actions = accessOf(widget)->actionInterface();
    EXPECT_TRUE(actions->actionNames().contains(action)) << action.toStdString();
    actions->doAction(action);
    QCoreApplication::processEvents();
}

void press(QWidget* widget) {
    act(widget, QAccessibleActionInterface::pressAction());
}

void toggle(QWidget* widget) {
    act(widget, QAccessibleActionInterface::toggleAction());
}

QLineEdit& boxOf(const Control& control) {
    return *static_cast<QLineEdit*>(widgetOf(control));
}

void setText(QWidget* widget, const QString& text) {
    accessOf(widget)->setText(QAccessible::Value, text);
}

void commit(QWidget& box, const QString& text) {
    QInputMethodEvent composed(text, {});
    QApplication::sendEvent(&box, &composed);
    QInputMethodEvent committed;
    committed.setCommitString(text);
    QApplication::sendEvent(&box, &committed);
}

void drop(QLineEdit& box, const QString& text) {
    QMimeData data;
    data.setText(text);
    const QPoint at(2, box.height() / 2);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &enter);
    QDropEvent dropped(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&box, &dropped);
}

void pasteByMenu(QLineEdit& box, const QString& text) {
    QApplication::clipboard()->setText(text);
    const std::unique_ptr<QMenu> menu(box.createStandardContextMenu());
    for (QAction* each : menu->actions()) {
        if (each->text().contains("Paste")) each->trigger();
    }
}

/// Every way in which text gets into a box, and what then stands there in place of "old".
struct Entry {
    const char* name;
    std::function<void(QLineEdit&)> make;
    QString text;
};

std::vector<Entry> entries() {
    const auto edit = [](QLineEdit& box) { return accessOf(&box)->editableTextInterface(); };
    return {
        {"the value set", [](QLineEdit& box) { setText(&box, "said"); }, "said"},
        {"text inserted", [=](QLineEdit& box) { edit(box)->insertText(1, "12"); }, "o12ld"},
        {"text replaced", [=](QLineEdit& box) { edit(box)->replaceText(0, 2, "h\u00e9"); },
         "h\u00e9d"},
        {"text deleted", [=](QLineEdit& box) { edit(box)->deleteText(0, 2); }, "d"},
        {"all deleted", [=](QLineEdit& box) { edit(box)->deleteText(0, 3); }, ""},
        {"text composed", [](QLineEdit& box) { commit(box, "\u5de5\u5177"); }, "old\u5de5\u5177"},
        {"text dropped", [](QLineEdit& box) { drop(box, "drop "); }, "drop old"},
        {"text pasted by the menu", [](QLineEdit& box) { pasteByMenu(box, " new"); }, "old new"},
        {"text pasted over and undone",
         [](QLineEdit& box) {
             box.selectAll();
             pasteByMenu(box, "new");
             box.undo();
         },
         "old"},
        {"an undoing undone",
         [](QLineEdit& box) {
             box.selectAll();
             pasteByMenu(box, "new");
             box.undo();
             box.redo();
         },
         "new"},
        {"the box cleared", [](QLineEdit& box) { box.clear(); }, ""},
    };
}

/// Checks that a control knows what the person sees.
void expectKnown(User& u, const Control& control) {
    const Sight sight = u.see(control.name());
    const std::string name(control.name());
    if (const auto* edit = dynamic_cast<const Edit*>(&control)) {
        EXPECT_EQ(edit->text(), sight.text) << name;
        EXPECT_EQ(edit->caret(), sight.caret) << name;
    } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
        EXPECT_EQ(check->value(), sight.value) << name;
    } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
        EXPECT_EQ(option->value(), sight.value) << name;
    } else if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
        EXPECT_EQ(combo->text(), sight.text) << name;
        EXPECT_EQ(static_cast<std::size_t>(combo->selectedIndex() + 1), sight.selected) << name;
    } else if (const auto* list = dynamic_cast<const ListView*>(&control)) {
        EXPECT_EQ(list->selectedNumber(), sight.selected) << name;
    } else if (const auto* tabs = dynamic_cast<const Tabs*>(&control)) {
        EXPECT_EQ(static_cast<std::size_t>(tabs->tab() + 1), sight.selected) << name;
    }
    EXPECT_EQ(control.hasFocus(), sight.focus) << name;
}

void expectAllKnown(User& u, const Form& form) {
    for (const Control* each : form.controls()) expectKnown(u, *each);
}

class Entries : public DialogWalk {
  protected:
    /// Has all events of a form written down, beside what the dialog does at them.
    void listen(Form& form) {
        log.clear();
        const auto note = [this](const std::string& line, std::function<void()>& event) {
            event = [this, line, inner = std::exchange(event, {})] {
                log.push_back(line);
                if (inner) inner();
            };
        };
        for (Control* each : form.controls()) {
            const std::string name(each->name());
            note("+" + name, each->GotFocus);
            note("-" + name, each->LostFocus);
            if (auto* button = dynamic_cast<Button*>(each)) note("click " + name, button->Click);
            if (auto* check = dynamic_cast<CheckBox*>(each)) note("click " + name, check->Click);
            if (auto* list = dynamic_cast<ListView*>(each)) note("pick " + name, list->ItemClick);
        }
    }
    /// The events of an act on a control that takes the focus first.
    static Log withFocus(const Form& form, const Control& control, const Log& events = {}) {
        Log all;
        if (form.focused() != &control) {
            if (form.focused()) all.push_back("-" + std::string(form.focused()->name()));
            all.push_back("+" + std::string(control.name()));
        }
        all.insert(all.end(), events.begin(), events.end());
        return all;
    }
    /// Does an act, and checks that it raises these events and no others.
    void expectEvents(const Log& expected, const std::function<void()>& deed) {
        log.clear();
        deed();
        QCoreApplication::processEvents();
        EXPECT_EQ(log, expected);
    }
    /// Acts on each control of a kind that can be used, in each dialog, and checks that everything
    /// on the screen is known then.
    template <class C>
    int onEach(const std::function<void(User&, Form&, C&)>& deed) {
        int count = 0;
        std::string_view last;
        lookAtEachControl([&](User& u, Form& form, Control& control) {
            if (std::exchange(last, form.name()) != form.name()) listen(form);
            auto* wanted = dynamic_cast<C*>(&control);
            if (!wanted || !u.canUse(control.name())) return;
            SCOPED_TRACE(control.name());
            deed(u, form, *wanted);
            expectAllKnown(u, form);
            ++count;
        });
        return count;
    }
    static void wait(const std::function<bool()>& what) {
        constexpr qint64 patienceMs = 5000;
        QElapsedTimer waited;
        waited.start();
        while (!what() && waited.elapsed() < patienceMs)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }

    Log log;
};
INSTANTIATE_TEST_SUITE_P(Views, Entries, ::testing::Values("Qt"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(Entries, TextsAreKnownHoweverTheyGetIntoABox) {
    const int boxes = onEach<Edit>([&](User& u, Form& form, Edit& edit) {
        for (const Entry& entry : entries()) {
            SCOPED_TRACE(entry.name);
            edit.setText("old");
            u.see(edit.name());
            boxOf(edit).end(false);
            expectEvents(withFocus(form, edit), [&] { entry.make(boxOf(edit)); });
            EXPECT_EQ(edit.text(), entry.text.toStdString());
            EXPECT_EQ(u.see(edit.name()).text, entry.text.toStdString());
            EXPECT_TRUE(edit.hasFocus());
            expectKnown(u, edit);
        }
    });
    EXPECT_GT(boxes, 15);
}

TEST_P(Entries, CaretsAreKnownWhereverAssistanceSetsThem) {
    onEach<Edit>([&](User& u, Form&, Edit& edit) {
        edit.setText("caret");
        u.see(edit.name());
        accessOf(&boxOf(edit))->textInterface()->setCursorPosition(3);
        EXPECT_EQ(edit.caret(), 3u);
        accessOf(&boxOf(edit))->textInterface()->setSelection(0, 1, 2);
        EXPECT_EQ(edit.caret(), 1u);
    });
}

TEST_P(Entries, ACheckBoxIsTurnedByItsAction) {
    const int boxes = onEach<CheckBox>([&](User& u, Form& form, CheckBox& check) {
        for (const bool value : {!check.value(), check.value()}) {
            const Log expected = withFocus(form, check, {"click " + std::string(check.name())});
            expectEvents(expected, [&] { toggle(widgetOf(check)); });
            EXPECT_EQ(check.value(), value);
            EXPECT_EQ(u.see(check.name()).value, value);
        }
    });
    EXPECT_GT(boxes, 7);
}

TEST_P(Entries, ACheckBoxIsTurnedByWhateverTurnsItsWidget) {
    onEach<CheckBox>([&](User& u, Form& form, CheckBox& check) {
        for (const bool value : {!check.value(), check.value()}) {
            const Log expected = withFocus(form, check, {"click " + std::string(check.name())});
            expectEvents(expected,
                         [&] { static_cast<QAbstractButton*>(widgetOf(check))->toggle(); });
            EXPECT_EQ(check.value(), value);
            EXPECT_EQ(u.see(check.name()).value, value);
        }
    });
}

TEST_P(Entries, AnOptionIsChosenByItsAction) {
    const int options = onEach<OptionButton>([&](User& u, Form& form, OptionButton& option) {
        expectEvents(withFocus(form, option), [&] { press(widgetOf(option)); });
        EXPECT_TRUE(option.value());
        EXPECT_TRUE(u.see(option.name()).value);
        // Nothing turns a chosen one off.
        static_cast<QAbstractButton*>(widgetOf(option))->setChecked(false);
        EXPECT_TRUE(u.see(option.name()).value);
    });
    EXPECT_GT(options, 5);
}

TEST_P(Entries, AnItemIsChosenByWhateverChoosesItInTheWidget) {
    int full = 0;
    onEach<ComboBox>([&](User& u, Form& form, ComboBox& combo) {
        if (combo.items().size() < 2) return;
        ++full;
        auto* box = static_cast<QComboBox*>(widgetOf(combo));
        const int last = box->count() - 1;
        expectEvents(withFocus(form, combo), [&] { box->setCurrentIndex(last); });
        EXPECT_EQ(combo.selectedIndex(), last);
        EXPECT_EQ(u.see(combo.name()).text, combo.items().back());
        const QPointF middle = box->rect().center();
        QWheelEvent up(middle, box->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                       Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &up);
        EXPECT_EQ(combo.selectedIndex(), last - 1);
        // None can't be chosen.
        box->setCurrentIndex(-1);
        EXPECT_EQ(u.see(combo.name()).selected, static_cast<std::size_t>(last));
    });
    EXPECT_GT(full, 0);
}

TEST_P(Entries, ARowIsPickedByItsAction) {
    const int lists = onEach<ListView>([&](User& u, Form& form, ListView& list) {
        if (list.count() == 0) return;
        list.unselect();
        u.see(list.name());
        auto* view = static_cast<QAbstractItemView*>(widgetOf(list));
        const int last = static_cast<int>(list.count()) - 1;
        QAccessibleTableInterface* rows = accessOf(view)->tableInterface();
        const Log picked{"pick " + std::string(list.name())};
        for (const int row : {last, 0}) {
            QAccessibleInterface* cell = rows->cellAt(row, 0);
            if (list.selectedNumber() == static_cast<std::size_t>(row) + 1) continue;
            expectEvents(withFocus(form, list, picked), [&] {
                cell->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
            });
            EXPECT_EQ(list.selectedNumber(), static_cast<std::size_t>(row) + 1);
            // The keyboard goes on from there.
            EXPECT_EQ(view->currentIndex().row(), row);
        }
        // As a click does, it picks the selected row once more.
        expectEvents(withFocus(form, list, picked), [&] { rows->selectRow(0); });
        // A row can't be let go.
        expectEvents({}, [&] { rows->unselectRow(0); });
        view->clearSelection();
        EXPECT_EQ(u.see(list.name()).selected, 1u);
    });
    EXPECT_GT(lists, 4);
}

TEST_P(Entries, ATabIsTurnedToByItsAction) {
    frmMORAMConfig form;
    form.init("DESK");
    user().onForm("frmMORAMConfig", [&](User& u) {
        listen(form);
        form.SSTab2.TabClick = [&, inner = form.SSTab2.TabClick](int previous) {
            log.push_back("tab from " + std::to_string(previous));
            inner(previous);
        };
        const auto turnBy = [&](const std::function<void(int)>& turn) {
            log.clear();
            for (const int tab : {1, 0}) {
                turn(tab);
                EXPECT_EQ(form.SSTab2.tab(), tab);
                expectAllKnown(u, form);
            }
            return log;
        };
        const Log clicked = turnBy([&](int tab) { u.changeTab("SSTab2", tab); });
        QAccessibleInterface* bar =
            accessOf(static_cast<QTabWidget*>(widgetOf(form.SSTab2))->tabBar());
        const Log acted = turnBy([&](int tab) {
            bar->child(tab)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        });
        EXPECT_EQ(acted, clicked);
        EXPECT_EQ(acted.front(), "tab from 0");
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(Entries, AButtonIsPressedByItsActionOnceTheFocusIsThere) {
    int left = 0;
    showEach([&](User&, Form& form) {
        listen(form);
        Button& cancel = *form.layout().cancelButton;
        const std::string name(cancel.name());
        Log expected = withFocus(form, cancel, {"click " + name});
        expectEvents(expected, [&] { press(widgetOf(cancel)); });
        EXPECT_FALSE(form.loaded());
        ++left;
    });
    EXPECT_EQ(left, static_cast<int>(allDialogs().size()));
}

TEST_P(Entries, WhatNobodyCanUseStaysAsItIs) {
    int tried = 0;
    showEach([&](User& u, Form& form) {
        listen(form);
        for (Control* each : controlsOf(form.layout().body)) {
            if (!takesFocus(*each) || u.canUse(each->name())) continue;
            SCOPED_TRACE(each->name());
            QWidget* widget = widgetOf(*each);
            const Sight before = u.see(each->name());
            expectEvents({}, [&] {
                setText(widget, "no");
                if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
                    button->toggle();
                    button->animateClick();
                    accessOf(widget)->actionInterface()->doAction(
                        QAccessibleActionInterface::pressAction());
                }
                if (auto* combo = qobject_cast<QComboBox*>(widget))
                    combo->setCurrentIndex(combo->count() - 1);
                if (auto* view = dynamic_cast<QAbstractItemView*>(widget))
                    view->selectionModel()->select(view->model()->index(0, 0),
                                                   QItemSelectionModel::ClearAndSelect);
            });
            EXPECT_EQ(u.see(each->name()).text, before.text);
            EXPECT_EQ(u.see(each->name()).value, before.value);
            EXPECT_EQ(u.see(each->name()).selected, before.selected);
            expectAllKnown(u, form);
            ++tried;
        }
    });
    EXPECT_GT(tried, 20);
}

TEST_P(Entries, ADialogWaitsForTheOneAboveIt) {
    frmMORAMConfig form;
    form.init("DESK");
    user().onForm("frmMORAMConfig", [&](User& u) {
        QWidget* name = widgetOf(form.txtDisplayName);
        QWidget* reverse = widgetOf(form.chkReverseList);
        QWidget* cancel = widgetOf(form.btnCancel);
        const bool reversed = form.chkReverseList.value();
        user().onForm("dlgAdvConfig", [&](User& above) {
            setText(name, "BELOW");
            toggle(reverse);
            press(cancel);
            EXPECT_EQ(above.formName(), "dlgAdvConfig");
            EXPECT_TRUE(form.loaded());
            above.click("CancelButton");
        });
        u.click("btnAdvanced");
        EXPECT_EQ(form.txtDisplayName.text(), "DESK");
        EXPECT_EQ(form.chkReverseList.value(), reversed);
        expectAllKnown(u, form);
        u.closeByFrame();
    });
    form.Show();
}

TEST_P(Entries, AllThatWasSaidIsStored) {
    putProgram("/programs/other.exe");
    frmMORAMConfig form;
    form.init("DESK");
    user().onForm("frmMORAMConfig", [&](User&) {
        setText(widgetOf(form.txtProgramPath), "/programs/other.exe");
        toggle(widgetOf(form.chkReverseList));
        press(widgetOf(form.rdoTop));
        // Its name is made a name when the box is left, which the last press does.
        setText(widgetOf(form.txtDisplayName), " desk two ");
        press(widgetOf(form.btnOK));
        wait([&] { return !form.loaded(); });
    });
    form.Show();
    EXPECT_EQ(form.Result(), 0);
    EXPECT_EQ(form.SessionName(), "DESK TWO");
    const Rows rows = sessionRows("DESK TWO");
    EXPECT_EQ(rows.at("ProgramPath"), "/programs/other.exe");
    EXPECT_EQ(rows.at("ReverseList"), "true");
    EXPECT_EQ(rows.at("Orientation"), "top");
}

}  // namespace
}  // namespace wynconfig
