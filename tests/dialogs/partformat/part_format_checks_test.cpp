// The checks of a part format before it is stored: their order, the box that each shows, and where
// the focus is then.
#include "platform/text/numbers.h"
#include "support/dialog_checks.h"
#include "support/part_format_desk.h"

namespace wynconfig {
namespace {

const std::string kForbiddenLine = "\r\n         \\ / : * ? \" < > | .";

/// A value that a check refuses, and what comes of it.
struct Fault {
    std::string box;
    std::string value;
    std::string messageKey;
    std::string titleKey;
    std::string mended;
    std::string secondLine = {};

    std::string text() const { return "{" + messageKey + "}" + secondLine; }
    std::string title() const { return "{" + titleKey + "}"; }
};

/// The faults in the order in which they are met. Those of one box follow on each other.
const std::vector<Fault> kFaults{
    {"txtPartFieldLength", "x", "PART_FORMAT_MSG_PART_FIELD_LEN", "PART_FORMAT_LBL_FIELDLENGTH",
     "1"},
    {"txtQtyFieldLength", "x", "PART_FORMAT_MSG_QTY_FIELD_LEN", "PART_FORMAT_LBL_FIELDLENGTH", "1"},
    {"txtDescFieldLength", "x", "PART_FORMAT_MSG_DESC_FIELD_LEN", "PART_FORMAT_LBL_FIELDLENGTH",
     "1"},
    {"txtVINFieldLength", "x", "PART_FORMAT_MSG_VIN_FIELD_LEN", "PART_FORMAT_LBL_FIELDLENGTH", "1"},
    {"txtMaxRecords", "x", "PART_FORMAT_MSG_NUM_MAX_RECORDS", "PART_FORMAT_LBL_MAXRECORDS", "0"},
    {"txtMaxRecords", "0", "PART_FORMAT_MSG_NUM_MAX_RECORDS", "PART_FORMAT_LBL_MAXRECORDS", "1"},
    {"txtPartPad", "", "PART_FORMAT_MSG_PART_PAD_CHAR", "PART_FORMAT_LBL_PADCHAR", "p"},
    {"txtQtyPad", "", "PART_FORMAT_MSG_QTY_PAD_CHAR", "PART_FORMAT_LBL_PADCHAR", "p"},
    {"txtDescPad", "", "PART_FORMAT_MSG_DESC_PAD_CHAR", "PART_FORMAT_LBL_PADCHAR", "p"},
    {"txtVINPad", "", "PART_FORMAT_MSG_VIN_PAD_CHAR", "PART_FORMAT_LBL_PADCHAR", "p"},
    {"txtFormatName", "", "PART_FORMAT_MSG_CONFIG_NAME", "PART_FORMAT_LBL_FORMATNAME", "A.B"},
    {"txtFormatName", "A.B", "MORAM_CONFIG_MSG_INVALID_CHARS", "MORAM_CONFIG_MSG_INVALID_CONFIG",
     "A", kForbiddenLine}};

class PartFormatChecks : public PartFormatDesk {
  protected:
    static inline const std::string kTag = "frmPartNumberFormat:ValidatePartFormat";

