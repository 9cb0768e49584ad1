// Forms and controls as such: loading and unloading, focus, events, options, lists, combo boxes and
// tabs, with a small form of the test's own on every view, and all dialogs without any view.
#include <algorithm>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "support/all_dialogs.h"
#include "support/desk.h"
#include "support/raised.h"
#include "wynconfig/form.h"
#include "wynconfig/layout.h"

namespace wynconfig {
namespace {

/// A form with one control of each kind, which notes what happens to it.
class Sample : public Form {
  public:
    Sample() : Form("Sample") {
        for (Control* each : std::initializer_list<Control*>{&first, &second, &list, &combo, &check,
                                                             &act, &ok, &cancel}) {
            each->GotFocus = [this, each] { note("+", *each); };
            each->LostFocus = [this, each] { note("-", *each); };
        }
        act.Click = [this] { log.push_back("act"); };
        check.Click = [this] { log.push_back(check.value() ? "ticked" : "unticked"); };
        list.ItemClick = [this] { log.push_back("picked " + list.selectedItem()->key); };
        tabs.TabClick = [this](int previous) {
            log.push_back("tab " + std::to_string(previous) + ">" + std::to_string(tabs.tab()));
        };
        ok.Click = [this] {
            log.push_back("ok");
            Unload();
        };
        cancel.Click = [this] {
            log.push_back("cancel");
            Unload();
        };
    }

    FormCaption bar{*this, "bar"};
    MsgBox box{*this, "box"};
    BrowseFolder browse{*this, "browse"};
    Label firstLabel{*this, "firstLabel", "First"};
    Edit first{*this, "first"};
    Label secondLabel{*this, "secondLabel", "Second"};
    Edit second{*this, "second"};
    Tabs tabs{*this, "tabs", {"One", "Two"}};
    Container pane[2]{{*this, "pane(0)"}, {*this, "pane(1)"}};
    Label listLabel{*this, "listLabel", "List"};
    ListView list{*this, "list"};
    Label comboLabel{*this, "comboLabel", "Combo"};
    ComboBox combo{*this, "combo"};
    Frame upper{*this, "upper", "Upper"};
    OptionButton up{*this, "up", upper, "Up"};
    OptionButton down{*this, "down", upper, "Down"};
    Frame lower{*this, "lower", "Lower"};
    OptionButton left{*this, "left", lower, "Left"};
    OptionButton right{*this, "right", lower, "Right"};
    OptionButton free1{*this, "free1", "Free 1"};
    OptionButton free2{*this, "free2", "Free 2"};
    CheckBox check{*this, "check", "Check"};
    Button act{*this, "act", "Act"};
    Button ok{*this, "ok", "OK"};
    Button cancel{*this, "cancel", "Cancel"};

    Log log;
    bool loadFails = false;
    bool unloadFails = false;
    bool closesAtOnce = false;
    std::function<void()> onLoad;

  protected:
    void Form_Load() override {
        log.push_back("load");
        if (onLoad) onLoad();
        if (loadFails) throw Error(errc::InvalidCall, "no load");
    }
    void Form_Unload() override {
        log.push_back("unload");
        Unload();
        if (unloadFails) throw Error(errc::InvalidCall, "no unload");
    }
    void Form_Activate() override {
        log.push_back("activate");
        if (closesAtOnce) Unload();
    }
    void Form_Resize() override { log.push_back("resize"); }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(firstLabel, first), field(secondLabel, second),
                        layout::tabs(tabs, {layout::pane(pane[0], {titled(listLabel, list)}),
                                            layout::pane(pane[1], {field(comboLabel, combo)})}),
                        row({group(upper, {row({single(up), single(down)})}),
                             group(lower, {row({single(left), single(right)})})}),
                        row({single(free1), single(free2)}), single(check),
                        row({stretch(), single(act), single(ok), single(cancel)})}),
                &ok, &cancel};
    }

  private:
    void note(const char* what, const Control& control) {
        log.push_back(what + std::string(control.name()));
    }
};

class Forms : public Desk {
  protected:
    /// Shows the form, and starts the log anew when it is on the screen.
    void show(const User::Script& script) {
        user().onForm("Sample", [&](User& u) {
            form.log.clear();
            script(u);
        });
        form.Show();
        EXPECT_FALSE(form.loaded());
    }
    static Log texts(const ListView& list) {
        Log all;
        for (const ListRow& row : list.rows()) all.push_back(row.text);
        return all;
    }
    Sample form;
};
ON_EVERY_VIEW(Forms);

