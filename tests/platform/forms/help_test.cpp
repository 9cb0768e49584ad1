// The help of a form: what its entries are called, and in which order they stand.
#include "wynconfig/help.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/short_names.h"
#include "wynconfig/form.h"
#include "wynconfig/keyboard.h"
#include "wynconfig/view.h"

namespace wynconfig {
namespace {

class Helped : public Form {
  public:
    Helped() : Form("frmHelped") {}

    std::map<std::string, std::string> texts{
        {"", "About it."},       {"txtName", "A name."},    {"rdoLeft", "A side."},
        {"rdoRight", "A side."}, {"txtFirst", "A length."}, {"txtSecond", "A length."},
        {"txtFree", "Free."},    {"btnUse", "Uses it."},    {"btnMove", "Moves it."}};
    bool failing = false;

    Label lblName{*this, "lblName", "&Name"};
    Edit txtName{*this, "txtName"};
    Frame frmSide{*this, "frmSide", "Si&de"};
    OptionButton rdoLeft{*this, "rdoLeft", frmSide, "&Left"};
    OptionButton rdoRight{*this, "rdoRight", frmSide, "&Right"};
    Edit txtFree{*this, "txtFree"};
    Label lblFirst{*this, "lblFirst", "Length"};
    Edit txtFirst{*this, "txtFirst"};
    Label lblSecond{*this, "lblSecond", "Length"};
    Edit txtSecond{*this, "txtSecond"};
    Label lblFrom{*this, "lblFrom", "&From"};
    ListView lstFrom{*this, "lstFrom"};
    Label lblInto{*this, "lblInto", "&Into"};
    ListView lstInto{*this, "lstInto"};
    Button btnMove{*this, "btnMove", ">"};
    Button btnUse{*this, "btnUse", "&Use"};

  protected:
    std::string fetchHelp(const Control* control) const override {
        if (failing) throw std::runtime_error("no help");
        const auto found = texts.find(control ? std::string(control->name()) : "");
        return found == texts.end() ? std::string() : found->second;
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {column({field(lblName, txtName),
                        group(frmSide, {row({single(rdoLeft), single(rdoRight)}), single(txtFree)}),
                        field(lblFirst, txtFirst), field(lblSecond, txtSecond),
                        titled(lblFrom, lstFrom), moving(btnMove, lblFrom, lblInto),
                        titled(lblInto, lstInto), single(btnUse)})};
    }
};

class FormHelp : public ::testing::Test {
  protected:
    void SetUp() override {
        form.setCaption("The &Form");
        form.Hide();
    }

    Helped form;
};

TEST_F(FormHelp, NamesEachControlAsAPersonKnowsIt) {
    const HelpPage page = helpPage(form);
    EXPECT_EQ(page.title, "The Form");
    EXPECT_EQ(page.text, "About it.");
    const std::vector<HelpEntry> entries{
        {{"Name"}, "A name."},     {{"Left", "Right"}, "A side."}, {{"Side"}, "Free."},
        {{"Length"}, "A length."}, {{"From → Into"}, "Moves it."}, {{"Use"}, "Uses it."}};
    EXPECT_EQ(page.entries, entries);
}

TEST_F(FormHelp, TurnsTheArrowWhereTheWindowRunsTheOtherWay) {
    EXPECT_EQ(spokenName(form.layout().body, form.btnMove, true), "From ← Into");
}

TEST_F(FormHelp, HasAWordForWhatNoCaptionOnTheScreenNames) {
    using namespace layout;
    const Layout body =
        group(form.frmSide, {spokenAs(single(form.txtFree), "VIEW_TOKENS"),
                             spokenAs(field(form.lblName, form.txtName), "VIEW_TOKENS")});
    EXPECT_EQ(spokenName(body, form.txtFree), "Tokens");
    EXPECT_EQ(spokenName(body, form.txtName), "Name");
}

TEST_F(FormHelp, LeavesOutWhatIsHidden) {
    form.txtName.setVisible(false);
    form.rdoLeft.setVisible(false);
    const HelpPage page = helpPage(form);
    ASSERT_FALSE(page.entries.empty());
    EXPECT_EQ(page.entries.front(), (HelpEntry{{"Right"}, "A side."}));
}

TEST_F(FormHelp, AsPlainTextIsTwoLinesAnEntry) {
    const HelpPage page{"T", "About.", {{{"A", "B"}, "Both."}}};
    EXPECT_EQ(page.lines(), (std::vector<std::string>{"T", "About.", "A / B", "Both."}));
}

TEST_F(FormHelp, IsNoneWhereItRaises) {
    form.failing = true;
    EXPECT_EQ(form.help(), "");
    EXPECT_EQ(form.help(&form.txtName), "");
    EXPECT_TRUE(helpPage(form).entries.empty());
}

TEST_F(FormHelp, LoadsNothing) {
    Helped other;
    EXPECT_EQ(other.help(&other.txtName), "A name.");
    EXPECT_FALSE(other.loaded());
}

TEST_F(FormHelp, ComesByF1WhereThereIsSome) {
    const KeyAct act = actOfKey(form, FormKey::F1);
    EXPECT_EQ(act, (KeyAct{KeyAct::Kind::Help}));
    EXPECT_TRUE(act);
    form.texts.erase("");
    EXPECT_FALSE(actOfKey(form, FormKey::F1));
}

}  // namespace
}  // namespace wynconfig