    /// Opens a new part format in which every check passes, with all flags on.
    long editValid(const User::Script& script) {
        return edit("", [script](User& u) {
            for (const FieldControls& field : kFields) {
                u.click(field.check);
                u.type(field.length, "5");
                u.type(field.pad, "p");
            }
            typeNameAndLimit(u, "A");
            script(u);
        });
    }
    /// Meets a fault while a text can't be had: that is told, and then the refusal by what is left.
    void expectRefusedWithout(const std::string& key, const Fault& fault, const std::string& text,
                              const std::string& title) {
        user().onBox();
        user().onBox();
        editValid([&](User& u) {
            texts->missing = {key};
            u.type(fault.box, fault.value);
            u.click("btnOk");
            EXPECT_TRUE(u.see(fault.box).focus);
            texts->missing.clear();
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), 2U);
        expectFailure(user().boxes()[0], failureText(kTag, "no text for " + key));
        expectRefusal(user().boxes()[1], text, title);
        user().finish();
    }
    /// Opens a valid part format, spoils one box, and presses OK and then Cancel.
    void expectRefused(const std::string& box, const std::string& value, const Fault& fault) {
        user().onBox();
        const std::size_t before = user().boxes().size();
        editValid([&](User& u) {
            u.type(box, value);
            u.click("btnOk");
            EXPECT_EQ(u.formName(), "frmPartNumberFormat");
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), before + 1) << box << " \"" << value << '"';
        ::wynconfig::expectRefusal(user().boxes().back(), fault.text(), fault.title());
        EXPECT_TRUE(formatFiles().empty());
    }
    /// Opens a valid part format, changes one box, and confirms.
    void expectAccepted(const std::string& box, const std::string& value) {
        const std::size_t before = user().boxes().size();
        EXPECT_EQ(editValid([&](User& u) {
                      u.type(box, value);
                      u.click("btnOk");
                  }),
                  0);
        EXPECT_EQ(user().boxes().size(), before) << box << " \"" << value << '"';
        EXPECT_EQ(formatFiles().size(), 1U) << box << " \"" << value << '"';
        if (!formatFiles().empty()) memory->remove(ItemPath{formatFolder, formatFiles()[0]});
    }
};
ON_EVERY_VIEW(PartFormatChecks);

TEST_P(PartFormatChecks, FaultsAreMetInTheirOrderOnePerPress) {
    for (std::size_t i = 0; i < kFaults.size(); ++i) user().onBox();
    EXPECT_EQ(editValid([&](User& u) {
                  for (std::size_t i = kFaults.size(); i-- > 0;)
                      u.type(kFaults[i].box, kFaults[i].value);
                  for (const Fault& fault : kFaults) {
                      EXPECT_TRUE(formatFiles().empty());
                      u.click("btnOk");
                      expectRefusal(user().boxes().back(), fault.text(), fault.title());
                      EXPECT_TRUE(u.see(fault.box).focus) << fault.messageKey;
                      u.type(fault.box, fault.mended);
                  }
                  u.click("btnOk");
              }),
              0);
    EXPECT_EQ(user().boxes().size(), kFaults.size());
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"A.vla"}));
}

TEST_P(PartFormatChecks, EachFaultAloneIsRefusedWithItsBox) {
    for (const Fault& fault : kFaults) expectRefused(fault.box, fault.value, fault);
}

TEST_P(PartFormatChecks, RefusalPutsTheFocusAndTheCaretAtTheStartOfTheBox) {
    const std::vector<std::pair<std::string, std::string>> faults{
        {"txtPartFieldLength", "x1"}, {"txtQtyFieldLength", "x2"}, {"txtDescFieldLength", "x3"},
        {"txtVINFieldLength", "x4"},  {"txtMaxRecords", "many"},   {"txtMaxRecords", "-17"},
        {"txtFormatName", "A.B"}};
    for (const auto& each : faults) {
        const std::string& box = each.first;
        const std::string& value = each.second;
        user().onBox();
        editValid([&](User& u) {
            u.type(box, value);
            EXPECT_EQ(u.see(box).caret, value.size());
            u.focus("txtRecord");
            u.click("btnOk");
            EXPECT_TRUE(u.see(box).focus) << box;
            EXPECT_EQ(u.see(box).caret, 0U) << box;
            EXPECT_EQ(u.see(box).text, value);
            u.click("btnCancel");
        });
    }
}

TEST_P(PartFormatChecks, EmptyBoxesGetTheFocusAsWell) {
    for (const char* box : {"txtPartPad", "txtQtyPad", "txtDescPad", "txtVINPad", "txtFormatName",
                            "txtMaxRecords", "txtQtyFieldLength"}) {
        user().onBox();
        editValid([&](User& u) {
            u.type(box, "");
            u.focus("txtRecord");
            u.click("btnOk");
            EXPECT_TRUE(u.see(box).focus) << box;
            u.click("btnCancel");
        });
    }
}

TEST_P(PartFormatChecks, SymbolsFollowTheFocusOfARefusal) {
    for (const Fault& fault : kFaults) {
        user().onBox();
        editValid([&](User& u) {
            u.type(fault.box, fault.value);
            u.focus("txtTrailer");
            u.click("btnOk");
            Stored expected = shownBy(u);
            u.pick("lstSpecialSymbols2", "<TAB>");
            if (fault.box == "txtPartPad") expected = with(expected, "PartPadCharacter", "<TAB>");
            if (fault.box == "txtQtyPad") expected = with(expected, "QtyPadCharacter", "<TAB>");
            if (fault.box == "txtDescPad") expected = with(expected, "DescPadCharacter", "<TAB>");
            // The name box has no say in where symbols go.
            if (fault.box == "txtFormatName") expected = with(expected, "Trailer", "<TAB>");
            EXPECT_EQ(shownBy(u), expected) << fault.messageKey;
            u.click("btnCancel");
        });
    }
}

