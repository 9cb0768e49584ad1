// The two modes side by side, as a host sees them through the operations: what each step of the
// dialogs reads and writes, and how the in-memory mode clings to the operations after it.
#include "support/exchange_desk.h"
#include "support/session_keys.h"

namespace wynconfig {
namespace {

using ConfigGlobalModule::g_DatasetMode;

/// The store holds the formats "CSV" and "TSV" and the sessions "BASE" and "MINE"; the host's
/// session bears the name "HOSTS".
class ExchangeModes : public ExchangeDesk {
  protected:
    void SetUp() override {
        ExchangeDesk::SetUp();
        putFullFormat("CSV");
        putFullFormat("TSV");
        putFullSession("BASE", {"CSV", "TSV"});
        putFullSession("MINE", {"CSV"});
        name = "hosts";
    }
    /// Opens the host's session, with the host's format "TAPE" selected.
    long exchangeTape(User::Script script) {
        return exchange(sessionXml("HOSTS", {"TAPE"}), {formatXml("TAPE")}, std::move(script));
    }
    /// Opens "MINE" by the plain operation.
    long openPlain(User::Script script) {
        user().onForm("frmMORAMConfig", std::move(script));
        name = "mine";
        return component.showMORAMConfigDlg(name);
    }
    /// Begins the in-memory mode on the host's session, and leaves it there.
    void beginMemory() {
        exchangeTape(pressing("btnCancel"));
        ASSERT_TRUE(g_DatasetMode);
    }
    /// The person gives the format a name; where that is refused, cancels.
    void announceEditor(const std::string& typedName, bool isRefused = false) {
        user().onForm("frmPartNumberFormat", [=](User& u) {
            u.type("txtFormatName", typedName);
            u.type("txtMaxRecords", "5");
            u.click("btnOk");
            if (isRefused) u.click("btnCancel");
        });
    }
    void announcePrompt(const std::string& text) {
        user().onForm("dlgSingleEntry", [text](User& u) {
            u.type("txtTextBox", text);
            u.click("OKButton");
        });
    }
    void expectNothingInMemory() {
        EXPECT_EQ(component.GetDatasetSessionData(), xmlOf(Dataset()));
        EXPECT_EQ(component.GetDatasetFormatsData(), kNoFormats);
    }
};
ON_EVERY_VIEW(ExchangeModes);

// Opening a session.

TEST_P(ExchangeModes, OpeningInMemoryReadsNoFile) {
    name = "mine";
    const auto script = [](User& u) {
        EXPECT_EQ(u.see("txtCommandLineArgs").text, "/from the host");
        u.click("btnCancel");
    };
    const auto session = recordIn(sessionXml("MINE", {"CSV"}));
    session->UpdateRow({"CommandLineArgs", ""}, {"CommandLineArgs", "/from the host"});
    exchange(xmlOf(*session), {}, script);
    EXPECT_EQ(reads(), 0U);
}

TEST_P(ExchangeModes, OpeningInFileModeReadsTheFileAndLeavesMemoryAlone) {
    EXPECT_EQ(openPlain([](User& u) {
                  EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet");
                  u.click("btnOK");
              }),
              0);
    expectNothingInMemory();
}

// The list of formats.

TEST_P(ExchangeModes, TheListHoldsTheStoresFormatsAndInMemoryTheHostsBehindThem) {
    beginMemory();
    exchange(sessionXml("HOSTS", {"TAPE"}), {formatXml("TAPE"), formatXml("ALPHA")},
             onFormatTab([](User& u) {
                 EXPECT_EQ(available(u), (Names{"CSV", "TSV", "TAPE", "ALPHA"}));
             }));
    g_DatasetMode = false;
    openPlain(onFormatTab([](User& u) { EXPECT_EQ(available(u), (Names{"CSV", "TSV"})); }));
}

TEST_P(ExchangeModes, TheListStaysEmptyWhileTheFolderHoldsNoItem) {
    for (const std::string file : {"CSV", "TSV"})
        memory->remove(ItemPath::item(formatFolder, file));
    const auto script = [](User& u) {
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(available(u), Names{});
        EXPECT_FALSE(u.see("lstAvailableFormats").visible);
        EXPECT_EQ(selectedNames(u), (Names{"TAPE"}));
        u.click("btnNew");
        EXPECT_EQ(available(u), Names{}) << "nor does a new one bring it to life";
        u.click("btnOK");
    };
    announceEditor("fresh");
    EXPECT_EQ(exchangeTape(script), 0);
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "FRESH"}));
    EXPECT_TRUE(user().boxes().empty());
}

