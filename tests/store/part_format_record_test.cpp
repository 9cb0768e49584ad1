// What a part format record holds, as the editor reads and writes it: every key, absent keys, and
// values that nobody expected.
#include <algorithm>

#include "support/dialog_checks.h"
#include "support/part_format_desk.h"

namespace wynconfig {
namespace {

const std::string kForbidden = "{MORAM_CONFIG_MSG_INVALID_CHARS}\r\n         \\ / : * ? \" < > | .";

class PartFormatRecord : public PartFormatDesk {
  protected:
    /// Opens a record and gives what is shown of it.
    Stored shownOf(const Stored& rows) {
        putFormat("F", rows);
        Stored shown;
        edit("F", [&](User& u) {
            shown = shownBy(u);
            u.click("btnCancel");
        });
        return shown;
    }
    /// Opens a record and confirms it as it is.
    Stored savedOf(const Stored& rows) {
        putFormat("F", rows);
        EXPECT_EQ(edit("F", [](User& u) { u.click("btnOk"); }), 0);
        return formatRows("F");
    }
};
ON_EVERY_VIEW(PartFormatRecord);

TEST_P(PartFormatRecord, NewOneWithANameAndALimitHoldsAllRows) {
    EXPECT_EQ(edit("",
                   [](User& u) {
                       typeNameAndLimit(u, "N");
                       u.click("btnOk");
                   }),
              0);
    const auto record = formatRecord("N");
    EXPECT_EQ(rowsOf(*record), with(kFirstFormat, "MaxRecords", "1"));
    EXPECT_EQ(record->Rows().size(), 21U);
    EXPECT_EQ(record->Type(), "PARTFORMAT");
    EXPECT_EQ(record->Name(), "N");
}

TEST_P(PartFormatRecord, ThePublicKeysAreSpelledAsTheyAreStored) {
    std::vector<std::string> keys{partformat::kHeader, partformat::kRecord, partformat::kSeparator,
                                  partformat::kTrailer};
    for (const partformat::FieldKeys& field :
         {partformat::kPart, partformat::kQty, partformat::kDesc, partformat::kVin})
        keys.insert(keys.end(), {field.flag, field.length, field.alignment, field.pad});
    keys.push_back(partformat::kMaxRecords);
    std::vector<std::string> stored;
    for (const auto& row : kOwnFormat) stored.push_back(row.first);
    EXPECT_EQ(keys, stored);
    EXPECT_EQ(partformat::kType, "PARTFORMAT");
}

TEST_P(PartFormatRecord, EveryValueIsShownAndStoredAgain) {
    EXPECT_EQ(shownOf(kOwnFormat), kOwnFormat);
    EXPECT_EQ(savedOf(kOwnFormat), kOwnFormat);
}

TEST_P(PartFormatRecord, EveryValueTypedIsStored) {
    edit("", [](User& u) {
        u.type("txtFormatName", "N");
        for (std::size_t i = 0; i < kPlaces.size(); ++i) {
            const std::string& place = kPlaces[i];
            if (place.starts_with("txt"))
                u.type(place, kOwnFormat[i].second);
            else if (place.starts_with("chk"))
                u.tick(place);
            else
                u.click(place + "Left");
        }
        u.click("btnOk");
    });
    EXPECT_EQ(formatRows("N"), kOwnFormat);
}

TEST_P(PartFormatRecord, FlagIsOffForExactlyFalse) {
    for (const char* flag : {"FormatPartNumber", "FormatQty", "FormatDesc", "FormatVIN"}) {
        for (const char* on : {"FALSE", "False", "0", "", " false", "false ", "true", "TRUE"})
            EXPECT_EQ(shownOf(with(kFirstFormat, flag, on)), with(kFirstFormat, flag, "true"))
                << flag << " \"" << on << '"';
        EXPECT_EQ(shownOf(with(kOwnFormat, flag, "false")), with(kOwnFormat, flag, "false"));
    }
}

TEST_P(PartFormatRecord, AlignmentIsRightForExactlyRight) {
    for (const char* key : {"PartAlignment", "QtyAlignment", "DescAlignment", "VINAlignment"}) {
        for (const char* left : {"RIGHT", "Right", "left", "", " right", "right ", "true"})
            EXPECT_EQ(shownOf(with(kFirstFormat, key, left)), with(kFirstFormat, key, "left"))
                << key << " \"" << left << '"';
        EXPECT_EQ(shownOf(with(kOwnFormat, key, "right")), with(kOwnFormat, key, "right"));
    }
}

TEST_P(PartFormatRecord, FlagsAndAlignmentsInCapitalsAreStoredAsTheyRead) {
    Stored rows = kOwnFormat;
    for (const char* flag : {"FormatPartNumber", "FormatQty", "FormatDesc", "FormatVIN"})
        rows = with(rows, flag, "FALSE");
    for (const char* key : {"PartAlignment", "QtyAlignment", "DescAlignment", "VINAlignment"})
        rows = with(rows, key, "RIGHT");
    EXPECT_EQ(savedOf(rows), kOwnFormat);
}

TEST_P(PartFormatRecord, LengthThatIsNoNumberStaysWhileItsFlagIsOff) {
    const Stored rows =
        with(with(kOwnFormat, "FormatPartNumber", "false"), "PartFieldLength", "abc");
    EXPECT_EQ(shownOf(rows), rows);
    EXPECT_EQ(savedOf(rows), rows);
}

TEST_P(PartFormatRecord, LengthThatIsNoNumberMustBeMendedWhileItsFlagIsOn) {
    const Stored rows = with(kOwnFormat, "PartFieldLength", "abc");
    putFormat("F", rows);
    user().onBox();
    edit("F", [&](User& u) {
        EXPECT_EQ(shownBy(u), rows);
        u.click("btnOk");
        EXPECT_EQ(formatRows("F"), rows);
        u.type("txtPartFieldLength", "8");
        u.click("btnOk");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().boxes()[0].text, "{PART_FORMAT_MSG_PART_FIELD_LEN}");
    EXPECT_EQ(formatRows("F"), with(kOwnFormat, "PartFieldLength", "8"));
}

TEST_P(PartFormatRecord, NameIsStoredInCapitalsWithoutOuterBlanks) {
    edit("", [](User& u) {
        typeNameAndLimit(u, "  abc ");
        u.click("btnOk");
    });
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"ABC.vla"}));
    EXPECT_EQ(formatRecord("ABC")->Name(), "ABC");
    EXPECT_EQ(formatName, "ABC");
}