// ---- What passes, and what does not ----

TEST_P(PartFormatChecks, FieldsWhoseFlagIsOffAreNotLookedAt) {
    EXPECT_EQ(editValid([](User& u) {
                  for (const FieldControls& field : kFields) {
                      u.type(field.length, "");
                      u.type(field.pad, "");
                      u.click(field.check);
                  }
                  u.click("btnOk");
              }),
              0);
    EXPECT_TRUE(user().boxes().empty());
    const Stored rows = formatRows("A");
    for (const auto& row : rows) {
        if (row.first.ends_with("Length") || row.first.ends_with("Character")) {
            EXPECT_EQ(row.second, "") << row.first;
        }
    }
}

TEST_P(PartFormatChecks, LimitIsLookedAtWhateverTheFlagsSay) {
    user().onBox();
    edit("", [](User& u) {
        u.type("txtFormatName", "A.B");
        u.click("btnOk");
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0], "{PART_FORMAT_MSG_NUM_MAX_RECORDS}",
                  "{PART_FORMAT_LBL_MAXRECORDS}");
}

TEST_P(PartFormatChecks, LimitIsAnyNumberAboveZero) {
    for (const char* limit : {"1", "0.5", "1e3", ".001", " 7 ", "+2", "1,000", "$5", "&H1F",
                              "99999999999999999999999999"})
        expectAccepted("txtMaxRecords", limit);
    for (const char* limit : {"", " ", "abc", "1 2", "1x", "--1", "1e400", "&H", "1..2"})
        expectRefused("txtMaxRecords", limit, kFaults[4]);
    for (const char* limit : {"0", "-5", "0.0", "-0.5", "(5)", "1e-400", "&H0", "-1e3"})
        expectRefused("txtMaxRecords", limit, kFaults[5]);
}

TEST_P(PartFormatChecks, LengthIsAnyNumber) {
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        for (const char* length : {"0", "-5", "1.5", " 3 ", "1e3", "(7)"})
            expectAccepted(kFields[i].length, length);
        for (const char* length : {"", "  ", "x", "5 mm"})
            expectRefused(kFields[i].length, length, kFaults[i]);
    }
}

TEST_P(PartFormatChecks, NumbersMayBeOfFullWidthWhereTheUserWritesThemSo) {
    setNumberLocale("ja-JP");
    expectAccepted("txtPartFieldLength", "２０");
    expectAccepted("txtMaxRecords", "１．５");
    expectRefused("txtMaxRecords", "－５", kFaults[5]);
    expectRefused("txtMaxRecords", "０", kFaults[5]);
    expectRefused("txtMaxRecords", "五", kFaults[4]);
    expectRefused("txtFormatName", "１２３", kFaults[11]);
    setNumberLocale("en-US");
    expectRefused("txtMaxRecords", "２０", kFaults[4]);
    expectAccepted("txtFormatName", "１２３");
}

TEST_P(PartFormatChecks, PadIsAnyTextThatIsNotEmpty) {
    for (const FieldControls& field : kFields) {
        for (const char* pad : {" ", "   ", "several letters", "<SPACE>", "]]>", "\U0001F527"})
            expectAccepted(field.pad, pad);
    }
}

TEST_P(PartFormatChecks, TemplatesAreNotLookedAt) {
    for (const char* box : {"txtHeader", "txtRecord", "txtSeparator", "txtTrailer"}) {
        for (const char* text : {"", " ", "<NOSUCH", "a\\b/c:d*e?f\"g|h.i", "123"})
            expectAccepted(box, text);
    }
}

TEST_P(PartFormatChecks, NameMayHoldNoneOfTheForbiddenCharacters) {
    for (const char each : std::string("\\/:*?\"<>|.")) {
        expectRefused("txtFormatName", std::string("A") + each + "B", kFaults[11]);
        expectRefused("txtFormatName", std::string(1, each), kFaults[11]);
    }
    for (const char* name : {"A B", "A,B", "A'B", "[A]", "\u00C4\u00D6", "-", "A1"})
        expectAccepted("txtFormatName", name);
}