TEST_P(Forms, LoadAtTheFirstTouchOfAControlAndOnlyThen) {
    EXPECT_EQ(form.name(), "Sample");
    EXPECT_EQ(form.first.name(), "first");
    EXPECT_EQ(form.first.kind(), ControlKind::Edit);
    EXPECT_EQ(&form.first.form(), &form);
    EXPECT_EQ(form.control("first"), &form.first);
    EXPECT_EQ(form.control("none"), nullptr);
    EXPECT_EQ(form.controls().front(), &form.bar);
    EXPECT_TRUE(form.first.hasFace());
    EXPECT_FALSE(form.bar.hasFace());
    form.layout();
    EXPECT_TRUE(form.log.empty());
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.first.text(), "");
    EXPECT_EQ(form.log, (Log{"load"}));
    form.first.setText("a");
    form.second.text();
    EXPECT_EQ(form.log, (Log{"load"}));
}

TEST_P(Forms, LoadByAnyProperty) {
    const std::vector<std::function<void()>> touches{[&] { form.first.visible(); },
                                                     [&] { form.first.setEnabled(true); },
                                                     [&] { form.first.caret(); },
                                                     [&] { form.list.rows(); },
                                                     [&] { form.list.clear(); },
                                                     [&] { form.combo.text(); },
                                                     [&] { form.tabs.tab(); },
                                                     [&] { form.up.value(); },
                                                     [&] { form.check.setValue(true); },
                                                     [&] { form.ok.caption(); },
                                                     [&] { form.bar.setCaption("title"); },
                                                     [&] { form.ok.setFocus(); },
                                                     [&] { form.setCaption("own"); },
                                                     [&] { form.Hide(); },
                                                     [&] { form.hDC(); },
                                                     [&] { form.list.refresh(); }};
    for (std::size_t i = 0; i < touches.size(); ++i) {
        touches[i]();
        EXPECT_TRUE(form.loaded()) << i;
        form.Unload();
    }
}

TEST_P(Forms, ShowOnALoadedFormDoesNotLoadAgain) {
    form.first.setText("kept");
    user().onForm("Sample", [](User& u) {
        EXPECT_EQ(u.see("first").text, "kept");
        u.click("cancel");
    });
    form.Show();
    EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "load"), 1);
    EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "activate"), 1);
}

TEST_P(Forms, UnloadOnceAndNeverWithoutALoad) {
    form.Unload();
    EXPECT_TRUE(form.log.empty());
    form.first.text();
    form.Unload();
    form.Unload();
    EXPECT_EQ(form.log, (Log{"load", "unload"}));
}

TEST_P(Forms, LoadAnewAfterAnUnloadInTheirStateOfDesign) {
    form.first.setText("a");
    form.first.setEnabled(false);
    form.act.setCaption("changed");
    form.act.setVisible(false);
    form.check.setValue(true);
    form.up.setValue(true);
    form.list.addColumn({"NAME", "Name", 100, ""});
    form.list.add("k", "t");
    form.list.select("k");
    form.combo.addItem("x");
    form.combo.setSelectedIndex(0);
    form.tabs.setTab(1);
    form.tabs.setCaption(1, "changed");
    form.setCaption("own");
    form.Unload();
    EXPECT_EQ(form.log, (Log{"load", "unload"}));
    EXPECT_EQ(form.first.text(), "");
    EXPECT_EQ(form.log, (Log{"load", "unload", "load"}));
    EXPECT_TRUE(form.first.enabled());
    EXPECT_EQ(form.act.caption(), "Act");
    EXPECT_TRUE(form.act.visible());
    EXPECT_FALSE(form.check.value());
    EXPECT_FALSE(form.up.value());
    EXPECT_TRUE(form.list.rows().empty());
    EXPECT_TRUE(form.list.columns().empty());
    EXPECT_EQ(form.list.selectedItem(), nullptr);
    EXPECT_TRUE(form.combo.items().empty());
    EXPECT_EQ(form.combo.selectedIndex(), -1);
    EXPECT_EQ(form.tabs.tab(), 0);
    EXPECT_EQ(form.tabs.caption(1), "Two");
    EXPECT_EQ(form.caption(), "");
}

