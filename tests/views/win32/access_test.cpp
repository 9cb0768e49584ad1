// What assistive programs are told of native windows.
#include <initguid.h>
// Behind it: only from here on an identity becomes a constant.
#include "support/annotations_win32.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "dialogs/partformat/frmPartNumberFormat.h"
#include "support/all_dialogs.h"
#include "support/find_form.h"
#include "support/native_desk.h"
#include "views/win32/convert.h"
#include "views/win32/form_window.h"
#include "wynconfig/help.h"
#include "wynconfig/mnemonic.h"

namespace wynconfig {
namespace {

using native::FormWindow;

HWND windowOf(const Control& control) {
    return FormWindow::of(front())->piece(control)->window();
}

/// What Windows by itself calls a window, as a screen reader asks it.
std::wstring calledByWindows(HWND window) {
    IAccessible* found = nullptr;
    if (::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                     reinterpret_cast<void**>(&found)) != S_OK)
        return L"(nothing)";
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    BSTR given = nullptr;
    found->get_accName(self, &given);
    const std::wstring name = given ? given : L"";
    ::SysFreeString(given);
    found->Release();
    return name;
}

class HelpedForm : public FindForm {
  public:
    mutable int asked = 0;

  protected:
    std::string fetchHelp(const Control* control) const override {
        ++asked;
        return control == &txtName ? "A näme." : control == &lstAll ? "All of them." : "";
    }
};

class NativeAccess : public NativeDesk<HelpedForm> {
  protected:
    Annotations told;
};

TEST_F(NativeAccess, NamesBoxesByTheirLabels) {
    show([&](User&) {
        EXPECT_EQ(told.nameOf(windowOf(form.lstAll)), L"All rows");
        EXPECT_EQ(told.nameOf(windowOf(form.lstChosen)), L"Chosen rows");
        EXPECT_EQ(told.nameOf(windowOf(form.btnAdd)), L"All rows \u2192 Chosen rows");
        EXPECT_EQ(told.nameOf(windowOf(form.btnNew)), L"") << "that is its caption";
        EXPECT_EQ(calledByWindows(windowOf(form.btnNew)), L"New");
    });
}

TEST_F(NativeAccess, TurnsAnArrowWithTheWindow) {
    form.lblAll.setCaption("الكل");
    form.lblChosen.setCaption("المختار");
    form.btnNew.setCaption("جديد");
    form.btnDelete.setCaption("حذف");
    form.btnCancel.setCaption("إلغاء");
    show([&](User&) {
        ASSERT_TRUE(isMirrored(front()));
        EXPECT_EQ(native::fromWide(told.nameOf(windowOf(form.btnAdd))), "الكل ← المختار");
    });
}

TEST_F(NativeAccess, NamesTheLineAboveALongList) {
    show([&](User&) {
        const HWND line = ::GetWindow(windowOf(form.lstAll), GW_HWNDPREV);
        EXPECT_EQ(told.nameOf(line), L"Filter: All rows");
    });
}

TEST_F(NativeAccess, DescribesAFieldByItsHelpOnceAProgramAsks) {
    show([&](User&) {
        const HWND box = windowOf(form.txtName);
        EXPECT_EQ(form.asked, 0);
        EXPECT_EQ(told.descriptionOf(box), L"");
        calledByWindows(box);
        EXPECT_EQ(told.descriptionOf(box), L"A n\u00E4me.");
        EXPECT_GT(form.asked, 0);
        calledByWindows(windowOf(form.btnNew));
        EXPECT_EQ(told.descriptionOf(windowOf(form.btnNew)), L"");
    });
}

TEST_F(NativeAccess, DescribesAnEmptyListByWhatItSays) {
    form.rows = 0;
    show([&](User& u) {
        const HWND list = windowOf(form.lstAll);
        calledByWindows(list);
        EXPECT_EQ(told.descriptionOf(list), L"Nothing here yet. Begin with \u201CNew\u201D.");
        form.fill(1);
        u.see("lstAll");
        calledByWindows(list);
        EXPECT_EQ(told.descriptionOf(list), L"All of them.");
    });
}

/// Every dialog.
class SpokenDialogs : public Desk {};
INSTANTIATE_TEST_SUITE_P(Views, SpokenDialogs, ::testing::Values("Win32"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(SpokenDialogs, TellTheNameAndTheHelpOfEachField) {
    component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    int described = 0;
    for (const Dialog& dialog : allDialogs()) {
        const auto form = dialog.make();
        const Annotations told;
        user().onForm(dialog.name, [&](User& u) {
            for (const Control* each : form->controls()) {
                if (!takesFocus(*each)) continue;
                const HWND window = windowOf(*each);
                const std::string name = spokenName(form->layout().body, *each);
                const std::string found = native::fromWide(calledByWindows(window));
                const std::wstring named = told.nameOf(window);
                EXPECT_EQ(named.empty() ? found : native::fromWide(named), name)
                    << dialog.name << " " << each->name();
                if (each->kind() != ControlKind::Edit) continue;
                // A label is found also where the service is none.
                const HWND before = ::GetWindow(window, GW_HWNDPREV);
                if (classOf(before) == WC_STATICW) {
                    EXPECT_EQ(found, name) << dialog.name << " " << each->name();
                }
                const std::string words = native::fromWide(told.descriptionOf(window));
                EXPECT_EQ(words, form->help(each)) << dialog.name << " " << each->name();
                if (!words.empty()) ++described;
            }
            u.closeByFrame();
        });
        form->Show();
    }
    EXPECT_GT(described, 20);
}

/// The frame that assistive programs find around an option: one that stands before it.
HWND frameAround(HWND option) {
    const RECT inner = placeOf(option);
    for (HWND each = ::GetWindow(option, GW_HWNDPREV); each;
         each = ::GetWindow(each, GW_HWNDPREV)) {
        const LONG_PTR style = ::GetWindowLongPtrW(each, GWL_STYLE);
        const RECT outer = placeOf(each);
        const bool isAround = outer.left <= inner.left && outer.top <= inner.top &&
                              outer.right >= inner.right && outer.bottom >= inner.bottom;
        if (classOf(each) == WC_BUTTONW && (style & BS_TYPEMASK) == BS_GROUPBOX &&
            (style & WS_VISIBLE) && isAround)
            return each;
    }
    return nullptr;
}

/// Whether anything of a window is not covered by those beside it.
bool isUncovered(HWND window) {
    const HDC dc = ::GetDC(window);
    RECT seen{};
    const int kind = ::GetClipBox(dc, &seen);
    ::ReleaseDC(window, dc);
    return kind != NULLREGION && kind != ERROR;
}

/// The fields of a layout whose options stand together.
void findOptionFields(const Layout& node, std::vector<const Layout*>& found) {
    if (node.kind == Layout::Kind::Field && node.control->kind() == ControlKind::OptionButton &&
        !node.children.empty())
        found.push_back(&node);
    for (const Layout& each : node.children) findOptionFields(each, found);
}

TEST_P(SpokenDialogs, NameOptionsThatStandTogether) {
    component.InitResourceManager(makeBundleResourceManager(WYNCONFIG_RESOURCES, "en"));
    std::set<std::string> names;
    for (const Dialog& dialog : allDialogs()) {
        const auto form = dialog.make();
        const Annotations told;
        user().onForm(dialog.name, [&](User& u) {
            std::vector<const Layout*> fields;
            findOptionFields(form->layout().body, fields);
            for (const Layout* each : fields) {
                const HWND first = windowOf(*each->control);
                const HWND frame = frameAround(first);
                ASSERT_NE(frame, nullptr) << dialog.name << " " << each->control->name();
                const std::string name = native::fromWide(told.nameOf(frame));
                names.insert(name);
                if (const auto* label = dynamic_cast<const CaptionedControl*>(each->label)) {
                    EXPECT_EQ(name, plainCaption(label->caption())) << dialog.name;
                }
                for (const Layout& other : each->children) {
                    if (!other.control) continue;
                    EXPECT_EQ(frameAround(windowOf(*other.control)), frame) << name;
                }
                EXPECT_TRUE(!::IsWindowVisible(first) || isUncovered(first)) << name;
            }
            u.closeByFrame();
        });
        form->Show();
    }
    EXPECT_TRUE(names.contains("If the file exists"));
    EXPECT_GT(names.size(), 1U);
    EXPECT_FALSE(names.contains(""));
}

TEST_P(SpokenDialogs, NameOptionsByWhatIsSeenOfThem) {
    frmPartNumberFormat form;
    form.init("");
    const Annotations told;
    user().onForm("frmPartNumberFormat", [&](User& u) {
        const HWND frame = frameAround(windowOf(form.Part.left));
        form.Part.alignmentLabel.setCaption("&Side");
        u.formTitle();
        EXPECT_EQ(told.nameOf(frame), L"Side");
        EXPECT_TRUE(::IsWindowVisible(frame));
        for (OptionButton* each : {&form.Part.left, &form.Part.right}) each->setVisible(false);
        u.formTitle();
        EXPECT_FALSE(::IsWindowVisible(frame));
        u.closeByFrame();
    });
    form.Show();
}

}  // namespace
}  // namespace wynconfig
