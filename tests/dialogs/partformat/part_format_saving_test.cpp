// Storing a part format: new, renamed or under its name, in files and in the host's memory, and
// what is left behind when a step fails.
#include "support/dialog_checks.h"
#include "support/part_format_desk.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

const Stored kNew = with(kFirstFormat, "MaxRecords", "1");

std::string takenText(const std::string& name) {
    return "{MORAM_CONFIG_MSG_NAME_EXISTS}: " + name + ". {MORAM_CONFIG_MSG_REENTER_NAME}";
}

class PartFormatSaving : public PartFormatDesk {
  protected:
    static inline const std::string kTag = "frmPartNumberFormat:ApplyChanges";
    static inline const std::string kTakenTitle = "{MORAM_CONFIG_MSG_PART_FORMAT}";

    /// Makes a new part format and gives the result.
    long add(const std::string& name) {
        return edit("", [&](User& u) {
            typeNameAndLimit(u, name);
            u.click("btnOk");
        });
    }
    /// Opens a part format, gives it a name, and confirms.
    long rename(const std::string& from, const std::string& to) {
        return edit(from, [&](User& u) {
            u.type("txtFormatName", to);
            u.click("btnOk");
        });
    }
    /// Announces the refusal of a name, checks that it left the dialog as it should, and cancels.
    void expectTaken(const std::string& opened, const std::string& typed,
                     const std::string& shown) {
        user().onBox();
        EXPECT_EQ(edit(opened,
                       [&](User& u) {
                           typeNameAndLimit(u, typed);
                           u.focus("txtRecord");
                           u.click("btnOk");
                           EXPECT_EQ(u.formName(), "frmPartNumberFormat");
                           EXPECT_TRUE(u.see("txtFormatName").focus);
                           EXPECT_EQ(u.see("txtFormatName").caret, 0U);
                           EXPECT_EQ(u.see("txtFormatName").text, shown);
                           u.click("btnCancel");
                       }),
                  1);
        ASSERT_FALSE(user().boxes().empty());
        expectRefusal(user().boxes().back(), takenText(shown), kTakenTitle);
    }
    void putFormatNamed(const std::string& file, const std::string& storedName) {
        Dataset record;
        record.Create("PARTFORMAT", storedName, formatFolder, session::kColumns);
        for (const auto& [key, data] : kOwnFormat) record.AddRow({key, data});
        record.Save(ItemPath::item(formatFolder, file));
    }
    void expectNoFileTouched() {
        EXPECT_EQ(disk.count(Operation::Save), 0U);
        EXPECT_EQ(disk.count(Operation::Remove), 0U);
    }
};
ON_EVERY_VIEW(PartFormatSaving);

// ---- New, in files ----

TEST_P(PartFormatSaving, NewOneIsWrittenTwiceAndReported) {
    disk.resetCounts();
    EXPECT_EQ(add(" new one "), 0);
    EXPECT_EQ(formatName, "NEW ONE");
    EXPECT_EQ(formatFiles(), (Names{"NEW ONE.vla"}));
    EXPECT_EQ(formatRows("NEW ONE"), kNew);
    EXPECT_EQ(disk.count(Operation::Save), 2U);
    EXPECT_EQ(disk.count(Operation::Remove), 0U);
    EXPECT_EQ(g_PartFormats.Count(), 0U);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatSaving, NewOneWhoseSecondWriteFailsIsLeftWithoutRows) {
    disk.failOn(Operation::Save, "NEW.vla", 1, 1);
    user().onBox();
    EXPECT_EQ(add("NEW"), 0);
    const auto record = formatRecord("NEW");
    EXPECT_TRUE(rowsOf(*record).empty());
    EXPECT_EQ(record->Name(), "NEW");
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, kTag)) << user().boxes()[0].text;
    EXPECT_EQ(user().boxes()[0].style, 4112);
}

TEST_P(PartFormatSaving, NewOneWhoseFirstWriteFailsIsWrittenByTheSecond) {
    disk.failOn(Operation::Save, "NEW.vla", 0, 1);
    user().onBox();
    EXPECT_EQ(add("NEW"), 0);
    EXPECT_EQ(formatRows("NEW"), kNew);
}

