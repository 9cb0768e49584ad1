// How a person finds a row in a long list, and what an empty list says: the cases that hold on
// every view with windows. The tests of such a view include them in one source, and say there how a
// list is worked by the view's own means.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/find_form.h"

namespace wynconfig::longlists {

enum class Key { Up, Down, Home, Delete, F2, Enter };

// For each view to define. They mean the form in front.
bool isLineSeen(const ListView& list);
std::string lineText(const ListView& list);
void clearLine(const ListView& list);
/// Whether what is typed goes into the line above a list, and whether it goes to the rows.
bool isInLine(const ListView& list);
bool isInRows(const ListView& list);
/// What stands on a list in place of its rows; empty where it has some.
std::string noteOn(const ListView& list);
void press(Key key);
void pressCtrlF();
/// Types letters where the focus is.
void type(const std::string& letters);

class LongLists : public TestFormDesk<FindForm> {
  protected:
    void find(const std::string& text) {
        pressCtrlF();
        ASSERT_TRUE(isInLine(form.lstAll));
        type(text);
    }
    static Log seen(User& u) { return u.see("lstAll").rowTexts(); }
};

TEST_P(LongLists, HaveALineAboveThemWhereTheyHaveMoreThanTwentyRows) {
    form.rows = 20;
    show([&](User& u) {
        EXPECT_FALSE(isLineSeen(form.lstAll));
        form.fill(21);
        u.see("lstAll");
        EXPECT_TRUE(isLineSeen(form.lstAll));
        EXPECT_FALSE(isLineSeen(form.lstTokens));
        form.lstAll.setVisible(false);
        u.see("lstAll");
        EXPECT_FALSE(isLineSeen(form.lstAll));
    });
}

TEST_P(LongLists, ShowTheRowsThatContainWhatIsTyped) {
    show([&](User& u) {
        find("w 19");
        EXPECT_EQ(seen(u), (Log{"ROW 19", "ROW 190", "ROW 191", "ROW 192", "ROW 193", "ROW 194",
                                "ROW 195", "ROW 196", "ROW 197", "ROW 198", "ROW 199"}));
        EXPECT_EQ(form.lstAll.count(), 200U);
        EXPECT_EQ(form.log, Log{});
        find("99");
        EXPECT_EQ(seen(u), (Log{"ROW 99", "ROW 199"})) << "the text before was selected";
        EXPECT_EQ(u.see("lstAll").rows.back().key, "ROW 199");
        clearLine(form.lstAll);
        EXPECT_EQ(seen(u).size(), 200U);
    });
}

TEST_P(LongLists, KeepTheSelectedRowInSight) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        form.log.clear();
        find("199");
        EXPECT_EQ(seen(u), (Log{"ROW 7", "ROW 199"}));
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        EXPECT_EQ(form.lstAll.selectedNumber(), 7U);
        clearLine(form.lstAll);
        EXPECT_EQ(u.see("lstAll").selected, 7U);
        EXPECT_EQ(form.log, Log{}) << "nothing was picked";
    });
}

TEST_P(LongLists, ShowARowThatCodeSelects) {
    show([&](User& u) {
        find("199");
        form.lstAll.select("ROW 5");
        EXPECT_EQ(seen(u), (Log{"ROW 5", "ROW 199"}));
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        form.lstAll.add("ROW 1999", "ROW 1999");
        EXPECT_EQ(seen(u), (Log{"ROW 5", "ROW 199", "ROW 1999"})) << "what is typed holds on";
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        EXPECT_EQ(form.log, Log{});
    });
}

TEST_P(LongLists, PickAmongTheRowsThatAreShown) {
    show([&](User& u) {
        find("99");
        u.pick("lstAll", "ROW 199");
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        EXPECT_EQ(form.log, Log{"ROW 199"});
        press(Key::Up);
        EXPECT_EQ(form.lstAll.selectedNumber(), 99U);
        EXPECT_THROW(u.pick("lstAll", "ROW 5"), UserError) << "it is not seen";
        u.typeAhead("lstAll", "row 1");
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        u.pressDelete();
        EXPECT_EQ(form.log.back(), "btnDelete");
    });
}

