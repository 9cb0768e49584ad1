// What the native view owes beyond what the tests on every view ask for: owners, nested loops, the
// end of the program, sizes, directions, and boxes as they stand on the screen.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/all_dialogs.h"
#include "support/native_desk.h"
#include "support/raised.h"
#include "views/win32/form_window.h"
#include "views/win32/person/hands.h"
#include "wynconfig/error.h"

namespace wynconfig {
namespace {

class Sample : public TestForm {
  public:
    Sample() : TestForm("frmSample") {
        btnOpen.Click = [this] {
            if (opened) opened();
        };
        btnOK.Click = [this] { Unload(); };
    }
    std::function<void()> opened;
    std::string title = "Sample";
    std::string text;
    Label lblName{*this, "lblName", "&Name"};
    Edit txtName{*this, "txtName"};
    Label lblItems{*this, "lblItems", "&Items"};
    ListView lstItems{*this, "lstItems"};
    Button btnOpen{*this, "btnOpen", "O&pen"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override {
        UniCaption1.bind(*this);
        UniCaption1.setCaption(title);
        txtName.setText(text);
    }
    void Form_Resize() override { log.push_back("resize"); }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(lblName, txtName), growing(titled(lblItems, lstItems)),
                        row({stretch(), single(btnOpen), single(btnOK)})}),
                &btnOK, nullptr};
    }
};

/// More boxes than a screen has room for, one above the other.
class Tall : public TestForm {
  public:
    Tall() : TestForm("frmTall") {
        for (int i = 0; i < kBoxes; ++i) names.push_back("txt" + std::to_string(i));
        for (const std::string& name : names) boxes.push_back(std::make_unique<Edit>(*this, name));
        btnOK.Click = [this] { Unload(); };
    }
    static constexpr int kBoxes = 100;
    std::vector<std::string> names;
    std::vector<std::unique_ptr<Edit>> boxes;
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    FormLayout declareLayout() override {
        std::vector<Layout> all;
        for (const auto& each : boxes) all.push_back(layout::single(*each));
        all.push_back(layout::single(btnOK));
        return {layout::column(std::move(all)), &btnOK, nullptr};
    }
};

SIZE innerSize(HWND window) {
    RECT inside{};
    ::GetClientRect(window, &inside);
    return {inside.right, inside.bottom};
}

RECT workAreaOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
    return monitor.rcWork;
}

/// Whether the window that has the focus can be seen whole in the one in front.
bool isFocusInSight() {
    RECT inside{};
    ::GetClientRect(front(), &inside);
    ::MapWindowPoints(front(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
    const RECT box = placeOf(::GetFocus());
    return box.top >= inside.top && box.bottom <= inside.bottom && box.top < box.bottom;
}

/// A window of the host.
class HostWindow {
  public:
    HostWindow()
        : m_window(::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100,
                                     100, 300, 200, nullptr, nullptr, nullptr, nullptr)) {}
    ~HostWindow() { ::DestroyWindow(m_window); }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    HWND window() const { return m_window; }

  private:
    HWND m_window;
};

using NativeView = NativeDesk<Sample>;

TEST_F(NativeView, WhatIsLargerThanTheScreenScrolls) {
    Tall tall;
    bool ran = false;
    user.onForm("frmTall", [&](User& person) {
        ran = true;
        const RECT window = placeOf(front());
        const RECT screen = workAreaOf(front());
        EXPECT_GE(window.top, screen.top);
        EXPECT_LE(window.bottom, screen.bottom);
        EXPECT_TRUE(::GetWindowLongPtrW(front(), GWL_STYLE) & WS_VSCROLL);
        EXPECT_FALSE(::GetWindowLongPtrW(front(), GWL_STYLE) & WS_HSCROLL);
        EXPECT_TRUE(isFocusInSight());
        person.focus("txt" + std::to_string(Tall::kBoxes - 1));
        EXPECT_TRUE(isFocusInSight());
        const LONG bottom = placeOf(::GetFocus()).top;
        ::SendMessageW(front(), WM_VSCROLL, SB_TOP, 0);
        EXPECT_GT(placeOf(::GetFocus()).top, bottom);
        EXPECT_FALSE(isFocusInSight());
        ::SendMessageW(front(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-10 * WHEEL_DELTA)),
                       0);
        person.focus("txt0");
        EXPECT_TRUE(isFocusInSight());
        person.click("btnOK");
    });
    tall.Show();
    EXPECT_TRUE(ran);
}