TEST_P(PartFormatSaving, NewOneThatCanNotBeWrittenClosesTheDialogAsIfItWere) {
    memory->makeFolder("/store/PARTFORMAT/NEW.vla");
    user().onBox();
    user().onBox();
    EXPECT_EQ(add("NEW"), 0);
    EXPECT_EQ(formatName, "NEW");
    EXPECT_TRUE(formatFiles().empty());
    for (const SeenBox& box : user().boxes()) {
        expectFailure(box, failureText(kTag,
                                       "The file /store/PARTFORMAT/NEW.vla can't be written: "
                                       "a folder of that name is there."));
    }
    EXPECT_EQ(user().boxes().size(), 2U);
}

TEST_P(PartFormatSaving, NewOneInAFolderThatIsGoneFailsAtBothWrites) {
    g_PartFormatFolder = "/gone/PARTFORMAT\\";
    user().onBox();
    user().onBox();
    EXPECT_EQ(add("NEW"), 0);
    for (const SeenBox& box : user().boxes()) EXPECT_TRUE(isFailureOf(box.text, kTag)) << box.text;
    EXPECT_FALSE(memory->folderExists("/gone"));
}

TEST_P(PartFormatSaving, NewOneUnderANameInTheFolderIsRefused) {
    putFormat("CSV", kOwnFormat);
    const std::string before = formatText("CSV");
    expectTaken("", " csv ", "CSV");
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
    EXPECT_EQ(formatText("CSV"), before);
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(PartFormatSaving, NameInTheFolderIsFoundInWhateverCaseItIsSpelt) {
    putFormat("Mixed Name", kOwnFormat);
    expectTaken("", "mixed name", "MIXED NAME");
    EXPECT_EQ(formatFiles(), (Names{"Mixed Name.vla"}));
}

TEST_P(PartFormatSaving, RefusedNameMayBeMended) {
    putFormat("CSV", kOwnFormat);
    user().onBox();
    EXPECT_EQ(edit("",
                   [](User& u) {
                       typeNameAndLimit(u, "CSV");
                       u.click("btnOk");
                       u.type("txtFormatName", "CSV 2");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(formatFiles(), (Names{"CSV 2.vla", "CSV.vla"}));
    EXPECT_EQ(formatRows("CSV 2"), kNew);
}

TEST_P(PartFormatSaving, TextsOfTheRefusalThatFailAreToldAndLeftEmpty) {
    putFormat("CSV");
    const std::vector<std::pair<std::string, SeenBox>> refusals{
        {"MORAM_CONFIG_MSG_NAME_EXISTS",
         {": CSV. {MORAM_CONFIG_MSG_REENTER_NAME}", kTakenTitle, 16, ""}},
        {"MORAM_CONFIG_MSG_REENTER_NAME",
         {"{MORAM_CONFIG_MSG_NAME_EXISTS}: CSV. ", kTakenTitle, 16, ""}},
        {"MORAM_CONFIG_MSG_PART_FORMAT", {takenText("CSV"), "", 16, ""}}};
    for (const auto& [key, box] : refusals) {
        texts->missing = {key};
        user().onBox();
        user().onBox();
        edit("", [](User& u) {
            typeNameAndLimit(u, "CSV");
            u.click("btnOk");
            EXPECT_TRUE(u.see("txtFormatName").focus);
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), 2U);
        expectFailure(user().boxes()[0], failureText(kTag, "no text for " + key));
        expectRefusal(user().boxes()[1], box.text, box.title);
        user().finish();
    }
}

// ---- Renamed, in files ----

TEST_P(PartFormatSaving, RenamedOneIsWrittenTwiceAndTheOldFileDeleted) {
    putFormat("OLD", kOwnFormat);
    disk.resetCounts();
    EXPECT_EQ(rename("OLD", "new"), 0);
    EXPECT_EQ(formatName, "NEW");
    EXPECT_EQ(formatFiles(), (Names{"NEW.vla"}));
    EXPECT_EQ(formatRows("NEW"), kOwnFormat);
    EXPECT_EQ(formatRecord("NEW")->Name(), "NEW");
    EXPECT_EQ(disk.count(Operation::Save), 2U);
    EXPECT_EQ(disk.count(Operation::Remove), 1U);
}

TEST_P(PartFormatSaving, RenamingTakesTheOtherChangesAlong) {
    putFormat("OLD", kOwnFormat);
    edit("OLD", [](User& u) {
        u.type("txtFormatName", "NEW");
        u.type("txtTrailer", "the end");
        u.click("chkFormatVIN");
        u.click("btnOk");
    });
    EXPECT_EQ(formatRows("NEW"),
              with(with(kOwnFormat, "Trailer", "the end"), "FormatVIN", "false"));
}

TEST_P(PartFormatSaving, NewFileIsThereBeforeTheOldOneGoes) {
    putFormat("OLD", kOwnFormat);
    disk.failOn(Operation::Remove, "OLD.vla");
    disk.failOn(Operation::Save, "NEW.vla", 1);
    user().onBox([&](const SeenBox&) {
        // The delete failed; by then the new file had been written, with the rows as they were.
        EXPECT_EQ(formatFiles(), (Names{"NEW.vla", "OLD.vla"}));
        EXPECT_EQ(formatRows("NEW"), kOwnFormat);
        return answer::Ok;
    });
    user().onBox();
    EXPECT_EQ(edit("OLD",
                   [](User& u) {
                       u.type("txtFormatName", "NEW");
                       u.type("txtHeader", "never stored");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(formatRows("NEW"), kOwnFormat);
    EXPECT_EQ(user().boxes().size(), 2U);
}

TEST_P(PartFormatSaving, OldFileThatCanNotBeDeletedStaysBesideTheNewOne) {
    putFormat("OLD", kOwnFormat);
    disk.failOn(Operation::Remove);
    user().onBox();
    EXPECT_EQ(rename("OLD", "NEW"), 0);
    EXPECT_EQ(formatFiles(), (Names{"NEW.vla", "OLD.vla"}));
    EXPECT_EQ(formatRows("NEW"), kOwnFormat);
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, kTag)) << user().boxes()[0].text;
}

TEST_P(PartFormatSaving, OldFileIsDeletedAlsoAfterTheNewOneCouldNotBeWritten) {
    putFormat("OLD", kOwnFormat);
    disk.failOn(Operation::Save);
    user().onBox();
    user().onBox();
    EXPECT_EQ(rename("OLD", "NEW"), 0);
    EXPECT_EQ(formatName, "NEW");
    EXPECT_TRUE(formatFiles().empty());
    for (const SeenBox& box : user().boxes()) EXPECT_TRUE(isFailureOf(box.text, kTag)) << box.text;
}

TEST_P(PartFormatSaving, RenamingToANameInTheFolderLeavesBothFiles) {
    putFormat("OLD", kOwnFormat);
    putFormat("CSV", kFirstFormat);
    const std::string old = formatText("OLD");
    const std::string csv = formatText("CSV");
    expectTaken("OLD", "csv", "CSV");
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "OLD.vla"}));
    EXPECT_EQ(formatText("OLD"), old);
    EXPECT_EQ(formatText("CSV"), csv);
}

TEST_P(PartFormatSaving, CancelAfterARefusalStoresNothing) {
    putFormat("OLD", kOwnFormat);
    putFormat("CSV");
    const std::string before = formatText("OLD");
    user().onBox();
    user().onBox();
    EXPECT_EQ(edit("OLD",
                   [](User& u) {
                       u.type("txtHeader", "other");
                       u.type("txtFormatName", "CSV");
                       u.click("btnOk");
                       u.type("txtFormatName", "A.B");
                       u.click("btnOk");
                       u.click("btnCancel");
                   }),
              1);
    EXPECT_EQ(formatName, "A.B");
    EXPECT_EQ(formatText("OLD"), before);
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "OLD.vla"}));
}

