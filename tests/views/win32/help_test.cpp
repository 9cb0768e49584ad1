// Help in native windows: the tips of the form ask for it as they come up, and F1 shows it in a
// window that the form owns.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/native_desk.h"

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
    if (classOf(window) == TOOLTIPS_CLASSW) *reinterpret_cast<HWND*>(found) = window;
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

using NativeHelp = NativeDesk<ToldForm>;

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
        const HWND window = front();
        EXPECT_EQ(person.readHelp(),
                  (std::vector<std::string>{"Told", "About it.", "Name", "A name."}));
        EXPECT_EQ(front(), window);
        EXPECT_TRUE(::IsWindowEnabled(window));
        EXPECT_TRUE(person.see("txtName").focus);
    });
}

}  // namespace
}  // namespace wynconfig
