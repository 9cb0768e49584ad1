// Copying, renaming and deleting part formats that the host holds, beside the factory formats of
// the store.
#include "support/format_desk.h"

namespace wynconfig {
namespace {

using ConfigGlobalModule::g_PartFormats;

class FormatsInMemory : public FormatDesk {
  protected:
    static inline const std::string kCopyTag = "UnifrmMORAMConfig:btnCopy_Click";
    static inline const std::string kRenameTag = "UnifrmMORAMConfig:btnRename_Click";
    static inline const std::string kDeleteTag = "UnifrmMORAMConfig:DeleteUserPartFormat";

    void SetUp() override {
        FormatDesk::SetUp();
        putFullFormat("FACTORY");
        putSessionOf("A", {"MINE", "FACTORY"});
        disk.resetCounts();
    }
    /// No step of this mode writes to the store.
    void TearDown() override {
        EXPECT_EQ(saves(), 0U);
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Remove), 0U);
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::MakeFolder), 0U);
        EXPECT_EQ(formatsOf("A"), (Names{"MINE", "FACTORY"}));
        FormatDesk::TearDown();
    }
    void putMore(const std::string& name) {
        putFullFormat(name);
        disk.resetCounts();
    }

    void answerPrompt(const std::string& text) {
        user().onForm("dlgSingleEntry", [text](User& u) {
            u.type("txtTextBox", text);
            u.click("OKButton");
        });
    }
    static std::shared_ptr<Dataset> host(const std::string& key) { return g_PartFormats.Item(key); }
    static void expectFactoryRefusal(const SeenBox& box) {
        expectRefusal(box, "{MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS}",
                      "{MORAM_CONFIG_MSG_ERROR}");
    }
    static void expectTakenName(const SeenBox& box, const std::string& name) {
        expectRefusal(box,
                      name + ": {MORAM_CONFIG_MSG_NAME_EXISTS}. {MORAM_CONFIG_MSG_REENTER_NAME}",
                      "{MORAM_CONFIG_MSG_FORMAT_NAME}");
    }
    /// A host format whose key is not its name, as a host may hand it in.
    static void addAstray(const std::string& name, const std::string& key) {
        auto format = std::make_shared<Dataset>();
        format->setName(name);
        g_PartFormats.Add(format, key);
    }
};
ON_EVERY_VIEW(FormatsInMemory);

TEST_P(FormatsInMemory, ACopyOfAFactoryFormatIsTheHosts) {
    openInMemory({"FACTORY"}, [](User& u) {
        act(u, "FACTORY", "btnCopy");
        EXPECT_EQ(available(u), (Names{"FACTORY", "COPY OF FACTORY"}));
        EXPECT_EQ(marked(u), "FACTORY");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selectedNames(u), (Names{"FACTORY"}));
    });
    EXPECT_EQ(hostKeys(), (Names{"COPY OF FACTORY"}));
    EXPECT_EQ(host("COPY OF FACTORY")->Name(), "COPY OF FACTORY");
    EXPECT_EQ(host("COPY OF FACTORY")->Rows(), formatRecord("FACTORY")->Rows());
    EXPECT_EQ(formatFiles(), (Names{"FACTORY.vla"}));
}

TEST_P(FormatsInMemory, ACopyOfAFactoryFormatCanBeRenamedAndDeleted) {
    answerPrompt("mine");
    user().onBox(answer::Yes);
    openInMemory({}, [](User& u) {
        act(u, "FACTORY", "btnCopy");
        act(u, "COPY OF FACTORY", "btnRename");
        EXPECT_EQ(available(u), (Names{"FACTORY", "MINE"}));
        act(u, "MINE", "btnDelete");
        EXPECT_EQ(available(u), (Names{"FACTORY"}));
    });
    EXPECT_TRUE(hostKeys().empty());
}

TEST_P(FormatsInMemory, ACopyOfAHostFormatIsAnObjectOfItsOwn) {
    addHostFormat("mine");
    openInMemory({}, [](User& u) {
        act(u, "mine", "btnCopy");
        EXPECT_EQ(available(u), (Names{"FACTORY", "mine", "COPY OF MINE"}));
        EXPECT_EQ(marked(u), "mine");
    });
    const auto copy = host("COPY OF MINE");
    EXPECT_NE(copy, host("mine"));
    EXPECT_EQ(copy->Name(), "COPY OF MINE");
    EXPECT_EQ(copy->Rows(), host("mine")->Rows());
    EXPECT_EQ(copy->Type(), "PARTFORMAT");
    host("mine")->ClearRows();
    EXPECT_EQ(copy->Rows().size(), 21U);
}