TEST_P(PartFormatRecord, NumbersAndPointsMakeNoName) {
    for (int i = 0; i < 4; ++i) user().onBox();
    edit("", [](User& u) {
        for (const char* name : {"1", "1.5", "A.B", "123"}) {
            typeNameAndLimit(u, name);
            u.click("btnOk");
        }
        u.type("txtFormatName", "A B");
        u.click("btnOk");
    });
    ASSERT_EQ(user().boxes().size(), 4U);
    for (const SeenBox& box : user().boxes())
        expectRefusal(box, kForbidden, "{MORAM_CONFIG_MSG_INVALID_CONFIG}");
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"A B.vla"}));
}

TEST_P(PartFormatRecord, AnyTokenTypedAnywhereIsStoredAsItStands) {
    Stored expected = with(kFirstFormat, "MaxRecords", "1");
    edit("", [&](User& u) {
        typeNameAndLimit(u, "N");
        const std::vector<std::pair<std::string, std::string>> typed{
            {"txtHeader", "<VIN>"},
            {"txtRecord", "<PageHeader><PageFooter>"},
            {"txtSeparator", "<vin><Part#> <NOSUCH>"},
            {"txtTrailer", "<Part #>  "}};
        for (std::size_t i = 0; i < typed.size(); ++i) {
            u.type(typed[i].first, typed[i].second);
            expected[i].second = typed[i].second;
        }
        u.click("btnOk");
    });
    EXPECT_EQ(formatRows("N"), expected);
}

// ---- Absent keys ----

TEST_P(PartFormatRecord, AbsentKeyReadsAsTheOneBeforeIt) {
    Stored rows = kOwnFormat;
    for (std::size_t i = 4; i < 20; i += 4) {
        rows[i].second = "false";
        rows[i + 2].second = "right";
    }
    const std::vector<std::string> reads{"",
                                         "<PageHeader><TAB>",
                                         "<Part #>;<Quantity>",
                                         "<CR><LF>",
                                         "true",
                                         "false",
                                         "left",
                                         "right",
                                         "true",
                                         "false",
                                         "left",
                                         "right",
                                         "true",
                                         "false",
                                         "left",
                                         "right",
                                         "true",
                                         "false",
                                         "left",
                                         "right",
                                         "5"};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string& key = rows[i].first;
        EXPECT_EQ(shownOf(without(rows, key)), with(rows, key, reads[i])) << "without " << key;
    }
}