TEST_P(Forms, ThatFailToLoadRaiseAtTheTouchAndAreLoaded) {
    form.loadFails = true;
    EXPECT_EQ(raisedBy([&] { form.first.setText("a"); }).description(), "no load");
    EXPECT_TRUE(form.loaded());
    form.first.setText("b");
    EXPECT_EQ(form.first.text(), "b");
    EXPECT_EQ(form.log, (Log{"load"}));
}

TEST_P(Forms, MayTouchTheirControlsWhileLoading) {
    form.onLoad = [&] { form.first.setText("from load"); };
    EXPECT_EQ(form.first.text(), "from load");
    EXPECT_EQ(form.log, (Log{"load"}));
}

TEST_P(Forms, ThatFailToUnloadAreUnloadedAllTheSame) {
    form.first.setText("a");
    form.unloadFails = true;
    EXPECT_EQ(raisedBy([&] { form.Unload(); }).description(), "no unload");
    EXPECT_FALSE(form.loaded());
    form.unloadFails = false;
    EXPECT_EQ(form.first.text(), "");
}

TEST_P(Forms, BearTheTitleOfTheirBoundCaptionBar) {
    form.setCaption("own");
    EXPECT_EQ(form.title(), "own");
    form.bar.setCaption("bar");
    EXPECT_EQ(form.title(), "own");
    form.bar.bind(form);
    EXPECT_EQ(form.title(), "bar");
    show([&](User& u) {
        EXPECT_EQ(u.formTitle(), "bar");
        EXPECT_EQ(u.formName(), "Sample");
        form.bar.setCaption("later");
        EXPECT_EQ(u.formTitle(), "later");
        form.bar.release();
        EXPECT_EQ(u.formTitle(), "own");
        u.click("cancel");
    });
}

TEST_P(Forms, AreVisibleWhileShownAndCloseByTheFrame) {
    EXPECT_FALSE(form.visible());
    show([&](User& u) {
        EXPECT_TRUE(form.visible());
        u.closeByFrame();
        EXPECT_FALSE(form.visible());
    });
    EXPECT_EQ(form.log, (Log{"unload"}));
}

TEST_P(Forms, TellWhenTheirFrameIsPulled) {
    show([&](User& u) {
        u.resize(9000, 9000);
        EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "resize"), 1);
        EXPECT_GT(form.width(), 0);
        EXPECT_GT(form.height(), 0);
        u.click("cancel");
    });
}

TEST_P(Forms, MayShowOneAnother) {
    Sample inner;
    form.act.Click = [&] { inner.Show(); };
    user().onForm("Sample", [&](User& u) {
        u.type("first", "outer");
        u.onForm("Sample", [](User& nested) {
            EXPECT_EQ(nested.see("first").text, "");
            nested.click("cancel");
        });
        u.click("act");
        EXPECT_EQ(u.see("first").text, "outer");
        u.click("ok");
    });
    form.Show();
    EXPECT_EQ(user().forms(), (Log{"Sample", "Sample"}));
    EXPECT_FALSE(inner.loaded());
}

TEST_P(Forms, AreNoLongerOnTopOnceTheyAreClosed) {
    Sample inner;
    form.act.Click = [&] { inner.Show(); };
    user().onForm("Sample", [&](User& u) {
        u.type("first", "outer");
        u.onForm("Sample", [](User& nested) {
            nested.type("first", "inner");
            nested.click("ok");
            EXPECT_EQ(nested.formName(), "Sample");
            EXPECT_EQ(nested.see("first").text, "outer");
        });
        u.click("act");
        u.click("ok");
        EXPECT_EQ(u.formName(), "");
        EXPECT_THROW(u.see("first"), UserError);
    });
    form.Show();
}

TEST_P(Forms, ThatCloseBeforeTheyComeUpAreNotShown) {
    form.closesAtOnce = true;
    form.Show();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(user().forms(), (Log{}));
    EXPECT_EQ(user().formName(), "");
    form.closesAtOnce = false;
    show([](User& u) { u.click("ok"); });
}

TEST_P(Forms, GoneFormsLeaveNoTrace) {
    {
        Sample gone;
        gone.first.setText("a");
    }
    show([](User& u) { u.click("cancel"); });
}

