// The buttons that open the part format editor: New and Edit.
#include "support/format_desk.h"

namespace wynconfig {
namespace {

const std::string kEditTag = "UnifrmMORAMConfig:btnEdit_Click";
const std::string kApplyTag = "frmPartNumberFormat:ApplyChanges";

class FormatButtons : public FormatDesk {
  protected:
    void onEditor(User::Script script) { user().onForm("frmPartNumberFormat", std::move(script)); }
    /// In the editor: a name, what else a new format needs, and OK.
    static User::Script confirmNew(const std::string& name) {
        return [name](User& u) {
            u.type("txtFormatName", name);
            u.type("txtMaxRecords", "10");
            u.click("btnOk");
        };
    }
    static User::Script rename(const std::string& name) {
        return [name](User& u) {
            u.type("txtFormatName", name);
            u.click("btnOk");
        };
    }
    static User::Script typeAndCloseByFrame(const std::string& name) {
        return [name](User& u) {
            u.type("txtFormatName", name);
            u.closeByFrame();
        };
    }
};
ON_EVERY_VIEW(FormatButtons);

TEST_P(FormatButtons, NewOpensAnEmptyEditor) {
    putFullFormat("CSV");
    onEditor([](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "");
        EXPECT_EQ(u.see("txtHeader").text, "");
        u.click("btnCancel");
    });
    open("", [](User& u) { act(u, "CSV", "btnNew"); });
}

TEST_P(FormatButtons, ANewFormatIsListedAndMarkedButNotSelectedForTheSession) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putFullSession("A", {"CSV"});
    onEditor(confirmNew(" mine "));
    open("A", [](User& u) {
        u.click("btnNew");
        EXPECT_EQ(available(u), (Names{"CSV", "MINE", "ZIP"}));
        EXPECT_EQ(marked(u), "MINE");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
    });
    EXPECT_EQ(formatRecord("MINE")->Rows().size(), 21U);
    EXPECT_EQ(formatsOf("A"), (Names{"CSV"}));
}

TEST_P(FormatButtons, NewTouchesNoSession) {
    putSessionOf("A", {"CSV"});
    onEditor(confirmNew("MINE"));
    open("A", [this](User& u) {
        disk.resetCounts();
        u.click("btnNew");
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Read), 0U);
        EXPECT_EQ(saves(), 2U) << "the new format, at first empty and then with its rows";
    });
}

TEST_P(FormatButtons, TheListIsReadAnewAlsoWhenTheNewFormatIsCancelled) {
    putFullFormat("CSV");
    onEditor([this](User& u) {
        putFullFormat("BEHIND");
        u.type("txtFormatName", "MINE");
        u.click("btnCancel");
    });
    open("", [](User& u) {
        act(u, "CSV", "btnNew");
        EXPECT_EQ(available(u), (Names{"BEHIND", "CSV"}));
        EXPECT_EQ(marked(u), "");
        EXPECT_TRUE(u.see("btnNew").focus);
    });
}

TEST_P(FormatButtons, ANewFormatClosedByTheFrameWithoutANameIsNothing) {
    putFullFormat("CSV");
    onEditor([](User& u) { u.closeByFrame(); });
    open("", [](User& u) {
        act(u, "CSV", "btnNew");
        EXPECT_EQ(marked(u), "");
        EXPECT_TRUE(u.see("btnNew").focus);
    });
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
}

TEST_P(FormatButtons, ANewFormatWithoutANameDoesNotMarkAFileWithoutOne) {
    putFullFormat("");
    onEditor([](User& u) { u.closeByFrame(); });
    open("", [](User& u) {
        u.click("btnNew");
        EXPECT_EQ(u.see("lstAvailableFormats").selected, 0U);
        EXPECT_TRUE(u.see("btnNew").focus);
    });
}