TEST_F(NativeView, WhatFitsHasNoBars) {
    show([&](User&) {
        EXPECT_FALSE(::GetWindowLongPtrW(front(), GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL));
    });
}

TEST_F(NativeView, TheHostsWindowOwnsADialogAndWaits) {
    const HostWindow host;
    view->setOwner(reinterpret_cast<std::uintptr_t>(host.window()));
    show([&](User&) {
        EXPECT_EQ(::GetWindow(front(), GW_OWNER), host.window());
        EXPECT_FALSE(::IsWindowEnabled(host.window()));
    });
    EXPECT_TRUE(::IsWindowEnabled(host.window()));
    EXPECT_EQ(front(), host.window());
}

TEST_F(NativeView, AllWindowsOfTheThreadWaitForTheOneOnTop) {
    const HostWindow host;
    Sample inner;
    inner.title = "Inner";
    show([&](User& person) {
        const HWND outer = front();
        form.opened = [&] { inner.Show(); };
        person.onForm("frmSample", [&](User& nested) {
            EXPECT_EQ(titleOf(front()), L"Inner");
            EXPECT_EQ(::GetWindow(front(), GW_OWNER), outer);
            EXPECT_FALSE(::IsWindowEnabled(outer));
            EXPECT_FALSE(::IsWindowEnabled(host.window()));
            nested.click("btnOK");
        });
        person.click("btnOpen");
        EXPECT_EQ(front(), outer);
        EXPECT_TRUE(::IsWindowEnabled(outer));
        EXPECT_FALSE(::IsWindowEnabled(host.window()));
    });
    EXPECT_TRUE(::IsWindowEnabled(host.window()));
}