TEST_P(Forms, StartWithTheFocusOnTheFirstControlOfTheLayout) {
    show([&](User& u) {
        EXPECT_TRUE(u.see("first").focus);
        EXPECT_EQ(form.focused(), &form.first);
        u.click("cancel");
    });
}

TEST_P(Forms, StartWithTheFocusWhereTheCodePutIt) {
    form.second.setFocus();
    EXPECT_EQ(form.log, (Log{"load"}));
    show([&](User& u) {
        EXPECT_TRUE(u.see("second").focus);
        u.click("cancel");
    });
}

TEST_P(Forms, TellOfTheFocusOnRealMoves) {
    show([&](User& u) {
        u.focus("second");
        u.focus("second");
        EXPECT_EQ(form.log, (Log{"-first", "+second"}));
        form.log.clear();
        u.click("act");
        EXPECT_EQ(form.log, (Log{"-second", "+act", "act"}));
        form.log.clear();
        form.first.setFocus();
        EXPECT_EQ(form.log, (Log{"-act", "+first"}));
        form.log.clear();
        u.click("cancel");
        EXPECT_EQ(form.log, (Log{"-first", "+cancel", "cancel", "unload"}));
    });
}

TEST_P(Forms, KeepTheFocusWhenEnterPressesTheDefaultButton) {
    show([&](User& u) {
        u.type("first", "typed");
        form.log.clear();
        u.pressEnter();
        EXPECT_EQ(form.log, (Log{"ok", "unload"}));
    });
}

TEST_P(Forms, KeepTheFocusWhenEscapePressesTheCancelButton) {
    show([&](User& u) {
        u.pressEscape();
        EXPECT_EQ(form.log, (Log{"cancel", "unload"}));
    });
}

TEST_P(Forms, PressTheFocusedButtonByEnter) {
    show([&](User& u) {
        u.focus("act");
        form.log.clear();
        u.pressEnter();
        EXPECT_EQ(form.log, (Log{"act"}));
        u.click("cancel");
    });
}

TEST_P(Forms, ABareClickMovesNoFocus) {
    show([&](User& u) {
        u.bareClick("act");
        EXPECT_EQ(form.log, (Log{"act"}));
        EXPECT_TRUE(u.see("first").focus);
        u.click("cancel");
    });
}

TEST_P(Forms, UnloadingByCodeIsNoMoveOfTheFocus) {
    show([&](User&) {
        form.Unload();
        EXPECT_EQ(form.log, (Log{"unload"}));
    });
}

TEST_P(Forms, TheFocusCanNotGoWhereNobodyCouldPutIt) {
    show([&](User& u) {
        form.second.setEnabled(false);
        form.second.setFocus();
        form.act.setVisible(false);
        form.act.setFocus();
        form.bar.setFocus();
        EXPECT_TRUE(form.log.empty());
        EXPECT_EQ(form.focused(), &form.first);
        u.click("cancel");
    });
}

TEST_P(Forms, TheTabKeyGoesByTheLayout) {
    form.up.setValue(true);
    form.left.setValue(true);
    form.free1.setValue(true);
    form.second.setTabStop(false);
    form.check.setEnabled(false);
    form.act.setVisible(false);
    form.list.add("k", "t");
    show([&](User& u) {
        u.pressTab();
        EXPECT_FALSE(u.see("second").focus);
        for (int step = 0; step < 20 && !u.see("ok").focus; ++step) {
            EXPECT_FALSE(u.see("second").focus || u.see("check").focus || u.see("combo").focus);
            u.pressTab();
        }
        EXPECT_TRUE(u.see("ok").focus);
        u.pressTab();
        EXPECT_TRUE(u.see("cancel").focus);
        u.click("cancel");
    });
}

TEST_P(Forms, WhatAPersonCanNotDoIsRefused) {
    show([&](User& u) {
        form.act.setEnabled(false);
        form.check.setVisible(false);
        EXPECT_FALSE(u.canUse("act"));
        EXPECT_FALSE(u.canUse("check"));
        EXPECT_FALSE(u.canUse("combo"));
        EXPECT_THROW(u.click("act"), UserError);
        EXPECT_THROW(u.click("check"), UserError);
        EXPECT_THROW(u.choose("combo", "x"), UserError);
        EXPECT_THROW(u.click("none"), UserError);
        EXPECT_THROW(u.pick("list", "none"), UserError);
        EXPECT_TRUE(form.log.empty());
        u.click("cancel");
    });
}