TEST_P(PartFormatChecks, NameThatIsANumberIsRefusedAsIfItsCharactersWereForbidden) {
    for (const char* name : {"2024", "-4", "1e5", "$12", "1,000", "&hff", " 7 "})
        expectRefused("txtFormatName", name, kFaults[11]);
}

// ---- The name box ----

TEST_P(PartFormatChecks, NameIsPutRightBeforeTheFirstCheck) {
    user().onBox();
    editValid([](User& u) {
        u.type("txtPartFieldLength", "x");
        u.type("txtFormatName", "  a b ");
        u.pressEnter();
        EXPECT_EQ(u.see("txtFormatName").text, "A B");
        EXPECT_TRUE(u.see("txtPartFieldLength").focus);
        u.click("btnCancel");
    });
    EXPECT_EQ(user().boxes().at(0).text, "{PART_FORMAT_MSG_PART_FIELD_LEN}");
}

TEST_P(PartFormatChecks, NameOfBlanksIsEmptiedAndAskedFor) {
    user().onBox();
    editValid([](User& u) {
        u.type("txtFormatName", "   ");
        u.pressEnter();
        EXPECT_EQ(u.see("txtFormatName").text, "");
        EXPECT_TRUE(u.see("txtFormatName").focus);
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0], kFaults[10].text(), kFaults[10].title());
}

TEST_P(PartFormatChecks, RefusedNameKeepsItsCapitals) {
    user().onBox();
    editValid([](User& u) {
        u.type("txtFormatName", " a.b ");
        u.pressEnter();
        EXPECT_EQ(u.see("txtFormatName").text, "A.B");
        EXPECT_EQ(u.see("txtFormatName").caret, 0U);
        EXPECT_TRUE(u.see("txtFormatName").focus);
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0], kFaults[11].text(), kFaults[11].title());
}

TEST_P(PartFormatChecks, RefusedEntryCanStillBeCancelledOrClosed) {
    user().onBox();
    user().onBox();
    EXPECT_EQ(edit("",
                   [](User& u) {
                       u.click("btnOk");
                       u.click("btnCancel");
                   }),
              1);
    EXPECT_EQ(edit("",
                   [](User& u) {
                       u.click("btnOk");
                       u.closeByFrame();
                   }),
              0);
    EXPECT_TRUE(formatFiles().empty());
}

// ---- Texts and failures ----

TEST_P(PartFormatChecks, TextsAreFetchedWhenTheyAreShown) {
    user().onBox();
    user().onBox();
    edit("", [this](User& u) {
        texts->texts["PART_FORMAT_MSG_NUM_MAX_RECORDS"] = "How many?";
        texts->texts["PART_FORMAT_LBL_MAXRECORDS"] = "Limit";
        u.click("btnOk");
        texts->texts.clear();
        u.click("btnOk");
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectRefusal(user().boxes()[0], "How many?", "Limit");
    expectRefusal(user().boxes()[1], kFaults[4].text(), kFaults[4].title());
}

TEST_P(PartFormatChecks, MessageWithoutItsTextIsShownEmpty) {
    for (const Fault& fault : kFaults)
        expectRefusedWithout(fault.messageKey, fault, fault.secondLine, fault.title());
    EXPECT_TRUE(formatFiles().empty());
}

TEST_P(PartFormatChecks, MessageWithoutItsTitleIsShownWithoutOne) {
    for (const Fault& fault : kFaults)
        expectRefusedWithout(fault.titleKey, fault, fault.text(), "");
    EXPECT_TRUE(formatFiles().empty());
}

TEST_P(PartFormatChecks, NameBeyondSixteenBitsFailsAndCountsAsInvalid) {
    user().onBox();
    user().onBox();
    editValid([](User& u) {
        u.type("txtFormatName", std::string(32'768, 'A'));
        u.click("btnOk");
        EXPECT_TRUE(u.see("txtFormatName").focus);
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, kTag)) << user().boxes()[0].text;
    expectRefusal(user().boxes()[1], kFaults[11].text(), kFaults[11].title());
}

}  // namespace
}  // namespace wynconfig