TEST_P(LongLists, AreEnteredByTheDownKeyAtTheFirstRowThatIsFound) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        find("199");
        press(Key::Down);
        EXPECT_TRUE(isInRows(form.lstAll));
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        form.log.clear();
        pressCtrlF();
        press(Key::Enter);
        EXPECT_TRUE(isInRows(form.lstAll));
        EXPECT_EQ(form.log, Log{}) << "the row that is found is selected already";
        EXPECT_TRUE(form.loaded());
    });
}

TEST_P(LongLists, AreLeftUpwardsFromTheFirstRow) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 2");
        press(Key::Up);
        EXPECT_TRUE(isInRows(form.lstAll));
        EXPECT_EQ(form.lstAll.selectedNumber(), 1U);
        press(Key::Up);
        EXPECT_TRUE(isInLine(form.lstAll));
    });
}

TEST_P(LongLists, LetEscapeClearTheLineBeforeItCancels) {
    show([&](User& u) {
        find("199");
        u.pressEscape();
        EXPECT_TRUE(form.loaded());
        EXPECT_EQ(seen(u).size(), 200U);
        EXPECT_TRUE(isInLine(form.lstAll));
        u.pressEscape();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_TRUE(form.cancelled);
}

TEST_P(LongLists, KeepTheirKeysOutOfTheLine) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        form.log.clear();
        find("199");
        press(Key::Home);
        press(Key::Delete);
        EXPECT_EQ(lineText(form.lstAll), "99");
        press(Key::F2);
        EXPECT_EQ(form.log, Log{});
        EXPECT_EQ(form.focused(), &form.lstAll) << "the line is a part of the list";
    });
}

TEST_P(LongLists, KeepTheTabKeyAsItIs) {
    show([&](User& u) {
        u.focus("txtName");
        for (const char* next : {"btnNew", "btnDelete", "lstAll", "btnAdd"}) {
            u.pressTab();
            EXPECT_TRUE(u.see(next).focus) << next;
        }
        pressCtrlF();
        EXPECT_TRUE(isInLine(form.lstAll));
        u.pressTab();
        EXPECT_TRUE(u.see("btnAdd").focus);
    });
}

TEST_P(LongLists, KeepTheirLineForARowThatCodeGoesTo) {
    show([&](User& u) {
        find("199");
        form.lstAll.setFocus();
        u.see("lstAll");
        EXPECT_EQ(lineText(form.lstAll), "199");
        form.fill(3);
        u.see("lstAll");
        EXPECT_FALSE(isLineSeen(form.lstAll));
        EXPECT_TRUE(u.see("lstAll").focus) << "the line went, and the list is what it was for";
        EXPECT_EQ(seen(u).size(), 3U);
        form.fill(30);
        EXPECT_EQ(seen(u).size(), 30U) << "the line comes up empty";
    });
}

TEST_P(LongLists, SayWhenNothingIsFound) {
    show([&](User& u) {
        EXPECT_EQ(noteOn(form.lstAll), "");
        find("x");
        EXPECT_EQ(noteOn(form.lstAll), "Nothing contains this text.");
        u.pressEscape();
        EXPECT_EQ(noteOn(form.lstAll), "");
    });
}

TEST_P(LongLists, SayThatTheyAreEmptyAndWhatComesNext) {
    form.rows = 0;
    show([&](User& u) {
        EXPECT_EQ(noteOn(form.lstAll), "Nothing here yet. Begin with “New”.");
        EXPECT_EQ(noteOn(form.lstChosen),
                  "Nothing here yet. Select a row under “All rows”, then press “>”.");
        EXPECT_EQ(noteOn(form.lstTokens), "");
        form.btnNew.setVisible(false);
        u.see("lstAll");
        EXPECT_EQ(noteOn(form.lstAll), "Nothing here yet.");
        form.fill(1);
        u.see("lstAll");
        EXPECT_EQ(noteOn(form.lstAll), "");
    });
}

}  // namespace wynconfig::longlists