TEST_P(FormatsInMemory, ASecondCopyReplacesTheFirstInWhateverCaseWithoutAQuestion) {
    addHostFormat("copy of Mine");
    addHostFormat("MINE");
    const auto first = host("COPY OF MINE");
    openInMemory({}, [](User& u) {
        act(u, "MINE", "btnCopy");
        EXPECT_EQ(available(u), (Names{"FACTORY", "MINE", "COPY OF MINE"}));
    });
    EXPECT_EQ(hostKeys(), (Names{"MINE", "COPY OF MINE"}));
    EXPECT_NE(host("COPY OF MINE"), first);
    EXPECT_EQ(headerOf(*host("COPY OF MINE")), "head of MINE");
}

TEST_P(FormatsInMemory, AFactoryFormatIsCopiedFromTheStoreEvenIfTheHostHasOneOfItsName) {
    addHostFormat("FACTORY");
    host("FACTORY")->UpdateRow({"Header", ""}, {"Header", "the host's"});
    openInMemory({}, [](User& u) { act(u, "FACTORY", "btnCopy"); });
    EXPECT_EQ(headerOf(*host("COPY OF FACTORY")), "head of FACTORY");
}

TEST_P(FormatsInMemory, ACopyOfANameThatLeadsNowhereIsNone) {
    addAstray("ASTRAY", "OTHER");
    openInMemory({}, [](User& u) {
        act(u, "ASTRAY", "btnCopy");
        EXPECT_EQ(available(u), (Names{"FACTORY", "ASTRAY"}));
        EXPECT_EQ(marked(u), "ASTRAY");
        EXPECT_TRUE(listHasFocus(u));
    });
    EXPECT_EQ(hostKeys(), (Names{"OTHER"}));
}

TEST_P(FormatsInMemory, ACopyOfAMalformedFactoryFormatIsAnEmptyRecordBehindABox) {
    memory->save(ItemPath::item(formatFolder, "BAD"), "<no record");
    user().onBox();
    openInMemory({}, [](User& u) { act(u, "BAD", "btnCopy"); });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailureBox(0, kCopyTag);
    EXPECT_EQ(hostKeys(), (Names{"COPY OF BAD"}));
    EXPECT_EQ(host("COPY OF BAD")->Name(), "COPY OF BAD");
    EXPECT_TRUE(host("COPY OF BAD")->Rows().empty());
}