TEST_F(NativeView, ALetterReplacesTheTextThatADialogOpensAt) {
    form.text = "ABC";
    show([&](User& person) {
        DWORD start = 9;
        DWORD end = 9;
        ::SendMessageW(::GetFocus(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                       reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, 0U);
        EXPECT_EQ(end, 3U);
        EXPECT_EQ(person.see("txtName").caret, 0U);
        ::SendMessageW(::GetFocus(), WM_CHAR, 'x', 0);
        EXPECT_EQ(person.see("txtName").text, "x");
    });
}

/// What stands behind the text of the box that has the focus.
COLORREF groundInFocus() {
    const HDC context = ::GetDC(::GetFocus());
    const auto brush = reinterpret_cast<HBRUSH>(
        ::SendMessageW(::GetParent(::GetFocus()), WM_CTLCOLOREDIT,
                       reinterpret_cast<WPARAM>(context), reinterpret_cast<LPARAM>(::GetFocus())));
    ::ReleaseDC(::GetFocus(), context);
    LOGBRUSH ground{};
    ::GetObjectW(brush, sizeof ground, &ground);
    return ground.lbColor;
}

TEST_F(NativeView, WhatWasRefusedIsMarkedUntilItChanges) {
    show([&](User& person) {
        const COLORREF usual = ::GetSysColor(COLOR_WINDOW);
        form.opened = [&] {
            form.UniMsgBox1.ShowMsg("Refused.", boxstyle::Critical, "Sample", "OK");
            form.txtName.setFocus();
        };
        person.focus("txtName");
        EXPECT_EQ(groundInFocus(), usual);
        person.onBox();
        person.click("btnOpen");
        EXPECT_TRUE(person.see("txtName").focus);
        EXPECT_NE(groundInFocus(), usual);
        person.type("txtName", "x");
        EXPECT_EQ(groundInFocus(), usual);
        form.opened = [&] {
            form.UniMsgBox1.ShowMsg("Refused.", boxstyle::Critical, "Sample", "OK");
            form.lstItems.setFocus();
        };
        person.onBox();
        person.click("btnOpen");
        const auto listGround = [] {
            return static_cast<COLORREF>(::SendMessageW(::GetFocus(), LVM_GETBKCOLOR, 0, 0));
        };
        EXPECT_NE(listGround(), usual);
        person.focus("txtName");
        EXPECT_EQ(groundInFocus(), usual);
        person.focus("lstItems");
        EXPECT_EQ(listGround(), usual);
    });
}

TEST_F(NativeView, TheEndOfTheProgramClosesEachFormAndIsPassedOn) {
    Sample inner;
    view->dismissUser();
    int shown = 0;
    view->onShown([&](const std::string&) {
        if (++shown == 1)
            inner.Show();
        else
            ::PostQuitMessage(7);
    });
    form.Show();
    EXPECT_EQ(shown, 2);
    EXPECT_FALSE(inner.loaded());
    EXPECT_FALSE(form.loaded());
    MSG last{};
    ASSERT_TRUE(::PeekMessageW(&last, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(last.wParam, 7u);
    view->onShown({});
}

TEST_F(NativeView, AFormIsRaisedBeforeItComesUpAndWhileItIsUp) {
    const auto isOnTop = [] {
        return (::GetWindowLongPtrW(front(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    };
    view->raise(form, true);
    show([&](User&) {
        EXPECT_TRUE(isOnTop());
        view->raise(form, false);
        EXPECT_FALSE(isOnTop());
        view->raise(form, true);
        EXPECT_TRUE(isOnTop());
    });
    view->raise(form, true);
    view->raise(form, false);
    show([&](User&) { EXPECT_FALSE(isOnTop()); });
}

TEST_F(NativeView, AFormHasADeviceContextWithAndWithoutAWindow) {
    const auto dots = [&] {
        return ::GetDeviceCaps(reinterpret_cast<HDC>(LongToHandle(view->deviceContext(form))),
                               LOGPIXELSX);
    };
    EXPECT_GE(dots(), 72);
    show([&](User&) { EXPECT_GE(dots(), 72); });
}

/// A form with a combo box of many items.
class Choices : public TestForm {
  public:
    Choices() : TestForm("frmChoices") {
        btnOK.Click = [this] { Unload(); };
    }
    Label lblKind{*this, "lblKind", "&Kind"};
    ComboBox cboKind{*this, "cboKind"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override {
        for (int i = 1; i <= 10000; ++i) cboKind.addItem("KIND " + std::to_string(i));
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(lblKind, cboKind), buttons({&btnOK})}), &btnOK, nullptr};
    }
};

TEST_F(NativeView, ADropDownListOfThousandsShowsFifteenItems) {
    Choices choices;
    user.onForm("frmChoices", [&](User& person) {
        const HWND box = ::FindWindowExW(front(), nullptr, L"ComboBox", nullptr);
        ASSERT_TRUE(box);
        EXPECT_EQ(::SendMessageW(box, CB_GETCOUNT, 0, 0), 10000);
        EXPECT_EQ(::SendMessageW(box, CB_GETMINVISIBLE, 0, 0), 15);
        person.choose("cboKind", "KIND 9999");
        person.click("btnOK");
    });
    choices.Show();
}

TEST_F(NativeView, AnOpenDropDownListIsSearchedByLetters) {
    Choices choices;
    user.onForm("frmChoices", [&](User& person) {
        native::FormWindow& window = *native::FormWindow::of(front());
        const HWND box = window.piece(choices.cboKind)->window();
        person.focus("cboKind");
        ::SendMessageW(box, CB_SHOWDROPDOWN, TRUE, 0);
        native::typeLetters(window, L"kind 77");
        EXPECT_EQ(::SendMessageW(box, CB_GETCURSEL, 0, 0), 76);
        EXPECT_EQ(choices.cboKind.selectedIndex(), -1) << "nothing is chosen yet";
        native::keyClick(window, VK_RETURN);
        EXPECT_EQ(choices.cboKind.text(), "KIND 77");
        person.click("btnOK");
    });
    choices.Show();
}

TEST_F(NativeView, ADialogOfAFixedSizeHasNoFrameToPull) {
    form.setSize(12000, 9000);
    show([&](User&) {
        EXPECT_EQ(innerSize(front()).cx, 800);
        EXPECT_EQ(innerSize(front()).cy, 600);
        EXPECT_EQ(::GetWindowLongPtrW(front(), GWL_STYLE) & WS_THICKFRAME, 0);
    });
}

TEST_F(NativeView, ADialogWithoutASizeIsPulledAndItsListGrows) {
    show([&](User& person) {
        const auto listHeight = [] {
            RECT list{};
            ::GetWindowRect(::FindWindowExW(front(), nullptr, L"SysListView32", nullptr), &list);
            return list.bottom - list.top;
        };
        EXPECT_NE(::GetWindowLongPtrW(front(), GWL_STYLE) & WS_THICKFRAME, 0);
        const LONG before = listHeight();
        const LONG higher = innerSize(front()).cy + 100;
        person.resize(15000, static_cast<int>(higher) * 15);
        EXPECT_EQ(form.log, Log{"resize"});
        EXPECT_EQ(innerSize(front()).cx, 1000);
        EXPECT_EQ(innerSize(front()).cy, higher);
        EXPECT_EQ(listHeight(), before + 100);
        EXPECT_EQ(form.width(), 15000);
    });
}

TEST_F(NativeView, ADialogIsNotPulledSmallerThanItsContent) {
    show([&](User&) {
        ::SetWindowPos(front(), nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_GT(innerSize(front()).cx, 200);
        EXPECT_GT(innerSize(front()).cy, 150);
    });
}

TEST_F(NativeView, ADialogOfArabicTextsIsReadFromTheRight) {
    show([](User&) { EXPECT_FALSE(isMirrored(front())); });
    form.title = "تكوين";
    form.lblName.setCaption("اسم(&ع)");
    form.lblItems.setCaption("الموضع");
    form.btnOpen.setCaption("استعراض");
    show([&](User& person) {
        EXPECT_TRUE(isMirrored(front()));
        form.opened = [&] { form.UniMsgBox1.ShowMsg("اسم", boxstyle::OkOnly, "", ""); };
        user.onBox([](const SeenBox&) {
            EXPECT_TRUE(isMirrored(front()));
            return answer::Ok;
        });
        person.click("btnOpen");
    });
}

/// What stands in a box on the screen, by the class of its windows.
std::wstring inBox(const wchar_t* windowClass) {
    const HWND found = ::FindWindowExW(front(), nullptr, windowClass, nullptr);
    return found ? titleOf(found) : L"none";
}

TEST_F(NativeView, ABoxShowsItsTextAndCaptionsAsTheyAreAsked) {
    user.onBox([](const SeenBox&) {
        EXPECT_EQ(titleOf(front()), L"Name & more");
        EXPECT_EQ(inBox(L"Static"), L"<b>T&C</b>\r\nof &all");
        EXPECT_EQ(inBox(L"Button"), L"&Okay");
        EXPECT_NE(::GetWindowLongPtrW(front(), GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
        return answer::Ok;
    });
    EXPECT_EQ(form.UniMsgBox1.ShowMsg("<b>T&C</b>\r\nof &all\r\n",
                                      boxstyle::Critical | boxstyle::SystemModal, "&Name && more",
                                      "&Okay"),
              answer::Ok);
    form.Unload();
}

TEST_F(NativeView, ABoxIsAnsweredByEscapeAndTheFrameWithNo) {
    for (const UINT way : {WM_CLOSE, WM_COMMAND}) {
        user.onBox([&](const SeenBox&) {
            ::SendMessageW(front(), way, IDCANCEL, 0);
            return 99;  // no button: the box has gone by then
        });
        EXPECT_EQ(form.UniMsgBox1.ShowMsg("Sure?", boxstyle::YesNo, "", ""), answer::No);
        EXPECT_NE(refusalOf([&] { user.finish(); }), "");
    }
    form.Unload();
}

TEST_F(NativeView, WhatAWatcherThrowsComesOutOfTheCall) {
    view->onShown([](const std::string&) { throw Error(errc::InvalidCall, "no picture"); });
    EXPECT_EQ(raisedBy([&] { form.Show(); }).description(), "no picture");
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(raisedBy([&] { view->showMessage({}); }).description(), "no picture");
    view->onShown({});
}

TEST_F(NativeView, AFormCanUnloadAsItComesUp) {
    form.txtName.GotFocus = [&] { form.Unload(); };
    form.Show();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(user.forms(), Log{});
}

template <class Look>
BOOL CALLBACK visit(HWND child, LPARAM look) {
    (*reinterpret_cast<const Look*>(look))(child);
    return TRUE;
}

/// Every dialog, in the languages of the component.
class NativeDialogs : public Desk {
  protected:
    /// Checks that each caption that is on the screen has the room that it needs.
    static void expectCaptionsWhole(User& u, Form& form) {
        int seen = 0;
        const auto look = [&](HWND child) {
            const std::wstring name = classOf(child);
            const LONG_PTR style = ::GetWindowLongPtrW(child, GWL_STYLE);
            const bool isValue = (style & SS_ENDELLIPSIS) != 0 && name == L"Static";
            if (!::IsWindowVisible(child) || isValue) return;
            if (name != L"Static" && name != L"Button") return;
            const HDC dc = ::GetDC(child);
            ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageW(child, WM_GETFONT, 0, 0)));
            const std::wstring text = titleOf(child);
            // What stands in place of the rows of a list goes over several lines.
            const bool isNote = name == L"Static" && (style & SS_TYPEMASK) == SS_CENTER;
            RECT room{0, 0, isNote ? innerSize(child).cx : 0, 0};
            ::DrawTextW(dc, text.c_str(), -1, &room,
                        DT_CALCRECT | (isNote ? DT_WORDBREAK | DT_EDITCONTROL : 0U));
            ::ReleaseDC(child, dc);
            EXPECT_LE(room.right, innerSize(child).cx) << form.name();
            EXPECT_LE(room.bottom, innerSize(child).cy) << form.name();
            ++seen;
        };
        for (int tab = 0; tab < (form.control("SSTab2") ? 2 : 1); ++tab) {
            if (form.control("SSTab2")) u.changeTab("SSTab2", tab);
            u.see(form.controls().front()->name());
            ::EnumChildWindows(front(), visit<decltype(look)>, reinterpret_cast<LPARAM>(&look));
        }
        EXPECT_GT(seen, 2) << form.name();
    }
};
INSTANTIATE_TEST_SUITE_P(Views, NativeDialogs, ::testing::Values("Win32"),
                         [](const auto& each) { return std::string(each.param); });

/// Texts that are longer than those of the dialogs' design.
struct LongTexts : ResourceManager {
    explicit LongTexts(double pointSize) : size(pointSize) {}
    double size;
    std::string GetString(const std::string& key) override { return "&" + key.substr(0, 24); }
    Font GetFont(long) override { return {"", size, false, false}; }
};

TEST_P(NativeDialogs, ShowEveryCaptionWhole) {
    for (const double size : {0.0, 8.0, 13.5}) {
        component.InitResourceManager(std::make_shared<LongTexts>(size));
        for (const Dialog& dialog : allDialogs()) {
            const auto form = dialog.make();
            user().onForm(dialog.name, [&](User& u) {
                expectCaptionsWhole(u, *form);
                u.closeByFrame();
            });
            form->Show();
        }
    }
}

}  // namespace
}  // namespace wynconfig
