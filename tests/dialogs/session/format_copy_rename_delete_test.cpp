// Copying, renaming and deleting part formats in the store.
#include "support/format_desk.h"

namespace wynconfig {
namespace {

class FormatFiles : public FormatDesk {
  protected:
    static inline const std::string kCopyTag = "UnifrmMORAMConfig:btnCopy_Click";
    static inline const std::string kRenameTag = "UnifrmMORAMConfig:btnRename_Click";
    static inline const std::string kDeleteTag = "UnifrmMORAMConfig:btnDelete_Click";

    /// In the prompt that comes up next: this text and OK.
    void answerPrompt(const std::string& text) {
        user().onForm("dlgSingleEntry", [text](User& u) {
            u.type("txtTextBox", text);
            u.click("OKButton");
        });
    }
    /// Renames a format in an otherwise fresh dialog.
    void rename(const std::string& format, const std::string& text) {
        answerPrompt(text);
        open("", [&](User& u) { act(u, format, "btnRename"); });
    }
    /// Deletes a format in an otherwise fresh dialog, saying Yes.
    void confirmDeletion(const std::string& format) {
        user().onBox(answer::Yes);
        open("", [&](User& u) { act(u, format, "btnDelete"); });
    }
    bool formatExists(const std::string& name) {
        return !memory->find(ItemPath::item(formatFolder, name)).empty();
    }
    void putMalformedFormat(const std::string& name) {
        memory->save(ItemPath::item(formatFolder, name), "<no record");
    }
    static void expectTakenName(const SeenBox& box, const std::string& name) {
        expectRefusal(box,
                      name + ": {MORAM_CONFIG_MSG_NAME_EXISTS}. {MORAM_CONFIG_MSG_REENTER_NAME}",
                      "{MORAM_CONFIG_MSG_FORMAT_NAME}");
    }
    static void expectForbiddenName(const SeenBox& box) {
        expectRefusal(box, "{MORAM_CONFIG_MSG_INVALID_CHARS}\r\n         \\ / : * ? \" < > | .",
                      "{MORAM_CONFIG_MSG_INVALID_CONFIG}");
    }
};
ON_EVERY_VIEW(FormatFiles);

TEST_P(FormatFiles, WithoutAMarkedFormatNoButtonDoesAnything) {
    putFullFormat("CSV");
    open("", [](User& u) {
        for (const std::string button : {"btnCopy", "btnRename", "btnDelete"}) {
            u.click(button);
            EXPECT_TRUE(u.see(button).focus);
        }
    });
    EXPECT_EQ(user().forms(), (Names{"frmMORAMConfig"}));
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
}

TEST_P(FormatFiles, ACopyIsAFileOfItsOwnAndTheSourceStaysMarked) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    open("A", [this](User& u) {
        disk.resetCounts();
        act(u, "CSV", "btnCopy");
        EXPECT_EQ(saves(), 1U) << "no session is written";
        EXPECT_EQ(available(u), (Names{"COPY OF CSV", "CSV"}));
        EXPECT_EQ(marked(u), "CSV");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
    });
    EXPECT_EQ(formatRecord("COPY OF CSV")->Name(), "COPY OF CSV");
    EXPECT_EQ(formatRecord("COPY OF CSV")->Rows(), formatRecord("CSV")->Rows());
    EXPECT_EQ(formatRecord("CSV")->Name(), "CSV");
}

TEST_P(FormatFiles, ASecondCopyReplacesTheFirstWithoutAQuestion) {
    putFullFormat("CSV");
    putFormat("COPY OF CSV", {{"Header", "the first copy"}});
    open("", [](User& u) { act(u, "CSV", "btnCopy"); });
    EXPECT_EQ(headerOf(*formatRecord("COPY OF CSV")), "head of CSV");
    EXPECT_EQ(formatFiles(), (Names{"COPY OF CSV.vla", "CSV.vla"}));
}

TEST_P(FormatFiles, ACopyOfACopySaysSoTwice) {
    putFullFormat("COPY OF CSV");
    open("", [](User& u) { act(u, "COPY OF CSV", "btnCopy"); });
    EXPECT_EQ(formatRecord("COPY OF COPY OF CSV")->Name(), "COPY OF COPY OF CSV");
}

TEST_P(FormatFiles, ACopyOfALowerCaseFileIsNamedInUpperCase) {
    putFullFormat("csv \U0001F600 é");
    open("", [](User& u) {
        act(u, "csv \U0001F600 é", "btnCopy");
        EXPECT_EQ(available(u), (Names{"COPY OF CSV \U0001F600 É", "csv \U0001F600 é"}));
        EXPECT_EQ(marked(u), "csv \U0001F600 é");
    });
}

TEST_P(FormatFiles, ACopyThatCannotBeSavedIsTold) {
    putFullFormat("CSV");
    memory->makeFolder("/store/PARTFORMAT/COPY OF CSV.vla");
    user().onBox();
    open("", [](User& u) {
        act(u, "CSV", "btnCopy");
        EXPECT_EQ(available(u), (Names{"CSV"}));
        EXPECT_EQ(marked(u), "CSV");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kCopyTag);
}

TEST_P(FormatFiles, ACopyOfAMalformedFormatIsAnEmptyRecordBehindABox) {
    putMalformedFormat("BAD");
    user().onBox();
    open("", [](User& u) { act(u, "BAD", "btnCopy"); });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kCopyTag);
    EXPECT_EQ(formatRecord("COPY OF BAD")->Name(), "COPY OF BAD");
    EXPECT_TRUE(formatRecord("COPY OF BAD")->Rows().empty());
    EXPECT_EQ(formatText("BAD"), "<no record");
}

TEST_P(FormatFiles, ACopyOfAFormatThatIsGoneIsToldAndCannotBeMarked) {
    putFullFormat("CSV");
    putFullFormat("GONE");
    user().onBox();
    user().onBox();
    open("", [this](User& u) {
        memory->remove(ItemPath::item(formatFolder, "GONE"));
        act(u, "GONE", "btnCopy");
        EXPECT_EQ(available(u), (Names{"COPY OF GONE", "CSV"}));
        EXPECT_EQ(marked(u), "");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(0, kCopyTag);
    expectFailureBox(1, kCopyTag);
}

TEST_P(FormatFiles, ThePromptForANewNameShowsTheOldOne) {
    putFullFormat("csv");
    user().onForm("dlgSingleEntry", [](User& u) {
        EXPECT_EQ(u.formTitle(), "{DIALOG_CAPTION}");
        EXPECT_EQ(u.see("lblLabel").caption, "{DIALOG_LABEL}");
        EXPECT_EQ(u.see("txtTextBox").text, "csv");
        u.click("CancelButton");
    });
    open("", [](User& u) { act(u, "csv", "btnRename"); });
}

TEST_P(FormatFiles, ThePromptKeepsTitleAndLabelWhereItsButtonsHaveNoText) {
    putFullFormat("CSV");
    texts->missing = {"BUTTON_CANCEL"};
    user().onForm("dlgSingleEntry", [](User& u) {
        EXPECT_EQ(u.formTitle(), "{DIALOG_CAPTION}");
        EXPECT_EQ(u.see("lblLabel").caption, "{DIALOG_LABEL}");
        EXPECT_EQ(u.see("OKButton").caption, "OK");
        EXPECT_EQ(u.see("CancelButton").caption, "Cancel");
        u.click("CancelButton");
    });
    open("", [](User& u) { act(u, "CSV", "btnRename"); });
}

TEST_P(FormatFiles, ThePromptsTextsThatCannotBeFetchedAreToldOneByOne) {
    putFullFormat("CSV");
    texts->missing = {"DIALOG_CAPTION", "DIALOG_LABEL"};
    user().onForm("dlgSingleEntry", [](User& u) {
        EXPECT_EQ(u.see("lblLabel").caption, "New Name");
        EXPECT_EQ(u.see("txtTextBox").text, "CSV");
        u.click("CancelButton");
    });
    user().onBox();
    user().onBox();
    open("", [](User& u) { act(u, "CSV", "btnRename"); });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0], failureText(kRenameTag, "no text for DIALOG_CAPTION"));
    expectFailure(user().boxes()[1], failureText(kRenameTag, "no text for DIALOG_LABEL"));
}

TEST_P(FormatFiles, ARenameMovesTheFileAndGoesThroughTheDialogAndEverySession) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putSessionOf("A", {"ZIP", "CSV"});
    putSessionOf("B", {"CSV"});
    answerPrompt("new");
    open("A", [this](User& u) {
        act(u, "CSV", "btnRename");
        EXPECT_EQ(available(u), (Names{"NEW", "ZIP"}));
        EXPECT_EQ(marked(u), "NEW");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"ZIP", "ZIP"}, {"CSV", "NEW"}}));
        EXPECT_EQ(formatsOf("A"), (Names{"ZIP", "NEW"}));
    });
    EXPECT_EQ(formatsOf("A"), (Names{"ZIP", "NEW"})) << "Cancel takes nothing back";
    EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
    EXPECT_EQ(formatFiles(), (Names{"NEW.vla", "ZIP.vla"}));
    EXPECT_EQ(formatRecord("NEW")->Name(), "NEW");
    EXPECT_EQ(headerOf(*formatRecord("NEW")), "head of CSV");
}