TEST_P(FormatButtons, ANewFormatCancelledOnAKnownNameMarksNothing) {
    putFullFormat("CSV");
    onEditor([](User& u) {
        u.type("txtFormatName", "CSV");
        u.click("btnCancel");
    });
    open("", [](User& u) {
        u.click("btnNew");
        EXPECT_EQ(marked(u), "");
        EXPECT_TRUE(u.see("btnNew").focus);
    });
}

TEST_P(FormatButtons, ANewFormatThatWasNeverSavedEndsTheButtonWithoutABox) {
    putFullFormat("CSV");
    onEditor([this](User& u) {
        putFullFormat("BEHIND");
        typeAndCloseByFrame("MINE")(u);
    });
    open("", [this](User& u) {
        act(u, "CSV", "btnNew");
        EXPECT_TRUE(dialog().loaded());
        EXPECT_EQ(available(u), (Names{"BEHIND", "CSV"}));
        EXPECT_EQ(marked(u), "");
        EXPECT_TRUE(u.see("btnNew").focus);
    });
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_EQ(formatFiles(), (Names{"BEHIND.vla", "CSV.vla"}));
}

TEST_P(FormatButtons, ANewFormatClosedByTheFrameOnAKnownNameMarksThatOne) {
    putFullFormat("CSV");
    onEditor(typeAndCloseByFrame("csv"));
    open("", [](User& u) {
        u.click("btnNew");
        EXPECT_EQ(marked(u), "CSV");
        EXPECT_TRUE(listHasFocus(u));
    });
}

TEST_P(FormatButtons, TheFirstFormatBringsTheListToLife) {
    onEditor(confirmNew("FIRST"));
    open("", [](User& u) {
        EXPECT_FALSE(u.see("lstAvailableFormats").visible);
        u.click("btnNew");
        EXPECT_TRUE(u.see("lstAvailableFormats").visible);
        EXPECT_EQ(available(u), (Names{"FIRST"}));
        EXPECT_EQ(marked(u), "FIRST");
    });
}

TEST_P(FormatButtons, ANewFormatThatCannotBeSavedIsToldByTheEditorAndNotMarked) {
    putFullFormat("CSV");
    memory->makeFolder("/store/PARTFORMAT/MINE.vla");
    onEditor(confirmNew("MINE"));
    user().onBox();
    user().onBox();
    open("", [this](User& u) {
        u.click("btnNew");
        EXPECT_TRUE(dialog().loaded());
        EXPECT_EQ(available(u), (Names{"CSV"}));
        EXPECT_EQ(marked(u), "");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(0, kApplyTag);
    expectFailureBox(1, kApplyTag);
}

TEST_P(FormatButtons, InMemoryANewFormatIsTheHosts) {
    putFullFormat("FACTORY");
    onEditor(confirmNew("mine"));
    openInMemory({"FACTORY"}, [this](User& u) {
        disk.resetCounts();
        u.click("btnNew");
        EXPECT_EQ(saves(), 0U);
        EXPECT_EQ(available(u), (Names{"FACTORY", "MINE"}));
        EXPECT_EQ(marked(u), "MINE");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selectedNames(u), (Names{"FACTORY"}));
    });
    EXPECT_EQ(hostKeys(), (Names{"MINE"}));
    EXPECT_EQ(formatFiles(), (Names{"FACTORY.vla"}));
}

TEST_P(FormatButtons, InMemoryWithoutFactoryFormatsANewOneStaysUnseen) {
    onEditor(confirmNew("MINE"));
    openInMemory({}, [this](User& u) {
        u.click("btnNew");
        EXPECT_TRUE(dialog().loaded());
        EXPECT_FALSE(u.see("lstAvailableFormats").visible);
    });
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_EQ(hostKeys(), (Names{"MINE"}));
}

TEST_P(FormatButtons, InMemoryNamesOfTheStoreAndOfTheHostAreRefusedInAnyCase) {
    putFullFormat("factory");
    addHostFormat("Mine");
    user().onBox();
    user().onBox();
    onEditor([](User& u) {
        confirmNew("FACTORY")(u);
        confirmNew("mine")(u);
        u.click("btnCancel");
    });
    openInMemory({}, [](User& u) { u.click("btnNew"); });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectRefusal(user().boxes()[0],
                  "{MORAM_CONFIG_MSG_NAME_EXISTS}: FACTORY. {MORAM_CONFIG_MSG_REENTER_NAME}",
                  "{MORAM_CONFIG_MSG_PART_FORMAT}");
    expectRefusal(user().boxes()[1],
                  "{MORAM_CONFIG_MSG_NAME_EXISTS}: MINE. {MORAM_CONFIG_MSG_REENTER_NAME}",
                  "{MORAM_CONFIG_MSG_PART_FORMAT}");
    EXPECT_EQ(hostKeys(), (Names{"MINE"}));
}

TEST_P(FormatButtons, EditWithoutAMarkedFormatDoesNothing) {
    putFullFormat("CSV");
    open("", [](User& u) {
        u.click("btnEdit");
        EXPECT_TRUE(u.see("btnEdit").focus);
    });
    EXPECT_EQ(user().forms(), (Names{"frmMORAMConfig"}));
}

TEST_P(FormatButtons, EditOpensTheMarkedFormat) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    onEditor([](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "ZIP");
        EXPECT_EQ(u.see("txtHeader").text, "head of ZIP");
        u.type("txtHeader", "changed");
        u.click("btnOk");
    });
    open("", [](User& u) {
        act(u, "ZIP", "btnEdit");
        EXPECT_EQ(marked(u), "ZIP");
        EXPECT_TRUE(listHasFocus(u));
    });
    EXPECT_EQ(headerOf(*formatRecord("ZIP")), "changed");
    EXPECT_EQ(headerOf(*formatRecord("CSV")), "head of CSV");
}