TEST_P(PartFormatSaving, SessionsThatNameItAreNotTouched) {
    putFormat("OLD", kOwnFormat);
    putFullSession("S", {"OLD"});
    const std::string before = sessionText("S");
    rename("OLD", "NEW");
    EXPECT_EQ(sessionText("S"), before);
}

// ---- Under its name, in files ----

TEST_P(PartFormatSaving, UnchangedNameLeavesOneFileWithTheRowsInOrder) {
    Stored backwards(kOwnFormat.rbegin(), kOwnFormat.rend());
    putFormat("F", backwards);
    disk.resetCounts();
    EXPECT_EQ(edit("F",
                   [](User& u) {
                       u.type("txtRecord", "other");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(formatName, "F");
    EXPECT_EQ(formatFiles(), (Names{"F.vla"}));
    EXPECT_EQ(formatRows("F"), with(kOwnFormat, "Record", "other"));
    EXPECT_EQ(disk.count(Operation::Save), 1U);
    EXPECT_EQ(disk.count(Operation::Remove), 0U);
}

TEST_P(PartFormatSaving, AnotherCaseOfTheNameIsNoRename) {
    putFormat("Mixed", kOwnFormat);
    EXPECT_EQ(rename("MIXED", " mixeD "), 0);
    EXPECT_EQ(formatFiles(), (Names{"Mixed.vla"}));
    EXPECT_EQ(formatRows("MIXED"), kOwnFormat);
    EXPECT_EQ(formatRecord("MIXED")->Name(), "Mixed");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatSaving, FailedWriteUnderItsNameLeavesTheOldRows) {
    putFormat("F", kOwnFormat);
    disk.failOn(Operation::Save, "F.vla");
    user().onBox();
    EXPECT_EQ(edit("F",
                   [](User& u) {
                       u.type("txtRecord", "other");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(formatRows("F"), kOwnFormat);
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, kTag)) << user().boxes()[0].text;
}

// ---- Files whose stored name is another one, or that hold no record ----

TEST_P(PartFormatSaving, CopiedFileCanNotBeConfirmedUnderItsFileName) {
    putFormatNamed("COPY", "ORIGIN");
    expectTaken("COPY", "COPY", "COPY");
    EXPECT_EQ(formatFiles(), (Names{"COPY.vla"}));
}

TEST_P(PartFormatSaving, CopiedFileUnderAThirdNameStaysAndItsOriginGoes) {
    putFormatNamed("COPY", "ORIGIN");
    putFormat("ORIGIN", kFirstFormat);
    EXPECT_EQ(rename("COPY", "THIRD"), 0);
    EXPECT_EQ(formatFiles(), (Names{"COPY.vla", "THIRD.vla"}));
    EXPECT_EQ(formatRows("THIRD"), kOwnFormat);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatSaving, CopiedFileUnderItsStoredNameWritesOverTheOrigin) {
    putFormatNamed("COPY", "ORIGIN");
    putFormat("ORIGIN", kFirstFormat);
    EXPECT_EQ(rename("COPY", "ORIGIN"), 0);
    EXPECT_EQ(formatFiles(), (Names{"COPY.vla", "ORIGIN.vla"}));
    EXPECT_EQ(formatRows("ORIGIN"), kOwnFormat);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatSaving, MissingFileIsWrittenAndTheOneWithoutANameMissed) {
    user().onBox();
    user().onBox();
    EXPECT_EQ(edit("GONE",
                   [](User& u) {
                       u.type("txtMaxRecords", "3");
                       u.click("btnOk");
                   }),
              0);
    Stored expected = with(kFirstFormat, "MaxRecords", "3");
    for (auto& row : expected) {
        if (row.first.ends_with("FieldLength")) row.second.clear();
    }
    EXPECT_EQ(formatRows("GONE"), expected);
    EXPECT_EQ(formatRecord("GONE")->Name(), "GONE");
    EXPECT_EQ(formatFiles(), (Names{"GONE.vla"}));
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "frmPartNumberFormat:init"));
    expectFailure(user().boxes()[1],
                  failureText(kTag, "The file /store/PARTFORMAT/.vla was not found."));
}

TEST_P(PartFormatSaving, FileThatHoldsNoRecordCountsAsTaken) {
    memory->save(ItemPath::item(formatFolder, "BAD"), "no record");
    user().onBox();
    expectTaken("BAD", "BAD", "BAD");
    EXPECT_EQ(user().boxes().size(), 2U);
    EXPECT_EQ(formatText("BAD"), "no record");
}

// ---- In memory ----

TEST_P(PartFormatSaving, NewOneInMemoryJoinsTheHostsRecords) {
    workInMemory();
    hold("Z", kOwnFormat);
    disk.resetCounts();
    EXPECT_EQ(add(" new one "), 0);
    EXPECT_EQ(formatName, "NEW ONE");
    EXPECT_EQ(hostKeys(), (Names{"Z", "NEW ONE"}));
    const auto record = g_PartFormats.Item("NEW ONE");
    EXPECT_EQ(record->Name(), "NEW ONE");
    EXPECT_EQ(record->Type(), "PARTFORMAT");
    EXPECT_EQ(record->Folder(), formatFolder);
    EXPECT_EQ(rowsOf(*record), kNew);
    expectNoFileTouched();
}

TEST_P(PartFormatSaving, NewOneInMemoryUnderTheNameOfAFileIsRefused) {
    putFormat("CSV", kOwnFormat);
    workInMemory();
    disk.resetCounts();
    expectTaken("", "csv", "CSV");
    EXPECT_EQ(g_PartFormats.Count(), 0U);
    expectNoFileTouched();
}

TEST_P(PartFormatSaving, NewOneInMemoryUnderAHeldNameIsRefusedWithoutRegardToCase) {
    workInMemory();
    hold("A", kOwnFormat);
    const auto record = hold("csv", kOwnFormat);
    hold("Z", kOwnFormat);
    const Names before = hostKeys();
    expectTaken("", "Csv", "CSV");
    EXPECT_EQ(hostKeys(), before);
    EXPECT_EQ(g_PartFormats.Item("CSV"), record);
    EXPECT_EQ(rowsOf(*record), kOwnFormat);
}

TEST_P(PartFormatSaving, HeldNamesDoNotCountInFileMode) {
    hold("CSV", kFirstFormat);
    EXPECT_EQ(add("CSV"), 0);
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
    EXPECT_EQ(rowsOf(*g_PartFormats.Item("CSV")), kFirstFormat);
}

TEST_P(PartFormatSaving, RenamedOneInMemoryIsTheSameRecordAtTheEnd) {
    workInMemory();
    const auto record = hold("OLD", kOwnFormat);
    hold("Z", kOwnFormat);
    disk.resetCounts();
    EXPECT_EQ(edit("old",
                   [](User& u) {
                       u.type("txtFormatName", "new");
                       u.type("txtHeader", "other");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(formatName, "NEW");
    EXPECT_EQ(hostKeys(), (Names{"Z", "NEW"}));
    EXPECT_EQ(g_PartFormats.Item("NEW"), record);
    EXPECT_EQ(record->Name(), "NEW");
    EXPECT_EQ(rowsOf(*record), with(kOwnFormat, "Header", "other"));
    expectNoFileTouched();
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(PartFormatSaving, RenamingInMemoryToATakenNameChangesNothing) {
    putFormat("FACTORY", kOwnFormat);
    workInMemory();
    const auto record = hold("OLD", kOwnFormat);
    hold("CSV", kOwnFormat);
    disk.resetCounts();
    expectTaken("OLD", "factory", "FACTORY");
    expectTaken("OLD", "csv", "CSV");
    EXPECT_EQ(hostKeys(), (Names{"OLD", "CSV"}));
    EXPECT_EQ(record->Name(), "OLD");
    EXPECT_EQ(rowsOf(*record), kOwnFormat);
    expectNoFileTouched();
}

TEST_P(PartFormatSaving, UnchangedNameInMemoryReplacesTheRowsInPlace) {
    putFormat("F", kFirstFormat);
    workInMemory();
    Stored backwards(kOwnFormat.rbegin(), kOwnFormat.rend());
    backwards.emplace_back("Colour", "red");
    const auto record = hold("F", backwards);
    hold("Z", kOwnFormat);
    disk.resetCounts();
    EXPECT_EQ(edit("F",
                   [](User& u) {
                       u.type("txtHeader", "other");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(hostKeys(), (Names{"F", "Z"}));
    EXPECT_EQ(g_PartFormats.Item("F"), record);
    EXPECT_EQ(rowsOf(*record), with(kOwnFormat, "Header", "other"));
    expectNoFileTouched();
    EXPECT_EQ(formatRows("F"), kFirstFormat);
}

TEST_P(PartFormatSaving, NameThatTheHostDoesNotHoldJoinsWithOneMoreBox) {
    workInMemory();
    user().onBox();
    user().onBox();
    EXPECT_EQ(edit("GONE",
                   [](User& u) {
                       u.type("txtMaxRecords", "3");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(hostKeys(), (Names{"GONE"}));
    EXPECT_EQ(g_PartFormats.Item("GONE")->Rows().size(), 21U);
    EXPECT_EQ(g_PartFormats.Item("GONE")->Name(), "GONE");
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[1], failureText(kTag, "There is no item of the key \"\"."));
}

TEST_P(PartFormatSaving, RecordHeldUnderAnotherKeyIsRenamedByItsOwnName) {
    workInMemory();
    const auto record = hold("ORIGIN", kOwnFormat, "COPY");
    expectTaken("COPY", "COPY", "COPY");
    user().onBox();
    EXPECT_EQ(rename("COPY", "THIRD"), 0);
    EXPECT_EQ(hostKeys(), (Names{"COPY", "THIRD"}));
    EXPECT_EQ(g_PartFormats.Item("COPY"), record);
    EXPECT_EQ(g_PartFormats.Item("THIRD"), record);
    expectFailure(user().boxes().back(),
                  failureText(kTag, "There is no item of the key \"ORIGIN\"."));
}

}  // namespace
}  // namespace wynconfig
