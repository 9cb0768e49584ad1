// Lists of many rows in native windows: the line above them, and the words on an empty one.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/long_list_cases.h"
#include "support/native_desk.h"
#include "views/win32/convert.h"
#include "views/win32/form_window.h"
#include "views/win32/person/hands.h"

namespace wynconfig {

using native::FormWindow;

namespace {

HWND listOf(const ListView& list) {
    return FormWindow::of(front())->piece(list)->window();
}

/// The line above a list, whether it is seen or not: the window before it.
HWND filterOf(const ListView& list) {
    const HWND line = ::GetWindow(listOf(list), GW_HWNDPREV);
    EXPECT_EQ(classOf(line), WC_EDITW);
    return line;
}

bool isSeen(HWND window) {
    return ::IsWindowVisible(window) != FALSE;
}

void pressKey(WORD key, bool withCtrl = false) {
    FormWindow& window = *FormWindow::of(front());
    // As it is before the next message of a keyboard.
    window.sync();
    native::keyClick(window, key, withCtrl);
}

}  // namespace

namespace longlists {

bool isLineSeen(const ListView& list) {
    return isSeen(filterOf(list));
}

std::string lineText(const ListView& list) {
    return native::fromWide(titleOf(filterOf(list)));
}

void clearLine(const ListView& list) {
    ::SetWindowTextW(filterOf(list), L"");
}

bool isInLine(const ListView& list) {
    return ::GetFocus() == filterOf(list);
}

bool isInRows(const ListView& list) {
    return ::GetFocus() == listOf(list);
}

std::string noteOn(const ListView& list) {
    const HWND note = ::FindWindowExW(listOf(list), nullptr, WC_STATICW, nullptr);
    return note && isSeen(note) ? native::fromWide(titleOf(note)) : std::string();
}

void press(Key key) {
    static const std::map<Key, WORD> keys{
        {Key::Up, WORD{VK_UP}},         {Key::Down, WORD{VK_DOWN}}, {Key::Home, WORD{VK_HOME}},
        {Key::Delete, WORD{VK_DELETE}}, {Key::F2, WORD{VK_F2}},     {Key::Enter, WORD{VK_RETURN}}};
    pressKey(keys.at(key));
}

void pressCtrlF() {
    pressKey('F', true);
}

void type(const std::string& letters) {
    native::typeLetters(*FormWindow::of(front()), {letters.begin(), letters.end()});
}

INSTANTIATE_TEST_SUITE_P(Views, LongLists, ::testing::Values("Win32"),
                         [](const auto& each) { return std::string(each.param); });

}  // namespace longlists

namespace {

class NativeLists : public NativeDesk<FindForm> {
  protected:
    HWND list() { return listOf(form.lstAll); }
    HWND filter() { return filterOf(form.lstAll); }
};

TEST_F(NativeLists, MakeRoomForTheirLine) {
    form.rows = 20;
    show([&](User& u) {
        const RECT before = placeOf(front());
        const RECT alone = placeOf(list());
        form.fill(21);
        u.see("lstAll");
        EXPECT_LT(placeOf(filter()).bottom, placeOf(list()).top);
        EXPECT_EQ(placeOf(filter()).top, alone.top);
        EXPECT_EQ(placeOf(list()).bottom, alone.bottom);
        const RECT after = placeOf(front());
        EXPECT_TRUE(::EqualRect(&after, &before));
    });
}

TEST_F(NativeLists, LetCtrlASelectTheTextOfTheLine) {
    show([&](User&) {
        pressKey('F', true);
        longlists::type("199");
        pressKey('A', true);
        longlists::type("7");
        EXPECT_EQ(titleOf(filter()), L"7");
    });
}

TEST_F(NativeLists, TellInTheLineWhatItIsFor) {
    show([&](User&) {
        wchar_t hint[60] = L"";
        ::SendMessageW(filter(), EM_GETCUEBANNER, reinterpret_cast<WPARAM>(hint), 60);
        EXPECT_EQ(std::wstring(hint), L"Filter (Ctrl+F)");
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
