// Help in native windows: the tips of the form ask for it as they come up, and F1 shows it in a
// window that the form owns.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/test_form.h"
#include "views/win32/winapi.h"
#include "wynconfig/win32_view.h"

namespace wynconfig {
namespace {

class ToldForm : public TestForm {
  public:
    ToldForm() : TestForm("frmTold") {
        btnOK.Click = [this] { Unload(); };
    }
    mutable int asked = 0;
    Label lblName{*this, "lblName", "&Name"};
    Edit txtName{*this, "txtName"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override { setCaption("Told"); }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(lblName, txtName), buttons({&btnOK})}), &btnOK, nullptr};
    }
    std::string fetchHelp(const Control* control) const override {
        ++asked;
        if (!control) return "About it.";
        return control == &txtName ? "A name." : "";
    }
};

BOOL CALLBACK findTips(HWND window, LPARAM found) {
    wchar_t name[64] = L"";
    ::GetClassNameW(window, name, 64);
    if (std::wstring(name) == TOOLTIPS_CLASSW) *reinterpret_cast<HWND*>(found) = window;
    return TRUE;
}

/// What the tips of the form on the screen tell of a window.
std::wstring toldByTips(HWND window) {
    HWND tips = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), findTips, reinterpret_cast<LPARAM>(&tips));
    wchar_t text[200] = L"";
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = ::GetParent(window);
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = text;
    ::SendMessageW(tips, TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
    return text;
}

class NativeHelp : public ::testing::Test {
  protected:
    void SetUp() override { installView(view); }
    void TearDown() override {
        installView(nullptr);
        EXPECT_NO_THROW(user.finish());
    }
    void show(const User::Script& script) {
        user.onForm("frmTold", [&](User& person) {
            script(person);
            person.click("btnOK");
        });
        form.Show();
    }

    std::shared_ptr<Win32View> view = makeWin32View();
    User& user = view->user();
    ToldForm form;
};

TEST_F(NativeHelp, IsAskedForByATipThatComesUp) {
    show([&](User& person) {
        person.focus("txtName");
        EXPECT_EQ(form.asked, 0);
        EXPECT_EQ(toldByTips(::GetFocus()), L"A name.");
        EXPECT_GT(form.asked, 0);
        EXPECT_EQ(person.help("btnOK"), "");
    });
}

TEST_F(NativeHelp, StandsInAWindowThatTheFormOwns) {
    show([&](User& person) {
        person.focus("txtName");
        const HWND window = ::GetActiveWindow();
        EXPECT_EQ(person.readHelp(),
                  (std::vector<std::string>{"Told", "About it.", "Name", "A name."}));
        EXPECT_EQ(::GetActiveWindow(), window);
        EXPECT_TRUE(::IsWindowEnabled(window));
        EXPECT_TRUE(person.see("txtName").focus);
    });
}

}  // namespace
}  // namespace wynconfig