TEST_P(FormatButtons, AnEditUnderTheSameNameWritesEverySessionAsItWas) {
    putFullFormat("CSV");
    putFullSession("A", {"CSV"});
    putFullSession("B", {"OTHER"});
    const std::string before = sessionText("A");
    onEditor(pressing("btnOk"));
    open("A", [this](User& u) {
        disk.resetCounts();
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(saves(), 3U) << "the format and two sessions";
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"CSV", "CSV"}}));
    });
    EXPECT_EQ(sessionText("A"), before);
}

TEST_P(FormatButtons, ACancelledEditChangesNothingAndKeepsTheMark) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    onEditor([this](User& u) {
        putFullFormat("BEHIND");
        u.type("txtFormatName", "NEW");
        u.click("btnCancel");
        disk.resetCounts();
    });
    open("A", [this](User& u) {
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(reads() + saves(), 0U);
        EXPECT_EQ(available(u), (Names{"CSV"})) << "the list is not read anew";
        EXPECT_EQ(marked(u), "CSV");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
    });
    EXPECT_EQ(formatsOf("A"), (Names{"CSV"}));
}

TEST_P(FormatButtons, ARenameInTheEditorGoesThroughTheDialogAndEverySession) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putSessionOf("A", {"ZIP", "CSV"});
    putSessionOf("B", {"CSV"});
    onEditor(rename("new"));
    open("A", [this](User& u) {
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(available(u), (Names{"NEW", "ZIP"}));
        EXPECT_EQ(marked(u), "NEW");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"ZIP", "ZIP"}, {"CSV", "NEW"}}));
        EXPECT_EQ(formatsOf("A"), (Names{"ZIP", "NEW"}));
        EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
    });
    EXPECT_EQ(formatsOf("A"), (Names{"ZIP", "NEW"})) << "Cancel takes nothing back";
    EXPECT_EQ(formatFiles(), (Names{"NEW.vla", "ZIP.vla"}));
}

