// What tests of the native view share: a form of their own in real windows, and what can be read of
// these.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/test_form.h"
#include "views/win32/winapi.h"
#include "wynconfig/win32_view.h"

namespace wynconfig {

/// The window in front of this thread's others.
inline HWND front() {
    return ::GetActiveWindow();
}

/// What a window shows: its title, its caption, or the text of a box.
inline std::wstring titleOf(HWND window) {
    wchar_t title[200] = L"";
    ::GetWindowTextW(window, title, 200);
    return title;
}

inline std::wstring classOf(HWND window) {
    wchar_t name[64] = L"";
    ::GetClassNameW(window, name, 64);
    return name;
}

inline RECT placeOf(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    return place;
}

inline bool isMirrored(HWND window) {
    return (::GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
}

/// Shows a form of this class, which closes by its button "btnOK".
template <class AForm>
class NativeDesk : public ::testing::Test {
  protected:
    void SetUp() override { installView(view); }
    void TearDown() override {
        installView(nullptr);
        EXPECT_NO_THROW(user.finish());
    }
    /// The script may close the form.
    void show(const User::Script& script) {
        bool ran = false;
        user.onForm(std::string(form.name()), [&](User& person) {
            script(person);
            ran = true;
            if (form.loaded()) person.click("btnOK");
        });
        form.Show();
        EXPECT_TRUE(ran);
    }

    std::shared_ptr<Win32View> view = makeWin32View();
    User& user = view->user();
    AForm form;
};

}  // namespace wynconfig