TEST_P(FormatFiles, ACancelledRenameChangesNothingAndFocusesTheList) {
    putFullFormat("CSV");
    for (const std::string leaving : {"Cancel", "frame"}) {
        user().onForm("dlgSingleEntry", [leaving](User& u) {
            u.type("txtTextBox", "NEW");
            if (leaving == "Cancel")
                u.click("CancelButton");
            else
                u.closeByFrame();
        });
        open("", [this](User& u) {
            disk.resetCounts();
            act(u, "CSV", "btnRename");
            EXPECT_TRUE(listHasFocus(u));
            EXPECT_EQ(marked(u), "CSV");
            EXPECT_EQ(saves(), 0U);
        });
        EXPECT_EQ(formatFiles(), (Names{"CSV.vla"})) << leaving;
    }
}

TEST_P(FormatFiles, ARenameToNothingOrToTheSameNameEndsWithoutABox) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    for (const std::string text : {"", "CSV", "csv"}) {
        answerPrompt(text);
        open("", [&](User& u) {
            disk.resetCounts();
            act(u, "CSV", "btnRename");
            EXPECT_FALSE(listHasFocus(u)) << text;
            EXPECT_TRUE(u.see("btnRename").focus) << text;
            EXPECT_EQ(saves(), 0U) << text;
        });
    }
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
}