// Applying a session.

TEST_P(ExchangeModes, ApplyingInMemoryChangesTheRecordAndBringsInTheFactoryFormats) {
    const std::string before = sessionText("MINE");
    EXPECT_EQ(exchange(sessionXml("HOSTS", {"TSV", "TAPE", "CSV"}), {formatXml("TAPE")},
                       [](User& u) {
                           u.tick("chkReverseList");
                           u.click("btnOK");
                       }),
              0);
    EXPECT_EQ(rowsBack()["ReverseList"], "true");
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "TSV", "CSV"}));
    EXPECT_EQ(sessionText("MINE"), before);
    EXPECT_EQ(sessionFiles(), (Names{"BASE.vla", "MINE.vla"}));
}

TEST_P(ExchangeModes, ApplyingInFileModeWritesTheFileAndNothingIntoMemory) {
    EXPECT_EQ(openPlain([](User& u) {
                  u.tick("chkReverseList");
                  u.click("btnOK");
              }),
              0);
    EXPECT_EQ(sessionRows("MINE")["ReverseList"], "true");
    expectNothingInMemory();
}

// Advanced and file-writer settings.

TEST_P(ExchangeModes, TheTwoSubDialogsInMemoryChangeTheRecordAlone) {
    user().onForm("dlgAdvConfig", [](User& u) {
        u.type("txtWindowTitle", "Parts Bench");
        u.click("OKButton");
    });
    user().onForm("frmTallyvaneConfig", [](User& u) {
        EXPECT_EQ(u.see("cboPartFormat").rowTexts(), (Names{kNoneRow, "CSV", "TSV", "TAPE"}));
        u.choose("cboPartFormat", "TAPE");
        u.type("txtFileName", "bench.txt");
        u.click("btnOk");
    });
    EXPECT_EQ(exchangeTape([](User& u) {
                  u.click("btnAdvanced");
                  u.click("btnTallyvane");
                  u.click("btnCancel");
              }),
              1);
    EXPECT_EQ(rowsBack()["WindowTitle"], "Parts Bench") << "at the OK of the sub-dialog";
    EXPECT_EQ(rowsBack()["FileName"], "bench.txt");
    EXPECT_EQ(rowsBack()["PartFormat"], "TAPE");
    EXPECT_FALSE(sessionExists("HOSTS"));
}

TEST_P(ExchangeModes, TheTwoSubDialogsInFileModeWriteTheFile) {
    user().onForm("dlgAdvConfig", [](User& u) {
        u.type("txtWindowTitle", "Parts Bench");
        u.click("OKButton");
    });
    openPlain([](User& u) {
        u.click("btnAdvanced");
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionRows("MINE")["WindowTitle"], "Parts Bench");
    expectNothingInMemory();
}

// Opening and saving a part format.

TEST_P(ExchangeModes, TheEditorInMemoryWorksOnTheHostsFormat) {
    user().onForm("frmPartNumberFormat", [](User& u) {
        EXPECT_EQ(u.see("txtHeader").text, "head of TAPE");
        u.type("txtHeader", "new head");
        u.click("btnOk");
    });
    exchangeTape([](User& u) {
        u.changeTab("SSTab2", 1);
        act(u, "TAPE", "btnEdit");
        u.click("btnCancel");
    });
    EXPECT_EQ(headerOf(*formatBack(0)), "new head");
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "TSV.vla"}));
}

TEST_P(ExchangeModes, TheEditorInFileModeWorksOnTheFile) {
    user().onForm("frmPartNumberFormat", [](User& u) {
        EXPECT_EQ(u.see("txtHeader").text, "head of CSV");
        u.type("txtHeader", "new head");
        u.click("btnOk");
    });
    openPlain(onFormatTab([](User& u) { act(u, "CSV", "btnEdit"); }));
    EXPECT_EQ(headerOf(*formatRecord("CSV")), "new head");
    expectNothingInMemory();
}

