// The list of special symbols: what it offers, where a pick goes, and what it refuses.
#include "support/dialog_checks.h"
#include "support/part_format_desk.h"

namespace wynconfig {
namespace {

const std::vector<std::string> kSymbols{
    "<Part #>", "<Quantity>", "<Description>", "<PageHeader>", "<PageFooter>",
    "<TAB>",    "<SPACE>",    "<CR>",          "<LF>",         "<ESCAPE>"};

/// What a pick does to the box that was entered last.
enum class Effect { Inserted, Replaces, Refused };
using enum Effect;

/// The boxes that a pick treats alike, and the effect of each symbol in their order.
struct Target {
    std::vector<std::string> boxes;
    std::vector<Effect> effects;
};

const std::vector<Target> kTargets{
    {{"txtHeader"},
     {Refused, Refused, Refused, Inserted, Refused, Inserted, Inserted, Inserted, Inserted,
      Inserted}},
    {{"txtRecord", "txtSeparator"},
     {Inserted, Inserted, Inserted, Refused, Refused, Inserted, Inserted, Inserted, Inserted,
      Inserted}},
    {{"txtTrailer"},
     {Refused, Refused, Refused, Refused, Inserted, Inserted, Inserted, Inserted, Inserted,
      Inserted}},
    {{"txtPartPad", "txtQtyPad", "txtDescPad"},
     {Refused, Refused, Refused, Refused, Refused, Replaces, Replaces, Replaces, Replaces,
      Replaces}},
    {{"txtVINPad", "txtPartFieldLength", "txtQtyFieldLength", "txtDescFieldLength",
      "txtVINFieldLength", "txtMaxRecords"},
     {Refused, Refused, Refused, Refused, Refused, Refused, Refused, Refused, Refused, Refused}}};

class SymbolList : public PartFormatDesk {
  protected:
    static inline const std::string kList = "lstSpecialSymbols2";

