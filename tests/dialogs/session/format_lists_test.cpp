// The lists of part formats: what they show, and how a format moves between them.
#include <memory>

#include "support/failing_views.h"
#include "support/format_desk.h"

namespace wynconfig {
namespace {

class FormatLists : public FormatDesk {
  protected:
    void SetUp() override {
        Desk::SetUp();
        putProgram("/programs/parts.exe");
    }

    static void add(User& u, const std::string& format) {
        u.pick("lstAvailableFormats", format);
        u.click("btnAdd");
    }
    static void remove(User& u, const std::string& format) {
        u.pick("lstSelectedFormats2", format);
        u.click("btnRemove");
    }
};
ON_EVERY_VIEW(FormatLists);

TEST_P(FormatLists, AvailableAreTheItemFilesByUpperCasedNames) {
    putFormat("b");
    putFormat("C");
    putFormat("A");
    memory->save(ItemPath{formatFolder, "D.VLA"}, "");
    memory->save(ItemPath{formatFolder, "notes.txt"}, "");
    memory->makeFolder("/store/PARTFORMAT/deleted");
    memory->makeFolder("/store/PARTFORMAT/Q.vla");
    memory->save(ItemPath{"/store/PARTFORMAT/deleted/", "GONE.vla"}, "");
    open("", [](User& u) { EXPECT_EQ(available(u), (Names{"A", "b", "C", "D"})); });
}

TEST_P(FormatLists, AFileOfTheExtensionAloneIsAFormatWithoutAName) {
    putFormat("CSV");
    putFormat("");
    open("", [](User& u) {
        EXPECT_EQ(available(u), (Names{"", "CSV"}));
        add(u, "");
        EXPECT_EQ(selectedNames(u), (Names{""}));
    });
}

TEST_P(FormatLists, ARowHasItsNameAsKeyAndText) {
    putFormat("CSV");
    putFullSession("DESK", {"CSV"});
    open("DESK", [](User& u) {
        EXPECT_EQ(u.see("lstAvailableFormats").rows, (std::vector<SeenRow>{{"CSV", "CSV"}}));
        EXPECT_EQ(u.see("lstSelectedFormats2").rows, (std::vector<SeenRow>{{"CSV", "CSV"}}));
    });
}

TEST_P(FormatLists, RowsTakeTheFormsFont) {
    texts->font = {"Serif", 14.0, true, false};
    putFormat("CSV");
    putFormat("PLAIN");
    putFullSession("DESK", {"CSV"});
    open("DESK", [this](User& u) {
        add(u, "PLAIN");
        ASSERT_NE(dialog().font(), nullptr);
        EXPECT_EQ(*dialog().font(), texts->font);
        for (const ListView* list :
             {&dialog().formatTab.lstAvailableFormats, &dialog().formatTab.lstSelectedFormats2}) {
            ASSERT_EQ(list->count(), 2U);
            for (const ListRow& row : list->rows()) EXPECT_EQ(row.font, dialog().font());
        }
    });
}

TEST_P(FormatLists, ARowAddedByTheFileWriterDialogTakesNoFont) {
    putFormat("CSV");
    putFormat("PLAIN");
    putFullSession("DESK", {"CSV"});
    open("DESK", [this](User& u) {
        user().onForm("frmTallyvaneConfig", [](User& inner) {
            inner.choose("cboPartFormat", "PLAIN");
            inner.click("btnOk");
        });
        u.changeTab("SSTab2", 0);
        u.click("btnTallyvane");
        EXPECT_EQ(selectedNames(u), (Names{"CSV", "PLAIN"}));
        EXPECT_EQ(dialog().formatTab.lstSelectedFormats2.row(2).font, nullptr);
    });
}

TEST_P(FormatLists, AnEmptyFormatFolderLeavesTheAvailableListHidden) {
    putFullSession("DESK", {"CSV"});
    open("DESK", [](User& u) {
        EXPECT_FALSE(u.see("lstAvailableFormats").visible);
        EXPECT_EQ(available(u), Names{});
        EXPECT_TRUE(u.see("lstSelectedFormats2").visible);
        EXPECT_EQ(selectedNames(u), (Names{"CSV"}));
    });
}

TEST_P(FormatLists, AnEmptyFormatFolderShowsNoFormatsOfTheHostEither) {
    addHostFormat("HOSTED");
    openInMemory({"HOSTED"}, [](User& u) {
        EXPECT_FALSE(u.see("lstAvailableFormats").visible);
        EXPECT_EQ(available(u), Names{});
        EXPECT_EQ(selectedNames(u), (Names{"HOSTED"}));
    });
}

TEST_P(FormatLists, AFolderOfOnlyFoldersCountsAsEmpty) {
    memory->makeFolder("/store/PARTFORMAT/Q.vla");
    open("", [](User& u) { EXPECT_FALSE(u.see("lstAvailableFormats").visible); });
}

TEST_P(FormatLists, FilledListsAreSeenAndNothingIsSelected) {
    putFormat("CSV");
    putFullSession("DESK", {"CSV"});
    open("DESK", [](User& u) {
        EXPECT_TRUE(u.see("lstAvailableFormats").visible);
        EXPECT_TRUE(u.see("lstSelectedFormats2").visible);
        EXPECT_EQ(u.see("lstAvailableFormats").selected, 0U);
        EXPECT_EQ(u.see("lstSelectedFormats2").selected, 0U);
    });
}

TEST_P(FormatLists, OpenedWithoutANameTheSelectedListStaysHidden) {
    putFormat("CSV");
    open("", [](User& u) {
        EXPECT_TRUE(u.see("lstAvailableFormats").visible);
        EXPECT_FALSE(u.see("lstSelectedFormats2").visible);
    });
}

TEST_P(FormatLists, HostFormatsFollowTheFactoryOnesInTheirOrder) {
    putFormat("M");
    putFormat("B");
    addHostFormat("Z");
    addHostFormat("A");
    openInMemory({}, [](User& u) { EXPECT_EQ(available(u), (Names{"B", "M", "Z", "A"})); });
}

TEST_P(FormatLists, AHostFormatOfAFactoryNameCountsOnce) {
    putFormat("B");
    addHostFormat("B");
    addHostFormat("C");
    openInMemory({}, [](User& u) { EXPECT_EQ(available(u), (Names{"B", "C"})); });
}

TEST_P(FormatLists, NamesThatDifferInCaseCountTwice) {
    putFormat("B");
    addHostFormat("b");
    openInMemory({}, [](User& u) { EXPECT_EQ(available(u), (Names{"B", "b"})); });
}

TEST_P(FormatLists, AHostFormatGoesByItsNameNotByItsKey) {
    putFormat("B");
    addHostFormat("NAME", "KEY");
    openInMemory({}, [](User& u) { EXPECT_EQ(available(u), (Names{"B", "NAME"})); });
}

TEST_P(FormatLists, InFileModeTheHostFormatsAreNotLookedAt) {
    putFormat("B");
    addHostFormat("HOSTED");
    open("", [](User& u) { EXPECT_EQ(available(u), (Names{"B"})); });
}

// Moving formats.

TEST_P(FormatLists, AddPutsTheFormatAtTheEndAndKeepsItAvailable) {
    for (const char* name : {"A", "B", "C"}) putFormat(name);
    putFullSession("DESK", {"C"});
    open("DESK", [](User& u) {
        add(u, "B");
        add(u, "A");
        EXPECT_EQ(selectedNames(u), (Names{"C", "B", "A"}));
        EXPECT_EQ(available(u), (Names{"A", "B", "C"}));
        EXPECT_EQ(u.see("lstAvailableFormats").selected, 1U);
    });
}

TEST_P(FormatLists, AddOfAFormatAlreadySelectedChangesNothing) {
    putFormat("A");
    putFullSession("DESK", {"A"});
    open("DESK", [](User& u) {
        add(u, "A");
        add(u, "A");
        EXPECT_EQ(selectedNames(u), (Names{"A"}));
    });
}

TEST_P(FormatLists, AddWithoutASelectionChangesNothing) {
    putFormat("A");
    putFullSession("DESK", {});
    open("DESK", [](User& u) {
        u.click("btnAdd");
        EXPECT_EQ(selectedNames(u), Names{});
    });
}

TEST_P(FormatLists, RemoveTakesTheSelectedRowAlone) {
    putFormat("A");
    putFullSession("DESK", {"A", "B", "C"});
    open("DESK", [](User& u) {
        remove(u, "B");
        EXPECT_EQ(selectedNames(u), (Names{"A", "C"}));
        EXPECT_EQ(available(u), (Names{"A"}));
    });
}

TEST_P(FormatLists, RemoveWithoutASelectionChangesNothing) {
    putFullSession("DESK", {"A", "B"});
    open("DESK", [](User& u) {
        u.click("btnRemove");
        EXPECT_EQ(selectedNames(u), (Names{"A", "B"}));
    });
}

TEST_P(FormatLists, TheLastFormatMayBeRemoved) {
    putFullSession("DESK", {"A"});
    open("DESK", [](User& u) {
        remove(u, "A");
        EXPECT_EQ(selectedNames(u), Names{});
    });
}

TEST_P(FormatLists, ARemovedFormatMayBeAddedAgainAtTheEnd) {
    for (const char* name : {"A", "B"}) putFormat(name);
    putFullSession("DESK", {"A", "B"});
    open("DESK", [](User& u) {
        remove(u, "A");
        add(u, "A");
        EXPECT_EQ(selectedNames(u), (Names{"B", "A"}));
    });
}

TEST_P(FormatLists, ARowWhoseTextWasChangedIsKnownByItsTextToAddAndByItsKeyToRemove) {
    for (const char* name : {"NEW", "OLD"}) putFormat(name);
    putFullSession("DESK", {"OLD"});
    open("DESK", [this](User& u) {
        dialog().formatTab.lstSelectedFormats2.setRowText(1, "NEW");
        add(u, "NEW");
        EXPECT_EQ(u.see("lstSelectedFormats2").rows, (std::vector<SeenRow>{{"OLD", "NEW"}}));
        remove(u, "NEW");
        EXPECT_EQ(selectedNames(u), Names{});
    });
}

TEST_P(FormatLists, AddingTheOldNameOfARowWhoseTextWasChangedIsToldAsAFailure) {
    for (const char* name : {"NEW", "OLD"}) putFormat(name);
    putFullSession("DESK", {"OLD"});
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "UnifrmMORAMConfig:btnAdd_Click")) << box.text;
        EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
        EXPECT_EQ(box.style, 4112);
        return answer::Ok;
    });
    open("DESK", [this](User& u) {
        dialog().formatTab.lstSelectedFormats2.setRowText(1, "NEW");
        add(u, "OLD");
        EXPECT_EQ(u.see("lstSelectedFormats2").rows, (std::vector<SeenRow>{{"OLD", "NEW"}}));
    });
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(FormatLists, NothingIsWrittenBeforeAnApply) {
    putFormat("A");
    putFullSession("DESK", {"B"});
    const std::string before = sessionText("DESK");
    open("DESK", [](User& u) {
        add(u, "A");
        remove(u, "B");
    });
    EXPECT_EQ(sessionText("DESK"), before);
}

