// Opening and closing the part format editor: what it shows, which box the symbols go to, and what
// it leaves to its caller.
#include <algorithm>
#include <set>

#include "support/caption_tables.h"
#include "support/dialog_checks.h"
#include "support/part_format_desk.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

/// What opens where nothing could be read.
Stored nothingRead() {
    Stored rows = kFirstFormat;
    for (auto& row : rows) {
        if (row.first.ends_with("FieldLength")) row.second.clear();
    }
    return rows;
}

class PartFormatEditor : public PartFormatDesk {
  protected:
    static inline const std::string kTag = "frmPartNumberFormat:init";

    static Captions captionsByKey() {
        Captions captions = kVinTexts;
        for (const KeyedText& row : kPartFormatTexts) captions[row.place] = "{" + row.key + "}";
        return captions;
    }
    static void expectCaptionsSeen(User& u, bool byDefault) {
        for (const KeyedText& row : kPartFormatTexts) {
            const std::string caption = byDefault ? row.byDefault : "{" + row.key + "}";
            EXPECT_EQ(captionSeenAt(u, row.place), caption) << row.place;
        }
        for (const auto& [control, caption] : kVinTexts)
            EXPECT_EQ(u.see(control).caption, caption) << control;
    }
    static void expectEnabled(User& u, const FieldControls& field, bool enabled) {
        for (const std::string& each : {field.length, field.left, field.right, field.pad})
            EXPECT_EQ(u.see(each).enabled, enabled) << each;
        for (const std::string& each : field.captions) EXPECT_TRUE(u.see(each).enabled) << each;
        EXPECT_TRUE(u.see(field.check).enabled);
    }
};
ON_EVERY_VIEW(PartFormatEditor);

// ---- Controls and captions ----

TEST_P(PartFormatEditor, HasItsControlsAndNoOthers) {
    std::set<std::string> expected{"UniMsgBox1",    "txtFormatName",     "txtHeader",
                                   "txtRecord",     "txtSeparator",      "txtTrailer",
                                   "txtMaxRecords", "lstSpecialSymbols2"};
    for (const KeyedText& row : kPartFormatTexts) expected.insert(row.place);
    for (const auto& each : kVinTexts) expected.insert(each.first);
    for (const FieldControls& field : kFields) {
        expected.insert(field.length);
        expected.insert(field.pad);
    }
    const frmPartNumberFormat form;
    std::set<std::string> names;
    for (const Control* each : form.controls()) names.emplace(each->name());
    EXPECT_EQ(names, expected);
    EXPECT_EQ(form.controls().size(), expected.size());
}

TEST_P(PartFormatEditor, TakesEachTextByItsKeyInTheOrderOfTheTable) {
    std::vector<std::string> keys;
    for (const KeyedText& row : kPartFormatTexts) keys.push_back(row.key);
    frmPartNumberFormat form;
    form.Hide();
    EXPECT_EQ(captionsOf(form), captionsByKey());
    texts->asked.clear();
    form.SetTextStrings();
    EXPECT_EQ(texts->asked, keys);
}

TEST_P(PartFormatEditor, AnyKeyThatFailsCostsAllTexts) {
    Captions byDefault = kVinTexts;
    for (const KeyedText& row : kPartFormatTexts) byDefault[row.place] = row.byDefault;
    frmPartNumberFormat form;
    for (const KeyedText& row : kPartFormatTexts) {
        texts->missing = {row.key};
        form.SetTextStrings();
        EXPECT_EQ(captionsOf(form), byDefault) << "without " << row.key;
        texts->missing.clear();
        form.SetTextStrings();
        EXPECT_EQ(captionsOf(form), captionsByKey()) << "with " << row.key << " again";
    }
}

TEST_P(PartFormatEditor, TextsThatAreEmptyStayEmpty) {
    Captions empty = kVinTexts;
    for (const KeyedText& row : kPartFormatTexts) {
        empty[row.place] = "";
        texts->texts[row.key] = "";
    }
    frmPartNumberFormat form;
    form.Hide();
    EXPECT_EQ(captionsOf(form), empty);
}