TEST_P(FormatFiles, ARenameToANameWithForbiddenLettersIsRefused) {
    putFullFormat("CSV");
    for (const std::string text :
         {"A\\B", "A/B", "A:B", "A*B", "A?B", "A\"B", "A<B", "A>B", "A|B", "A.B", "123", " -4 "}) {
        user().onBox();
        answerPrompt(text);
        open("", [&](User& u) {
            act(u, "CSV", "btnRename");
            EXPECT_TRUE(u.see("btnRename").focus) << text;
        });
        expectForbiddenName(user().boxes().back());
    }
    EXPECT_EQ(user().boxes().size(), 12U);
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
}

TEST_P(FormatFiles, ARenameToANameOfAnOverlongCountIsToldAndRefused) {
    putFullFormat("CSV");
    user().onBox();
    user().onBox();
    rename("CSV", std::string(32768, 'A'));
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(0, kRenameTag);
    expectForbiddenName(user().boxes()[1]);
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
}

TEST_P(FormatFiles, ARenameToANameThatIsThereIsRefused) {
    putFullFormat("CSV");
    putFullFormat("zip");
    putSessionOf("A", {"CSV"});
    const std::string before = formatText("zip");
    user().onBox();
    answerPrompt("Zip");
    open("A", [](User& u) {
        act(u, "CSV", "btnRename");
        EXPECT_TRUE(u.see("btnRename").focus);
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectTakenName(user().boxes()[0], "ZIP");
    EXPECT_EQ(formatText("zip"), before);
    EXPECT_EQ(formatsOf("A"), (Names{"CSV"}));
}

TEST_P(FormatFiles, ALowerCaseFileCannotTakeItsOwnNameInUpperCase) {
    putFullFormat("csv");
    user().onBox();
    rename("csv", "csv");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectTakenName(user().boxes()[0], "CSV");
    EXPECT_EQ(formatFiles(), (Names{"csv.vla"}));
}

TEST_P(FormatFiles, TheMessagesTextsThatCannotBeFetchedAreToldFirst) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    texts->missing = {"MORAM_CONFIG_MSG_NAME_EXISTS"};
    user().onBox();
    user().onBox();
    rename("CSV", "ZIP");
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0],
                  failureText(kRenameTag, "no text for MORAM_CONFIG_MSG_NAME_EXISTS"));
    expectRefusal(user().boxes()[1], "ZIP: . {MORAM_CONFIG_MSG_REENTER_NAME}",
                  "{MORAM_CONFIG_MSG_FORMAT_NAME}");
}

