// The advanced dialog: what it reads, refuses and stores, shown and unseen, alone and from the
// session dialog.
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/session/dlgAdvConfig.h"
#include "platform/text/numbers.h"
#include "store/session_record.h"
#include "support/caption_tables.h"
#include "support/dialog_checks.h"
#include "support/rows.h"
#include "support/session_keys.h"
#include "support/sub_dialog_desk.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

const std::vector<std::string> kShownDefaults{"Contains", "Contains", "", "", "false", "0", "0"};
const std::vector<std::string> kShownOwn{"Matches", "StartsWith", "Parts Desk", "PartsMain",
                                         "true",    "3",          "7"};

class AdvancedDialog : public SubDialogDesk<dlgAdvConfig> {
  protected:
    static Stored constantsRight(Stored rows) {
        return with(with(std::move(rows), "WindowTitleCaseSensitive", "true"),
                    "WindowClassCaseSensitive", "false");
    }
    /// The values that the controls show, in the order of the keys that are read.
    static std::vector<std::string> shownBy(User& u) {
        const auto match = [&](const std::string& group) {
            std::string on;
            for (const char* kind : {"Contains", "StartsWith", "Matches"}) {
                if (u.see("btn" + group + kind).value) on += kind;
            }
            return on;
        };
        return {match("Title"),
                match("Class"),
                u.see("txtWindowTitle").text,
                u.see("txtWindowClass").text,
                u.see("chkDisableProgramLaunch").value ? "true" : "false",
                u.see("txtWindowTitleClassDelay").text,
                u.see("txtProgramLaunchDelay").text};
    }
};
ON_EVERY_VIEW(AdvancedDialog);

TEST_P(AdvancedDialog, OpensAtItsDefaultsOnASessionWithoutRows) {
    show(sessionOf({}), [](User& u) {
        EXPECT_EQ(shownBy(u), kShownDefaults);
        EXPECT_TRUE(u.see("txtProgramLaunchDelay").enabled);
        EXPECT_EQ(u.see("txtProgramLaunchDelay").background, Background::Window);
        EXPECT_EQ(u.formTitle(), "{ADV_CONFIG_TITLE}");
        u.click("CancelButton");
    });
}

TEST_P(AdvancedDialog, UnseenRunGivesANewSessionItsDefaults) {
    const auto record = sessionOf({});
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(rowsOf(*record), kAdvancedDefaults);
    EXPECT_EQ(fileRows("S"), kAdvancedDefaults);
}

TEST_P(AdvancedDialog, ShowsTheStoredValues) {
    show(sessionOf(kOwnAdvanced), [](User& u) {
        EXPECT_EQ(shownBy(u), kShownOwn);
        EXPECT_FALSE(u.see("txtProgramLaunchDelay").enabled);
        EXPECT_EQ(u.see("txtProgramLaunchDelay").background, Background::InactiveBorder);
        EXPECT_TRUE(u.see("txtWindowTitleClassDelay").enabled);
        EXPECT_EQ(u.see("txtWindowTitleClassDelay").background, Background::Window);
        u.click("CancelButton");
    });
}

TEST_P(AdvancedDialog, UnseenRunKeepsTheValuesAndSetsTheTwoConstants) {
    const auto record = sessionOf(kOwnAdvanced);
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(rowsOf(*record), constantsRight(kOwnAdvanced));
    EXPECT_EQ(fileRows("S"), constantsRight(kOwnAdvanced));
}

TEST_P(AdvancedDialog, WritesItsNineRowsBehindTheOthers) {
    Stored rows{{"WindowClassCaseSensitive", "true"}, {"ProgramPath", "p.exe"}};
    rows.insert(rows.end(), kOwnAdvanced.begin(), kOwnAdvanced.end() - 1);
    rows.push_back({"FileName", "list.txt"});
    const auto record = sessionOf(rows);
    saveUnseen(record);
    Stored expected{{"ProgramPath", "p.exe"}, {"FileName", "list.txt"}};
    for (const auto& row : constantsRight(kOwnAdvanced)) expected.push_back(row);
    EXPECT_EQ(rowsOf(*record), expected);
}