TEST_P(FormatLists, AnApplyAfterARemovalMovesTheLaterRowsUp) {
    putFullSession("DESK", {"A", "B", "C"});
    open("DESK", [](User& u) {
        remove(u, "A");
        u.click("btnOK");
    });
    Rows rows = sessionRows("DESK");
    EXPECT_EQ(rows["FormatCount"], "2");
    EXPECT_EQ(rows["FORMAT1"], "B");
    EXPECT_EQ(rows["FORMAT2"], "C");
    EXPECT_FALSE(rows.contains("FORMAT3"));
}

TEST_P(FormatLists, TwoRowsOfOneNameAreWrittenBackAsOne) {
    putFullSession("DESK", {"A", "A"});
    open("DESK", [](User& u) {
        EXPECT_EQ(selectedNames(u), (Names{"A"}));
        u.click("btnOK");
    });
    Rows rows = sessionRows("DESK");
    EXPECT_EQ(rows["FormatCount"], "1");
    EXPECT_EQ(rows["FORMAT1"], "A");
    EXPECT_FALSE(rows.contains("FORMAT2"));
}

TEST_P(FormatLists, AnApplyWritesTheTextsOfTheRows) {
    putFullSession("DESK", {"OLD"});
    open("DESK", [this](User& u) {
        dialog().formatTab.lstSelectedFormats2.setRowText(1, "NEW");
        u.click("btnOK");
    });
    EXPECT_EQ(sessionRows("DESK")["FORMAT1"], "NEW");
}

