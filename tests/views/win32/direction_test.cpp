// Texts that run the other way than the native window they stand in.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/native_desk.h"
#include "views/win32/convert.h"
#include "views/win32/direction.h"
#include "views/win32/form_window.h"

namespace wynconfig {
namespace {

using native::FormWindow;

/// A form of Arabic captions, or of English ones, with names in both scripts.
class NamesForm : public TestForm {
  public:
    NamesForm() : TestForm("frmNames") {
        btnOK.Click = [this] { Unload(); };
    }
    bool arabic = true;
    std::string title;
    void rename() { setCaption(title); }
    Label lblPath{*this, "lblPath", "&Path"};
    Edit txtPath{*this, "txtPath"};
    Label lblFirst{*this, "lblFirst", "&First"};
    ListView lstFirst{*this, "lstFirst"};
    Button btnAdd{*this, "btnAdd", ">"};
    Label lblSecond{*this, "lblSecond", "&Second"};
    ListView lstSecond{*this, "lstSecond"};
    Label lblKind{*this, "lblKind", "&Kind"};
    ComboBox cboKind{*this, "cboKind"};
    Label lblValue{*this, "lblValue", "LIST (1)."};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    void Form_Load() override {
        if (arabic) {
            lblPath.setCaption("المسار(&م)");
            lblFirst.setCaption("الأول");
            lblSecond.setCaption("الثاني");
            lblKind.setCaption("النوع");
        }
        for (const char* each : {"ROW-1.", "صف 1.", "<TAB>", "12"}) lstFirst.add(each, each);
        for (const char* each : {"KIND (A).", "نوع."}) cboKind.addItem(each);
        cboKind.setSelectedIndex(0);
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {
            column({field(lblPath, txtPath),
                    row({growing(titled(lblFirst, lstFirst)), moving(btnAdd, lblFirst, lblSecond),
                         growing(titled(lblSecond, lstSecond))}),
                    field(lblKind, cboKind), single(lblValue), buttons({&btnOK})}),
            &btnOK, nullptr};
    }
};

class NativeDirection : public NativeDesk<NamesForm> {
  protected:
    static HWND windowOf(const Control& control) {
        return FormWindow::of(front())->piece(control)->window();
    }
    HWND box() { return windowOf(form.txtPath); }
    bool boxRunsFromRight() {
        return (::GetWindowLongPtrW(box(), GWL_EXSTYLE) & WS_EX_RTLREADING) != 0;
    }
    bool boxStandsRight() { return (::GetWindowLongPtrW(box(), GWL_STYLE) & ES_RIGHT) != 0; }
    /// Where a character of the box begins, in pixels from its left.
    LONG placeOfCharacter(WPARAM number) {
        return static_cast<short>(LOWORD(::SendMessageW(box(), EM_POSFROMCHAR, number, 0)));
    }
    /// What is really in the window of a list.
    std::wstring rowAsShown(int row) {
        wchar_t text[40] = L"";
        LVITEMW item{};
        item.pszText = text;
        item.cchTextMax = 40;
        ::SendMessageW(windowOf(form.lstFirst), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                       reinterpret_cast<LPARAM>(&item));
        return item.pszText;
    }
    std::wstring itemAsShown(WPARAM item) {
        wchar_t text[40] = L"";
        ::SendMessageW(windowOf(form.cboKind), CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text));
        return text;
    }
};

TEST_F(NativeDirection, IsThatOfWhatIsTyped) {
    show([&](User& u) {
        ASSERT_TRUE(isMirrored(front()));
        u.type("txtPath", "/parts/list-1.");
        EXPECT_FALSE(isMirrored(box()));
        EXPECT_FALSE(boxRunsFromRight());
        EXPECT_TRUE(boxStandsRight()) << "it stands where other texts of the window do";
        RECT inside{};
        ::GetClientRect(box(), &inside);
        EXPECT_GT(placeOfCharacter(0), inside.right / 2);
        EXPECT_GT(placeOfCharacter(13), placeOfCharacter(0)) << "the full stop is its end";
        u.type("txtPath", "قائمة 1.");
        EXPECT_TRUE(boxRunsFromRight());
        form.txtPath.setText("35-0171-A");
        EXPECT_EQ(u.see("txtPath").text, "35-0171-A");
        EXPECT_FALSE(boxRunsFromRight()) << "also of what code writes";
    });
}

TEST_F(NativeDirection, IsThatOfWhatIsTypedInAWindowFromTheLeft) {
    form.arabic = false;
    show([&](User& u) {
        ASSERT_FALSE(isMirrored(front()));
        u.type("txtPath", "قائمة 1.");
        EXPECT_TRUE(boxRunsFromRight());
        EXPECT_FALSE(boxStandsRight());
        u.type("txtPath", "LIST 1.");
        EXPECT_FALSE(boxRunsFromRight());
    });
}

TEST_F(NativeDirection, OfNamesIsMarkedInAMirroredWindowAlone) {
    show([&](User& u) {
        EXPECT_EQ(rowAsShown(0), L"\u202AROW-1.\u202C");
        EXPECT_EQ(rowAsShown(1), L"\u202B\u0635\u0641 1.\u202C");
        EXPECT_EQ(rowAsShown(2), L"\u202A<TAB>\u202C");
        EXPECT_EQ(rowAsShown(3), L"12");
        EXPECT_EQ(itemAsShown(0), L"\u202AKIND (A).\u202C");
        EXPECT_EQ(itemAsShown(1), L"\u202B\u0646\u0648\u0639.\u202C");
        EXPECT_EQ(titleOf(windowOf(form.lblKind)), L"\u0627\u0644\u0646\u0648\u0639");
        EXPECT_EQ(titleOf(windowOf(form.lblValue)), L"\u202ALIST (1).\u202C");
        // What a person reads and picks is what it is.
        EXPECT_EQ(u.see("lstFirst").rowTexts(), (Log{"ROW-1.", "صف 1.", "<TAB>", "12"}));
        EXPECT_EQ(u.see("cboKind").text, "KIND (A).");
        EXPECT_EQ(u.see("lblValue").caption, "LIST (1).");
        u.pick("lstFirst", "ROW-1.");
        EXPECT_EQ(form.lstFirst.selectedNumber(), 1U);
        u.choose("cboKind", "نوع.");
        EXPECT_EQ(form.cboKind.text(), "نوع.");
    });
    form.arabic = false;
    show([&](User&) {
        EXPECT_EQ(rowAsShown(0), L"ROW-1.");
        EXPECT_EQ(itemAsShown(0), L"KIND (A).");
        EXPECT_EQ(titleOf(windowOf(form.lblValue)), L"LIST (1).");
    });
}

TEST_F(NativeDirection, OfATitleIsThatOfItsWords) {
    show([&](User& u) {
        ASSERT_TRUE(isMirrored(front()));
        form.title = "LIST (1).";
        form.rename();
        EXPECT_EQ(u.formTitle(), "LIST (1).");
        EXPECT_EQ(titleOf(front()), L"\u202ALIST (1).\u202C");
        form.title = "LIST (1): صف.";
        form.rename();
        EXPECT_EQ(u.see("UniCaption1").caption, "LIST (1): صف.");
        EXPECT_EQ(titleOf(front()), L"\u202BLIST (1): \u0635\u0641.\u202C")
            << "a name may come first in a sentence";
        form.title = "صف";
        form.rename();
        u.formTitle();
        EXPECT_EQ(titleOf(front()), L"\u0635\u0641");
    });
    form.arabic = false;
    form.title = "LIST (1).";
    show([&](User& u) {
        form.rename();
        u.formTitle();
        EXPECT_EQ(titleOf(front()), L"LIST (1).");
    });
}

TEST_F(NativeDirection, OfTheLinesOfABoxIsThatOfTheirSentences) {
    std::string word = "/parts/";
    while (word.size() < 160) word += "list-1.";
    const std::string sentences[] = {
        "حدث خطأ: no such folder.", "LIST (1): صف.", "It is (1).", "<>:", "", "صف", word};
    std::string text;
    for (const std::string& each : sentences) text += each + "\r\n";
    std::wstring shown;
    std::wstring title;
    const auto look = [&](const SeenBox&) {
        title = titleOf(front());
        shown = native::textOf(::FindWindowExW(front(), nullptr, L"Static", nullptr));
        return answer::Ok;
    };
    show([&](User&) {
        user.onBox(look);
        form.UniMsgBox1.ShowMsg(text, boxstyle::OkOnly, "LIST (1).", "");
        EXPECT_EQ(title, L"\u202ALIST (1).\u202C");
        std::vector<std::wstring> lines;
        for (std::size_t at = 0; at < shown.size();) {
            const std::size_t end = std::min(shown.find(L'\n', at), shown.size());
            lines.push_back(shown.substr(at, end - at));
            at = end + 1;
        }
        ASSERT_GT(lines.size(), 7U);
        EXPECT_EQ(lines[0], native::toWide("\u202Bحدث خطأ: no such folder.\u202C"));
        EXPECT_EQ(lines[1], native::toWide("\u202BLIST (1): صف.\u202C"));
        EXPECT_EQ(lines[2], L"\u202AIt is (1).\u202C");
        EXPECT_EQ(lines[3], L"<>:");
        EXPECT_EQ(lines[4], L"");
        EXPECT_EQ(lines[5], native::toWide("صف"));
        std::wstring whole;
        for (std::size_t i = 6; i < lines.size(); ++i) {
            EXPECT_NE(native::unembedded(lines[i]), lines[i]) << "each line has marks of its own";
            whole += native::unembedded(lines[i]);
        }
        EXPECT_EQ(native::fromWide(whole), word);
    });
    form.arabic = false;
    show([&](User&) {
        user.onBox(look);
        form.UniMsgBox1.ShowMsg("It is (1).", boxstyle::OkOnly, "LIST (1).", "");
        EXPECT_EQ(title, L"LIST (1).");
        EXPECT_EQ(shown, L"It is (1).");
    });
}

TEST(BrokenSentences, EndTheirLinesBehindWords) {
    const auto lines = [](const std::wstring& text) {
        return native::embeddedLines(text,
                                     [](const std::wstring& line) { return line.size() <= 8; });
    };
    // Each line has two marks.
    EXPECT_EQ(lines(L"abc de fgh"), L"\u202Aabc de\u202C\n\u202Afgh\u202C");
    EXPECT_EQ(lines(L"abcdefghi"), L"\u202Aabcdef\u202C\n\u202Aghi\u202C");
    EXPECT_EQ(lines(L"a bcdefghi"), L"\u202Aa\u202C\n\u202Abcdefg\u202C\n\u202Ahi\u202C");
    EXPECT_EQ(lines(L"abcde\U0001F600"), L"\u202Aabcde\u202C\n\u202A\U0001F600\u202C");
    EXPECT_EQ(lines(L"12 345 678 90"), L"12 345\n678 90") << "without letters there are no marks";
    EXPECT_EQ(lines(L""), L"");
    const auto none = [](const std::wstring&) { return false; };
    EXPECT_EQ(native::embeddedLines(L"12", none), L"1\n2") << "it comes to an end";
}

/// A form with a tab in each script.
class TurnedTabsForm : public TestForm {
  public:
    TurnedTabsForm() : TestForm("frmTurnedTabs") {
        btnOK.Click = [this] { Unload(); };
    }
    Tabs tabs{*this, "tabs", {"&Latin (1).", "&Other"}};
    Container first{*this, "first"};
    Container second{*this, "second"};
    Label lblOne{*this, "lblOne", "الأول"};
    Edit txtOne{*this, "txtOne"};
    Label lblTwo{*this, "lblTwo", "الثاني"};
    Edit txtTwo{*this, "txtTwo"};
    Button btnOK{*this, "btnOK", "موافق"};