TEST_P(ExchangeModes, ARenameInTheEditorInMemoryMovesTheFormatToTheEnd) {
    announceEditor("reel");
    const auto script = onFormatTab([](User& u) {
        act(u, "TAPE", "btnEdit");
        EXPECT_EQ(available(u), (Names{"CSV", "TSV", "LAST", "REEL"}));
        EXPECT_EQ(selectedNames(u), (Names{"REEL"}));
        EXPECT_EQ(formatsInMemory(), (Names{"TAPE"})) << "until the next Apply";
    });
    exchange(sessionXml("HOSTS", {"TAPE"}), {formatXml("TAPE"), formatXml("LAST")}, script);
    EXPECT_EQ(formatsBack(), (Names{"LAST", "REEL"}));
    EXPECT_EQ(formatsOf(*sessionBack()), (Names{"REEL"}));
}

TEST_P(ExchangeModes, ANewFormatInMemoryMustBeFreeInTheStoreAndAtTheHost) {
    announceEditor("csv", true);
    announceEditor("tape", true);
    announceEditor("fresh");
    user().onBox();
    user().onBox();
    exchangeTape(onFormatTab([](User& u) {
        for (int i = 0; i < 3; ++i) u.click("btnNew");
    }));
    ASSERT_EQ(user().boxes().size(), 2U);
    const std::string ending = ". {MORAM_CONFIG_MSG_REENTER_NAME}";
    expectRefusal(user().boxes()[0], "{MORAM_CONFIG_MSG_NAME_EXISTS}: CSV" + ending,
                  "{MORAM_CONFIG_MSG_PART_FORMAT}");
    expectRefusal(user().boxes()[1], "{MORAM_CONFIG_MSG_NAME_EXISTS}: TAPE" + ending,
                  "{MORAM_CONFIG_MSG_PART_FORMAT}");
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "FRESH"}));
    EXPECT_EQ(formatBack(1)->Rows().size(), 21U);
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "TSV.vla"}));
}

TEST_P(ExchangeModes, ANewFormatInFileModeIsAFile) {
    announceEditor("fresh");
    openPlain(onFormatTab([](User& u) { u.click("btnNew"); }));
    EXPECT_EQ(formatFiles(), (Names{"CSV.vla", "FRESH.vla", "TSV.vla"}));
    expectNothingInMemory();
}

// Copying, renaming and deleting part formats.

TEST_P(ExchangeModes, CopyRenameAndDeleteInMemoryStayInMemoryAndVisitNoSession) {
    announcePrompt("reel");
    user().onBox(answer::Yes);
    const auto script = [this](User& u) {
        u.changeTab("SSTab2", 1);
        const std::size_t before = reads();
        act(u, "TAPE", "btnCopy");
        act(u, "TAPE", "btnRename");
        act(u, "COPY OF TAPE", "btnDelete");
        EXPECT_EQ(reads(), before) << "no session file is looked at";
        u.click("btnCancel");
    };
    exchangeTape(script);
    EXPECT_EQ(formatsBack(), (Names{"REEL"}));
    EXPECT_EQ(formatsOf(*sessionBack()), (Names{"REEL"})) << "Cancel takes nothing back";
}

TEST_P(ExchangeModes, AFactoryFormatIsNeitherEditedNorRenamedNorDeletedInMemory) {
    user().onBox();
    user().onBox();
    user().onBox(answer::Yes);
    user().onBox();
    exchangeTape(onFormatTab([](User& u) {
        act(u, "CSV", "btnEdit");
        act(u, "CSV", "btnRename");
        act(u, "CSV", "btnDelete");
        EXPECT_EQ(available(u), (Names{"CSV", "TSV", "TAPE"}));
    }));
    ASSERT_EQ(user().boxes().size(), 4U);
    for (const std::size_t box : {0U, 1U, 3U})
        expectRefusal(user().boxes()[box], "{MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS}",
                      "{MORAM_CONFIG_MSG_ERROR}");
    EXPECT_EQ(user().forms(), (Names{"frmMORAMConfig"}));
}