TEST_P(FormatButtons, ARenamedSelectedRowIsRemovedByItsKeyAndKnownToAddByItsText) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    onEditor(rename("NEW"));
    open("A", [](User& u) {
        act(u, "CSV", "btnEdit");
        u.click("btnAdd");
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"CSV", "NEW"}}));
        u.pick("lstSelectedFormats2", "NEW");
        u.click("btnRemove");
        EXPECT_EQ(selected(u), std::vector<SeenRow>{});
        u.click("btnAdd");
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"NEW", "NEW"}}));
    });
}

TEST_P(FormatButtons, ARenamedSelectedRowIsFoundByItsTextAtTheNextRenameAndDeletion) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putSessionOf("A", {"CSV", "ZIP"});
    onEditor(rename("NEW"));
    onEditor(rename("NEWER"));
    user().onBox(answer::Yes);
    open("A", [](User& u) {
        act(u, "CSV", "btnEdit");
        u.click("btnEdit");
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"CSV", "NEWER"}, {"ZIP", "ZIP"}}));
        u.click("btnDelete");
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"ZIP", "ZIP"}}));
    });
    EXPECT_EQ(formatsOf("A"), (Names{"ZIP"}));
}

TEST_P(FormatButtons, TheFileWriterKnowsARenamedSelectedRowByItsKeyAlone) {
    putFullFormat("CSV");
    putFullSession("A", {"CSV"});
    memory->makeFolder("/out");
    onEditor(rename("NEW"));
    user().onForm("frmTallyvaneConfig", [](User& u) {
        u.choose("cboPartFormat", "NEW");
        u.type("txtFileFolder", "/out");
        u.click("btnOk");
    });
    open("A", [](User& u) {
        act(u, "CSV", "btnEdit");
        u.changeTab("SSTab2", 0);
        u.click("btnTallyvane");
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"CSV", "NEW"}, {"NEW", "NEW"}}));
    });
}

TEST_P(FormatButtons, ASelectedRowInOtherLettersDoesNotFollowARename) {
    putFullFormat("CSV");
    putSessionOf("A", {"csv"});
    onEditor(rename("NEW"));
    open("A", [](User& u) {
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(selectedNames(u), (Names{"csv"}));
    });
    EXPECT_EQ(formatsOf("A"), (Names{"csv"}));
}

TEST_P(FormatButtons, OfADoubleFormatOneRowIsShownAndAnApplyWritesOne) {
    putProgram("/programs/parts.exe");
    putFullFormat("CSV");
    putFullSession("A", {"CSV", "CSV"});
    onEditor(rename("NEW"));
    open("A", [this](User& u) {
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(formatsOf("A"), (Names{"NEW", "CSV"})) << "the second row keeps the old name";
        u.click("btnOK");
    });
    EXPECT_EQ(formatsOf("A"), (Names{"NEW"}));
    EXPECT_EQ(countOf("A"), "1");
}

TEST_P(FormatButtons, AnEditorClosedByTheFrameOnAnotherNameRenamesTheReferences) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    putSessionOf("B", {"CSV"});
    onEditor(typeAndCloseByFrame("new"));
    user().onBox();
    open("A", [](User& u) {
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(available(u), (Names{"CSV"}));
        EXPECT_EQ(marked(u), "");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"CSV", "NEW"}}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kEditTag);
    EXPECT_EQ(formatsOf("A"), (Names{"NEW"}));
    EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla"}));
}

TEST_P(FormatButtons, AnEditorClosedByTheFrameWithoutANameDeletesTheReferences) {
    putFullFormat("CSV");
    putFullFormat("ZIP");
    putSessionOf("A", {"CSV", "ZIP"});
    putSessionOf("B", {"CSV"});
    onEditor(typeAndCloseByFrame(""));
    user().onBox();
    open("A", [](User& u) {
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(selectedNames(u), (Names{"ZIP"}));
        EXPECT_EQ(available(u), (Names{"CSV", "ZIP"}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kEditTag);
    EXPECT_EQ(formatsOf("A"), (Names{"ZIP"}));
    EXPECT_EQ(countOf("B"), "0") << "no test for a last format here";
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "ZIP.vla"}));
}