  protected:
    void Form_Load() override { tabs.setCaption(1, "LIST (1): &صف."); }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({layout::tabs(tabs, {pane(first, {field(lblOne, txtOne)}),
                                            pane(second, {field(lblTwo, txtTwo)})}),
                        buttons({&btnOK})}),
                &btnOK, nullptr};
    }
};

using NativeTabs = NativeDesk<TurnedTabsForm>;

TEST_F(NativeTabs, RunAsTheirWordsDo) {
    show([&](User& u) {
        ASSERT_TRUE(isMirrored(front()));
        const HWND bar = FormWindow::of(front())->piece(form.tabs)->window();
        const auto shown = [bar](WPARAM tab) -> std::wstring {
            wchar_t text[40] = L"";
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = text;
            item.cchTextMax = 40;
            ::SendMessageW(bar, TCM_GETITEMW, tab, reinterpret_cast<LPARAM>(&item));
            return item.pszText;
        };
        EXPECT_EQ(shown(0), L"\u202A&Latin (1).\u202C");
        EXPECT_EQ(shown(1), native::toWide("\u202BLIST (1): &صف.\u202C"));
        EXPECT_EQ(u.see("tabs").rowTexts(), (Log{"Latin (1).", "LIST (1): صف."}));
        EXPECT_EQ(u.see("tabs").rows.at(0).key, "L");
    });
}

}  // namespace
}  // namespace wynconfig