TEST_P(Forms, AHandlerThatFailsEndsWithoutABoxAndTheFormStays) {
    std::string trace;
    form.act.Click = [&] {
        trace += "begun";
        throw std::runtime_error("nobody guards this");
    };
    form.second.GotFocus = [] { throw 5; };
    show([&](User& u) {
        u.click("act");
        u.focus("second");
        EXPECT_EQ(trace, "begun");
        EXPECT_TRUE(u.boxes().empty());
        EXPECT_TRUE(u.see("second").focus);
        u.click("cancel");
    });
}

TEST_P(Forms, TextWrittenByCodePutsTheCaretInFront) {
    show([&](User& u) {
        u.type("first", "部品é");
        EXPECT_EQ(form.first.text(), "部品é");
        EXPECT_EQ(form.first.caret(), 3U);
        EXPECT_EQ(u.see("first").caret, 3U);
        u.setCaret("first", 1);
        EXPECT_EQ(form.first.caret(), 1U);
        form.first.setText("other");
        EXPECT_EQ(u.see("first").text, "other");
        EXPECT_EQ(u.see("first").caret, 0U);
        form.first.setCaret(2);
        EXPECT_EQ(u.see("first").caret, 2U);
        form.first.setCaret(99);
        EXPECT_EQ(u.see("first").caret, 5U);
        form.first.setText("other");
        EXPECT_EQ(u.see("first").caret, 0U);
        u.click("cancel");
    });
}

TEST_P(Forms, CheckBoxesTellOfAPersonsClicksAlone) {
    show([&](User& u) {
        form.check.setValue(true);
        EXPECT_TRUE(u.see("check").value);
        EXPECT_TRUE(form.log.empty());
        form.check.setValue(false);
        u.bareClick("check");
        EXPECT_EQ(form.log, (Log{"ticked"}));
        u.bareClick("check");
        EXPECT_EQ(form.log, (Log{"ticked", "unticked"}));
        u.tick("check", false);
        EXPECT_FALSE(form.check.value());
        u.tick("check");
        EXPECT_TRUE(form.check.value());
        u.click("cancel");
    });
}

TEST_P(Forms, OptionsExcludeEachOtherWithinTheirFrame) {
    show([&](User& u) {
        u.tick("up");
        u.tick("right");
        u.tick("free1");
        u.tick("down");
        EXPECT_FALSE(u.see("up").value);
        EXPECT_TRUE(u.see("down").value);
        EXPECT_TRUE(u.see("right").value);
        EXPECT_TRUE(u.see("free1").value);
        u.tick("free2");
        EXPECT_FALSE(u.see("free1").value);
        u.tick("down");
        EXPECT_TRUE(form.down.value());
        u.click("cancel");
    });
}

TEST_P(Forms, OptionsSetByCodeExcludeEachOtherToo) {
    show([&](User& u) {
        form.up.setValue(true);
        form.left.setValue(true);
        form.down.setValue(true);
        EXPECT_FALSE(u.see("up").value);
        EXPECT_TRUE(u.see("down").value);
        EXPECT_TRUE(u.see("left").value);
        form.down.setValue(false);
        EXPECT_FALSE(u.see("up").value);
        EXPECT_FALSE(u.see("down").value);
        u.click("cancel");
    });
}

TEST_P(Forms, ListsTellOfEachRowThatAPersonPicks) {
    for (const std::string key : {"A", "B", "C"}) form.list.add(key, "text " + key);
    show([&](User& u) {
        EXPECT_EQ(u.see("list").rowTexts(), (Log{"text A", "text B", "text C"}));
        EXPECT_EQ(u.see("list").selected, 0U);
        form.list.select("B");
        EXPECT_EQ(u.see("list").selected, 2U);
        EXPECT_TRUE(form.log.empty());
        form.list.setFocus();
        form.log.clear();
        u.pick("list", "text C");
        u.pick("list", "text C");
        u.pick("list", "text A");
        EXPECT_EQ(form.log, (Log{"picked C", "picked C", "picked A"}));
        EXPECT_EQ(form.list.selectedNumber(), 1U);
        u.click("cancel");
    });
}