TEST_P(AdvancedDialog, FirstAbsentKeyEndsTheReading) {
    for (std::size_t absent = 0; absent < kShownOwn.size(); ++absent) {
        Stored rows = kOwnAdvanced;
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(absent));
        std::vector<std::string> expected = kShownDefaults;
        for (std::size_t i = 0; i < absent; ++i) expected[i] = kShownOwn[i];
        show(sessionOf(rows), [&](User& u) {
            EXPECT_EQ(shownBy(u), expected) << "without " << kOwnAdvanced[absent].first;
            const bool disabled = expected[4] == "true";
            EXPECT_EQ(u.see("txtProgramLaunchDelay").enabled, !disabled);
            u.click("CancelButton");
        });
    }
    EXPECT_EQ(user().forms().size(), 7U);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(AdvancedDialog, OpeningAnotherRecordStartsFromTheDefaultsAgain) {
    user().onForm("dlgAdvConfig", [](User& u) {
        EXPECT_TRUE(u.see("btnTitleContains").value);
        EXPECT_TRUE(u.see("btnClassContains").value);
        EXPECT_FALSE(u.see("chkDisableProgramLaunch").value);
        EXPECT_EQ(u.see("txtProgramLaunchDelay").text, "0");
        EXPECT_EQ(u.see("txtWindowTitleClassDelay").text, "0");
        EXPECT_TRUE(u.see("txtProgramLaunchDelay").enabled);
        EXPECT_EQ(u.see("txtProgramLaunchDelay").background, Background::Window);
        u.click("CancelButton");
    });
    dlgAdvConfig form;
    form.init(sessionOf(kOwnAdvanced), "S");
    EXPECT_FALSE(form.txtProgramLaunchDelay.enabled());
    form.init(sessionOf({}), "S");
    form.Show();
}

TEST_P(AdvancedDialog, SavingAfterAnAbsentKeyReplacesTheLaterRowsByDefaults) {
    Stored rows = kOwnAdvanced;
    rows.erase(rows.begin() + 1);
    const auto record = sessionOf(rows);
    saveUnseen(record);
    EXPECT_EQ(rowsOf(*record), with(kAdvancedDefaults, "WindowTitleSearchType", "matches"));
}

TEST_P(AdvancedDialog, UnknownSearchTypesCountAsContains) {
    for (const char* stored :
         {"Contains", "Matches", "STARTS WITH", "starts  with", " matches", ""}) {
        const auto record = sessionOf(with(with(kOwnAdvanced, "WindowTitleSearchType", stored),
                                           "WindowClassSearchType", stored));
        show(record, [&](User& u) {
            EXPECT_EQ(shownBy(u)[0], "Contains") << stored;
            EXPECT_EQ(shownBy(u)[1], "Contains") << stored;
            EXPECT_EQ(shownBy(u)[2], "Parts Desk");
            u.click("OKButton");
        });
        EXPECT_EQ(record->GetRow("WindowTitleSearchType")[1], "contains");
        EXPECT_EQ(record->GetRow("WindowClassSearchType")[1], "contains");
    }
}

TEST_P(AdvancedDialog, StoresEachKindOfMatch) {
    const std::vector<std::pair<std::string, std::string>> kinds{
        {"Contains", "contains"}, {"StartsWith", "starts with"}, {"Matches", "matches"}};
    for (const auto& [titleKind, title] : kinds) {
        for (const auto& [classKind, windowClass] : kinds) {
            const auto record = sessionOf(kOwnAdvanced);
            show(record, [&, wanted = std::pair(titleKind, classKind)](User& u) {
                u.tick("btnTitle" + wanted.first);
                u.tick("btnClass" + wanted.second);
                EXPECT_EQ(shownBy(u)[0], wanted.first);
                EXPECT_EQ(shownBy(u)[1], wanted.second);
                u.click("OKButton");
            });
            EXPECT_EQ(record->GetRow("WindowTitleSearchType")[1], title);
            EXPECT_EQ(record->GetRow("WindowClassSearchType")[1], windowClass);
        }
    }
}

