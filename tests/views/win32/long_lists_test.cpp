// Lists of many rows in native windows: how a person finds a row, and what an empty list says.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/find_form.h"
#include "support/native_desk.h"
#include "views/win32/form_window.h"
#include "views/win32/person/hands.h"

namespace wynconfig {
namespace {

using native::FormWindow;

class NativeLists : public NativeDesk<FindForm> {
  protected:
    static HWND listOf(const ListView& list) {
        return FormWindow::of(front())->piece(list)->window();
    }
    HWND list() { return listOf(form.lstAll); }
    /// The line above a list, whether it is seen or not: the window before it.
    static HWND filterOf(const ListView& list) {
        const HWND line = ::GetWindow(listOf(list), GW_HWNDPREV);
        EXPECT_EQ(classOf(line), WC_EDITW);
        return line;
    }
    HWND filter() { return filterOf(form.lstAll); }
    std::wstring filterText() { return titleOf(filter()); }
    void clearFilter() { ::SetWindowTextW(filter(), L""); }
    static bool isSeen(HWND window) { return ::IsWindowVisible(window) != FALSE; }
    static void press(WORD key, bool withCtrl = false) {
        FormWindow& window = *FormWindow::of(front());
        // As it is before the next message of a keyboard.
        window.sync();
        native::keyClick(window, key, withCtrl);
    }
    static void find() { press('F', true); }
    void typeFilter(const std::wstring& text) {
        find();
        ASSERT_EQ(::GetFocus(), filter());
        native::typeLetters(*FormWindow::of(front()), text);
    }
    static Log seen(User& u) { return u.see("lstAll").rowTexts(); }
    /// What stands on a list in place of its rows.
    static std::wstring noteOf(const ListView& list) {
        const HWND note = ::FindWindowExW(listOf(list), nullptr, WC_STATICW, nullptr);
        return note && isSeen(note) ? titleOf(note) : std::wstring();
    }
};

TEST_F(NativeLists, HaveALineAboveThemWhereTheyHaveMoreThanTwentyRows) {
    form.rows = 20;
    show([&](User& u) {
        EXPECT_FALSE(isSeen(filter()));
        const RECT before = placeOf(front());
        const RECT alone = placeOf(list());
        form.fill(21);
        u.see("lstAll");
        EXPECT_TRUE(isSeen(filter()));
        EXPECT_LT(placeOf(filter()).bottom, placeOf(list()).top);
        EXPECT_EQ(placeOf(filter()).top, alone.top);
        EXPECT_EQ(placeOf(list()).bottom, alone.bottom);
        const RECT after = placeOf(front());
        EXPECT_TRUE(::EqualRect(&after, &before));
        EXPECT_FALSE(isSeen(filterOf(form.lstTokens)));
        form.lstAll.setVisible(false);
        u.see("lstAll");
        EXPECT_FALSE(isSeen(filter()));
    });
}

TEST_F(NativeLists, ShowTheRowsThatContainWhatIsTyped) {
    show([&](User& u) {
        typeFilter(L"w 19");
        EXPECT_EQ(seen(u), (Log{"ROW 19", "ROW 190", "ROW 191", "ROW 192", "ROW 193", "ROW 194",
                                "ROW 195", "ROW 196", "ROW 197", "ROW 198", "ROW 199"}));
        EXPECT_EQ(form.lstAll.count(), 200U);
        EXPECT_EQ(form.log, Log{});
        typeFilter(L"99");
        EXPECT_EQ(seen(u), (Log{"ROW 99", "ROW 199"})) << "the text before was selected";
        EXPECT_EQ(u.see("lstAll").rows.back().key, "ROW 199");
        clearFilter();
        EXPECT_EQ(seen(u).size(), 200U);
    });
}

TEST_F(NativeLists, KeepTheSelectedRowInSight) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        form.log.clear();
        typeFilter(L"199");
        EXPECT_EQ(seen(u), (Log{"ROW 7", "ROW 199"}));
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        EXPECT_EQ(form.lstAll.selectedNumber(), 7U);
        clearFilter();
        EXPECT_EQ(u.see("lstAll").selected, 7U);
        EXPECT_EQ(form.log, Log{}) << "nothing was picked";
    });
}

TEST_F(NativeLists, ShowARowThatCodeSelects) {
    show([&](User& u) {
        typeFilter(L"199");
        form.lstAll.select("ROW 5");
        EXPECT_EQ(seen(u), (Log{"ROW 5", "ROW 199"}));
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        form.lstAll.add("ROW 1999", "ROW 1999");
        EXPECT_EQ(seen(u), (Log{"ROW 5", "ROW 199", "ROW 1999"})) << "what is typed holds on";
        EXPECT_EQ(u.see("lstAll").selected, 1U);
        EXPECT_EQ(form.log, Log{});
    });
}

TEST_F(NativeLists, PickAmongTheRowsThatAreShown) {
    show([&](User& u) {
        typeFilter(L"99");
        u.pick("lstAll", "ROW 199");
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        EXPECT_EQ(form.log, Log{"ROW 199"});
        press(VK_UP);
        EXPECT_EQ(form.lstAll.selectedNumber(), 99U);
        EXPECT_THROW(u.pick("lstAll", "ROW 5"), UserError) << "it is not seen";
        u.typeAhead("lstAll", "row 1");
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        u.pressDelete();
        EXPECT_EQ(form.log.back(), "btnDelete");
    });
}

