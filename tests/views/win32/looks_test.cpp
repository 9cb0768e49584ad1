// How wide native windows have their boxes, and what of their frames is seen.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "support/native_desk.h"
#include "support/part_format_desk.h"
#include "views/win32/form_window.h"

namespace wynconfig {
namespace {

using native::FormWindow;

RECT placeOf(const Control& control) {
    return wynconfig::placeOf(FormWindow::of(front())->piece(control)->window());
}

LONG widthOf(const Control& control) {
    const RECT place = placeOf(control);
    return place.right - place.left;
}

class NativeLooks : public PartFormatDesk {};
INSTANTIATE_TEST_SUITE_P(Views, NativeLooks, ::testing::Values("Win32"),
                         [](const auto& each) { return std::string(each.param); });

TEST_P(NativeLooks, HaveNarrowBoxesForFewCharacters) {
    frmPartNumberFormat form;
    form.init("");
    user().onForm("frmPartNumberFormat", [&](User& u) {
        EXPECT_LT(widthOf(form.Part.length), widthOf(form.Part.pad) / 2);
        EXPECT_LT(widthOf(form.txtMaxRecords), widthOf(form.Part.pad) / 2);
        EXPECT_EQ(placeOf(form.Part.length).left, placeOf(form.Part.pad).left)
            << "they begin alike";
        u.resize(20000, 12000);
        EXPECT_LT(widthOf(form.Part.length), widthOf(form.Part.pad) / 2) << "however wide";
        u.click("btnCancel");
    });
    form.Show();
}

/// Boxes for texts of several lengths, in each way in which a layout has them.
class BoxesForm : public TestForm {
  public:
    BoxesForm() : TestForm("frmBoxes") {
        btnOK.Click = [this] { Unload(); };
    }
    Label lblFew{*this, "lblFew", "&Few"};
    Edit txtFew{*this, "txtFew"};
    Label lblMany{*this, "lblMany", "&Many"};
    Edit txtMany{*this, "txtMany"};
    Label lblAbove{*this, "lblAbove", "&Above"};
    Edit txtAbove{*this, "txtAbove"};
    Edit txtAlone{*this, "txtAlone"};
    Label lblAny{*this, "lblAny", "An&y"};
    Edit txtAny{*this, "txtAny"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({sized(field(lblFew, txtFew), 5), sized(field(lblMany, txtMany), 60),
                        sized(titled(lblAbove, txtAbove), 5), sized(single(txtAlone), 5),
                        field(lblAny, txtAny), buttons({&btnOK})}),
                &btnOK, nullptr};
    }
};

using NativeBoxes = NativeDesk<BoxesForm>;

TEST_F(NativeBoxes, AreAsWideAsWhatGoesIn) {
    show([&](User& u) {
        const LONG few = widthOf(form.txtFew);
        EXPECT_EQ(widthOf(form.txtAbove), few);
        EXPECT_EQ(widthOf(form.txtAlone), few);
        EXPECT_GT(widthOf(form.txtMany), 8 * few);
        EXPECT_EQ(widthOf(form.txtMany), widthOf(form.txtAny)) << "they end alike";
        u.type("txtFew", "12345");
        const HWND box = FormWindow::of(front())->piece(form.txtFew)->window();
        RECT inside{};
        ::GetClientRect(box, &inside);
        const auto last = static_cast<short>(LOWORD(::SendMessageW(box, EM_POSFROMCHAR, 4, 0)));
        const auto first = static_cast<short>(LOWORD(::SendMessageW(box, EM_POSFROMCHAR, 0, 0)));
        EXPECT_GE(first, 0);
        EXPECT_LT(last + (last - first) / 4, inside.right) << "all of it is seen";
    });
}

/// A frame around boxes, beside one that has no frame.
class FramedForm : public TestForm {
  public:
    FramedForm() : TestForm("frmFramed") {
        btnOK.Click = [this] { Unload(); };
    }
    Frame frame{*this, "frame", ""};
    Edit txtIn{*this, "txtIn"};
    Edit txtLow{*this, "txtLow"};
    Edit txtOut{*this, "txtOut"};
    Button btnOK{*this, "btnOK", "OK"};

  protected:
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({group(frame, {single(txtIn), single(txtLow)}), single(txtOut),
                        buttons({&btnOK})}),
                &btnOK, nullptr};
    }
};

class NativeFrames : public NativeDesk<FramedForm> {
  protected:
    /// How many colours are on the screen at the frame's left edge, between what stands in it.
    std::size_t coloursOfItsEdge() {
        ::RedrawWindow(front(), nullptr, nullptr,
                       RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        RECT gap{placeOf(form.frame).left, placeOf(form.txtIn).bottom, 0, placeOf(form.txtLow).top};
        ::MapWindowPoints(nullptr, front(), reinterpret_cast<POINT*>(&gap), 2);
        EXPECT_GT(gap.bottom, gap.top);
        const HDC dc = ::GetDC(front());
        std::set<COLORREF> found;
        for (LONG x = gap.left; x < gap.left + 5; ++x)
            found.insert(::GetPixel(dc, x, (gap.top + gap.bottom) / 2));
        ::ReleaseDC(front(), dc);
        return found.size();
    }
};

TEST_F(NativeFrames, HaveNoOutlineWithoutACaption) {
    show([&](User& u) {
        u.formTitle();
        EXPECT_EQ(placeOf(form.txtIn).left, placeOf(form.txtOut).left);
        EXPECT_EQ(coloursOfItsEdge(), 1U);
        EXPECT_TRUE(u.see("frame").visible);
        form.frame.setCaption("Framed");
        u.formTitle();
        EXPECT_GT(placeOf(form.txtIn).left, placeOf(form.txtOut).left);
        EXPECT_GT(coloursOfItsEdge(), 1U);
        form.frame.setCaption("");
        u.formTitle();
        EXPECT_EQ(placeOf(form.txtIn).left, placeOf(form.txtOut).left);
        EXPECT_EQ(coloursOfItsEdge(), 1U);
    });
}

}  // namespace
}  // namespace wynconfig