TEST_P(AdvancedDialog, LaunchIsDisabledByExactlyTrue) {
    for (const char* stored : {"True", "TRUE", " true", "-1", "1", "yes", ""}) {
        const auto record = sessionOf(with(kOwnAdvanced, "DisableProgramLaunch", stored));
        show(record, [&](User& u) {
            EXPECT_FALSE(u.see("chkDisableProgramLaunch").value) << stored;
            EXPECT_TRUE(u.see("txtProgramLaunchDelay").enabled);
            u.click("OKButton");
        });
        EXPECT_EQ(record->GetRow("DisableProgramLaunch")[1], "false");
    }
}

TEST_P(AdvancedDialog, DelayOfADisabledLaunchIsKeptUnlessTheBoxIsToggled) {
    const auto record = sessionOf(kOwnAdvanced);
    show(record, [](User& u) {
        EXPECT_EQ(u.see("txtProgramLaunchDelay").text, "7");
        u.click("OKButton");
    });
    EXPECT_EQ(record->GetRow("ProgramLaunchDelay")[1], "7");
    show(record, [](User& u) {
        u.tick("chkDisableProgramLaunch", false);
        EXPECT_EQ(u.see("txtProgramLaunchDelay").text, "7");
        u.tick("chkDisableProgramLaunch", true);
        EXPECT_EQ(u.see("txtProgramLaunchDelay").text, "0");
        u.click("OKButton");
    });
    EXPECT_EQ(record->GetRow("ProgramLaunchDelay")[1], "0");
    EXPECT_EQ(record->GetRow("DisableProgramLaunch")[1], "true");
}

TEST_P(AdvancedDialog, LaunchDelayFollowsTheCheckBox) {
    show(sessionOf(with(kOwnAdvanced, "DisableProgramLaunch", "false")), [](User& u) {
        u.click("chkDisableProgramLaunch");
        Sight delay = u.see("txtProgramLaunchDelay");
        EXPECT_FALSE(delay.enabled);
        EXPECT_EQ(delay.background, Background::InactiveBorder);
        EXPECT_EQ(delay.text, "0");
        u.click("chkDisableProgramLaunch");
        delay = u.see("txtProgramLaunchDelay");
        EXPECT_TRUE(delay.enabled);
        EXPECT_EQ(delay.background, Background::Window);
        EXPECT_EQ(delay.text, "0");
        EXPECT_EQ(u.see("txtWindowTitleClassDelay").text, "3");
        u.click("CancelButton");
    });
}

TEST_P(AdvancedDialog, RefusesATitleDelayThatIsNoNumber) {
    const auto record = sessionOf(kAdvancedDefaults);
    for (const char* text : {"", " ", "5 s", "soon", "--1", "1e"}) {
        user().onBox();
        const long result = show(record, [&](User& u) {
            u.type("txtWindowTitleClassDelay", text);
            u.type("txtWindowTitle", "lost");
            u.click("OKButton");
            EXPECT_EQ(u.formName(), "dlgAdvConfig");
            EXPECT_TRUE(u.see("txtWindowTitleClassDelay").focus);
            EXPECT_EQ(u.see("txtWindowTitleClassDelay").text, text);
            u.click("CancelButton");
        });
        EXPECT_EQ(result, 1);
        expectRefusal(user().boxes().back(), "{ADV_CONFIG_MSG_ENTER_VALID_TITLE_DELAY}",
                      "{ADV_CONFIG_MSG_TITLE_DELAY}");
    }
    EXPECT_EQ(user().boxes().size(), 6U);
    EXPECT_EQ(rowsOf(*record), kAdvancedDefaults);
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AdvancedDialog, RefusesALaunchDelayThatIsNoNumber) {
    const auto record = sessionOf(kAdvancedDefaults);
    for (const char* text : {"", "2 min", "x"}) {
        user().onBox();
        show(record, [&](User& u) {
            u.type("txtProgramLaunchDelay", text);
            u.focus("txtWindowClass");
            u.pressEnter();
            EXPECT_TRUE(u.see("txtProgramLaunchDelay").focus);
            u.click("CancelButton");
        });
        expectRefusal(user().boxes().back(), "{ADV_CONFIG_MSG_ENTER_VALID_LAUNCH_DELAY}",
                      "{ADV_CONFIG_MSG_LAUNCH_DELAY}");
    }
    EXPECT_EQ(rowsOf(*record), kAdvancedDefaults);
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AdvancedDialog, ReportsTheTitleDelayFirstAndPassesOnceBothAreMended) {
    user().onBox();
    user().onBox();
    const auto record = sessionOf(kAdvancedDefaults);
    const long result = show(record, [](User& u) {
        u.type("txtProgramLaunchDelay", "later");
        u.type("txtWindowTitleClassDelay", "soon");
        u.click("OKButton");
        u.type("txtWindowTitleClassDelay", "1");
        u.click("OKButton");
        u.type("txtProgramLaunchDelay", "2");
        u.click("OKButton");
    });
    EXPECT_EQ(result, 0);
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_EQ(user().boxes()[0].title, "{ADV_CONFIG_MSG_TITLE_DELAY}");
    EXPECT_EQ(user().boxes()[1].title, "{ADV_CONFIG_MSG_LAUNCH_DELAY}");
    EXPECT_EQ(fileRows("S"), with(with(kAdvancedDefaults, "WindowTitleClassDelay", "1"),
                                  "ProgramLaunchDelay", "2"));
}