TEST_P(Forms, ListsShowWhatTheCodeChanges) {
    show([&](User& u) {
        form.list.add("A", "a");
        form.list.add("B", "b");
        form.list.add("C", "c");
        form.list.select("B");
        form.list.setRowText(1, "changed");
        EXPECT_EQ(u.see("list").rowTexts(), (Log{"changed", "b", "c"}));
        form.list.remove("A");
        EXPECT_EQ(u.see("list").rowTexts(), (Log{"b", "c"}));
        EXPECT_EQ(u.see("list").selected, 1U);
        form.list.remove("B");
        EXPECT_EQ(u.see("list").selected, 0U);
        form.list.setVisible(false);
        EXPECT_FALSE(u.see("list").visible);
        form.list.clear();
        form.list.setVisible(true);
        EXPECT_TRUE(u.see("list").rows.empty());
        EXPECT_TRUE(form.log.empty());
        u.click("cancel");
    });
}

TEST_P(Forms, ListsKeepTheirKeysApart) {
    ListView& list = form.list;
    list.add("A", "same text");
    list.add("a", "same text");
    EXPECT_EQ(raisedBy([&] { list.add("A", "x"); }).number(), errc::DuplicateKey);
    EXPECT_EQ(raisedBy([&] { list.remove("B"); }).number(), errc::NoSuchKey);
    EXPECT_EQ(raisedBy([&] { list.select("B"); }).number(), errc::NoSuchKey);
    EXPECT_EQ(raisedBy([&] { list.row(0); }).number(), errc::SubscriptRange);
    EXPECT_EQ(raisedBy([&] { list.row(3); }).number(), errc::SubscriptRange);
    EXPECT_EQ(raisedBy([&] { list.select(std::size_t{3}); }).number(), errc::SubscriptRange);
    EXPECT_EQ(raisedBy([&] { list.setRowText(3, "x"); }).number(), errc::SubscriptRange);
    EXPECT_EQ(list.count(), 2U);
    EXPECT_TRUE(list.hasKey("a"));
    EXPECT_FALSE(list.hasKey("same text"));
    list.remove("A");
    EXPECT_NO_THROW(list.add("A", "again"));
    EXPECT_EQ(texts(list), (Log{"same text", "again"}));
    list.select("A");
    EXPECT_EQ(list.selectedItem()->text, "again");
    list.unselect();
    EXPECT_EQ(list.selectedItem(), nullptr);
    EXPECT_EQ(list.selectedNumber(), 0U);
}

TEST_P(Forms, CombosFindWholeTextsExactly) {
    ComboBox& combo = form.combo;
    EXPECT_EQ(combo.text(), "");
    EXPECT_EQ(combo.selectedIndex(), -1);
    for (const std::string item : {"<none>", "CSV", "csv", "CSV"}) combo.addItem(item);
    EXPECT_EQ(combo.find("CSV"), 1);
    EXPECT_EQ(combo.find("csv"), 2);
    EXPECT_EQ(combo.find("CS"), -1);
    EXPECT_EQ(combo.find(""), -1);
    EXPECT_EQ(combo.selectedIndex(), -1);
    combo.setSelectedIndex(2);
    EXPECT_EQ(combo.text(), "csv");
    EXPECT_EQ(raisedBy([&] { combo.setSelectedIndex(4); }).number(), errc::InvalidCall);
    EXPECT_EQ(raisedBy([&] { combo.setSelectedIndex(-2); }).number(), errc::InvalidCall);
    EXPECT_EQ(combo.selectedIndex(), 2);
    combo.setSelectedIndex(-1);
    EXPECT_EQ(combo.text(), "");
    combo.setSelectedIndex(1);
    combo.clear();
    EXPECT_EQ(combo.selectedIndex(), -1);
}

TEST_P(Forms, CombosAreChosenFromByAPerson) {
    for (const std::string item : {"one", "two", "two"}) form.combo.addItem(item);
    form.tabs.setTab(1);
    show([&](User& u) {
        EXPECT_EQ(u.see("combo").rowTexts(), (Log{"one", "two", "two"}));
        EXPECT_EQ(u.see("combo").text, "");
        u.choose("combo", "two");
        EXPECT_EQ(form.combo.selectedIndex(), 1);
        EXPECT_EQ(u.see("combo").selected, 2U);
        EXPECT_THROW(u.choose("combo", "three"), UserError);
        form.combo.setSelectedIndex(0);
        EXPECT_EQ(u.see("combo").text, "one");
        u.click("cancel");
    });
}