TEST_P(FormatsInMemory, AFactoryFormatIsNotRenamed) {
    user().onBox();
    openInMemory({"FACTORY"}, [](User& u) {
        act(u, "FACTORY", "btnRename");
        EXPECT_TRUE(u.see("btnRename").focus);
        EXPECT_EQ(marked(u), "FACTORY");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFactoryRefusal(user().boxes()[0]);
    EXPECT_EQ(user().forms(), (Names{"frmMORAMConfig"})) << "refused before the prompt";
}

TEST_P(FormatsInMemory, ARenameReachesTheHostsFormatTheListsAndTheSessionAtOnce) {
    addHostFormat("mine");
    addHostFormat("OTHER");
    const auto object = host("mine");
    answerPrompt("new");
    openInMemory({"OTHER", "mine"}, [](User& u) {
        act(u, "mine", "btnRename");
        EXPECT_EQ(available(u), (Names{"FACTORY", "OTHER", "NEW"}));
        EXPECT_EQ(marked(u), "NEW");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selected(u), (std::vector<SeenRow>{{"OTHER", "OTHER"}, {"mine", "NEW"}}));
        EXPECT_EQ(formatsInMemory(), (Names{"OTHER", "NEW"}));
    });
    EXPECT_EQ(formatsInMemory(), (Names{"OTHER", "NEW"})) << "Cancel takes nothing back";
    EXPECT_EQ(hostKeys(), (Names{"OTHER", "NEW"}));
    EXPECT_EQ(host("NEW"), object);
    EXPECT_EQ(object->Name(), "NEW");
}

TEST_P(FormatsInMemory, ARenameToTheNameOfAFactoryFormatIsRefused) {
    putMore("Tape");
    addHostFormat("MINE");
    user().onBox();
    answerPrompt("TAPE");
    openInMemory({"MINE"}, [](User& u) {
        act(u, "MINE", "btnRename");
        EXPECT_TRUE(u.see("btnRename").focus);
        EXPECT_EQ(selectedNames(u), (Names{"MINE"}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectTakenName(user().boxes()[0], "TAPE");
    EXPECT_EQ(hostKeys(), (Names{"MINE"}));
}

TEST_P(FormatsInMemory, ARenameToTheNameOfAnotherHostFormatIsRefusedInWhateverCase) {
    addHostFormat("MINE");
    addHostFormat("Yours");
    user().onBox();
    answerPrompt("yours");
    openInMemory({"MINE"}, [](User& u) {
        act(u, "MINE", "btnRename");
        EXPECT_TRUE(u.see("btnRename").focus);
        EXPECT_EQ(selectedNames(u), (Names{"MINE"}));
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectTakenName(user().boxes()[0], "YOURS");
    EXPECT_EQ(hostKeys(), (Names{"MINE", "YOURS"}));
    EXPECT_EQ(host("MINE")->Name(), "MINE");
    EXPECT_EQ(formatsInMemory(), (Names{"MINE"}));
}

TEST_P(FormatsInMemory, AHostFormatInLowerCaseCannotTakeItsOwnNameInUpperCase) {
    addHostFormat("mine");
    user().onBox();
    answerPrompt("mine");
    openInMemory({}, [](User& u) { act(u, "mine", "btnRename"); });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectTakenName(user().boxes()[0], "MINE");
    EXPECT_EQ(host("MINE")->Name(), "mine");
}

TEST_P(FormatsInMemory, ForbiddenNamesAreRefusedHereToo) {
    addHostFormat("MINE");
    user().onBox();
    answerPrompt("A.B");
    openInMemory({}, [](User& u) { act(u, "MINE", "btnRename"); });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0],
                  "{MORAM_CONFIG_MSG_INVALID_CHARS}\r\n         \\ / : * ? \" < > | .",
                  "{MORAM_CONFIG_MSG_INVALID_CONFIG}");
    EXPECT_EQ(hostKeys(), (Names{"MINE"}));
}

TEST_P(FormatsInMemory, ARenameOfANameThatLeadsNowhereChangesTheSelectedListAlone) {
    addAstray("ASTRAY", "OTHER");
    answerPrompt("NEW");
    user().onBox();
    openInMemory({"ASTRAY"}, [](User& u) {
        act(u, "ASTRAY", "btnRename");
        EXPECT_EQ(available(u), (Names{"FACTORY", "ASTRAY"}));
        EXPECT_EQ(marked(u), "");
        EXPECT_EQ(selectedNames(u), (Names{"NEW"}));
        EXPECT_TRUE(listHasFocus(u));
    });
    ASSERT_EQ(user().boxes().size(), 1U) << "no row of the new name to mark";
    expectFailureBox(0, kRenameTag);
    EXPECT_EQ(formatsInMemory(), (Names{"ASTRAY"}));
    EXPECT_EQ(host("OTHER")->Name(), "ASTRAY");
}

TEST_P(FormatsInMemory, ABlankAtTheEndOfANewNameStays) {
    addHostFormat("MINE");
    answerPrompt("mine ");
    openInMemory({"MINE"}, [](User& u) {
        act(u, "MINE", "btnRename");
        EXPECT_EQ(marked(u), "MINE ");
    });
    EXPECT_EQ(hostKeys(), (Names{"MINE "}));
    EXPECT_EQ(formatsInMemory(), (Names{"MINE "}));
}

TEST_P(FormatsInMemory, ADeletionAsksFirstAndRefusesAfter) {
    user().onBox(answer::No);
    openInMemory({"FACTORY"}, [](User& u) { act(u, "FACTORY", "btnDelete"); });
    ASSERT_EQ(user().boxes().size(), 1U);
    user().onBox(answer::Yes);
    user().onBox();
    openInMemory({"FACTORY"}, [](User& u) {
        act(u, "FACTORY", "btnDelete");
        EXPECT_TRUE(u.see("btnDelete").focus);
        EXPECT_EQ(marked(u), "FACTORY");
        EXPECT_EQ(selectedNames(u), (Names{"FACTORY"}));
    });
    ASSERT_EQ(user().boxes().size(), 3U);
    EXPECT_EQ(user().boxes()[1].text, "{MORAM_CONFIG_MSG_DELETE_CONFIG}");
    EXPECT_EQ(user().boxes()[1].title, "{MORAM_CONFIG_MSG_ARE_YOU_SURE}");
    EXPECT_EQ(user().boxes()[1].style, 4);
    EXPECT_EQ(user().boxes()[1].okCaption, "");
    expectFactoryRefusal(user().boxes()[2]);
    EXPECT_EQ(formatsInMemory(), (Names{"FACTORY"}));
}

TEST_P(FormatsInMemory, ADeletionAnsweredWithNoChangesNothing) {
    addHostFormat("MINE");
    user().onBox(answer::No);
    openInMemory({"MINE"}, [](User& u) {
        act(u, "MINE", "btnDelete");
        EXPECT_EQ(marked(u), "MINE");
        EXPECT_EQ(selectedNames(u), (Names{"MINE"}));
    });
    EXPECT_EQ(hostKeys(), (Names{"MINE"}));
    EXPECT_EQ(formatsInMemory(), (Names{"MINE"}));
}

TEST_P(FormatsInMemory, ADeletionReachesTheHostTheListsAndTheSessionAtOnce) {
    addHostFormat("MINE");
    user().onBox(answer::Yes);
    openInMemory({"MINE", "FACTORY"}, [](User& u) {
        act(u, "MINE", "btnDelete");
        EXPECT_EQ(available(u), (Names{"FACTORY"}));
        EXPECT_EQ(marked(u), "");
        EXPECT_TRUE(listHasFocus(u));
        EXPECT_EQ(selectedNames(u), (Names{"FACTORY"}));
        EXPECT_EQ(formatsInMemory(), (Names{"FACTORY"}));
    });
    EXPECT_EQ(formatsInMemory(), (Names{"FACTORY"})) << "Cancel takes nothing back";
    EXPECT_EQ(countInMemory(), "1");
    EXPECT_TRUE(hostKeys().empty());
    EXPECT_FALSE(memory->folderExists("/store/PARTFORMAT/deleted"));
}

TEST_P(FormatsInMemory, TheLastFormatMayGoAndAnApplyAsksForOne) {
    addHostFormat("MINE");
    user().onBox(answer::Yes);
    user().onBox();
    openInMemory({"MINE"}, [](User& u) {
        act(u, "MINE", "btnDelete");
        EXPECT_EQ(selectedNames(u), Names{});
        EXPECT_EQ(countInMemory(), "0");
        u.click("btnApply");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectRefusal(user().boxes()[1], "{MORAM_CONFIG_MSG_SELECT_FORMAT}",
                  "{MORAM_CONFIG_MSG_PART_FORMAT}");
}

TEST_P(FormatsInMemory, ADeletionOfANameThatLeadsNowhereIsToldAndGoesOn) {
    addAstray("ASTRAY", "OTHER");
    user().onBox(answer::Yes);
    user().onBox();
    openInMemory({"ASTRAY", "FACTORY"}, [](User& u) {
        act(u, "ASTRAY", "btnDelete");
        EXPECT_EQ(available(u), (Names{"FACTORY", "ASTRAY"}));
        EXPECT_EQ(selectedNames(u), (Names{"FACTORY"}));
        EXPECT_TRUE(listHasFocus(u));
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailureBox(1, kDeleteTag);
    EXPECT_EQ(formatsInMemory(), (Names{"FACTORY"}));
    EXPECT_EQ(hostKeys(), (Names{"OTHER"}));
}

TEST_P(FormatsInMemory, AnEntryOfTheSameNameInOtherLettersIsTheOneThatGoes) {
    addAstray("mine", "MINE");
    user().onBox(answer::Yes);
    openInMemory({"MINE", "mine"}, [](User& u) { act(u, "mine", "btnDelete"); });
    EXPECT_TRUE(hostKeys().empty());
    EXPECT_EQ(formatsInMemory(), (Names{"MINE"}));
}

}  // namespace
}  // namespace wynconfig