TEST_P(PartFormatEditor, ShowsItsTexts) {
    edit("", [](User& u) {
        expectCaptionsSeen(u, false);
        u.click("btnCancel");
    });
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatEditor, OneKeyLessCostsAllTextsButNoBox) {
    texts->missing = {"PART_FORMAT_LBL_MAXRECORDS"};
    edit("", [](User& u) {
        expectCaptionsSeen(u, true);
        u.click("btnCancel");
    });
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatEditor, TheTextOfOkIsToldWhenItCanNotBeHad) {
    texts->missing = {"BUTTON_OK"};
    user().onBox();
    user().onBox();
    edit("", [](User& u) {
        expectCaptionsSeen(u, true);
        u.click("btnOk");
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0], failureText(kTag, "no text for BUTTON_OK"), "");
    expectRefusal(user().boxes()[1], "{PART_FORMAT_MSG_NUM_MAX_RECORDS}",
                  "{PART_FORMAT_LBL_MAXRECORDS}", "");
}

TEST_P(PartFormatEditor, OpensInEnglishWithoutAResourceManager) {
    g_ResMgr = nullptr;
    user().onBox();
    edit("", [](User& u) {
        expectCaptionsSeen(u, true);
        EXPECT_EQ(shownBy(u), kFirstFormat);
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().boxes()[0].text, "");
    EXPECT_EQ(user().boxes()[0].title, "");
    EXPECT_EQ(user().boxes()[0].style, 4112);
}

TEST_P(PartFormatEditor, SharesTheFontOfTheResourceManager) {
    texts->font = {"Serif", 12.0, true, false};
    frmPartNumberFormat form;
    form.Hide();
    expectFontEverywhere(form, texts->font);
}

TEST_P(PartFormatEditor, OpensWithoutAFont) {
    texts->fontFailing = true;
    edit("", [](User& u) {
        expectCaptionsSeen(u, false);
        u.click("btnCancel");
    });
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatEditor, BindsItsCaptionBarUntilItUnloads) {
    frmPartNumberFormat form;
    form.Hide();
    EXPECT_TRUE(form.UniCaption1.bound());
    form.Unload();
    EXPECT_FALSE(form.UniCaption1.bound());
}

// ---- Opening ----

TEST_P(PartFormatEditor, InitShowsNothingYet) {
    frmPartNumberFormat form;
    form.init("");
    EXPECT_TRUE(user().forms().empty());
    EXPECT_TRUE(form.loaded());
}

TEST_P(PartFormatEditor, NewFormatOpensAtItsFirstValues) {
    for (const bool inMemory : {false, true}) {
        g_DatasetMode = inMemory;
        edit("", [](User& u) {
            EXPECT_EQ(u.see("txtFormatName").text, "");
            EXPECT_EQ(shownBy(u), kFirstFormat);
            for (const FieldControls& field : kFields) expectEnabled(u, field, false);
            u.click("btnCancel");
        });
    }
}

TEST_P(PartFormatEditor, AllButTheSettingsOfFieldsCanBeUsed) {
    edit("", [](User& u) {
        for (const char* each : {"txtFormatName", "txtHeader", "txtRecord", "txtSeparator",
                                 "txtTrailer", "txtMaxRecords", "lstSpecialSymbols2", "btnOk",
                                 "btnCancel", "chkFormatPartNumber", "chkFormatVIN"})
            EXPECT_TRUE(u.canUse(each)) << each;
        for (const KeyedText& row : kPartFormatTexts) {
            if (row.place != "UniCaption1") {
                EXPECT_TRUE(u.see(row.place).visible) << row.place;
            }
        }
        for (const auto& each : kVinTexts) EXPECT_TRUE(u.see(each.first).visible) << each.first;
        u.click("btnCancel");
    });
}

TEST_P(PartFormatEditor, StoredFormatOpensUnderItsNameInCapitals) {
    putFormat("CSV", kOwnFormat);
    edit("csv", [](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "CSV");
        EXPECT_EQ(shownBy(u), kOwnFormat);
        for (const FieldControls& field : kFields) expectEnabled(u, field, true);
        u.click("btnCancel");
    });
}

TEST_P(PartFormatEditor, FlagThatIsOffDisablesItsSettingsAndLeavesThemVisible) {
    const std::vector<std::string> flags{"FormatPartNumber", "FormatQty", "FormatDesc",
                                         "FormatVIN"};
    for (std::size_t off = 0; off < flags.size(); ++off) {
        const Stored rows = with(kOwnFormat, flags[off], "false");
        putFormat("F", rows);
        edit("F", [&](User& u) {
            EXPECT_EQ(shownBy(u), rows);
            for (std::size_t i = 0; i < flags.size(); ++i) expectEnabled(u, kFields[i], i != off);
            EXPECT_TRUE(u.see(kFields[off].length).visible);
            EXPECT_TRUE(u.see(kFields[off].pad).visible);
            u.click("btnCancel");
        });
    }
}