TEST_P(AdvancedDialog, AnyLaunchDelayPassesWhileTheLaunchIsDisabled) {
    const auto record = sessionOf(with(kOwnAdvanced, "ProgramLaunchDelay", "soon"));
    EXPECT_EQ(show(record, [](User& u) { u.click("OKButton"); }), 0);
    EXPECT_EQ(record->GetRow("ProgramLaunchDelay")[1], "soon");
}

TEST_P(AdvancedDialog, UnseenRunChecksNothing) {
    Stored rows = with(kAdvancedDefaults, "WindowTitleClassDelay", "soon");
    rows = with(rows, "ProgramLaunchDelay", "");
    const auto record = sessionOf(rows);
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(rowsOf(*record), rows);
}

TEST_P(AdvancedDialog, StoresDelaysAsTyped) {
    for (const char* text : {"1e3", "-5", "2.5", " 7 ", "1,000", "+4", ".5"}) {
        const auto record = sessionOf({});
        const long result = show(record, [&](User& u) {
            u.type("txtWindowTitleClassDelay", text);
            u.type("txtProgramLaunchDelay", text);
            u.click("OKButton");
        });
        EXPECT_EQ(result, 0);
        EXPECT_EQ(record->GetRow("WindowTitleClassDelay")[1], text);
        EXPECT_EQ(record->GetRow("ProgramLaunchDelay")[1], text);
    }
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(AdvancedDialog, NumbersAreReadByTheMarksOfTheUser) {
    setNumberLocale("de-DE");
    user().onBox();
    const auto record = sessionOf({});
    show(record, [&](User& u) {
        u.type("txtWindowTitleClassDelay", ".5");
        u.click("OKButton");
        EXPECT_EQ(user().boxes().size(), 1U);
        u.type("txtWindowTitleClassDelay", ",5");
        u.click("OKButton");
    });
    EXPECT_EQ(record->GetRow("WindowTitleClassDelay")[1], ",5");
    setNumberLocale("en-US");
    user().onBox();
    show(record, [](User& u) {
        u.click("OKButton");
        u.click("CancelButton");
    });
    EXPECT_EQ(user().boxes().back().title, "{ADV_CONFIG_MSG_TITLE_DELAY}");
}

TEST_P(AdvancedDialog, TitleAndClassAreStoredUntrimmed) {
    const auto record = sessionOf({});
    const std::string title = "  部品 😀 \"<&>\" ]]> ";
    show(record, [&](User& u) {
        u.type("txtWindowTitle", title);
        u.type("txtWindowClass", "  ");
        u.click("OKButton");
    });
    const Stored expected =
        with(with(kAdvancedDefaults, "WindowTitle", title), "WindowClass", "  ");
    EXPECT_EQ(rowsOf(*record), expected);
    EXPECT_EQ(fileRows("S"), expected);
}

TEST_P(AdvancedDialog, EnterInABoxIsOk) {
    const auto record = sessionOf({});
    const long result = show(record, [](User& u) {
        u.type("txtWindowTitle", "Desk");
        u.pressEnter();
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(record->GetRow("WindowTitle")[1], "Desk");
}

TEST_P(AdvancedDialog, OnlyOkStoresAnything) {
    putSession("S", {{"WindowTitle", "old"}});
    const std::string before = sessionText("S");
    const auto record = sessionOf(kOwnAdvanced);
    const auto leaving = [&](void (*leave)(User&)) {
        return show(record, [&](User& u) {
            u.type("txtWindowTitle", "new");
            u.tick("chkDisableProgramLaunch", false);
            leave(u);
        });
    };
    EXPECT_EQ(leaving([](User& u) { u.click("CancelButton"); }), 1);
    EXPECT_EQ(leaving([](User& u) { u.pressEscape(); }), 1);
    EXPECT_EQ(leaving([](User& u) { u.closeByFrame(); }), 0);
    EXPECT_EQ(rowsOf(*record), kOwnAdvanced);
    EXPECT_EQ(sessionText("S"), before);
    EXPECT_EQ(leaving([](User& u) { u.click("OKButton"); }), 0);
    EXPECT_EQ(fileRows("S"), rowsOf(*record));
    EXPECT_EQ(record->GetRow("WindowTitle")[1], "new");
}

TEST_P(AdvancedDialog, SavesUnderTheNameAsGiven) {
    show(
        sessionOf({}), [](User& u) { u.click("OKButton"); }, "lower Case");
    EXPECT_EQ(sessionFiles(), std::vector<std::string>{"lower Case.vla"});
    EXPECT_EQ(sessionRecord("lower Case")->Name(), "S");
}

TEST_P(AdvancedDialog, InMemoryNoFileIsWritten) {
    g_DatasetMode = true;
    const auto record = sessionOf({});
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(rowsOf(*record), kAdvancedDefaults);
    EXPECT_EQ(show(record, [](User& u) { u.click("OKButton"); }), 0);
    EXPECT_EQ(rowsOf(*record), kAdvancedDefaults);
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AdvancedDialog, ASaveThatFailsIsNotTold) {
    disk.failOn(FaultyFileSystem::Operation::Save);
    disk.resetCounts();
    const auto record = sessionOf({});
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(show(record, [](User& u) { u.click("OKButton"); }), 0);
    EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Save), 2U);
    EXPECT_EQ(rowsOf(*record), kAdvancedDefaults);
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AdvancedDialog, AFolderInTheFilesPlaceOrAMissingOneIsNotTold) {
    memory->makeFolder(sessionFolder + "S.vla");
    EXPECT_EQ(show(sessionOf({}), [](User& u) { u.click("OKButton"); }), 0);
    g_SessionFolder = "/nowhere/MORAM\\";
    EXPECT_EQ(show(sessionOf({}), [](User& u) { u.click("OKButton"); }), 0);
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AdvancedDialog, WithoutARecordNothingHappens) {
    dlgAdvConfig form;
    form.init(nullptr, "S");
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.SaveAdvancedChanges(), 0);
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.Result(), 0);
    EXPECT_TRUE(texts->asked.empty());
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AdvancedDialog, LoadsOnceAtTheFirstTouch) {
    user().onForm("dlgAdvConfig", [](User& u) { u.click("CancelButton"); });
    dlgAdvConfig form;
    EXPECT_FALSE(form.loaded());
    form.init(sessionOf({}), "S");
    EXPECT_TRUE(form.loaded());
    EXPECT_TRUE(form.UniCaption1.bound());
    form.Show();
    EXPECT_EQ(form.Result(), 1);
    form.Unload();
    EXPECT_FALSE(form.loaded());
    EXPECT_FALSE(form.UniCaption1.bound());
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "ADV_CONFIG_TITLE"), 1);
    EXPECT_EQ(texts->asked.front(), "BUTTON_OK");
}