TEST_P(FormatLists, InMemoryAddAndRemoveTouchTheSessionOnlyAtApply) {
    putFormat("A");
    openInMemory({"B"}, [](User& u) {
        add(u, "A");
        remove(u, "B");
        const Dataset& session = *ConfigGlobalModule::g_Session;
        EXPECT_EQ(session.GetRow("FORMAT1")[1], "B");
        u.changeTab("SSTab2", 0);
        u.type("txtProgramPath", "/programs/parts.exe");
        u.click("btnApply");
        EXPECT_EQ(session.GetRow("FormatCount")[1], "1");
        EXPECT_EQ(session.GetRow("FORMAT1")[1], "A");
    });
}

TEST_P(FormatLists, TheFormatTabCanBeWorkedByTheKeyboard) {
    putFormat("A");
    putFullSession("DESK", {"B"});
    open("DESK", [](User& u) {
        u.pick("lstAvailableFormats", "A");
        u.focus("btnAdd");
        u.pressEnter();
        EXPECT_EQ(selectedNames(u), (Names{"B", "A"}));
    });
}

/// What comes of lists that fail to be painted, which only a view of its own can bring about.
class FormatListFailures : public FormatLists {
  protected:
    void SetUp() override {
        FormatLists::SetUp();
        m_failing = std::make_shared<FailingPaint>();
        installView(m_failing);
        for (const char* name : {"CSV", "PLAIN"}) putFormat(name);
        putFullSession("DESK", {"CSV", "PLAIN"});
    }
    void TearDown() override {
        EXPECT_NO_THROW(m_failing->user().finish());
        FormatLists::TearDown();
    }
    /// Presses a button for a format of a list, while each change of the lists fails.
    /// @return the texts of the boxes that came up
    Names pressWhileFailing(const std::string& list, const std::string& format,
                            const std::string& button, std::size_t boxes) {
        for (std::size_t i = 0; i < boxes; ++i) m_failing->user().onBox(answer::Yes);
        m_failing->user().onForm("frmMORAMConfig", [&](User& u) {
            u.changeTab("SSTab2", 1);
            u.pick(list, format);
            m_failing->failing = "frmMORAMConfig";
            u.click(button);
            m_failing->failing.clear();
            left = selectedNames(u);
            u.click("btnCancel");
        });
        std::string name = "DESK";
        component.showMORAMConfigDlg(name);
        Names told;
        for (const SeenBox& box : m_failing->user().boxes()) told.push_back(box.text);
        return told;
    }
    static std::string told(const std::string& procedure) {
        return failureText("UnifrmMORAMConfig:" + procedure, "no paint");
    }