TEST_P(PartFormatEditor, InMemoryTheHostsRecordIsShownNotTheFile) {
    putFormat("CSV", kFirstFormat);
    workInMemory();
    hold("CSV", kOwnFormat);
    edit("csv", [](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "CSV");
        EXPECT_EQ(shownBy(u), kOwnFormat);
        u.click("btnCancel");
    });
}

TEST_P(PartFormatEditor, InFileModeTheFileIsShownNotTheHostsRecord) {
    putFormat("CSV", kOwnFormat);
    hold("CSV", kFirstFormat);
    edit("CSV", [](User& u) {
        EXPECT_EQ(shownBy(u), kOwnFormat);
        u.click("btnCancel");
    });
}

TEST_P(PartFormatEditor, MissingFileGivesOneBoxAndAnEmptyDialog) {
    user().onBox([&](const SeenBox&) {
        // The box comes before the dialog loads and takes its texts.
        EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "PART_FORMAT_TITLE"), 0);
        return answer::Ok;
    });
    EXPECT_EQ(edit("gone",
                   [](User& u) {
                       EXPECT_EQ(u.see("txtFormatName").text, "GONE");
                       EXPECT_EQ(shownBy(u), nothingRead());
                       expectCaptionsSeen(u, false);
                       u.click("btnCancel");
                   }),
              1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailure(user().boxes()[0],
                  failureText(kTag, "The file /store/PARTFORMAT/GONE.vla was not found."));
    EXPECT_TRUE(formatFiles().empty());
}

TEST_P(PartFormatEditor, FilesThatCanNotBeReadAreToldOnceEach) {
    for (const char* content : {"", "no record", "<a/>", "<a"}) {
        memory->save(ItemPath::item(formatFolder, "BAD"), content);
        user().onBox();
        edit("BAD", [](User& u) {
            EXPECT_EQ(u.see("txtFormatName").text, "BAD");
            EXPECT_EQ(shownBy(u), nothingRead());
            u.click("btnCancel");
        });
        EXPECT_EQ(formatText("BAD"), content);
    }
    putFormat("GOOD", kOwnFormat);
    disk.failOn(FaultyFileSystem::Operation::Read, "GOOD");
    user().onBox();
    edit("GOOD", [](User& u) {
        EXPECT_EQ(shownBy(u), nothingRead());
        u.click("btnCancel");
    });
    EXPECT_EQ(user().boxes().size(), 5U);
    for (const SeenBox& box : user().boxes()) EXPECT_TRUE(isFailureOf(box.text, kTag)) << box.text;
}

TEST_P(PartFormatEditor, NameThatLeavesTheFolderIsNotFound) {
    putSession("X", kOwnFormat);
    user().onBox();
    edit("..\\MORAM\\X", [](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "..\\MORAM\\X");
        EXPECT_EQ(shownBy(u), nothingRead());
        u.click("btnCancel");
    });
    EXPECT_TRUE(isFailureOf(user().boxes().at(0).text, kTag));
}

