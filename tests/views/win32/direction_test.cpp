// Texts that run the other way than the native window they stand in.
#include <gtest/gtest.h>

#include <string>

#include "support/native_desk.h"
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

}  // namespace
}  // namespace wynconfig