TEST_P(AdvancedDialog, CaptionsComeByKeyOrAllByDefault) {
    expectTexts<dlgAdvConfig>(*texts, kAdvancedTexts, {{"Frame1", ""}});
}

TEST_P(AdvancedDialog, SharesTheFontAndDoesWithoutIt) {
    dlgAdvConfig form;
    form.init(sessionOf({}), "S");
    expectFontEverywhere(form, texts->font);
    form.Unload();
    texts->fontFailing = true;
    form.init(sessionOf({}), "S");
    EXPECT_EQ(form.font(), nullptr);
    EXPECT_EQ(form.OKButton.caption(), "{BUTTON_OK}");
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(AdvancedDialog, MissingOkTextIsToldAndLeavesTheBoxesWithoutCaption) {
    texts->missing = {"BUTTON_OK"};
    user().onBox();
    user().onBox();
    show(sessionOf(kOwnAdvanced), [](User& u) {
        EXPECT_EQ(shownBy(u), kShownOwn);
        EXPECT_EQ(u.formTitle(), "Advanced Configuration");
        EXPECT_EQ(u.see("OKButton").caption, "OK");
        u.type("txtWindowTitleClassDelay", "x");
        u.click("OKButton");
        u.click("CancelButton");
    });
    ASSERT_EQ(user().boxes().size(), 2U);
    expectFailure(user().boxes()[0], failureText("dlgAdvConfig:init", "no text for BUTTON_OK"), "");
    expectRefusal(user().boxes()[1], "{ADV_CONFIG_MSG_ENTER_VALID_TITLE_DELAY}",
                  "{ADV_CONFIG_MSG_TITLE_DELAY}", "");
}

TEST_P(AdvancedDialog, MissingTextsOfARefusalAreToldAndTheRefusalStands) {
    const std::vector<std::pair<std::string, std::string>> refusals{
        {"ADV_CONFIG_MSG_ENTER_VALID_TITLE_DELAY", "ADV_CONFIG_MSG_TITLE_DELAY"},
        {"ADV_CONFIG_MSG_ENTER_VALID_LAUNCH_DELAY", "ADV_CONFIG_MSG_LAUNCH_DELAY"}};
    const std::vector<std::string> offenders{"txtWindowTitleClassDelay", "txtProgramLaunchDelay"};
    for (std::size_t i = 0; i < refusals.size(); ++i) {
        const auto& [textKey, titleKey] = refusals[i];
        for (const std::string& missing : {textKey, titleKey}) {
            texts->missing = {missing};
            user().finish();
            user().onBox();
            user().onBox();
            show(sessionOf(kAdvancedDefaults), [&](User& u) {
                u.type(offenders[i], "x");
                u.click("OKButton");
                EXPECT_TRUE(u.see(offenders[i]).focus);
                u.click("CancelButton");
            });
            ASSERT_EQ(user().boxes().size(), 2U) << missing;
            expectFailure(user().boxes()[0],
                          failureText("dlgAdvConfig:ApplyChanges", "no text for " + missing));
            expectRefusal(user().boxes()[1], missing == textKey ? "" : "{" + textKey + "}",
                          missing == titleKey ? "" : "{" + titleKey + "}");
        }
    }
}

TEST_P(AdvancedDialog, WithoutAResourceManagerItOpensInEnglishBehindAnEmptyBox) {
    component.InitResourceManager(nullptr);
    user().onBox();
    show(sessionOf(kOwnAdvanced), [](User& u) {
        EXPECT_EQ(u.formTitle(), "Advanced Configuration");
        EXPECT_EQ(u.see("btnTitleStartsWith").caption, "Starts with");
        EXPECT_EQ(shownBy(u), kShownOwn);
        u.click("CancelButton");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    EXPECT_EQ(user().boxes()[0].text, "");
    EXPECT_EQ(user().boxes()[0].title, "");
    EXPECT_EQ(user().boxes()[0].style, 4112);
}

TEST_P(AdvancedDialog, FromTheSessionDialogOkStoresAtOnce) {
    putFormat("CSV");
    putFullSession("S", {"CSV"});
    edit("S", [this](User& u) {
        EXPECT_TRUE(u.see("txtProgramPath").enabled);
        u.onForm("dlgAdvConfig", [](User& a) {
            EXPECT_EQ(a.see("txtWindowTitle").text, "Parts Desk");
            a.type("txtWindowTitle", "Other Desk");
            a.tick("chkDisableProgramLaunch");
            a.click("OKButton");
        });
        u.click("btnAdvanced");
        EXPECT_EQ(sessionRows("S")["WindowTitle"], "Other Desk");
        for (const char* box : {"txtProgramPath", "txtCommandLineArgs"}) {
            EXPECT_FALSE(u.see(box).enabled) << box;
            EXPECT_EQ(u.see(box).background, Background::InactiveBorder) << box;
        }
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionRows("S")["WindowTitle"], "Other Desk");
    EXPECT_EQ(sessionRows("S")["DisableProgramLaunch"], "true");
}

TEST_P(AdvancedDialog, FromTheSessionDialogOkAllowsTheLaunchAgain) {
    putFullSession("S", {"CSV"});
    changeSession("S", {{"DisableProgramLaunch", "true"}});
    edit("S", [](User& u) {
        EXPECT_FALSE(u.see("txtProgramPath").enabled);
        u.onForm("dlgAdvConfig", [](User& a) {
            a.tick("chkDisableProgramLaunch", false);
            a.click("OKButton");
        });
        u.click("btnAdvanced");
        for (const char* box : {"txtProgramPath", "txtCommandLineArgs"}) {
            EXPECT_TRUE(u.see(box).enabled) << box;
            EXPECT_EQ(u.see(box).background, Background::Window) << box;
        }
        u.click("btnCancel");
    });
}

TEST_P(AdvancedDialog, FromTheSessionDialogOtherWaysOutChangeNothing) {
    putFullSession("S", {"CSV"});
    const std::string before = sessionText("S");
    for (const bool byFrame : {false, true}) {
        edit("S", [&](User& u) {
            u.onForm("dlgAdvConfig", [&](User& a) {
                a.tick("chkDisableProgramLaunch");
                byFrame ? a.closeByFrame() : a.click("CancelButton");
            });
            u.click("btnAdvanced");
            EXPECT_TRUE(u.see("txtProgramPath").enabled);
            EXPECT_EQ(u.see("txtProgramPath").background, Background::Window);
            u.click("btnCancel");
        });
    }
    EXPECT_EQ(sessionText("S"), before);
}

TEST_P(AdvancedDialog, FromTheSessionDialogANameNotYetAppliedThenExists) {
    putFormat("CSV");
    putProgram("/programs/parts.exe");
    putFullSession("S", {"CSV"});
    const std::string before = sessionText("S");
    edit("S", [](User& u) {
        u.type("txtDisplayName", "  other ");
        u.onForm("dlgAdvConfig", [](User& a) { a.click("OKButton"); });
        u.bareClick("btnAdvanced");
        u.onBox();
        u.click("btnOK");
        u.click("btnCancel");
    });
    EXPECT_EQ(sessionFiles(), (std::vector<std::string>{"OTHER.vla", "S.vla"}));
    EXPECT_EQ(sessionText("S"), before);
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0],
                  "{MORAM_CONFIG_MSG_NAME_EXISTS} OTHER. {MORAM_CONFIG_MSG_REENTER_NAME}",
                  "{MORAM_CONFIG_MSG_DISPLAY_NAME}");
}

TEST_P(AdvancedDialog, FromTheInMemorySessionItWritesIntoTheSharedRecord) {
    g_Session->Create("MORAM", "HOSTS", sessionFolder, session::kColumns);
    for (const auto& [key, data] : kOwnAdvanced) g_Session->AddRow({key, data});
    editHeld("HOSTS", [](User& u) {
        u.onForm("dlgAdvConfig", [](User& a) {
            EXPECT_EQ(shownBy(a), kShownOwn);
            a.type("txtWindowClass", "NewClass");
            a.click("OKButton");
        });
        u.click("btnAdvanced");
        u.click("btnCancel");
    });
    EXPECT_EQ(rowsOf(*g_Session), constantsRight(with(kOwnAdvanced, "WindowClass", "NewClass")));
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(AdvancedDialog, ApplyingASessionRunsItUnseen) {
    putFormat("CSV");
    putProgram("/programs/parts.exe");
    putSession("S", {{"ProgramPath", "/programs/parts.exe"},
                     {"WindowTitleSearchType", "matches"},
                     {"FormatCount", "1"},
                     {"FORMAT1", "CSV"}});
    edit("S", [](User& u) { u.click("btnOK"); });
    EXPECT_EQ(user().forms(), std::vector<std::string>{"frmMORAMConfig"});
    const Rows rows = sessionRows("S");
    for (const auto& [key, data] : with(kAdvancedDefaults, "WindowTitleSearchType", "matches"))
        EXPECT_EQ(rows.at(key), data) << key;
}

}  // namespace
}  // namespace wynconfig
