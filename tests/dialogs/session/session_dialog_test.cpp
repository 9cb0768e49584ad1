// The session dialog itself: opening, captions, tabs, its fixed size, and browsing for a program.
#include <fstream>
#include <set>

#include "support/caption_tables.h"
#include "support/file_system_kit.h"
#include "support/session_dialog_desk.h"
#include "wynconfig/error.h"
#include "wynconfig/view.h"

namespace wynconfig {
namespace {

const Names kLaunchStops{
    "txtCommandLineArgs", "txtDisplayName", "txtProgramPath", "rdoBottom",      "rdoLeft",
    "rdoRight",           "rdoTop",         "chkAutoResize",  "chkReverseList", "btnBrowseFile",
    "btnAdvanced",        "btnTallyvane"};
const Names kFormatStops{"btnAdd", "btnCopy",   "btnDelete", "btnEdit",
                         "btnNew", "btnRemove", "btnRename"};

/// A program on the real disk, where a browse dialog looks for it.
class RealProgram {
  public:
    RealProgram() : m_path((m_folder / "My Parts.exe").make_preferred().string()) {
        std::ofstream(m_path) << "program";
    }
    const std::string& path() const { return m_path; }

  private:
    TemporaryFolder m_folder;
    std::string m_path;
};

/// A view whose browse dialog fails.
class NoBrowsing : public View {
  public:
    std::vector<MessageRequest> boxes;

    void showModal(Form&) override {}
    int showMessage(const MessageRequest& box) override {
        boxes.push_back(box);
        return answer::Ok;
    }
    std::string browse(const BrowseRequest&) override {
        throw Error(errc::InvalidCall, "nothing to browse");
    }
    void raise(Form&, bool) override {}
    long deviceContext(Form&) override { return 0; }
};

/// A view that remembers which windows were raised, and how.
class RaisingView : public View {
  public:
    std::vector<std::pair<std::string, bool>> raised;

    void showModal(Form&) override {}
    int showMessage(const MessageRequest&) override { return answer::Ok; }
    std::string browse(const BrowseRequest&) override { return {}; }
    void raise(Form& form, bool topMost) override {
        raised.emplace_back(std::string(form.name()), topMost);
    }
    long deviceContext(Form&) override { return 0; }
};

class SessionDialog : public FullSessionDesk {
  protected:
    void expectStops(User& u, const Names& controls, bool stops) {
        for (const std::string& each : controls) EXPECT_EQ(u.see(each).tabStop, stops) << each;
    }
    void expectDefaults(User& u) {
        for (const KeyedText& row : kSessionTexts)
            EXPECT_EQ(captionSeenAt(u, row.place), row.byDefault) << row.place;
        EXPECT_EQ(dialog().CommonDialog.caption(), "Select an application");
    }
};
ON_EVERY_VIEW(SessionDialog);

// Opening.

TEST_P(SessionDialog, AnEmptyNameOpensOnNothingButTheFormats) {
    open("", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        EXPECT_EQ(u.see("txtProgramPath").text, "");
        EXPECT_EQ(u.see("txtCommandLineArgs").text, "");
        EXPECT_TRUE(u.see("chkAutoResize").value);
        EXPECT_FALSE(u.see("chkReverseList").value);
        for (const char* option : {"rdoTop", "rdoBottom", "rdoLeft", "rdoRight"})
            EXPECT_FALSE(u.see(option).value) << option;
        EXPECT_TRUE(u.canUse("txtProgramPath"));
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lstAvailableFormats").rowTexts(), (Names{"CSV"}));
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), Names{});
    });
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(sessionName(), "");
}

TEST_P(SessionDialog, AnEmptyNameOpensOnNothingThoughAFileHasOne) {
    putFullSession("", {"CSV"});
    open("", [](User& u) {
        EXPECT_EQ(u.see("txtProgramPath").text, "");
        EXPECT_FALSE(u.see("rdoBottom").value);
    });
}