TEST_P(FormatButtons, AnEditorClosedByTheFrameUntouchedCountsAsAnEdit) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    onEditor([](User& u) { u.closeByFrame(); });
    open("A", [this](User& u) {
        disk.resetCounts();
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(saves(), 1U) << "the session, not the format";
        EXPECT_EQ(marked(u), "CSV");
    });
    EXPECT_EQ(formatsOf("A"), (Names{"CSV"}));
}

TEST_P(FormatButtons, AFormatNamedInLowerCaseByHandIsCarriedInUpperCase) {
    putFullFormat("csv");
    putSessionOf("A", {"csv"});
    onEditor([](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "CSV");
        u.click("btnOk");
    });
    user().onBox();
    open("A", [](User& u) {
        act(u, "csv", "btnEdit");
        EXPECT_EQ(available(u), (Names{"csv"})) << "the file keeps its spelling";
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"csv", "CSV"}}));
    });
    ASSERT_EQ(user().boxes().size(), 1U) << "no row of the new name to mark";
    expectFailureBox(0, kEditTag);
    EXPECT_EQ(formatsOf("A"), (Names{"CSV"}));
}

TEST_P(FormatButtons, AMalformedSessionIsToldDuringAnEdit) {
    putFullFormat("CSV");
    putSessionOf("A", {"CSV"});
    putMalformedSession("B");
    onEditor(rename("NEW"));
    user().onBox();
    open("A", [](User& u) {
        act(u, "CSV", "btnEdit");
        EXPECT_EQ(marked(u), "NEW");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, "UnifrmMORAMConfig:UpdatePartNumberFormatsInAllMORAMs");
    EXPECT_EQ(formatsOf("B"), (Names{"NEW"}));
}

TEST_P(FormatButtons, AMalformedFormatOpensInTheEditorBehindABox) {
    memory->save(ItemPath::item(formatFolder, "BAD"), "<no record");
    onEditor([](User& u) {
        EXPECT_EQ(u.see("txtFormatName").text, "BAD");
        u.click("btnCancel");
    });
    user().onBox();
    open("", [](User& u) { act(u, "BAD", "btnEdit"); });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, "frmPartNumberFormat:init");
    EXPECT_EQ(formatText("BAD"), "<no record");
}

TEST_P(FormatButtons, InMemoryAFactoryFormatIsNotEdited) {
    putFullFormat("factory");
    addHostFormat("FACTORY");
    user().onBox();
    user().onBox();
    openInMemory({"FACTORY"}, [](User& u) {
        act(u, "factory", "btnEdit");
        EXPECT_TRUE(u.see("btnEdit").focus);
        EXPECT_EQ(marked(u), "factory");
        act(u, "FACTORY", "btnEdit");
    });
    EXPECT_EQ(user().forms(), (Names{"frmMORAMConfig"}));
    ASSERT_EQ(user().boxes().size(), 2U);
    for (const SeenBox& box : user().boxes())
        expectRefusal(box, "{MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS}",
                      "{MORAM_CONFIG_MSG_ERROR}");
}

TEST_P(FormatButtons, ATextThatCannotBeFetchedIsToldBeforeTheRefusal) {
    putFullFormat("FACTORY");
    texts->missing = {"MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS", "MORAM_CONFIG_MSG_ERROR"};
    for (int i = 0; i < 3; ++i) user().onBox();
    openInMemory({}, [](User& u) { act(u, "FACTORY", "btnEdit"); });
    ASSERT_EQ(user().boxes().size(), 3U);
    expectFailure(
        user().boxes()[0],
        failureText(kEditTag, "no text for MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS"));
    expectFailure(user().boxes()[1], failureText(kEditTag, "no text for MORAM_CONFIG_MSG_ERROR"));
    expectRefusal(user().boxes()[2], "", "");
}