TEST_P(PartFormatEditor, NameThatTheHostDoesNotHoldIsToldOnce) {
    workInMemory();
    putFormat("CSV", kOwnFormat);
    hold("OTHER", kOwnFormat);
    user().onBox();
    edit("csv", [](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "CSV");
        EXPECT_EQ(shownBy(u), nothingRead());
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailure(user().boxes()[0], failureText(kTag, "There is no item of the key \"csv\"."));
    EXPECT_EQ(hostKeys(), (std::vector<std::string>{"OTHER"}));
}

// ---- Flags and alignments ----

TEST_P(PartFormatEditor, FlagSwitchesItsOwnSettingsAndKeepsTheirValues) {
    Stored rows = kOwnFormat;
    for (std::size_t i = 4; i < 20; i += 4) rows[i].second = "false";
    putFormat("F", rows);
    edit("F", [](User& u) {
        for (std::size_t field = 0; field < kFields.size(); ++field) {
            const Stored before = shownBy(u);
            u.click(kFields[field].check);
            for (std::size_t i = 0; i < kFields.size(); ++i)
                expectEnabled(u, kFields[i], i == field);
            EXPECT_EQ(shownBy(u), with(before, kOwnFormat[4 + 4 * field].first, "true"));
            u.click(kFields[field].check);
            for (const FieldControls& each : kFields) expectEnabled(u, each, false);
            EXPECT_EQ(shownBy(u), before);
        }
        u.click("btnCancel");
    });
}

TEST_P(PartFormatEditor, AlignmentsOfTheFieldsDoNotDisturbEachOther) {
    putFormat("F", kOwnFormat);
    edit("F", [](User& u) {
        Stored expected = kOwnFormat;
        for (std::size_t field = 0; field < kFields.size(); ++field) {
            u.click(kFields[field].right);
            expected[6 + 4 * field].second = "right";
            EXPECT_EQ(shownBy(u), expected);
        }
        for (std::size_t field = 0; field < kFields.size(); ++field) {
            u.click(kFields[field].left);
            expected[6 + 4 * field].second = "left";
            EXPECT_EQ(shownBy(u), expected);
        }
        u.click("btnCancel");
    });
}

TEST_P(PartFormatEditor, ValuesBehindAFlagTurnedOffAreStillSaved) {
    putFormat("F", kOwnFormat);
    edit("F", [](User& u) {
        u.type("txtQtyFieldLength", "no number");
        u.type("txtQtyPad", "");
        u.click("chkFormatQty");
        u.click("btnOk");
    });
    const Stored expected =
        with(with(kOwnFormat, "FormatQty", "false"), "QtyFieldLength", "no number");
    EXPECT_EQ(formatRows("F"), with(expected, "QtyPadCharacter", ""));
}

// ---- The box that the symbols go to ----

TEST_P(PartFormatEditor, SymbolsGoToTheBoxEnteredLast) {
    putFormat("F", kOwnFormat);
    for (std::size_t i = 0; i < kPlaces.size(); ++i) {
        const std::string& box = kPlaces[i];
        if (!box.starts_with("txt")) continue;
        const std::string& text = kOwnFormat[i].second;
        std::string expected = text;
        if (i < 4)
            expected = "<SPACE>" + text;
        else if (box.ends_with("Pad") && box != "txtVINPad")
            expected = "<SPACE>";
        edit("F", [&](User& u) {
            u.focus("txtRecord");
            u.setCaret(box, 0);
            u.pick("lstSpecialSymbols2", "<SPACE>");
            EXPECT_EQ(shownBy(u), with(kOwnFormat, kOwnFormat[i].first, expected)) << box;
            u.click("btnCancel");
        });
    }
}

TEST_P(PartFormatEditor, OtherControlsLeaveTheTargetOfTheSymbolsAsItWas) {
    putFormat("F", kOwnFormat);
    for (const char* entered : {"txtFormatName", "chkFormatQty", "rdoQtyLeft", "rdoQtyRight",
                                "btnOk", "btnCancel", "lstSpecialSymbols2"}) {
        edit("F", [&](User& u) {
            u.setCaret("txtSeparator", 0);
            u.focus(entered);
            u.pick("lstSpecialSymbols2", "<LF>");
            EXPECT_EQ(shownBy(u), with(kOwnFormat, "Separator", "<LF><CR><LF>")) << entered;
            EXPECT_EQ(u.see("txtFormatName").text, "F");
            u.click("btnCancel");
        });
    }
}

TEST_P(PartFormatEditor, SymbolsGoToTheHeaderAtFirst) {
    Stored noFlags = kOwnFormat;
    for (std::size_t i = 4; i < 20; i += 4) noFlags[i].second = "false";
    for (const Stored& rows : {kOwnFormat, noFlags}) {
        putFormat("F", rows);
        edit("F", [&](User& u) {
            u.focus("txtFormatName");
            u.pick("lstSpecialSymbols2", "<CR>");
            EXPECT_EQ(shownBy(u), with(rows, "Header", "<CR><PageHeader><TAB>"));
            EXPECT_EQ(u.see("txtFormatName").text, "F");
            u.click("btnCancel");
        });
    }
}

// ---- Closing ----

TEST_P(PartFormatEditor, ClosedByItsFrameItReportsSuccessAndStoresNothing) {
    EXPECT_EQ(edit("",
                   [](User& u) {
                       typeNameAndLimit(u, "n");
                       u.closeByFrame();
                   }),
              0);
    EXPECT_EQ(formatName, "N");
    EXPECT_TRUE(formatFiles().empty());
    putFormat("F", kOwnFormat);
    const std::string before = formatText("F");
    EXPECT_EQ(edit("F",
                   [](User& u) {
                       u.type("txtHeader", "other");
                       u.closeByFrame();
                   }),
              0);
    EXPECT_EQ(formatName, "F");
    EXPECT_EQ(formatText("F"), before);
}

TEST_P(PartFormatEditor, CancelledItStoresNothingAndKeepsTheNameTyped) {
    putFormat("F", kOwnFormat);
    const std::string before = formatText("F");
    EXPECT_EQ(edit("F",
                   [](User& u) {
                       u.type("txtHeader", "other");
                       u.type("txtFormatName", "b\u00E4r");
                       u.click("btnCancel");
                   }),
              1);
    EXPECT_EQ(formatName, "B\u00C4R");
    EXPECT_EQ(formatText("F"), before);
    EXPECT_EQ(formatFiles(), (std::vector<std::string>{"F.vla"}));
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatEditor, CancelledInMemoryItLeavesTheHostsRecordAlone) {
    workInMemory();
    const auto record = hold("F", kOwnFormat);
    EXPECT_EQ(edit("F",
                   [](User& u) {
                       u.type("txtHeader", "other");
                       u.type("txtFormatName", "G");
                       u.pressEscape();
                   }),
              1);
    EXPECT_EQ(rowsOf(*record), kOwnFormat);
    EXPECT_EQ(record->Name(), "F");
    EXPECT_EQ(hostKeys(), (std::vector<std::string>{"F"}));
}

TEST_P(PartFormatEditor, NameLosesItsBlanksOnlyWhenItsBoxLosesTheFocus) {
    EXPECT_EQ(edit("",
                   [](User& u) {
                       u.type("txtFormatName", "  a b ");
                       u.pressEscape();
                   }),
              1);
    EXPECT_EQ(formatName, "  A B ");
    edit("", [](User& u) {
        u.type("txtFormatName", "  a b ");
        u.closeByFrame();
    });
    EXPECT_EQ(formatName, "  A B ");
    edit("", [](User& u) {
        u.type("txtFormatName", "  a b ");
        u.click("btnCancel");
    });
    EXPECT_EQ(formatName, "A B");
}

TEST_P(PartFormatEditor, NameIsTrimmedAndInCapitalsOnceItsBoxIsLeft) {
    edit("", [](User& u) {
        u.type("txtFormatName", "  stra\u00DFe 5 ");
        EXPECT_EQ(u.see("txtFormatName").text, "  stra\u00DFe 5 ");
        u.pressTab();
        EXPECT_EQ(u.see("txtFormatName").text, "STRA\u00DFE 5");
        EXPECT_FALSE(u.see("txtFormatName").focus);
        u.type("txtFormatName", "   ");
        u.focus("txtHeader");
        EXPECT_EQ(u.see("txtFormatName").text, "");
        u.click("btnCancel");
    });
}

TEST_P(PartFormatEditor, NameCanBeAskedForOnlyOnceItIsClosed) {
    putFormat("F", kOwnFormat);
    frmPartNumberFormat form;
    form.init("F");
    EXPECT_EQ(form.FormatName(), "");
    EXPECT_EQ(form.Result(), 0);
    form.Unload();
    EXPECT_EQ(form.FormatName(), "F");
    form.Unload();
    EXPECT_EQ(form.FormatName(), "F");
    EXPECT_FALSE(form.loaded());
}

TEST_P(PartFormatEditor, UnloadedBeforeItWasEverLoadedItDoesNothing) {
    frmPartNumberFormat form;
    form.Unload();
    EXPECT_EQ(form.FormatName(), "");
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(texts->asked.empty());
}

TEST_P(PartFormatEditor, LoadingDoesNotTakeTheResultBack) {
    frmPartNumberFormat form;
    form.init("");
    user().onForm("frmPartNumberFormat", [](User& u) { u.click("btnCancel"); });
    form.Show();
    EXPECT_EQ(form.Result(), 1);
    form.init("");
    user().onForm("frmPartNumberFormat", [](User& u) { u.closeByFrame(); });
    form.Show();
    EXPECT_EQ(form.Result(), 1);
    form.init("");
    user().onForm("frmPartNumberFormat", [](User& u) {
        typeNameAndLimit(u, "N");
        u.click("btnOk");
    });
    form.Show();
    EXPECT_EQ(form.Result(), 0);
}

}  // namespace
}  // namespace wynconfig