TEST_P(SessionDialog, AMissingFileOpensOnEmptyFieldsAndUnfilledLists) {
    open("GONE", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        EXPECT_EQ(u.see("txtProgramPath").text, "");
        EXPECT_FALSE(u.see("chkAutoResize").value);
        EXPECT_FALSE(u.see("chkReverseList").value);
        for (const char* option : {"rdoTop", "rdoBottom", "rdoLeft", "rdoRight"})
            EXPECT_FALSE(u.see(option).value) << option;
        u.changeTab("SSTab2", 1);
        for (const char* list : {"lstAvailableFormats", "lstSelectedFormats2"}) {
            EXPECT_EQ(u.see(list).rowTexts(), Names{});
            EXPECT_FALSE(u.see(list).visible);
        }
    });
    EXPECT_EQ(result(), 1);
    EXPECT_EQ(sessionName(), "GONE");
}

TEST_P(SessionDialog, ANameThatWouldLeaveTheFolderIsNotFound) {
    for (const char* name : {"..\\PARTFORMAT\\CSV", "/store/MORAM/DESK"}) {
        open(name, [](User& u) { EXPECT_EQ(u.see("txtDisplayName").text, ""); });
    }
}

TEST_P(SessionDialog, AFolderInTheFilesPlaceCountsAsMissing) {
    memory->makeFolder("/store/MORAM/Q.vla");
    open("Q", [](User& u) { EXPECT_EQ(u.see("txtDisplayName").text, ""); });
}

TEST_P(SessionDialog, TheNameBoxShowsTheNameAsPassed) {
    open("desk", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "desk");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
    });
    EXPECT_EQ(sessionName(), "desk");
}

TEST_P(SessionDialog, TheListedSpellingIsTheOneThatIsLoaded) {
    putFullSession("bench", {"CSV"});
    open("BENCH", [](User& u) { EXPECT_EQ(u.see("txtCommandLineArgs").text, "/list /quiet"); });
}

TEST_P(SessionDialog, AFileThatIsNoRecordIsToldAndTheDialogOpensOnDefaults) {
    memory->save(ItemPath::item(sessionFolder, "DESK"), "<broken");
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "UnifrmMORAMConfig:init")) << box.text;
        EXPECT_EQ(box.title, "{GLOBAL_MOD_UNEXPECTED}");
        EXPECT_EQ(box.style, 4112);
        EXPECT_EQ(box.okCaption, "{BUTTON_OK}");
        return answer::Ok;
    });
    open("DESK", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "DESK");
        EXPECT_EQ(u.see("txtProgramPath").text, "");
        EXPECT_TRUE(u.see("chkReverseList").value);
        EXPECT_TRUE(u.see("chkAutoResize").value);
        EXPECT_TRUE(u.see("rdoTop").value);
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lstAvailableFormats").rowTexts(), (Names{"CSV"}));
        EXPECT_TRUE(u.see("lstSelectedFormats2").visible);
    });
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(SessionDialog, AFileThatCannotBeReadIsTold) {
    disk.failOn(FaultyFileSystem::Operation::Read, "DESK.vla");
    user().onBox([](const SeenBox& box) {
        EXPECT_TRUE(isFailureOf(box.text, "UnifrmMORAMConfig:init")) << box.text;
        return answer::Ok;
    });
    open("DESK", [](User& u) { EXPECT_EQ(u.see("txtDisplayName").text, "DESK"); });
}

TEST_P(SessionDialog, InMemoryTheHostsRecordIsSharedAndNoFileIsLookedAt) {
    ConfigGlobalModule::g_Session = std::make_shared<Dataset>();
    ConfigGlobalModule::g_Session->AddRow({"ProgramPath", "/hosted.exe"});
    disk.resetCounts();
    openHeld("DESK", [this](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "DESK");
        EXPECT_EQ(u.see("txtProgramPath").text, "/hosted.exe");
        EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Read), 0U);
    });
    EXPECT_EQ(sessionName(), "DESK");
    EXPECT_EQ(result(), 1);
}