TEST_P(ExchangeModes, CopyRenameAndDeleteInFileModeChangeFilesAndAllSessions) {
    announcePrompt("reel");
    user().onBox(answer::Yes);
    openPlain(onFormatTab([](User& u) {
        act(u, "CSV", "btnCopy");
        act(u, "CSV", "btnRename");
        act(u, "TSV", "btnDelete");
    }));
    EXPECT_EQ(formatFiles(), (Names{"COPY OF CSV.vla", "REEL.vla"}));
    EXPECT_EQ(formatsOf("BASE"), (Names{"REEL"}));
    EXPECT_EQ(formatsOf("MINE"), (Names{"REEL"}));
    expectNothingInMemory();
}

// How the mode clings.

TEST_P(ExchangeModes, APlainOpeningAfterAnExchangeLoadsTheFileAnswersZeroAndSavesNothing) {
    beginMemory();
    const std::string hosts = component.GetDatasetSessionData();
    const std::string before = sessionText("MINE");
    disk.resetCounts();
    EXPECT_EQ(openPlain([](User& u) {
                  EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet");
                  u.type("txtCommandLineArgs", "/lost");
                  u.click("btnOK");
              }),
              0);
    EXPECT_EQ(name, "MINE");
    expectNothingWritten();
    EXPECT_EQ(sessionText("MINE"), before);
    EXPECT_EQ(component.GetDatasetSessionData(), hosts) << "the dialog has a record of its own";
    EXPECT_EQ(formatsBack(), (Names{"TAPE", "CSV"})) << "the selected factory format came in";
    EXPECT_TRUE(g_DatasetMode);
}

TEST_P(ExchangeModes, APlainOpeningAfterAnExchangeListsTheHostsFormatsToo) {
    beginMemory();
    openPlain(onFormatTab([](User& u) {
        EXPECT_EQ(available(u), (Names{"CSV", "TSV", "TAPE"}));
        act(u, "TAPE", "btnAdd");
    }));
    EXPECT_EQ(formatsOf("MINE"), (Names{"CSV"}));
}

TEST_P(ExchangeModes, APlainOpeningAfterAnExchangeProtectsTheSessionsName) {
    beginMemory();
    user().onBox();
    EXPECT_EQ(openPlain([](User& u) {
                  u.type("txtDisplayName", "other");
                  u.click("btnOK");
                  u.click("btnCancel");
              }),
              1);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0], "{MORAM_CONFIG_MSG_CANNOT_MODIFY_FACTORY_DEFAULTS}",
                  "{MORAM_CONFIG_MSG_ERROR}");
    EXPECT_EQ(sessionFiles(), (Names{"BASE.vla", "MINE.vla"}));
}

TEST_P(ExchangeModes, AddingInFileModeEndsTheModeForTheOpeningsAfterIt) {
    beginMemory();
    user().onForm("frmAddMORAMConfig", pressing("btnCancel"));
    component.showAddMORAMConfigDlg(name);
    EXPECT_FALSE(g_DatasetMode);
    EXPECT_EQ(openPlain([](User& u) {
                  u.type("txtCommandLineArgs", "/kept");
                  u.click("btnOK");
              }),
              0);
    EXPECT_EQ(sessionRows("MINE")["CommandLineArgs"], "/kept");
    EXPECT_EQ(formatsBack(), (Names{"TAPE"})) << "what is in memory stays there";
}

TEST_P(ExchangeModes, OnlyAddingInFileModeEndsTheMode) {
    beginMemory();
    user().onForm("frmMORAMMaintenance", pressing("btnCancel"));
    component.showMORAMMaintenanceDlg(name);
    user().onForm("frmSessionManager", pressing("btnCancel"));
    component.showSessionManagerDlg("MINE");
    user().onForm("frmSessionManager", pressing("btnCancel"));
    component.showConfigurableSessionManagerDlg("MINE");
    component.MigrateSession("/store/", "BASE");
    component.GetDatasetSessionData();
    component.GetDatasetFormatsData();
    component.InitResourceManager(texts);
    component.init("/store/");
    user().onForm("frmAddMORAMConfig", pressing("btnCancel"));
    component.showAddMORAMConfigDlgEX(name);
    EXPECT_TRUE(g_DatasetMode);
}