TEST_P(FormatFiles, ABlankAtTheEndOfANewNamePassesIntoTheFilesName) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    answerPrompt("csv ");
    open("A", [](User& u) {
        act(u, "CSV", "btnRename");
        EXPECT_EQ(available(u), (Names{"CSV "}));
        EXPECT_EQ(marked(u), "CSV ");
        EXPECT_EQ(selectedNames(u), (Names{"CSV "}));
    });
    EXPECT_EQ(formatFiles(), (Names{"CSV .vla"}));
    EXPECT_EQ(formatRecord("CSV ")->Name(), "CSV ");
    EXPECT_EQ(formatsOf("A"), (Names{"CSV "}));
}

TEST_P(FormatFiles, ARenameOfALowerCaseFileIsFollowedByTheRowsInLowerCase) {
    putFullFormat("csv");
    putSessionOf("A", {"CSV", "csv"});
    rename("csv", "new");
    EXPECT_EQ(formatFiles(), (Names{"NEW.vla"}));
    EXPECT_EQ(formatsOf("A"), (Names{"CSV", "NEW"}));
}

TEST_P(FormatFiles, ARenameThatCannotBeSavedGoesOnAndLosesTheOldFile) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putSessionOf("A", {"CSV"});
    disk.failOn(Operation::Save, "/NEW.vla");
    user().onBox();
    user().onBox();
    answerPrompt("NEW");
    open("A", [](User& u) {
        act(u, "CSV", "btnRename");
        EXPECT_EQ(available(u), (Names{"ZIP"}));
        EXPECT_EQ(selectedNames(u), (Names{"NEW"}));
        EXPECT_TRUE(listHasFocus(u));
    });
    ASSERT_EQ(user().boxes().size(), 2U) << "the save, and the row that cannot be marked";
    expectFailureBox(0, kRenameTag);
    expectFailureBox(1, kRenameTag);
    EXPECT_EQ(formatFiles(), (Names{"ZIP.vla"}));
    EXPECT_EQ(formatsOf("A"), (Names{"NEW"}));
}

TEST_P(FormatFiles, AnOldFileThatCannotBeDeletedStaysBesideTheNewOne) {
    putFullFormat("CSV");
    disk.failOn(Operation::Remove, "/CSV.vla");
    user().onBox();
    rename("CSV", "NEW");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kRenameTag);
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "NEW.vla"}));
}