TEST_P(SessionDialog, InMemoryAnEmptyNameOpensTheRecordAllTheSame) {
    ConfigGlobalModule::g_Session = std::make_shared<Dataset>();
    ConfigGlobalModule::g_Session->AddRow({"ProgramPath", "/hosted.exe"});
    openHeld("", [](User& u) {
        EXPECT_EQ(u.see("txtDisplayName").text, "");
        EXPECT_EQ(u.see("txtProgramPath").text, "/hosted.exe");
        EXPECT_EQ(u.see("txtCommandLineArgs").text, "/hosted.exe");
    });
}

TEST_P(SessionDialog, InMemoryAMissingRecordIsTold) {
    ConfigGlobalModule::g_Session = nullptr;
    user().onBox([](const SeenBox& box) {
        EXPECT_EQ(box.text, failureText("UnifrmMORAMConfig:initEX", "plConfigSession is null"));
        EXPECT_EQ(box.style, 4112);
        return answer::Ok;
    });
    openHeld("DESK", [](User& u) { EXPECT_EQ(u.see("txtDisplayName").text, ""); });
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(SessionDialog, OpeningAnotherSessionStartsAfresh) {
    putSession("BARE", {});
    frmMORAMConfig twice;
    twice.init("DESK");
    twice.init("BARE");
    EXPECT_EQ(twice.SessionName(), "BARE");
    EXPECT_EQ(twice.txtDisplayName.text(), "BARE");
    EXPECT_EQ(twice.formatTab.lstSelectedFormats2.count(), 0U);
    EXPECT_TRUE(twice.chkReverseList.value());
}

TEST_P(SessionDialog, AFailedOpeningShowsNothingOfTheSessionOpenedBefore) {
    memory->save(ItemPath::item(sessionFolder, "BROKEN"), "<broken");
    user().onBox();
    frmMORAMConfig twice;
    twice.init("DESK");
    EXPECT_FALSE(twice.chkReverseList.value());
    twice.init("BROKEN");
    EXPECT_TRUE(twice.chkReverseList.value());
    EXPECT_TRUE(twice.rdoTop.value());
    EXPECT_EQ(twice.formatTab.lstSelectedFormats2.count(), 0U);
}

TEST_P(SessionDialog, OpensOnTheLaunchTabWithTheFocusOnTheName) {
    open("DESK", [](User& u) {
        EXPECT_EQ(u.see("SSTab2").selected, 1U);
        EXPECT_TRUE(u.see("txtDisplayName").focus);
    });
}

TEST_P(SessionDialog, LoadingRaisesTheWindowOnceAndLeavesItAnOrdinaryOne) {
    auto view = std::make_shared<RaisingView>();
    installView(view);
    frmMORAMConfig form;
    form.init("DESK");
    EXPECT_EQ(view->raised, (std::vector<std::pair<std::string, bool>>{{"frmMORAMConfig", true},
                                                                       {"frmMORAMConfig", false}}));
    EXPECT_TRUE(form.loaded());
    EXPECT_FALSE(form.visible());
}

TEST_P(SessionDialog, EscapeCancels) {
    open("DESK", [](User& u) { u.pressEscape(); });
    EXPECT_EQ(result(), 1);
}

TEST_P(SessionDialog, ClosingByTheFrameLeavesOne) {
    open("DESK", [](User& u) { u.closeByFrame(); });
    EXPECT_EQ(result(), 1);
}

// Captions.

TEST_P(SessionDialog, EveryCaptionComesFromItsKey) {
    open("DESK", [this](User& u) {
        for (const KeyedText& row : kSessionTexts)
            EXPECT_EQ(captionSeenAt(u, row.place), "{" + row.key + "}") << row.place;
        EXPECT_EQ(dialog().CommonDialog.caption(), "");
    });
}

TEST_P(SessionDialog, FixedCaptionsHaveNoKey) {
    for (const bool failing : {false, true}) {
        texts->failing = failing;
        open("DESK", [](User& u) {
            EXPECT_EQ(u.see("btnAdd").caption, ">");
            EXPECT_EQ(u.see("btnRemove").caption, "<");
            EXPECT_EQ(u.see("frmPartFormat").caption, "");
        });
    }
}

TEST_P(SessionDialog, OneFailingKeyGivesAllCaptionsTheirDefaults) {
    for (const KeyedText& failing : kSessionTexts) {
        SCOPED_TRACE(failing.key);
        texts->missing = {failing.key};
        open("DESK", [this](User& u) { expectDefaults(u); });
    }
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SessionDialog, WithoutAResourceManagerAllCaptionsAreDefaults) {
    component.InitResourceManager(nullptr);
    open("DESK", [this](User& u) { expectDefaults(u); });
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SessionDialog, AnEmptyTextIsShownAsItIs) {
    texts->texts["MORAM_CONFIG_LBL_PATH"] = "";
    open("DESK", [](User& u) {
        EXPECT_EQ(u.see("lblPath").caption, "");
        EXPECT_EQ(u.see("lblCmdLine").caption, "{MORAM_CONFIG_LBL_CMDLINE}");
    });
}

TEST_P(SessionDialog, TheButtonOfItsBoxesBearsTheKeyedTextOrElseOk) {
    for (const auto& [missing, expected] : std::map<std::string, std::string>{
             {"", "{BUTTON_OK}"}, {"BUTTON_OK", "Ok"}, {"MORAM_CONFIG_TITLE", "Ok"}}) {
        texts->missing = {missing};
        user().onBox([expected = expected](const SeenBox& box) {
            EXPECT_EQ(box.okCaption, expected);
            return answer::Ok;
        });
        open("DESK", [](User& u) {
            u.type("txtDisplayName", "");
            u.click("btnApply");
        });
    }
}

TEST_P(SessionDialog, ColumnHeadingsKeepTheDesignCaptionsOfTheLabels) {
    open("DESK", [this](User&) {
        for (const auto& [list, heading] : std::map<const ListView*, std::string>{
                 {&dialog().formatTab.lstAvailableFormats, "Available Part Formats"},
                 {&dialog().formatTab.lstSelectedFormats2, "Selected Part Formats"}}) {
            ASSERT_EQ(list->columns().size(), 1U);
            EXPECT_EQ(list->columns()[0].key, "NAME");
            EXPECT_EQ(list->columns()[0].text, heading);
            EXPECT_EQ(list->columns()[0].width, 3200);
            EXPECT_EQ(list->columns()[0].tag, "Stores the name of the item");
            EXPECT_EQ(list->background(), Background::Window);
        }
    });
}

TEST_P(SessionDialog, EveryControlWithAFaceTakesTheFontOfTheResourceManager) {
    texts->font = {"Serif", 13.0, true, true};
    open("DESK", [this](User&) {
        ASSERT_NE(dialog().font(), nullptr);
        EXPECT_EQ(*dialog().font(), texts->font);
        for (const Control* each : dialog().controls()) {
            if (!each->hasFace()) continue;
            EXPECT_EQ(each->font(), dialog().font()) << each->name();
        }
    });
}

TEST_P(SessionDialog, AFailingFontIsPassedOverInSilence) {
    texts->fontFailing = true;
    open("DESK", [this](User& u) {
        EXPECT_EQ(dialog().font(), nullptr);
        EXPECT_EQ(u.formTitle(), "{MORAM_CONFIG_TITLE}");
    });
    EXPECT_TRUE(user().boxes().empty());
}

// Tabs.

TEST_P(SessionDialog, OnlyTheControlsOfTheTabOnTopAreInTheTabOrder) {
    open("DESK", [this](User& u) {
        expectStops(u, kLaunchStops, true);
        expectStops(u, kFormatStops, false);
        u.changeTab("SSTab2", 1);
        expectStops(u, kLaunchStops, false);
        expectStops(u, kFormatStops, true);
        u.changeTab("SSTab2", 0);
        expectStops(u, kLaunchStops, true);
        expectStops(u, kFormatStops, false);
    });
}

TEST_P(SessionDialog, WhatTakesNoFocusIsNotInTheTabOrder) {
    open("DESK", [this](User& u) {
        std::set<std::string> expected{kLaunchStops.begin(), kLaunchStops.end()};
        expected.insert({"lstAvailableFormats", "lstSelectedFormats2", "SSTab2", "btnOK",
                         "btnCancel", "btnApply"});
        std::set<std::string> stops;
        for (const Control* each : dialog().controls()) {
            const std::string name{each->name()};
            if (u.see(name).tabStop) stops.insert(name);
        }
        EXPECT_EQ(stops, expected);
    });
}

TEST_P(SessionDialog, OnlyTheControlsOfTheTabOnTopAreSeen) {
    open("DESK", [](User& u) {
        EXPECT_TRUE(u.see("txtDisplayName").visible);
        EXPECT_FALSE(u.see("btnNew").visible);
        u.changeTab("SSTab2", 1);
        EXPECT_FALSE(u.see("txtDisplayName").visible);
        EXPECT_TRUE(u.see("btnNew").visible);
        EXPECT_TRUE(u.see("btnOK").visible);
    });
}

TEST_P(SessionDialog, ATabGivesTheFocusToItsFirstControl) {
    open("DESK", [](User& u) {
        u.focus("txtProgramPath");
        u.changeTab("SSTab2", 1);
        EXPECT_TRUE(u.see("btnNew").focus);
        u.changeTab("SSTab2", 0);
        EXPECT_TRUE(u.see("txtDisplayName").focus);
    });
}

TEST_P(SessionDialog, TheFormatTabShowsTheName) {
    open("DESK", [](User& u) {
        EXPECT_EQ(u.see("lblDisplayName2").caption, "");
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lblDisplayName2").caption, "DESK");
        u.changeTab("SSTab2", 0);
        u.type("txtDisplayName", " bench ");
        u.changeTab("SSTab2", 1);
        EXPECT_EQ(u.see("lblDisplayName2").caption, "BENCH");
    });
}

// Its fixed size.

TEST_P(SessionDialog, EveryResizeSnapsBack) {
    open("DESK", [this](User& u) {
        EXPECT_EQ(dialog().width(), 9150);
        EXPECT_EQ(dialog().height(), 6600);
        for (const auto& [width, height] : std::map<int, int>{{12000, 9000}, {3000, 2000}}) {
            u.resize(width, height);
            EXPECT_EQ(dialog().width(), 9150);
            EXPECT_EQ(dialog().height(), 6600);
        }
    });
}

TEST_P(SessionDialog, AResizeOnTheFormatTabTakesItsButtonsOutOfTheTabOrder) {
    open("DESK", [this](User& u) {
        u.changeTab("SSTab2", 1);
        u.resize(12000, 9000);
        EXPECT_EQ(u.see("SSTab2").selected, 2U);
        expectStops(u, kFormatStops, false);
        expectStops(u, kLaunchStops, true);
        EXPECT_TRUE(u.see("btnNew").focus);

        u.pick("lstSelectedFormats2", "CSV");
        u.click("btnRemove");
        EXPECT_EQ(u.see("lstSelectedFormats2").rowTexts(), Names{});

        u.changeTab("SSTab2", 0);
        u.changeTab("SSTab2", 1);
        expectStops(u, kFormatStops, true);
        expectStops(u, kLaunchStops, false);
    });
}

TEST_P(SessionDialog, AResizeOnTheFormatTabShowsTheNameAnew) {
    open("DESK", [this](User& u) {
        u.changeTab("SSTab2", 1);
        dialog().txtDisplayName.setText("WRITTEN");
        u.resize(12000, 9000);
        EXPECT_EQ(u.see("lblDisplayName2").caption, "WRITTEN");
    });
}

// The name box.

TEST_P(SessionDialog, TheNameIsTrimmedAndUpperCasedWhenItsBoxIsLeft) {
    open("DESK", [](User& u) {
        u.type("txtDisplayName", "  my bench  ");
        EXPECT_EQ(u.see("txtDisplayName").text, "  my bench  ");
        u.focus("txtProgramPath");
        EXPECT_EQ(u.see("txtDisplayName").text, "MY BENCH");
    });
}

TEST_P(SessionDialog, TheTabKeyLeavesTheNameBoxToo) {
    open("DESK", [](User& u) {
        u.type("txtDisplayName",
               " stra\xC3\x9F"
               "e \xC3\xA9");
        u.pressTab();
        EXPECT_TRUE(u.see("txtProgramPath").focus);
        EXPECT_EQ(u.see("txtDisplayName").text,
                  "STRA\xC3\x9F"
                  "E \xC3\x89");
    });
}

TEST_P(SessionDialog, OnlyBlanksAreTrimmed) {
    open("DESK", [](User& u) {
        u.type("txtDisplayName", " \xC2\xA0x ");
        u.focus("txtProgramPath");
        EXPECT_EQ(u.see("txtDisplayName").text, "\xC2\xA0X");
    });
}

// Browsing for a program.

TEST_P(SessionDialog, BrowsingAsksForAFileWithKeyedTextsInTheFormsFont) {
    const RealProgram program;
    open("DESK", [&](User& u) {
        user().onBrowse(program.path());
        u.click("btnBrowseFile");
        EXPECT_EQ(u.see("txtProgramPath").text, program.path());
        ASSERT_EQ(user().browses().size(), 1U);
        const BrowseRequest& request = user().browses()[0];
        EXPECT_EQ(request.title, "{GLOBAL_SELECT_APP}");
        EXPECT_EQ(request.okCaption, "{BUTTON_OK}");
        EXPECT_EQ(request.cancelCaption, "{BUTTON_CANCEL}");
        EXPECT_TRUE(request.files);
        EXPECT_EQ(request.font, dialog().font());
    });
}

TEST_P(SessionDialog, BrowsingWithoutAnAnswerKeepsThePath) {
    open("DESK", [this](User& u) {
        user().onBrowse("");
        u.click("btnBrowseFile");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
    });
}

TEST_P(SessionDialog, BrowsingFallsBackToItsOwnTextsInSilence) {
    const auto expectFallback = [this](User& u) {
        user().onBrowse("");
        u.click("btnBrowseFile");
        const BrowseRequest& request = user().browses().back();
        EXPECT_EQ(request.title, "Select an application");
        EXPECT_EQ(request.okCaption, "OK");
        EXPECT_EQ(request.cancelCaption, "Cancel");
    };
    open("DESK", [&](User& u) {
        texts->missing = {"GLOBAL_SELECT_APP", "BUTTON_OK", "BUTTON_CANCEL"};
        expectFallback(u);
        texts->missing.clear();
        for (const char* key : {"GLOBAL_SELECT_APP", "BUTTON_OK", "BUTTON_CANCEL"})
            texts->texts[key] = "";
        expectFallback(u);
    });
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(SessionDialog, EachTextOfBrowsingFallsBackOnItsOwn) {
    open("DESK", [this](User& u) {
        texts->missing = {"BUTTON_OK"};
        user().onBrowse("");
        u.click("btnBrowseFile");
        const BrowseRequest& request = user().browses().back();
        EXPECT_EQ(request.title, "{GLOBAL_SELECT_APP}");
        EXPECT_EQ(request.okCaption, "OK");
        EXPECT_EQ(request.cancelCaption, "{BUTTON_CANCEL}");
    });
}

TEST_P(SessionDialog, BrowsingWritesIntoABoxThatIsDisabled) {
    putSession("OFF", {{"ProgramPath", "old.exe"}, {"DisableProgramLaunch", "true"}});
    const RealProgram program;
    open("OFF", [&](User& u) {
        EXPECT_FALSE(u.see("txtProgramPath").enabled);
        user().onBrowse(program.path());
        u.click("btnBrowseFile");
        EXPECT_EQ(u.see("txtProgramPath").text, program.path());
        EXPECT_FALSE(u.see("txtProgramPath").enabled);
    });
}

TEST_P(SessionDialog, AFailureToBrowseIsToldAndKeepsThePath) {
    auto view = std::make_shared<NoBrowsing>();
    open("DESK", [&](User& u) {
        installView(view);
        u.click("btnBrowseFile");
        EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
    });
    ASSERT_EQ(view->boxes.size(), 1U);
    EXPECT_EQ(view->boxes[0].text,
              failureText("UnifrmMORAMConfig:btnBrowseFile_Click", "nothing to browse"));
}

// The launch switch of the advanced dialog.

TEST_P(SessionDialog, DisablingTheLaunchAndConfirmingDisablesTheProgramBoxes) {
    open("DESK", [this](User& u) {
        user().onForm("dlgAdvConfig", [](User& inner) {
            inner.tick("chkDisableProgramLaunch");
            inner.click("OKButton");
        });
        u.click("btnAdvanced");
        for (const char* box : {"txtProgramPath", "txtCommandLineArgs"}) {
            EXPECT_FALSE(u.see(box).enabled);
            EXPECT_EQ(u.see(box).background, Background::InactiveBorder);
        }
        user().onForm("dlgAdvConfig", [](User& inner) {
            inner.tick("chkDisableProgramLaunch", false);
            inner.click("OKButton");
        });
        u.click("btnAdvanced");
        for (const char* box : {"txtProgramPath", "txtCommandLineArgs"}) {
            EXPECT_TRUE(u.see(box).enabled);
            EXPECT_EQ(u.see(box).background, Background::Window);
        }
    });
}

TEST_P(SessionDialog, DisablingTheLaunchAndCancellingLeavesTheProgramBoxes) {
    open("DESK", [this](User& u) {
        user().onForm("dlgAdvConfig", [](User& inner) {
            inner.tick("chkDisableProgramLaunch");
            inner.click("CancelButton");
        });
        u.click("btnAdvanced");
        EXPECT_TRUE(u.see("txtProgramPath").enabled);
        EXPECT_TRUE(u.see("txtCommandLineArgs").enabled);
    });
}

// Its set of controls.

TEST_P(SessionDialog, HasExactlyTheseControls) {
    const std::set<std::string> expected{"UniCaption1",
                                         "UniMsgBox1",
                                         "UniBrowse",
                                         "CommonDialog",
                                         "SSTab2",
                                         "UniContainer1(0)",
                                         "UniContainer1(1)",
                                         "btnOK",
                                         "btnCancel",
                                         "btnApply",
                                         "lblDisplayName",
                                         "txtDisplayName",
                                         "frmLaunch",
                                         "lblPath",
                                         "txtProgramPath",
                                         "btnBrowseFile",
                                         "lblCmdLine",
                                         "txtCommandLineArgs",
                                         "chkReverseList",
                                         "btnAdvanced",
                                         "btnTallyvane",
                                         "frmOrientation",
                                         "rdoTop",
                                         "rdoBottom",
                                         "rdoLeft",
                                         "rdoRight",
                                         "chkAutoResize",
                                         "lblDisplayName3",
                                         "lblDisplayName2",
                                         "frmPartFormat",
                                         "lblAvailableFormats",
                                         "lstAvailableFormats",
                                         "lblSelectedFormats",
                                         "lstSelectedFormats2",
                                         "btnAdd",
                                         "btnRemove",
                                         "btnNew",
                                         "btnCopy",
                                         "btnRename",
                                         "btnEdit",
                                         "btnDelete"};
    const frmMORAMConfig form;
    std::set<std::string> names;
    for (const Control* each : form.controls()) names.emplace(each->name());
    EXPECT_EQ(names, expected);
    EXPECT_EQ(form.controls().size(), expected.size());
    EXPECT_FALSE(form.loaded());
}

}  // namespace
}  // namespace wynconfig