TEST_P(PartFormatRecord, OneThatLacksAKeyComesOutWithAllRows) {
    for (const auto& row : kOwnFormat) {
        const Stored shown = shownOf(without(kOwnFormat, row.first));
        // With its flag on a length of "true" would be refused.
        if (row.first.ends_with("FieldLength")) continue;
        EXPECT_EQ(savedOf(without(kOwnFormat, row.first)), shown) << "without " << row.first;
    }
    for (const auto& row : kOwnFormat) {
        if (!row.first.ends_with("FieldLength")) continue;
        Stored rows = without(kOwnFormat, row.first);
        for (auto& each : rows) {
            if (each.first.starts_with("Format")) each.second = "false";
        }
        const Stored saved = savedOf(rows);
        EXPECT_EQ(without(saved, row.first), rows);
        EXPECT_EQ(saved.size(), 21U);
        EXPECT_EQ(shownOf(rows), saved);
    }
}

TEST_P(PartFormatRecord, AbsentKeyLooksBackToTheNearestThatIsThere) {
    Stored rows = kOwnFormat;
    for (const char* key : {"Separator", "Trailer", "FormatPartNumber", "PartFieldLength",
                            "PartAlignment", "PartPadCharacter"})
        rows = without(rows, key);
    Stored expected = with(kOwnFormat, "FormatPartNumber", "true");
    for (const char* key : {"Separator", "Trailer", "PartFieldLength", "PartPadCharacter"})
        expected = with(expected, key, "<Part #>;<Quantity>");
    EXPECT_EQ(shownOf(rows), with(expected, "PartAlignment", "left"));
}

TEST_P(PartFormatRecord, AbsentFlagBehindAPadOfFalseIsOff) {
    const Stored rows = with(kOwnFormat, "DescPadCharacter", "false");
    EXPECT_EQ(shownOf(without(rows, "FormatVIN")), with(rows, "FormatVIN", "false"));
}

TEST_P(PartFormatRecord, AbsentAlignmentBehindALengthOfRightIsRight) {
    const Stored rows = with(kOwnFormat, "QtyFieldLength", "right");
    EXPECT_EQ(shownOf(without(rows, "QtyAlignment")), with(rows, "QtyAlignment", "right"));
}

TEST_P(PartFormatRecord, KeysAbsentFromTheStartReadAsNothing) {
    Stored rows = kOwnFormat;
    Stored expected = kOwnFormat;
    for (auto& row : expected) {
        rows = without(rows, row.first);
        row.second = row.first.starts_with("Format")    ? "false"
                     : row.first.ends_with("Alignment") ? "right"
                                                        : "";
        if (rows.empty()) break;
        EXPECT_EQ(shownOf(rows), expected) << "up to " << row.first;
    }
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(shownOf({}), expected);
}

TEST_P(PartFormatRecord, OneWithoutRowsIsWrittenOverOnceItHasALimit) {
    putFormat("F");
    edit("F", [](User& u) {
        u.type("txtMaxRecords", "7");
        u.click("btnOk");
    });
    Stored expected = kFirstFormat;
    for (auto& row : expected) {
        if (row.first.ends_with("FieldLength")) row.second.clear();
    }
    EXPECT_EQ(formatRows("F"), with(expected, "MaxRecords", "7"));
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"F.vla"}));
}

// ---- Values and rows that nobody expected ----

TEST_P(PartFormatRecord, UnknownKeysAreReadOverAndDropped) {
    Stored rows = kOwnFormat;
    rows.insert(rows.begin(), {"Colour", "red"});
    rows.insert(rows.begin() + 9, {"header", "small"});
    rows.emplace_back("", "nameless");
    EXPECT_EQ(shownOf(rows), kOwnFormat);
    EXPECT_EQ(savedOf(rows), kOwnFormat);
}

TEST_P(PartFormatRecord, UnknownKeyDoesNotStandInForAnAbsentOne) {
    Stored rows = without(kOwnFormat, "Record");
    rows.insert(rows.begin() + 1, {"RECORD", "capital"});
    EXPECT_EQ(shownOf(rows), with(kOwnFormat, "Record", "<PageHeader><TAB>"));
}

TEST_P(PartFormatRecord, OrderOfTheStoredRowsDoesNotMatter) {
    Stored rows = kOwnFormat;
    std::reverse(rows.begin(), rows.end());
    EXPECT_EQ(shownOf(rows), kOwnFormat);
    EXPECT_EQ(savedOf(rows), kOwnFormat);
}

