// The signs of work in native windows: the cursor, the window with a bar, and what a closed window
// leaves behind.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/test_form.h"
#include "views/win32/waiting.h"
#include "wynconfig/win32_view.h"

namespace wynconfig {
namespace {

using Stage = Progress::Stage;

Progress stageOf(Stage stage) {
    Progress told;
    told.stage = stage;
    return told;
}
Progress lastingFor(const std::string& text, std::size_t done, std::size_t all) {
    return {Stage::Lasts, "&Please Wait", text, done, all};
}

/// The window of this thread with this title; null when there is none.
HWND titled(const wchar_t* title) {
    struct Search {
        const wchar_t* title;
        HWND found;
    } search{title, nullptr};
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM place) -> BOOL {
            auto* wanted = reinterpret_cast<Search*>(place);
            wchar_t text[100] = L"";
            ::GetWindowTextW(window, text, 100);
            if (std::wstring(text) != wanted->title) return TRUE;
            wanted->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool isAbove(HWND window, HWND other) {
    for (HWND each = ::GetTopWindow(nullptr); each; each = ::GetWindow(each, GW_HWNDNEXT)) {
        if (each == window || each == other) return each == window;
    }
    return false;
}

LRESULT CALLBACK countPaints(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                             DWORD_PTR count) {
    if (message == WM_PAINT) ++*reinterpret_cast<int*>(count);
    return ::DefSubclassProc(window, message, w, l);
}

class NativeWaiting : public ::testing::Test {
  protected:
    void SetUp() override { installView(view); }
    void TearDown() override { installView(nullptr); }

    std::shared_ptr<Win32View> view = makeWin32View();
};

TEST_F(NativeWaiting, TheWaitCursorIsThereAtOnceAndGoes) {
    const HCURSOR before = ::GetCursor();
    view->showProgress(stageOf(Stage::Begins));
    EXPECT_TRUE(native::WaitCursor::isShown());
    view->showProgress(stageOf(Stage::Ends));
    EXPECT_FALSE(native::WaitCursor::isShown());
    EXPECT_EQ(::GetCursor(), before);
}

TEST_F(NativeWaiting, TheWindowTellsHowFarItIsAndGrows) {
    view->showProgress(stageOf(Stage::Begins));
    view->showProgress(lastingFor("Updating sessions: 5 of 20", 5, 20));
    const HWND window = titled(L"Please Wait");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(::IsWindowVisible(window));
    EXPECT_EQ(::GetUpdateRect(window, nullptr, FALSE), FALSE) << "it is painted";
    const HWND bar = ::FindWindowExW(window, nullptr, PROGRESS_CLASSW, nullptr);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(::SendMessageW(bar, PBM_GETPOS, 0, 0), 5);
    EXPECT_EQ(::SendMessageW(bar, PBM_GETRANGE, FALSE, 0), 20);
    RECT before{};
    ::GetWindowRect(window, &before);
    view->showProgress(lastingFor(std::string(200, 'm'), 20, 20));
    RECT after{};
    ::GetWindowRect(window, &after);
    EXPECT_GT(after.right - after.left, before.right - before.left);
    EXPECT_EQ(::SendMessageW(bar, PBM_GETPOS, 0, 0), 20);
    view->showProgress(stageOf(Stage::Ends));
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(NativeWaiting, TheWindowTakesNoFocusAndLeavesMessagesWhereTheyAre) {
    const HWND host = ::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        100, 100, 300, 200, nullptr, nullptr, nullptr, nullptr);
    ::SetActiveWindow(host);
    constexpr UINT kWaits = WM_APP + 77;
    ::PostMessageW(host, kWaits, 0, 0);
    view->showProgress(stageOf(Stage::Begins));
    view->showProgress(lastingFor("1 of 2", 1, 2));
    EXPECT_EQ(::GetActiveWindow(), host);
    ::SetWindowPos(host, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    view->showProgress(lastingFor("2 of 2", 2, 2));
    EXPECT_TRUE(isAbove(titled(L"Please Wait"), host));
    EXPECT_EQ(::GetActiveWindow(), host);
    EXPECT_EQ(::GetWindow(titled(L"Please Wait"), GW_OWNER), host);
    view->showProgress(stageOf(Stage::Ends));
    MSG message;
    EXPECT_TRUE(::PeekMessageW(&message, host, kWaits, kWaits, PM_REMOVE));
    ::DestroyWindow(host);
}

TEST_F(NativeWaiting, WhatIsDueIsPaintedBeforeTheWorkBegins) {
    const HWND host = ::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        100, 100, 300, 200, nullptr, nullptr, nullptr, nullptr);
    ::UpdateWindow(host);
    int painted = 0;
    ::SetWindowSubclass(host, countPaints, 1, reinterpret_cast<DWORD_PTR>(&painted));
    ::InvalidateRect(host, nullptr, TRUE);
    EXPECT_EQ(painted, 0);
    view->showProgress(stageOf(Stage::Begins));
    EXPECT_EQ(painted, 1);
    view->showProgress(stageOf(Stage::Ends));
    ::DestroyWindow(host);
}

}  // namespace
}  // namespace wynconfig