    Names left;  ///< the selected formats behind it

  private:
    std::shared_ptr<FailingPaint> m_failing;
};
INSTANTIATE_TEST_SUITE_P(Views, FormatListFailures, ::testing::Values("Scripted"));

TEST_P(FormatListFailures, AddTellsTheRowAndTheRefresh) {
    changeSession("DESK", {{"FormatCount", "1"}});
    EXPECT_EQ(pressWhileFailing("lstAvailableFormats", "PLAIN", "btnAdd", 2),
              Names(2, told("btnAdd_Click")));
    EXPECT_EQ(left, (Names{"CSV", "PLAIN"}));
}

TEST_P(FormatListFailures, AddOfAFormatAlreadySelectedDoesNotEvenRefresh) {
    EXPECT_EQ(pressWhileFailing("lstAvailableFormats", "CSV", "btnAdd", 0), Names{});
}

TEST_P(FormatListFailures, RemoveTellsTheRowAndTheRefresh) {
    EXPECT_EQ(pressWhileFailing("lstSelectedFormats2", "CSV", "btnRemove", 2),
              Names(2, told("btnRemove_Click")));
    EXPECT_EQ(left, Names{"PLAIN"});
}

TEST_P(FormatListFailures, DeletionTellsTheSelectedRowByItsOwnTagAndGoesOn) {
    const Names expected{"{MORAM_CONFIG_MSG_DELETE_CONFIG}",  //
                         told("UpdateLstSelectedFormats"),   told("UpdateLstSelectedFormats"),
                         told("loadAvailableFormats"),       told("loadAvailableFormats"),
                         told("loadAvailableFormats")};
    EXPECT_EQ(pressWhileFailing("lstAvailableFormats", "PLAIN", "btnDelete", expected.size()),
              expected)
        << "behind the question: the row and the refresh, then clearing, one row and the refresh";
    EXPECT_EQ(left, Names{"CSV"});
    EXPECT_EQ(formatsOf("DESK"), Names{"CSV"});
}

TEST_P(FormatListFailures, DeletionOfAFormatThatIsNotSelectedDoesNotRefreshTheSelectedOnes) {
    changeSession("DESK", {{"FormatCount", "1"}});
    EXPECT_EQ(pressWhileFailing("lstAvailableFormats", "PLAIN", "btnDelete", 4),
              (Names{"{MORAM_CONFIG_MSG_DELETE_CONFIG}", told("loadAvailableFormats"),
                     told("loadAvailableFormats"), told("loadAvailableFormats")}));
    EXPECT_EQ(left, Names{"CSV"});
}

}  // namespace
}  // namespace wynconfig