TEST_P(Forms, TabsTellOfAPersonsClicksAlone) {
    show([&](User& u) {
        EXPECT_EQ(u.see("tabs").rowTexts(), (Log{"One", "Two"}));
        EXPECT_TRUE(u.see("list").visible);
        EXPECT_FALSE(u.see("combo").visible);
        form.tabs.setTab(1);
        EXPECT_TRUE(form.log.empty());
        EXPECT_TRUE(u.see("combo").visible);
        EXPECT_FALSE(u.see("list").visible);
        form.first.setFocus();
        form.log.clear();
        u.changeTab("tabs", 0);
        EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "tab 1>0"), 1);
        form.log.clear();
        u.changeTab("tabs", 0);
        EXPECT_TRUE(form.log.empty());
        EXPECT_EQ(u.see("tabs").selected, 1U);
        u.click("cancel");
    });
}

TEST_P(Forms, TabsRaiseForOneThatIsNotThere) {
    for (const int index : {-1, 2}) {
        EXPECT_EQ(raisedBy([&] { form.tabs.setTab(index); }).number(), errc::InvalidCall);
        EXPECT_EQ(raisedBy([&] { form.tabs.caption(index); }).number(), errc::InvalidCall);
        EXPECT_EQ(raisedBy([&] { form.tabs.setCaption(index, "x"); }).number(), errc::InvalidCall);
    }
    EXPECT_EQ(form.tabs.tab(), 0);
}

TEST_P(Forms, ShowBoxesAndTellTheAnswer) {
    user().onBox([](const SeenBox& box) {
        EXPECT_EQ(box.text, "Really?\r\nYes or no.");
        EXPECT_EQ(box.title, "Title");
        EXPECT_EQ(box.style, boxstyle::YesNo);
        return answer::Yes;
    });
    EXPECT_EQ(form.box.ShowMsg("Really?\r\nYes or no.", boxstyle::YesNo, "Title", ""), answer::Yes);
    user().onBox(answer::No);
    EXPECT_EQ(form.box.ShowMsg("Really?", boxstyle::YesNo, "", ""), answer::No);
    user().onBox(answer::Ok);
    EXPECT_EQ(form.box.ShowMsg("Told.", boxstyle::Critical, "Title", "Fine"), answer::Ok);
    EXPECT_EQ(user().boxes().back().okCaption, "Fine");
}

TEST_P(Forms, BrowseForAPathOrNone) {
    // A real dialog takes what is there alone.
    const auto inTheSystemsSpelling = [](const char* path) {
        return std::filesystem::path(path).make_preferred().string();
    };
    const std::string file = inTheSystemsSpelling(WYNCONFIG_SOURCE "/CMakeLists.txt");
    const std::string folder = inTheSystemsSpelling(WYNCONFIG_SOURCE "/src");
    user().onBrowse(file);
    user().onBrowse("");
    user().onBrowse(folder);
    EXPECT_EQ(form.browse.browse(true, "Title", "Take", "Leave", nullptr), file);
    EXPECT_EQ(form.browse.browse(true, "Title", "Take", "Leave", nullptr), "");
    EXPECT_EQ(form.browse.browse(false, "Folder", "Take", "Leave", nullptr), folder);
    ASSERT_EQ(user().browses().size(), 3U);
    const BrowseRequest& request = user().browses().front();
    EXPECT_EQ(request.title, "Title");
    EXPECT_EQ(request.okCaption, "Take");
    EXPECT_EQ(request.cancelCaption, "Leave");
    EXPECT_TRUE(request.files);
    EXPECT_FALSE(user().browses().back().files);
}

TEST_P(Forms, OpenOnTheTabThatTheCodePutOnTop) {
    form.tabs.setTab(1);
    form.list.add("k", "t");
    user().onForm("Sample", [&](User& u) {
        EXPECT_EQ(u.see("tabs").selected, 2U);
        EXPECT_TRUE(u.see("combo").visible);
        EXPECT_FALSE(u.see("list").visible);
        EXPECT_EQ(std::count(form.log.begin(), form.log.end(), "tab 1>0"), 0);
        u.click("cancel");
    });
    form.Show();
}

