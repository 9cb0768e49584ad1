// The table of a dialog's fields, on a small dialog that is made as any other: what it shows at
// first, what it stores, and what each way of reading makes of a key that the record lacks.
#include "services/fields.h"

#include <set>

#include "services/texts.h"
#include "support/desk.h"
#include "wynconfig/form.h"
#include "wynconfig/keys.h"

namespace wynconfig {
namespace {

using Row = std::pair<std::string, std::string>;
using StoredRows = std::vector<Row>;

/// Orders a label for a part. A further field is a member here, a row of the table, a text and a
/// word in the layout, and nothing else.
class LabelDialog : public Form {
  public:
    LabelDialog() : Form("LabelDialog") {
        btnOK.Click = [this] {
            OnError on{"LabelDialog:btnOK_Click"};
            record = std::make_shared<Dataset>();
            addRows(on, fields, *record);
            Unload();
        };
        btnCancel.Click = [this] { Unload(); };
    }

    Label lblNote{*this, "lblNote", "Note"};
    Edit txtNote{*this, "txtNote"};
    Label lblCode{*this, "lblCode", "Code"};
    Edit txtCode{*this, "txtCode"};
    CheckBox chkUrgent{*this, "chkUrgent", "Urgent"};
    CheckBox chkPrice{*this, "chkPrice", "With the price"};
    Frame frmSize{*this, "frmSize", "Size"};
    OptionButton rdoSmall{*this, "rdoSmall", frmSize, "Small"};
    OptionButton rdoLarge{*this, "rdoLarge", frmSize, "Large"};
    OptionButton rdoOther{*this, "rdoOther", frmSize, "Other"};
    Label lblPaper{*this, "lblPaper", "Paper"};
    ComboBox cboPaper{*this, "cboPaper"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

    const Fields fields{
        {AsText{txtNote}, "Note", "no note"},
        {AsTrimmedText{txtCode}, "Code"},
        {AsSwitch{chkUrgent}, "Urgent", words::kTrue},
        {AsFlag{chkPrice}, "Price", words::kTrue},
        {AsOptions{{{rdoSmall, "small"}, {rdoLarge, "large"}, {rdoOther, "other"}}, rdoLarge},
         "Size", "small"},
        {AsItem{cboPaper}, "Paper"},
        {AsConstant{}, "Version", "2"}};
    std::shared_ptr<Dataset> record;

  private:
    void Form_Load() override {
        applyTexts({{&lblNote, "LABEL_NOTE"},
                    {&lblCode, "LABEL_CODE"},
                    {&chkUrgent, "LABEL_URGENT"},
                    {&chkPrice, "LABEL_PRICE"},
                    {&frmSize, "LABEL_SIZE"},
                    {&rdoSmall, "LABEL_SMALL"},
                    {&rdoLarge, "LABEL_LARGE"},
                    {&rdoOther, "LABEL_OTHER"},
                    {&lblPaper, "LABEL_PAPER"},
                    {&btnOK, "BUTTON_OK"},
                    {&btnCancel, "BUTTON_CANCEL"}});
        for (const char* paper : {"white", "yellow"}) cboPaper.addItem(paper);
    }
    FormLayout declareLayout() override {
        using namespace layout;
        return {
            column({field(lblNote, txtNote), field(lblCode, txtCode), single(chkUrgent),
                    single(chkPrice),
                    group(frmSize, {row({single(rdoSmall), single(rdoLarge), single(rdoOther)})}),
                    field(lblPaper, cboPaper), stretch(), buttons({&btnOK, &btnCancel})}),
            &btnOK, &btnCancel};
    }
};

const StoredRows kOwn{{"Note", " fragile "}, {"Code", "A7"},    {"Urgent", "false"},
                      {"Price", "false"},    {"Size", "other"}, {"Paper", "yellow"},
                      {"Version", "2"}};

StoredRows rowsOf(const Dataset& record) {
    StoredRows rows;
    for (const DataRow& row : record.Rows()) rows.emplace_back(row[0], row[1]);
    return rows;
}

class FieldTable : public Desk {
  protected:
    static std::shared_ptr<Dataset> recordOf(const StoredRows& rows,
                                             const std::set<std::string>& absent = {}) {
        auto record = std::make_shared<Dataset>();
        for (const auto& [key, data] : rows) {
            if (!absent.contains(key)) record->AddRow({key, data});
        }
        return record;
    }
    /// The values that the dialog shows, by key; of options the names of those that are on.
    static StoredRows shownBy(User& u) {
        std::string size;
        for (const char* each : {"rdoSmall", "rdoLarge", "rdoOther"}) {
            if (u.see(each).value) size += each;
        }
        return {{"Note", u.see("txtNote").text},
                {"Code", u.see("txtCode").text},
                {"Urgent", u.see("chkUrgent").value ? "ticked" : "clear"},
                {"Price", u.see("chkPrice").value ? "ticked" : "clear"},
                {"Size", size},
                {"Paper", u.see("cboPaper").text}};
    }
    /// What the dialog shows after `prepare`.
    StoredRows shownAfter(const std::function<void(LabelDialog&)>& prepare) {
        LabelDialog form;
        prepare(form);
        StoredRows shown;
        user().onForm("LabelDialog", [&](User& u) {
            shown = shownBy(u);
            u.click("btnCancel");
        });
        form.Show();
        return shown;
    }
    /// What the dialog shows of a record with some keys missing, by a reader. The first values are
    /// shown before, as dialogs do.
    template <class Reader>
    StoredRows shownBy(Reader read, const std::set<std::string>& absent) {
        const auto record = recordOf(kOwn, absent);
        return shownAfter([&](LabelDialog& form) {
            showFirstValues(form.fields);
            read(form.fields, *record);
        });
    }
};
ON_EVERY_VIEW(FieldTable);

const std::set<std::string> kEveryKey{"Note", "Code",  "Urgent", "Price",
                                      "Size", "Paper", "Version"};

TEST_P(FieldTable, TheFirstValuesAreShownAndAllElseStaysAsItIs) {
    const StoredRows first{{"Note", "no note"}, {"Code", "kept"},     {"Urgent", "ticked"},
                           {"Price", "ticked"}, {"Size", "rdoSmall"}, {"Paper", ""}};
    EXPECT_EQ(shownAfter([](LabelDialog& form) {
                  form.txtCode.setText("kept");
                  showFirstValues(form.fields);
              }),
              first);
    EXPECT_EQ(shownAfter([](LabelDialog& form) {
                  form.txtCode.setText("kept");
                  OnError on{"LabelDialog:init"};
                  showFirstValues(on, form.fields);
              }),
              first);
}

TEST_P(FieldTable, WhatAPersonEntersIsStoredInTheOrderOfTheTable) {
    LabelDialog form;
    user().onForm("LabelDialog", [](User& u) {
        EXPECT_EQ(u.see("chkUrgent").caption, "{LABEL_URGENT}");
        u.type("txtNote", " fragile ");
        u.type("txtCode", "  A7 ");
        u.tick("chkUrgent");
        u.tick("chkUrgent", false);
        u.click("rdoOther");
        u.choose("cboPaper", "yellow");
        u.click("btnOK");
    });
    form.Show();
    EXPECT_EQ(rowsOf(*form.record), kOwn);
}

TEST_P(FieldTable, EveryWayOfReadingShowsAWholeRecord) {
    const StoredRows own{{"Note", " fragile "}, {"Code", "A7"},       {"Urgent", "clear"},
                         {"Price", "clear"},    {"Size", "rdoOther"}, {"Paper", "yellow"}};
    EXPECT_EQ(shownBy(readCarryingOver, {}), own);
    EXPECT_EQ(shownBy(readUpToAbsentKey, {}), own);
    EXPECT_EQ(shownBy(readPastAbsentKeys, {}), own);
}

TEST_P(FieldTable, AnAbsentKeyTakesTheDataOfTheKeyBeforeIt) {
    const StoredRows shown{{"Note", " fragile "}, {"Code", " fragile "}, {"Urgent", "clear"},
                           {"Price", "ticked"},   {"Size", "rdoLarge"},  {"Paper", "white"}};
    EXPECT_EQ(shownBy(readCarryingOver, {"Code", "Urgent", "Price", "Size", "Paper"}), shown);
    EXPECT_EQ(shownBy(readCarryingOver, {"Price"})[3], (Row{"Price", "clear"}))
        << "the data before it is false";
}

TEST_P(FieldTable, BeforeAnyKeyAFailedTestEntersItsTrueBranch) {
    const StoredRows shown{{"Note", "no note"}, {"Code", ""},         {"Urgent", "ticked"},
                           {"Price", "clear"},  {"Size", "rdoSmall"}, {"Paper", ""}};
    EXPECT_EQ(shownBy(readCarryingOver, kEveryKey), shown);
}

TEST_P(FieldTable, CarryingOverGivesTheLastRowForWhatIsReadBehindTheTable) {
    LabelDialog form;
    RowVariable none = readCarryingOver(form.fields, Dataset{});
    EXPECT_TRUE(none.isEmpty());
    RowVariable row = readCarryingOver(form.fields, *recordOf(kOwn, {"Paper"}));
    EXPECT_EQ(row.data(), "other") << "a constant is never read";
}

TEST_P(FieldTable, TheFirstAbsentKeyEndsTheReading) {
    const StoredRows shown{{"Note", " fragile "}, {"Code", "A7"},       {"Urgent", "ticked"},
                           {"Price", "ticked"},   {"Size", "rdoSmall"}, {"Paper", ""}};
    EXPECT_EQ(shownBy(readUpToAbsentKey, {"Urgent"}), shown);
}

TEST_P(FieldTable, AnAbsentKeyReadsAsEmptyAndTheReadingGoesOn) {
    const StoredRows shown{{"Note", ""},        {"Code", ""},         {"Urgent", "clear"},
                           {"Price", "ticked"}, {"Size", "rdoLarge"}, {"Paper", "yellow"}};
    EXPECT_EQ(shownBy(readPastAbsentKeys, {"Note", "Code", "Urgent", "Price", "Size"}), shown);
    EXPECT_EQ(shownBy(readPastAbsentKeys, {"Paper"})[5], (Row{"Paper", "white"}));
}

TEST_P(FieldTable, WordsAreComparedExactly) {
    const StoredRows odd{{"Note", ""},       {"Code", ""},      {"Urgent", "True"},
                         {"Price", "FALSE"}, {"Size", "Small"}, {"Paper", "Yellow"}};
    const StoredRows shown{{"Note", ""},        {"Code", ""},         {"Urgent", "clear"},
                           {"Price", "ticked"}, {"Size", "rdoLarge"}, {"Paper", "white"}};
    EXPECT_EQ(
        shownAfter([&](LabelDialog& form) { readPastAbsentKeys(form.fields, *recordOf(odd)); }),
        shown);
}

TEST_P(FieldTable, ARowIsReplacedAtTheEndOfTheRecord) {
    LabelDialog form;
    Dataset record;
    record.AddRow({"Size", "old"});
    record.AddRow({"Other", "kept"});
    readPastAbsentKeys(form.fields, *recordOf(kOwn));
    OnError silent = OnError::ignoring();
    replaceRows(silent, form.fields, record);
    StoredRows expected = kOwn;
    expected.insert(expected.begin(), {"Other", "kept"});
    EXPECT_EQ(rowsOf(record), expected);
}

TEST_P(FieldTable, WithNoOptionOnTheLastWordIsStored) {
    LabelDialog form;
    Dataset record;
    OnError on{"LabelDialog:save"};
    addRows(on, form.fields, record);
    EXPECT_EQ(record.GetRow("Size")[1], "other");
    EXPECT_EQ(record.GetRow("Version")[1], "2");
}

TEST_P(FieldTable, AFailedRowIsToldAndTheNextOnesAreStored) {
    LabelDialog form;
    Dataset record;
    record.AddRow({"Code", "there already"});
    OnError on{"LabelDialog:save"};
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "LabelDialog:save")) << box.text;
        return answer::Ok;
    });
    addRows(on, form.fields, record);
    EXPECT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(record.GetRow("Code")[1], "there already");
    EXPECT_EQ(record.Rows().size(), 7U);
}

}  // namespace
}  // namespace wynconfig