TEST_F(NativeLists, AreEnteredByTheDownKeyAtTheFirstRowThatIsFound) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        typeFilter(L"199");
        press(VK_DOWN);
        EXPECT_TRUE(u.see("lstAll").focus);
        EXPECT_EQ(form.lstAll.selectedNumber(), 199U);
        form.log.clear();
        find();
        press(VK_RETURN);
        EXPECT_TRUE(u.see("lstAll").focus);
        EXPECT_EQ(form.log, Log{}) << "the row that is found is selected already";
        EXPECT_TRUE(form.loaded());
    });
}

TEST_F(NativeLists, AreLeftUpwardsFromTheFirstRow) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 2");
        press(VK_UP);
        EXPECT_EQ(::GetFocus(), list());
        EXPECT_EQ(form.lstAll.selectedNumber(), 1U);
        press(VK_UP);
        EXPECT_EQ(::GetFocus(), filter());
    });
}

TEST_F(NativeLists, LetEscapeClearTheLineBeforeItCancels) {
    show([&](User& u) {
        typeFilter(L"199");
        u.pressEscape();
        EXPECT_TRUE(form.loaded());
        EXPECT_EQ(seen(u).size(), 200U);
        EXPECT_EQ(::GetFocus(), filter());
        u.pressEscape();
        EXPECT_FALSE(form.loaded());
    });
    EXPECT_TRUE(form.cancelled);
}

TEST_F(NativeLists, KeepTheirKeysOutOfTheLine) {
    show([&](User& u) {
        u.pick("lstAll", "ROW 7");
        form.log.clear();
        typeFilter(L"199");
        press(VK_HOME);
        press(VK_DELETE);
        EXPECT_EQ(filterText(), L"99");
        press(VK_F2);
        EXPECT_EQ(form.log, Log{});
        EXPECT_EQ(form.focused(), &form.lstAll) << "the line is a part of the list";
        press('A', true);
        native::typeLetters(*FormWindow::of(front()), L"7");
        EXPECT_EQ(filterText(), L"7");
    });
}

TEST_F(NativeLists, KeepTheTabKeyAsItIs) {
    show([&](User& u) {
        u.focus("txtName");
        for (const char* next : {"btnNew", "btnDelete", "lstAll", "btnAdd"}) {
            u.pressTab();
            EXPECT_TRUE(u.see(next).focus) << next;
        }
        find();
        EXPECT_EQ(::GetFocus(), filter());
        u.pressTab();
        EXPECT_TRUE(u.see("btnAdd").focus);
    });
}

TEST_F(NativeLists, KeepTheirLineForARowThatCodeGoesTo) {
    show([&](User& u) {
        typeFilter(L"199");
        form.lstAll.setFocus();
        u.see("lstAll");
        EXPECT_EQ(filterText(), L"199");
        form.fill(3);
        u.see("lstAll");
        EXPECT_FALSE(isSeen(filter()));
        EXPECT_TRUE(u.see("lstAll").focus) << "the line went, and the list is what it was for";
        EXPECT_EQ(seen(u).size(), 3U);
        form.fill(30);
        EXPECT_EQ(seen(u).size(), 30U) << "the line comes up empty";
    });
}

TEST_F(NativeLists, TellInTheLineWhatItIsFor) {
    show([&](User&) {
        wchar_t hint[60] = L"";
        ::SendMessageW(filter(), EM_GETCUEBANNER, reinterpret_cast<WPARAM>(hint), 60);
        EXPECT_EQ(std::wstring(hint), L"Filter (Ctrl+F)");
    });
}

TEST_F(NativeLists, SayWhenNothingIsFound) {
    show([&](User& u) {
        EXPECT_EQ(noteOf(form.lstAll), L"");
        typeFilter(L"x");
        EXPECT_EQ(noteOf(form.lstAll), L"Nothing contains this text.");
        u.pressEscape();
        EXPECT_EQ(noteOf(form.lstAll), L"");
    });
}

TEST_F(NativeLists, SayThatTheyAreEmptyAndWhatComesNext) {
    form.rows = 0;
    show([&](User& u) {
        EXPECT_EQ(noteOf(form.lstAll), L"Nothing here yet. Begin with \u201CNew\u201D.");
        EXPECT_EQ(noteOf(form.lstChosen),
                  L"Nothing here yet. Select a row under \u201CAll rows\u201D, then press "
                  L"\u201C>\u201D.");
        EXPECT_EQ(noteOf(form.lstTokens), L"");
        form.btnNew.setVisible(false);
        u.see("lstAll");
        EXPECT_EQ(noteOf(form.lstAll), L"Nothing here yet.");
        form.fill(1);
        u.see("lstAll");
        EXPECT_EQ(noteOf(form.lstAll), L"");
    });
}

TEST_F(NativeLists, SayThatTheyAreEmptyWhereTheyAreHidden) {
    form.rows = 0;
    show([&](User& u) {
        const RECT place = placeOf(list());
        form.lstAll.setVisible(false);
        EXPECT_FALSE(u.see("lstAll").visible);
        const HWND note = ::GetWindow(list(), GW_HWNDNEXT);
        EXPECT_EQ(titleOf(note), L"Nothing here yet. Begin with \u201CNew\u201D.");
        EXPECT_TRUE(isSeen(note));
        const RECT words = placeOf(note);
        RECT shared{};
        ::IntersectRect(&shared, &words, &place);
        EXPECT_TRUE(::EqualRect(&shared, &words));
    });
}

}  // namespace
}  // namespace wynconfig