TEST_P(Forms, ShowEnabledStatesAndBackgrounds) {
    show([&](User& u) {
        form.first.setEnabled(false);
        form.first.setBackground(Background::InactiveBorder);
        form.second.setTabStop(false);
        EXPECT_FALSE(u.see("first").enabled);
        EXPECT_EQ(u.see("first").background, Background::InactiveBorder);
        EXPECT_FALSE(u.see("second").tabStop);
        form.upper.setVisible(false);
        EXPECT_FALSE(u.see("up").visible);
        EXPECT_FALSE(u.see("upper").visible);
        EXPECT_TRUE(u.see("left").visible);
        u.click("cancel");
    });
}

/// Each dialog where nobody sits at a screen.
class WithoutAView : public ::testing::TestWithParam<Dialog> {
  protected:
    void SetUp() override {
        ConfigGlobalModule::reset();
        installView(nullptr);
        memory->makeFolder("/store");
        setFileSystem(&disk);
        component.InitResourceManager(std::make_shared<TestTexts>());
        component.init("/store/");
        disk.resetCounts();
    }
    void TearDown() override {
        setFileSystem(nullptr);
        ConfigGlobalModule::reset();
    }
    void expectNothingWritten() {
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Save), 0U);
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Remove), 0U);
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::MakeFolder), 0U);
    }

    WYNConfig component;
    std::unique_ptr<FileSystem> memory = makeMemoryFileSystem();
    FaultyFileSystem disk{*memory};
};
INSTANTIATE_TEST_SUITE_P(Dialogs, WithoutAView, ::testing::ValuesIn(allDialogs()),
                         [](const auto& each) { return each.param.name; });

TEST_P(WithoutAView, ADialogIsCancelledAndChangesNothing) {
    const auto form = GetParam().make();
    form->Show();
    EXPECT_FALSE(form->loaded());
    EXPECT_EQ(GetParam().result(*form), 1);
    expectNothingWritten();
}

TEST_P(WithoutAView, ADialogAnswersAsOftenAsItIsAsked) {
    const auto form = GetParam().make();
    for (int i = 0; i < 3; ++i) form->Show();
    EXPECT_EQ(GetParam().result(*form), 1);
    EXPECT_FALSE(form->loaded());
    expectNothingWritten();
}

TEST_P(WithoutAView, ADialogStillLoadsAndUnloads) {
    const auto form = GetParam().make();
    EXPECT_EQ(form->hDC(), 0);
    EXPECT_TRUE(form->loaded());
    EXPECT_NE(form->title(), "");
    form->Unload();
    EXPECT_FALSE(form->loaded());
}

TEST(NoView, GivesEachQuestionTheAnswerThatChangesNothing) {
    installView(nullptr);
    Sample form;
    EXPECT_EQ(form.box.ShowMsg("Delete?", boxstyle::YesNo, "", ""), answer::No);
    EXPECT_EQ(form.box.ShowMsg("Told.", boxstyle::Critical, "", ""), answer::Ok);
    EXPECT_EQ(form.box.ShowMsg("Told.", boxstyle::Critical | boxstyle::SystemModal, "", ""),
              answer::Ok);
    EXPECT_EQ(form.browse.browse(true, "", "", "", nullptr), "");
    EXPECT_EQ(form.hDC(), 0);
    EXPECT_NO_THROW(currentView().raise(form, true));
    form.log.clear();
    form.Show();
    EXPECT_EQ(form.log, (Log{"activate", "cancel", "unload"}));
}

TEST(NoView, TheOperationsOfTheComponentEndCancelled) {
    installView(nullptr);
    ConfigGlobalModule::reset();
    const auto memory = makeMemoryFileSystem();
    memory->makeFolder("/store");
    setFileSystem(memory.get());
    WYNConfig component;
    component.InitResourceManager(std::make_shared<TestTexts>());
    component.init("/store/");
    std::string name = "mine";
    EXPECT_EQ(component.showMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "MINE");
    EXPECT_EQ(component.showAddMORAMConfigDlg(name), 1);
    EXPECT_EQ(name, "");
    EXPECT_TRUE(memory->listItems("/store/MORAM\\").empty());
    setFileSystem(nullptr);
    ConfigGlobalModule::reset();
}

}  // namespace
}  // namespace wynconfig