    /// Opens a part format with all flags on, runs the script, and cancels.
    void open(const User::Script& script, const Stored& rows = kOwnFormat) {
        putFormat("F", rows);
        edit("F", [&](User& u) {
            script(u);
            u.click("btnCancel");
        });
        EXPECT_TRUE(user().boxes().empty());
    }
    static void pick(User& u, const std::string& symbol) { u.pick(kList, symbol); }
};
ON_EVERY_VIEW(SymbolList);

TEST_P(SymbolList, OffersTheSymbolsInTheirOrder) {
    std::vector<SeenRow> expected;
    for (std::size_t i = 0; i < kSymbols.size(); ++i)
        expected.push_back({"I" + std::to_string(i + 1), kSymbols[i]});
    for (const char* name : {"", "F"}) {
        putFormat("F");
        edit(name, [&](User& u) {
            EXPECT_EQ(u.see(kList).rows, expected);
            EXPECT_TRUE(u.canUse(kList));
            EXPECT_EQ(u.see(kList).selected, 0U);
            u.click("btnCancel");
        });
    }
}

TEST_P(SymbolList, IsFilledAfreshByEachOpening) {
    frmPartNumberFormat form;
    form.init("");
    form.init("");
    EXPECT_EQ(form.lstSpecialSymbols2.count(), kSymbols.size());
}

TEST_P(SymbolList, StaysHiddenUntilItIsFilled) {
    frmPartNumberFormat form;
    form.Hide();
    EXPECT_FALSE(form.lstSpecialSymbols2.visible());
    EXPECT_EQ(form.lstSpecialSymbols2.count(), 0U);
    form.init("");
    EXPECT_TRUE(form.lstSpecialSymbols2.visible());
}

TEST_P(SymbolList, HasOneColumnWithoutAHeading) {
    frmPartNumberFormat form;
    form.init("");
    const auto& columns = form.lstSpecialSymbols2.columns();
    ASSERT_EQ(columns.size(), 1U);
    EXPECT_EQ(columns[0].key, "NAME");
    EXPECT_EQ(columns[0].text, "");
    EXPECT_EQ(columns[0].width, 1440);
    EXPECT_EQ(columns[0].tag, "Stores the name of the item");
}

TEST_P(SymbolList, RowsHaveTheFontOfTheDialog) {
    frmPartNumberFormat form;
    form.init("");
    ASSERT_NE(form.font(), nullptr);
    for (const ListRow& row : form.lstSpecialSymbols2.rows())
        EXPECT_EQ(row.font, form.font()) << row.text;
}

TEST_P(SymbolList, EachSymbolHasItsOutcomeInEachBox) {
    for (const Target& target : kTargets) {
        for (const std::string& box : target.boxes) {
            for (std::size_t i = 0; i < kSymbols.size(); ++i) {
                const std::string& symbol = kSymbols[i];
                open([&](User& u) {
                    u.type(box, "xy");
                    u.setCaret(box, 1);
                    const Stored before = shownBy(u);
                    pick(u, symbol);
                    std::string expected = "xy";
                    if (target.effects[i] == Inserted) expected = "x" + symbol + "y";
                    if (target.effects[i] == Replaces) expected = symbol;
                    EXPECT_EQ(u.see(box).text, expected) << box << " " << symbol;
                    u.type(box, "xy");
                    EXPECT_EQ(shownBy(u), before) << box << " " << symbol;
                });
            }
        }
    }
}

// ---- Templates ----

TEST_P(SymbolList, PickInTheMiddleSendsTheCaretToTheEnd) {
    open([](User& u) {
        u.type("txtHeader", "ab");
        u.setCaret("txtHeader", 1);
        pick(u, "<TAB>");
        EXPECT_EQ(u.see("txtHeader").text, "a<TAB>b");
        EXPECT_EQ(u.see("txtHeader").caret, 7U);
        pick(u, "<CR>");
        EXPECT_EQ(u.see("txtHeader").text, "a<TAB>b<CR>");
        EXPECT_EQ(u.see("txtHeader").caret, 11U);
    });
}

TEST_P(SymbolList, PickGoesWhereTheCaretWasMovedTo) {
    open([](User& u) {
        u.type("txtRecord", "ab");
        u.setCaret("txtRecord", 0);
        pick(u, "<Part #>");
        u.setCaret("txtRecord", 8);
        pick(u, "<TAB>");
        EXPECT_EQ(u.see("txtRecord").text, "<Part #><TAB>ab");
        EXPECT_EQ(u.see("txtRecord").caret, 15U);
    });
}

TEST_P(SymbolList, CaretCountsCharactersNotBytes) {
    open([](User& u) {
        u.type("txtTrailer", "\u00E9\U0001F527\u90E8x");
        u.setCaret("txtTrailer", 3);
        pick(u, "<LF>");
        EXPECT_EQ(u.see("txtTrailer").text, "\u00E9\U0001F527\u90E8<LF>x");
        EXPECT_EQ(u.see("txtTrailer").caret, 8U);
        u.setCaret("txtTrailer", 1);
        pick(u, "<CR>");
        EXPECT_EQ(u.see("txtTrailer").text, "\u00E9<CR>\U0001F527\u90E8<LF>x");
        EXPECT_EQ(u.see("txtTrailer").caret, 12U);
    });
}

TEST_P(SymbolList, StoredTemplateIsOpenedWithItsCaretAtTheStart) {
    open([](User& u) {
        pick(u, "<PageHeader>");
        EXPECT_EQ(u.see("txtHeader").text, "<PageHeader><PageHeader><TAB>");
        EXPECT_EQ(u.see("txtHeader").caret, 29U);
    });
}

TEST_P(SymbolList, RowPickedAlreadyCanBePickedAgain) {
    open([](User& u) {
        u.type("txtSeparator", "");
        for (int i = 0; i < 3; ++i) pick(u, "<CR>");
        EXPECT_EQ(u.see("txtSeparator").text, "<CR><CR><CR>");
        EXPECT_EQ(u.see(kList).selected, 8U);
    });
}

TEST_P(SymbolList, RefusalChangesNothingAndTheNextPickIsInserted) {
    open([](User& u) {
        u.type("txtHeader", "ab");
        u.setCaret("txtHeader", 1);
        pick(u, "<Part #>");
        EXPECT_EQ(u.see("txtHeader").text, "ab");
        EXPECT_EQ(u.see("txtHeader").caret, 1U);
        pick(u, "<SPACE>");
        EXPECT_EQ(u.see("txtHeader").text, "a<SPACE>b");
    });
}

TEST_P(SymbolList, KeepsTheFocusAndItsSelection) {
    open([](User& u) {
        u.focus("txtTrailer");
        pick(u, "<PageFooter>");
        EXPECT_TRUE(u.see(kList).focus);
        EXPECT_FALSE(u.see("txtTrailer").focus);
        EXPECT_EQ(u.see(kList).selected, 5U);
        u.focus("txtHeader");
        EXPECT_EQ(u.see(kList).selected, 5U);
    });
}

TEST_P(SymbolList, WhatWasPickedIsStored) {
    putFormat("F", kOwnFormat);
    edit("F", [](User& u) {
        u.type("txtRecord", "");
        for (const char* symbol : {"<Part #>", "<TAB>", "<Quantity>", "<CR>"}) pick(u, symbol);
        u.focus("txtQtyPad");
        pick(u, "<SPACE>");
        u.click("btnOk");
    });
    EXPECT_EQ(formatRows("F"), with(with(kOwnFormat, "Record", "<Part #><TAB><Quantity><CR>"),
                                    "QtyPadCharacter", "<SPACE>"));
}

// ---- Pads ----

TEST_P(SymbolList, PickReplacesTheWholePad) {
    for (const char* pad : {"txtPartPad", "txtQtyPad", "txtDescPad"}) {
        open([&](User& u) {
            u.type(pad, "x");
            pick(u, "<SPACE>");
            EXPECT_EQ(u.see(pad).text, "<SPACE>");
            pick(u, "<SPACE>");
            EXPECT_EQ(u.see(pad).text, "<SPACE>");
            pick(u, "<Part #>");
            EXPECT_EQ(u.see(pad).text, "<SPACE>");
            pick(u, "<ESCAPE>");
            EXPECT_EQ(u.see(pad).text, "<ESCAPE>");
        });
    }
}

TEST_P(SymbolList, TickedFlagPointsAtItsPadAtOnce) {
    const std::vector<std::string> pads{"PartPadCharacter", "QtyPadCharacter", "DescPadCharacter"};
    for (std::size_t i = 0; i < pads.size(); ++i) {
        edit("", [&](User& u) {
            u.click(kFields[i].check);
            EXPECT_TRUE(u.see(kFields[i].check).focus);
            const Stored before = shownBy(u);
            pick(u, "<SPACE>");
            EXPECT_EQ(shownBy(u), with(before, pads[i], "<SPACE>"));
            u.click("btnCancel");
        });
    }
}

TEST_P(SymbolList, TickedFlagOfTheVinPointsNowhere) {
    edit("", [](User& u) {
        u.focus("txtRecord");
        u.click("chkFormatVIN");
        const Stored before = shownBy(u);
        for (const std::string& symbol : kSymbols) {
            pick(u, symbol);
            EXPECT_EQ(shownBy(u), before) << symbol;
        }
        u.click("btnCancel");
    });
}

TEST_P(SymbolList, TickPointsAtThePadAlsoWhenTheFocusStaysInATemplate) {
    edit("", [](User& u) {
        u.focus("txtRecord");
        u.bareClick("chkFormatQty");
        EXPECT_TRUE(u.see("txtRecord").focus);
        pick(u, "<TAB>");
        EXPECT_EQ(u.see("txtQtyPad").text, "<TAB>");
        EXPECT_EQ(u.see("txtRecord").text, "");
        u.click("btnCancel");
    });
}

// ---- When nothing is pointed at ----

TEST_P(SymbolList, UntickedFlagTurnsThePicksOffUntilABoxIsEntered) {
    for (const FieldControls& field : kFields) {
        open([&](User& u) {
            u.type("txtRecord", "ab");
            u.click(field.check);
            const Stored before = shownBy(u);
            for (const std::string& symbol : kSymbols) pick(u, symbol);
            EXPECT_EQ(shownBy(u), before) << field.check;
            u.setCaret("txtRecord", 2);
            pick(u, "<TAB>");
            EXPECT_EQ(shownBy(u), with(before, "Record", "ab<TAB>")) << field.check;
        });
    }
}

TEST_P(SymbolList, UntickedFlagTurnsOffTheTemplateThatHasTheFocus) {
    open([](User& u) {
        u.focus("txtRecord");
        u.bareClick("chkFormatPartNumber");
        EXPECT_TRUE(u.see("txtRecord").focus);
        const Stored before = shownBy(u);
        pick(u, "<TAB>");
        EXPECT_EQ(shownBy(u), before);
        u.setCaret("txtRecord", 0);
        pick(u, "<TAB>");
        EXPECT_EQ(u.see("txtRecord").text, "<TAB><Part #>;<Quantity>");
    });
}

TEST_P(SymbolList, NameBoxIsNeverPointedAt) {
    open([](User& u) {
        u.type("txtFormatName", "N");
        pick(u, "<CR>");
        EXPECT_EQ(u.see("txtHeader").text, "<CR><PageHeader><TAB>");
        u.focus("txtDescPad");
        u.type("txtFormatName", "M");
        pick(u, "<LF>");
        EXPECT_EQ(u.see("txtDescPad").text, "<LF>");
        EXPECT_EQ(u.see("txtFormatName").text, "M");
    });
}

}  // namespace
}  // namespace wynconfig