TEST_P(FormatButtons, InMemoryARenameInTheEditorReachesTheSessionAtTheNextApply) {
    putProgram("/programs/parts.exe");
    putFullFormat("FACTORY");
    putSessionOf("A", {"MINE"});
    addHostFormat("MINE");
    onEditor(rename("new"));
    openInMemory({"MINE"}, [this](User& u) {
        disk.resetCounts();
        act(u, "MINE", "btnEdit");
        EXPECT_EQ(saves(), 0U);
        EXPECT_EQ(available(u), (Names{"FACTORY", "NEW"}));
        EXPECT_EQ(marked(u), "NEW");
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"MINE", "NEW"}}));
        EXPECT_EQ(hostKeys(), (Names{"NEW"}));
        EXPECT_EQ(formatsInMemory(), (Names{"MINE"}));
        u.changeTab("SSTab2", 0);
        u.type("txtProgramPath", "/programs/parts.exe");
        u.click("btnApply");
        EXPECT_EQ(formatsInMemory(), (Names{"NEW"}));
    });
    EXPECT_EQ(formatsOf("A"), (Names{"MINE"})) << "no other session is visited";
}

TEST_P(FormatButtons, InMemoryTheEditorWorksOnTheVeryObjectOfTheHost) {
    putFullFormat("FACTORY");
    addHostFormat("MINE");
    const auto object = ConfigGlobalModule::g_PartFormats.Item("MINE");
    onEditor([](User& u) {
        u.type("txtHeader", "changed");
        u.type("txtFormatName", "NEW");
        u.click("btnOk");
    });
    openInMemory({}, [](User& u) { act(u, "MINE", "btnEdit"); });
    EXPECT_EQ(ConfigGlobalModule::g_PartFormats.Item("NEW"), object);
    EXPECT_EQ(object->Name(), "NEW");
    EXPECT_EQ(headerOf(*object), "changed");
}

TEST_P(FormatButtons, InMemoryAFormatUnderAForeignKeyIsAddedBeforeItsOldNameFailsToGo) {
    putFullFormat("FACTORY");
    addHostFormat("OTHER");
    // The old name leads to an object whose own name is another one.
    ConfigGlobalModule::g_PartFormats.Item("OTHER")->setName("MINE");
    addHostFormat("MINE");
    ConfigGlobalModule::g_PartFormats.Item("MINE")->setName("ASTRAY");
    onEditor(rename("NEW"));
    user().onBox();
    openInMemory({}, [](User& u) {
        EXPECT_EQ(available(u), (Names{"FACTORY", "MINE", "ASTRAY"}));
        act(u, "MINE", "btnEdit");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kApplyTag);
    EXPECT_EQ(hostKeys(), (Names{"OTHER", "MINE", "NEW"}));
}

TEST_P(FormatButtons, InMemoryAnEditorClosedByTheFrameWithoutANameEmptiesTheListAlone) {
    putFullFormat("FACTORY");
    addHostFormat("MINE");
    onEditor(typeAndCloseByFrame(""));
    user().onBox();
    openInMemory({"MINE"}, [](User& u) {
        act(u, "MINE", "btnEdit");
        EXPECT_EQ(selectedNames(u), Names{});
        EXPECT_EQ(available(u), (Names{"FACTORY", "MINE"}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kEditTag);
    EXPECT_EQ(formatsInMemory(), (Names{"MINE"}));
    EXPECT_EQ(hostKeys(), (Names{"MINE"}));
}

TEST_P(FormatButtons, InMemoryAFormatInLowerCaseIsShownInUpperCaseBehindAnEdit) {
    putFullFormat("FACTORY");
    addHostFormat("mine");
    onEditor(pressing("btnOk"));
    user().onBox();
    openInMemory({"mine"}, [](User& u) {
        act(u, "mine", "btnEdit");
        EXPECT_EQ(available(u), (Names{"FACTORY", "mine"}));
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"mine", "MINE"}}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kEditTag);
    EXPECT_EQ(ConfigGlobalModule::g_PartFormats.Item("MINE")->Name(), "mine");
}

}  // namespace
}  // namespace wynconfig