TEST_P(PartFormatRecord, PadMayBeAnyText) {
    for (const char* pad :
         {" ", "\t", "\U0001F527", "]]>", "&amp;", "<SPACE>", "several letters"}) {
        Stored rows = kOwnFormat;
        for (auto& row : rows) {
            if (row.first.ends_with("PadCharacter")) row.second = pad;
        }
        EXPECT_EQ(shownOf(rows), rows) << '"' << pad << '"';
        EXPECT_EQ(savedOf(rows), rows) << '"' << pad << '"';
    }
}

TEST_P(PartFormatRecord, PadTypedInIsKeptWithItsBlanks) {
    putFormat("F", kOwnFormat);
    edit("F", [](User& u) {
        u.type("txtPartPad", " ");
        u.type("txtQtyPad", "\U0001F527");
        u.type("txtDescPad", "]]>");
        u.type("txtVINPad", " x ");
        u.click("btnOk");
    });
    Stored expected = with(kOwnFormat, "PartPadCharacter", " ");
    expected = with(expected, "QtyPadCharacter", "\U0001F527");
    expected = with(expected, "DescPadCharacter", "]]>");
    EXPECT_EQ(formatRows("F"), with(expected, "VINPadCharacter", " x "));
}

TEST_P(PartFormatRecord, NumbersAreStoredAsTheyAreTyped) {
    const Stored numbers{{"PartFieldLength", "0"},
                         {"QtyFieldLength", "-4"},
                         {"DescFieldLength", "1.5"},
                         {"VINFieldLength", " 99999999999999999999 "},
                         {"MaxRecords", " 1,000.50 "}};
    Stored rows = kOwnFormat;
    for (const auto& [key, number] : numbers) rows = with(rows, key, number);
    EXPECT_EQ(shownOf(rows), rows);
    EXPECT_EQ(savedOf(rows), rows);
}

TEST_P(PartFormatRecord, TemplatesMayBeOfAMegabyte) {
    std::string text;
    while (text.size() < 1'000'000) text += "<Part #>;\u00E9\U0001F527&]]> ";
    const Stored rows = with(kOwnFormat, "Record", text);
    putFormat("F", rows);
    edit("F", [&](User& u) {
        // Not by the texts themselves: a mismatch would print megabytes.
        EXPECT_TRUE(shownBy(u) == rows);
        u.click("btnOk");
    });
    EXPECT_TRUE(formatRows("F") == rows);
}

TEST_P(PartFormatRecord, LongTemplatesMayBeTyped) {
    // The boxes of a desktop lay out what they take, which makes a megabyte slow.
    const std::size_t size = onScreen() ? 50'000 : 1'000'000;
    Stored rows = with(kOwnFormat, "MaxRecords", "1");
    for (std::size_t i = 0; i < 4; ++i)
        rows[i].second = std::string(size, 'x') + "<TAB>" + std::to_string(i);
    putFormat("F", kOwnFormat);
    edit("F", [&](User& u) {
        for (std::size_t i = 0; i < 4; ++i) u.type(kPlaces[i], rows[i].second);
        typeNameAndLimit(u, "F");
        EXPECT_TRUE(shownBy(u) == rows);
        u.click("btnOk");
    });
    EXPECT_TRUE(formatRows("F") == rows);
}

TEST_P(PartFormatRecord, FileIsFoundAndKeptInWhateverCaseItIsSpelt) {
    putFormat("Mixed Name", kOwnFormat);
    ASSERT_EQ(formatFiles(), (std::vector<std::string>{"Mixed Name.vla"}));
    EXPECT_EQ(edit("mIXED nAME",
                   [](User& u) {
                       EXPECT_EQ(u.see("txtFormatName").text, "MIXED NAME");
                       EXPECT_EQ(shownBy(u), kOwnFormat);
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"Mixed Name.vla"}));
    EXPECT_EQ(formatRows("MIXED NAME"), kOwnFormat);
}

TEST_P(PartFormatRecord, CatalogueIsNoPartFormat) {
    const ItemPath catalogue{formatFolder, "PARTFORMAT.vls"};
    const std::string before = memory->read(catalogue);
    edit("", [](User& u) {
        typeNameAndLimit(u, "partformat");
        u.click("btnOk");
    });
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"PARTFORMAT.vla"}));
    EXPECT_EQ(memory->read(catalogue), before);
}

}  // namespace
}  // namespace wynconfig