TEST_P(FormatFiles, ARenameOfAMalformedFormatLeavesAnEmptyRecordOfTheNewName) {
    putMalformedFormat("BAD");
    user().onBox();
    rename("BAD", "NEW");
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kRenameTag);
    EXPECT_EQ(formatFiles(), (Names{"NEW.vla"}));
    EXPECT_EQ(formatRecord("NEW")->Name(), "NEW");
    EXPECT_TRUE(formatRecord("NEW")->Rows().empty());
}

TEST_P(FormatFiles, InARenameTheFormatsFileGoesFirstAndTheSessionsLast) {
    putFullFormat("CSV");
    putMalformedSession("A");
    disk.failOn(Operation::Remove, "/CSV.vla");
    user().onBox([this](const SeenBox&) {
        EXPECT_TRUE(formatExists("NEW"));
        return answer::Ok;
    });
    user().onBox([this](const SeenBox&) {
        EXPECT_EQ(dialog().formatTab.lstSelectedFormats2.row(1).text, "NEW");
        return answer::Ok;
    });
    putSessionOf("B", {"CSV"});
    answerPrompt("NEW");
    open("B", [](User& u) { act(u, "CSV", "btnRename"); });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(0, kRenameTag);
    expectFailureBox(1, kUpdateTag);
}

TEST_P(FormatFiles, ADeletionAsksFirst) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    user().onBox(answer::No);
    open("A", [this](User& u) {
        disk.resetCounts();
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(reads() + saves(), 0U);
        EXPECT_EQ(marked(u), "CSV");
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    const SeenBox& box = user().boxes()[0];
    EXPECT_EQ(box.text, "{MORAM_CONFIG_MSG_DELETE_CONFIG}");
    EXPECT_EQ(box.title, "{MORAM_CONFIG_MSG_ARE_YOU_SURE}");
    EXPECT_EQ(box.style, 4);
    EXPECT_EQ(box.okCaption, "");
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
}

TEST_P(FormatFiles, ADeletedFormatIsKeptAsideAndLeavesTheDialogAndEverySession) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putSessionOf("A", {"CSV", "ZIP"});
    putSessionOf("B", {"ZIP", "CSV"});
    const std::string before = formatText("CSV");
    user().onBox(answer::Yes);
    open("A", [this](User& u) {
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(available(u), (Names{"ZIP"}));
        EXPECT_EQ(marked(u), "");
        EXPECT_TRUE(u.see("btnDelete").focus);
        EXPECT_EQ(selectedNames(u), (Names{"ZIP"}));
        EXPECT_EQ(formatsOf("A"), (Names{"ZIP"}));
    });
    EXPECT_EQ(formatsOf("A"), (Names{"ZIP"})) << "Cancel takes nothing back";
    EXPECT_EQ(formatsOf("B"), (Names{"ZIP"}));
    EXPECT_EQ(countOf("B"), "1");
    EXPECT_EQ(formatFiles(), (Names{"ZIP.vla"}));
    EXPECT_EQ(deletedFormat("CSV")->Name(), "CSV");
    EXPECT_EQ(memory->read(ItemPath{formatFolder + "deleted\\", "CSV.vla"}), before);
}