TEST_P(ExchangeModes, ARefusedExchangeBeginsTheModeAllTheSame) {
    user().onBox();
    EXPECT_EQ(refused("no xml", {}), 1);
    EXPECT_TRUE(g_DatasetMode);
    const std::string before = sessionText("MINE");
    EXPECT_EQ(openPlain([](User& u) {
                  u.type("txtCommandLineArgs", "/lost");
                  u.click("btnOK");
              }),
              0);
    EXPECT_EQ(sessionText("MINE"), before);
}

TEST_P(ExchangeModes, NewInTheMaintenanceDialogEndsTheModeMidway) {
    beginMemory();
    const auto editing = [](const std::string& line) {
        return [line](User& u) {
            u.type("txtCommandLineArgs", line);
            u.click("btnOK");
        };
    };
    user().onForm("frmMORAMConfig", editing("/lost"));
    user().onForm("frmMORAMConfig", editing("/kept"));
    user().onForm("frmAddMORAMConfig", pressing("btnCancel"));
    const std::string before = sessionText("MINE");
    user().onForm("frmMORAMMaintenance", [&](User& u) {
        u.pick("lstAvailableMORAMs2", "MINE");
        u.click("btnEdit");
        EXPECT_EQ(sessionText("MINE"), before) << "still in memory";
        u.click("btnNew");
        EXPECT_FALSE(g_DatasetMode);
        u.pick("lstAvailableMORAMs2", "MINE");
        u.click("btnEdit");
        EXPECT_EQ(sessionRows("MINE")["CommandLineArgs"], "/kept");
        u.click("btnCancel");
    });
    EXPECT_EQ(component.showMORAMMaintenanceDlg(name), 1);
}

TEST_P(ExchangeModes, DeletingInTheMaintenanceDialogMovesTheFileInEitherMode) {
    beginMemory();
    user().onBox(answer::Yes);
    user().onForm("frmMORAMMaintenance", [](User& u) {
        u.pick("lstAvailableMORAMs2", "MINE");
        u.click("btnDelete");
        u.click("btnCancel");
    });
    component.showMORAMMaintenanceDlg(name);
    EXPECT_EQ(sessionFiles(), (Names{"BASE.vla"}));
    EXPECT_EQ(memory->listItems(sessionFolder + "deleted\\"), (Names{"MINE.vla"}));
}

TEST_P(ExchangeModes, EditingFromTheSessionManagerAfterAnExchangeSavesNothing) {
    beginMemory();
    const std::string before = sessionText("MINE");
    user().onForm("frmMORAMConfig", [](User& u) {
        u.type("txtCommandLineArgs", "/lost");
        u.click("btnOK");
    });
    user().onForm("frmSessionManager", [](User& u) {
        u.pick("lstAvailableTESessions", "MINE");
        u.click("btnEdit");
        EXPECT_EQ(u.see("lstAvailableTESessions").rowTexts(), (Names{"BASE", "MINE"}));
        u.click("btnOK");
    });
    disk.resetCounts();
    EXPECT_EQ(component.showConfigurableSessionManagerDlg("BASE,MINE"), "BASE,MINE");
    expectNothingWritten();
    EXPECT_EQ(sessionText("MINE"), before);
}

TEST_P(ExchangeModes, AddingInFileModeWithinAnExchangeTurnsItsDialogToFiles) {
    user().onForm("frmAddMORAMConfig", pressing("btnCancel"));
    user().onForm("frmMORAMConfig", [](User& u) {
        std::string other;
        WYNConfig().showAddMORAMConfigDlg(other);
        EXPECT_FALSE(g_DatasetMode);
        u.click("btnOK");
    });
    EXPECT_EQ(
        component.showMORAMConfigDlgEX(name, sessionXml("HOSTS", {"TAPE"}), {formatXml("TAPE")}),
        0);
    EXPECT_TRUE(sessionExists("HOSTS")) << "OK asks for the mode at the press";
    EXPECT_EQ(sessionRows("HOSTS")["FORMAT1"], "TAPE");
}

}  // namespace
}  // namespace wynconfig
