// Which buttons act on the rows of a list, as views read it off the layout.
#include <gtest/gtest.h>

#include <vector>

#include "wynconfig/form.h"
#include "wynconfig/layout.h"

namespace wynconfig {
namespace {

/// Two lists with buttons beside the first and between both, and a third one alone.
class TwoLists : public Form {
  public:
    TwoLists() : Form("frmTwoLists") {}

    Label lblFrom{*this, "lblFrom", "From"};
    ListView lstFrom{*this, "lstFrom"};
    Label lblInto{*this, "lblInto", "Into"};
    ListView lstInto{*this, "lstInto"};
    ListView lstAlone{*this, "lstAlone"};
    Button btnNew{*this, "btnNew", "New"};
    Button btnEdit{*this, "btnEdit", "Edit"};
    Button btnAdd{*this, "btnAdd", ">"};
    Button btnRemove{*this, "btnRemove", "<"};
    Button btnOther{*this, "btnOther", "Other"};

  protected:
    FormLayout declareLayout() override {
        using namespace layout;
        return {column(
            {row({titled(lblFrom, {single(btnNew), single(btnEdit)}, lstFrom),
                  column({moving(btnAdd, lblFrom, lblInto), moving(btnRemove, lblInto, lblFrom)}),
                  titled(lblInto, lstInto)}),
             single(lstAlone), single(btnOther)})};
    }
};

using Buttons = std::vector<Button*>;

TEST(ListButtons, AreThoseBesideTheListAndThoseThatMoveItsRows) {
    TwoLists form;
    const Layout& body = form.layout().body;
    EXPECT_EQ(buttonsOf(body, form.lstFrom), (Buttons{&form.btnNew, &form.btnEdit, &form.btnAdd}));
    EXPECT_EQ(buttonsOf(body, form.lstInto), Buttons{&form.btnRemove});
    EXPECT_EQ(buttonsOf(body, form.lstAlone), Buttons{});
}

TEST(ListButtons, MoveRowsOneWay) {
    TwoLists form;
    const Layout& body = form.layout().body;
    EXPECT_EQ(moverOf(body, form.lstFrom, form.lstInto), &form.btnAdd);
    EXPECT_EQ(moverOf(body, form.lstInto, form.lstFrom), &form.btnRemove);
    EXPECT_EQ(moverOf(body, form.lstFrom, form.lstFrom), nullptr);
    EXPECT_EQ(moverOf(body, form.lstAlone, form.lstInto), nullptr);
    EXPECT_EQ(moverOf(body, form.lstInto, form.lstAlone), nullptr);
}

}  // namespace
}  // namespace wynconfig