TEST_P(FormatFiles, TheOnlyFormatOfASessionIsNotDeleted) {
    putFullFormat("X");
    putFullFormat("Y");
    putSessionOf("A", {"X", "Y"});
    putSessionOf("B", {"X"});
    user().onBox(answer::Yes);
    user().onBox();
    open("A", [this](User& u) {
        disk.resetCounts();
        act(u, "X", "btnDelete");
        EXPECT_EQ(saves(), 0U);
        EXPECT_EQ(marked(u), "X");
        EXPECT_EQ(selectedNames(u), (Names{"X", "Y"}));
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_EQ(user().boxes()[1].text, "{MORAM_CONFIG_MSG_LAST_PART_FORMAT} B");
    EXPECT_EQ(user().boxes()[1].title, "{MORAM_CONFIG_TAB_PART_FORMAT}");
    EXPECT_EQ(user().boxes()[1].style, 0);
    EXPECT_EQ(user().boxes()[1].okCaption, "{BUTTON_OK}");
    EXPECT_EQ(formatFiles(), (Names{"X.vla", "Y.vla"}));
    EXPECT_FALSE(memory->folderExists("/store/PARTFORMAT/deleted"));
}

TEST_P(FormatFiles, AFormatGoesOnceEverySessionHasAnother) {
    for (const std::string name : {"X", "Y", "Z", "V"}) putFullFormat(name);
    putSessionOf("A", {"X", "Y", "Z"});
    putSessionOf("B", {"X"});
    confirmDeletion("Y");
    EXPECT_EQ(formatsOf("A"), (Names{"X", "Z"}));
    EXPECT_EQ(countOf("A"), "2");
    user().onBox(answer::Yes);
    user().onBox();
    open("", [](User& u) { act(u, "X", "btnDelete"); });
    EXPECT_EQ(user().boxes().back().text, "{MORAM_CONFIG_MSG_LAST_PART_FORMAT} B");
    putSessionOf("B", {"V", "X"});
    confirmDeletion("X");
    EXPECT_EQ(formatsOf("A"), (Names{"Z"}));
    EXPECT_EQ(formatsOf("B"), (Names{"V"}));
    EXPECT_EQ(formatFiles(), (Names{"V.vla", "Z.vla"}));
}

TEST_P(FormatFiles, TheOpenSessionCountsInTheStateOfItsFile) {
    putFullFormat("X");
    putFullFormat("Y");
    putSessionOf("A", {"X"});
    user().onBox(answer::Yes);
    user().onBox();
    open("A", [](User& u) {
        act(u, "Y", "btnAdd");
        act(u, "X", "btnDelete");
        EXPECT_EQ(selectedNames(u), (Names{"X", "Y"}));
    });
    EXPECT_EQ(user().boxes().back().text, "{MORAM_CONFIG_MSG_LAST_PART_FORMAT} A");
}

TEST_P(FormatFiles, ASecondDeletionOfANameReplacesWhatWasKeptAside) {
    putFullFormat("ZIP");
    putFormat("CSV", {{"Header", "the first one"}});
    confirmDeletion("CSV");
    putFormat("CSV", {{"Header", "the second one"}});
    confirmDeletion("CSV");
    EXPECT_EQ(headerOf(*deletedFormat("CSV")), "the second one");
}

TEST_P(FormatFiles, ADeletedFileOfMixedCaseGoesUnderItsOwnSpellingAndStoredName) {
    putFullFormat("ZIP");
    putFullFormat("Other");
    memory->save(ItemPath{formatFolder, "csv.vla"}, formatText("Other"));
    confirmDeletion("csv");
    EXPECT_EQ(formatFiles(), (Names{"Other.vla", "ZIP.vla"}));
    EXPECT_EQ(memory->listItems(formatFolder + "deleted\\"), (Names{"csv.vla"}));
    EXPECT_EQ(deletedFormat("csv")->Name(), "Other");
}

TEST_P(FormatFiles, WithTheLastFileGoneTheListKeepsItsRow) {
    putFullFormat("CSV");
    user().onBox(answer::Yes);
    open("", [](User& u) {
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(available(u), (Names{"CSV"}));
        EXPECT_EQ(marked(u), "CSV");
    });
    EXPECT_TRUE(formatFiles().empty());
}

TEST_P(FormatFiles, AFormatWithoutANameLosesItsReferencesAndKeepsItsFile) {
    putFullFormat("");
    putSessionOf("A", {"", "X"});
    confirmDeletion("");
    EXPECT_EQ(formatFiles(), (Names{".vla"}));
    EXPECT_FALSE(memory->folderExists("/store/PARTFORMAT/deleted"));
    EXPECT_EQ(formatsOf("A"), (Names{"X"}));
}

TEST_P(FormatFiles, AMalformedFormatIsKeptAsideAsAnEmptyRecord) {
    putFullFormat("ZIP");
    putMalformedFormat("BAD");
    user().onBox(answer::Yes);
    user().onBox();
    open("", [](User& u) { act(u, "BAD", "btnDelete"); });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(1, kDeleteTag);
    EXPECT_EQ(formatFiles(), (Names{"ZIP.vla"}));
    EXPECT_TRUE(deletedFormat("BAD")->Rows().empty());
}

TEST_P(FormatFiles, AFormatThatCannotBeKeptAsideIsDeletedAllTheSame) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    memory->save(ItemPath{"/store/PARTFORMAT/", "deleted"}, "a file in the folder's place");
    user().onBox(answer::Yes);
    user().onBox();
    open("", [](User& u) {
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(available(u), (Names{"ZIP"}));
    });
    ASSERT_EQ(user().boxes().size(), 2U) << "that the folder can't be made is not told";
    expectFailureBox(1, kDeleteTag);
    EXPECT_EQ(formatFiles(), (Names{"ZIP.vla"}));
}

TEST_P(FormatFiles, AFileThatCannotBeDeletedStaysListedAndLosesItsReferences) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV", "ZIP"});
    disk.failOn(Operation::Remove, "/CSV.vla");
    user().onBox(answer::Yes);
    user().onBox([this](const SeenBox&) {
        EXPECT_EQ(headerOf(*deletedFormat("CSV")), "head of CSV") << "kept aside before";
        return answer::Ok;
    });
    open("A", [](User& u) {
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(available(u), (Names{"CSV"}));
        EXPECT_EQ(selectedNames(u), (Names{"ZIP"}));
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(1, kDeleteTag);
    EXPECT_EQ(formatsOf("A"), (Names{"ZIP"}));
}

TEST_P(FormatFiles, AMalformedSessionIsToldByBothWalksOfADeletion) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putSessionOf("A", {"CSV", "ZIP"});
    putMalformedSession("B");
    user().onBox(answer::Yes);
    user().onBox();
    user().onBox();
    open("", [this](User& u) {
        disk.resetCounts();
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(reads(), 5U) << "each session twice, and the format";
        EXPECT_EQ(saves(), 3U) << "each session once, and the format kept aside";
    });
    ASSERT_EQ(user().boxes().size(), 3U);
    expectFailureBox(1, kCheckTag);
    expectFailureBox(2, kUpdateTag);
    EXPECT_EQ(formatsOf("B"), (Names{"ZIP"}));
}

TEST_P(FormatFiles, TheTextsOfTheQuestionThatCannotBeFetchedAreToldFirst) {
    putFullFormat("CSV");
    texts->missing = {"MORAM_CONFIG_MSG_DELETE_CONFIG", "MORAM_CONFIG_MSG_ARE_YOU_SURE"};
    user().onBox();
    user().onBox();
    user().onBox(answer::No);
    open("", [](User& u) { act(u, "CSV", "btnDelete"); });
    ASSERT_EQ(user().boxes().size(), 3U);
    expectFailure(user().boxes()[0],
                  failureText(kDeleteTag, "no text for MORAM_CONFIG_MSG_DELETE_CONFIG"));
    expectFailure(user().boxes()[1],
                  failureText(kDeleteTag, "no text for MORAM_CONFIG_MSG_ARE_YOU_SURE"));
    EXPECT_EQ(user().boxes()[2].text, "");
    EXPECT_EQ(user().boxes()[2].style, 4);
}

}  // namespace
}  // namespace wynconfig
