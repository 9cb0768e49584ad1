// The file-writer dialog: what it lists, reads, refuses and stores, shown and unseen.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/session/frmTallyvaneConfig.h"
#include "platform/text/numbers.h"
#include "store/session_record.h"
#include "support/caption_tables.h"
#include "support/dialog_checks.h"
#include "support/failing_views.h"
#include "support/rows.h"
#include "support/session_keys.h"
#include "support/sub_dialog_desk.h"
#include "support/temporary_folder.h"
#include "wynconfig/error.h"

namespace wynconfig {
namespace {

using namespace ConfigGlobalModule;

class FileWriterDialog : public SubDialogDesk<frmTallyvaneConfig> {
  protected:
    static inline const std::string kBadName =
        "{MORAM_CONFIG_MSG_INVALID_CHARS}\r\n         \\ / : * ? \" < > | ";
    static inline const Stored kOwn{{"PartFormat", "CSV"},
                                    {"FileName", "list.txt"},
                                    {"FileFolder", "C:\\out"},
                                    {"FileAction", "Append"},
                                    {"WriteFileOnly", "true"}};

    /// The values that the controls show, in the order of the keys.
    static std::vector<std::string> shownBy(User& u) {
        const bool append = u.see("rdoAppend").value;
        EXPECT_NE(append, u.see("rdoOverWrite").value);
        return {u.see("cboPartFormat").text, u.see("txtFileName").text, u.see("txtFileFolder").text,
                append ? "Append" : "OverWrite",
                u.see("chkWriteFileOnly").value ? "true" : "false"};
    }
    void SetUp() override {
        SubDialogDesk::SetUp();
        putFormat("CSV");
        putFormat("PLAIN");
    }
    static void addHostFormat(const std::string& key, const std::string& name) {
        auto format = std::make_shared<Dataset>();
        format->setName(name);
        g_PartFormats.Add(format, key);
    }
    std::vector<std::string> listed() {
        frmTallyvaneConfig form;
        EXPECT_EQ(form.cboPartFormat.selectedIndex(), form.cboPartFormat.items().empty() ? -1 : 0);
        return form.cboPartFormat.items();
    }
    /// Enters what a script types and presses OK, which must refuse it with this box; then cancels.
    void expectRefused(const User::Script& enter, const std::string& text,
                       const std::string& title) {
        user().finish();
        user().onBox();
        const auto record = sessionOf({});
        show(record, [&](User& u) {
            enter(u);
            u.click("btnOk");
            EXPECT_EQ(u.formName(), "frmTallyvaneConfig");
            EXPECT_TRUE(u.see("btnOk").focus);
            u.click("btnCancel");
        });
        ASSERT_EQ(user().boxes().size(), 1U);
        expectRefusal(user().boxes()[0], text, title);
        EXPECT_TRUE(rowsOf(*record).empty());
        EXPECT_TRUE(sessionFiles().empty());
        EXPECT_EQ(g_TallyvanePartFormat, "");
    }
};
ON_EVERY_VIEW(FileWriterDialog);

TEST_P(FileWriterDialog, OpensAtItsDefaultsOnASessionWithoutRows) {
    show(sessionOf({}), [](User& u) {
        EXPECT_EQ(shownBy(u), dataOf(kFileWriterDefaults));
        for (const char* box : {"txtFileName", "txtFileFolder"}) {
            EXPECT_TRUE(u.see(box).enabled);
            EXPECT_EQ(u.see(box).background, Background::Window);
        }
        EXPECT_EQ(u.formTitle(), "{TVW_CONFIG_TITLE}");
        u.click("btnCancel");
    });
}

TEST_P(FileWriterDialog, UnseenRunGivesANewSessionItsDefaults) {
    const auto record = sessionOf({});
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(rowsOf(*record), kFileWriterDefaults);
    EXPECT_EQ(fileRows("S"), kFileWriterDefaults);
    EXPECT_EQ(g_TallyvanePartFormat, "");
}

TEST_P(FileWriterDialog, ShowsTheStoredValues) {
    show(sessionOf(kOwn), [](User& u) {
        EXPECT_EQ(shownBy(u), dataOf(kOwn));
        u.click("btnCancel");
    });
}

TEST_P(FileWriterDialog, UnseenRunKeepsTheStoredValues) {
    const auto record = sessionOf(kOwn);
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(rowsOf(*record), kOwn);
    EXPECT_EQ(fileRows("S"), kOwn);
    EXPECT_EQ(g_TallyvanePartFormat, "");
}

TEST_P(FileWriterDialog, WritesItsFiveRowsBehindTheOthers) {
    const auto record = sessionOf({{"WriteFileOnly", "true"},
                                   {"ProgramPath", "p.exe"},
                                   {"FileFolder", "C:\\out"},
                                   {"PartFormat", "CSV"},
                                   {"WindowTitle", "Desk"}});
    saveUnseen(record);
    EXPECT_EQ(rowsOf(*record), (Stored{{"ProgramPath", "p.exe"},
                                       {"WindowTitle", "Desk"},
                                       {"PartFormat", "CSV"},
                                       {"FileName", ""},
                                       {"FileFolder", "C:\\out"},
                                       {"FileAction", "OverWrite"},
                                       {"WriteFileOnly", "true"}}));
}

TEST_P(FileWriterDialog, AnAbsentKeyReadsAsEmptyAndTheOthersAreRead) {
    for (std::size_t absent = 0; absent < kOwn.size(); ++absent) {
        Stored rows = kOwn;
        rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(absent));
        std::vector<std::string> expected = dataOf(kOwn);
        expected[absent] = kFileWriterDefaults[absent].second;
        show(sessionOf(rows), [&](User& u) {
            EXPECT_EQ(shownBy(u), expected) << "without " << kOwn[absent].first;
            u.click("btnCancel");
        });
    }
    EXPECT_EQ(user().forms().size(), 5U);
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(FileWriterDialog, OpeningAnotherRecordStartsFromTheDefaultsAgain) {
    user().onForm("frmTallyvaneConfig", [](User& u) {
        EXPECT_EQ(shownBy(u), dataOf(kFileWriterDefaults));
        for (const char* box : {"txtFileName", "txtFileFolder"}) {
            EXPECT_TRUE(u.see(box).enabled) << box;
            EXPECT_EQ(u.see(box).background, Background::Window) << box;
        }
        u.click("btnCancel");
    });
    frmTallyvaneConfig form;
    form.init(sessionOf(kOwn), "S");
    for (Edit* box : {&form.txtFileName, &form.txtFileFolder}) {
        box->setEnabled(false);
        box->setBackground(Background::InactiveBorder);
    }
    form.init(sessionOf({}), "S");
    form.Show();
}

TEST_P(FileWriterDialog, StoredSwitchesCompareExactly) {
    for (const char* action : {"append", "APPEND", " Append", "OverWrite", "no", ""}) {
        const auto record = sessionOf(with(kOwn, "FileAction", action));
        saveUnseen(record);
        EXPECT_EQ(record->GetRow("FileAction")[1], "OverWrite") << action;
    }
    for (const char* only : {"True", "TRUE", "1", "-1", " true", ""}) {
        const auto record = sessionOf(with(kOwn, "WriteFileOnly", only));
        saveUnseen(record);
        EXPECT_EQ(record->GetRow("WriteFileOnly")[1], "false") << only;
    }
}

TEST_P(FileWriterDialog, AFormatThatIsNotListedGivesWayToTheFirstRowAndIsLost) {
    for (const char* format : {"GONE", "csv", "CS", "CSV ", "CSVX"}) {
        const auto record = sessionOf(with(kOwn, "PartFormat", format));
        show(record, [&](User& u) {
            EXPECT_EQ(u.see("cboPartFormat").selected, 1U) << format;
            u.click("btnCancel");
        });
        EXPECT_EQ(record->GetRow("PartFormat")[1], format);
        frmTallyvaneConfig form;
        form.init(record, "S");
        form.SaveAdvancedChanges();
        EXPECT_EQ(record->GetRow("PartFormat")[1], kNoneRow);
    }
}

TEST_P(FileWriterDialog, ListsTheNoneRowThenTheFilesInTheirOrder) {
    putFormat("beta");
    putFormat("Alpha two");
    putFormat(".hidden");
    memory->makeFolder(formatFolder + "FOLDER.vla");
    memory->save(ItemPath{formatFolder, "note.txt"}, "");
    EXPECT_EQ(listed(),
              (std::vector<std::string>{kNoneRow, ".hidden", "Alpha two", "beta", "CSV", "PLAIN"}));
}

TEST_P(FileWriterDialog, FileModeListsNoFormatsOfTheHost) {
    addHostFormat("HOST", "HOST");
    EXPECT_EQ(listed(), (std::vector<std::string>{kNoneRow, "CSV", "PLAIN"}));
}

TEST_P(FileWriterDialog, InMemoryTheHostsFormatsFollowDoublesIncluded) {
    g_DatasetMode = true;
    addHostFormat("ZEBRA", "ZEBRA");
    addHostFormat("X", "");
    addHostFormat("CSV", "CSV");
    addHostFormat("a", "APE");
    EXPECT_EQ(listed(),
              (std::vector<std::string>{kNoneRow, "CSV", "PLAIN", "ZEBRA", "CSV", "APE"}));
}

TEST_P(FileWriterDialog, InMemoryWithoutFilesThereIsNoNoneRow) {
    g_DatasetMode = true;
    g_PartFormatFolder = "/store/EMPTY\\";
    addHostFormat("HOST", "HOST");
    EXPECT_EQ(listed(), std::vector<std::string>{"HOST"});
}

TEST_P(FileWriterDialog, WithoutFormatsNameAndFolderAreDemanded) {
    g_PartFormatFolder = "/store/EMPTY\\";
    EXPECT_TRUE(listed().empty());
    expectRefused([](User&) {}, "{TVW_ERR_FILE_NAME_INVALID}\r\n", "{TVW_ERR_TITLE}");
    expectRefused([](User& u) { u.type("txtFileName", "a.txt"); }, "{TVW_ERR_FOLDER_INVALID}\r\n",
                  "{TVW_ERR_TITLE}");
    const auto record = sessionOf({});
    const long result = show(record, [](User& u) {
        EXPECT_TRUE(u.see("cboPartFormat").rows.empty());
        u.type("txtFileName", "a.txt");
        u.type("txtFileFolder", "out");
        u.tick("chkWriteFileOnly");
        u.click("btnOk");
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(dataOf(rowsOf(*record)),
              (std::vector<std::string>{"", "a.txt", "out", "OverWrite", "true"}));
}

TEST_P(FileWriterDialog, NoneRowNeedsNeitherNameNorFolder) {
    const auto record = sessionOf({});
    EXPECT_EQ(show(record, pressing("btnOk")), 0);
    EXPECT_EQ(rowsOf(*record), kFileWriterDefaults);
    EXPECT_EQ(fileRows("S"), kFileWriterDefaults);
    EXPECT_EQ(g_TallyvanePartFormat, kNoneRow);
    EXPECT_TRUE(user().boxes().empty());
    // In another language the stored text is not found; the first row is the none row all the same.
    texts->texts["ADD_MORAM_CONFIG_NONE"] = "keines";
    show(record, [](User& u) {
        EXPECT_EQ(u.see("cboPartFormat").text, "<keines>");
        u.click("btnOk");
    });
    EXPECT_EQ(record->GetRow("PartFormat")[1], "<keines>");
}

TEST_P(FileWriterDialog, NoneRowWithANameAloneStoresTheName) {
    const auto record = sessionOf({});
    const long result = show(record, [](User& u) {
        u.type("txtFileName", "list.txt");
        u.click("btnOk");
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(rowsOf(*record), with(kFileWriterDefaults, "FileName", "list.txt"));
}

TEST_P(FileWriterDialog, AFormatNeedsAFileName) {
    expectRefused(
        [](User& u) {
            u.choose("cboPartFormat", "CSV");
            u.type("txtFileFolder", " out ");
        },
        "{TVW_ERR_FILE_NAME_INVALID}\r\n", "{TVW_ERR_TITLE}");
    user().finish();
    user().onBox();
    show(sessionOf({}), [](User& u) {
        u.choose("cboPartFormat", "CSV");
        u.type("txtFileFolder", " out ");
        u.type("txtFileName", "   ");
        u.click("btnOk");
        EXPECT_EQ(u.see("txtFileName").text, "");
        EXPECT_EQ(u.see("txtFileFolder").text, " out ") << "its turn comes behind the name";
        u.click("btnCancel");
    });
}

TEST_P(FileWriterDialog, AFormatNeedsAFolder) {
    user().onBox();
    show(sessionOf({}), [](User& u) {
        u.choose("cboPartFormat", "PLAIN");
        u.type("txtFileName", "  my list.txt ");
        u.type("txtFileFolder", "  ");
        u.click("btnOk");
        EXPECT_EQ(u.see("txtFileName").text, "my list.txt");
        EXPECT_EQ(u.see("txtFileFolder").text, "");
        u.click("btnCancel");
    });
    ASSERT_EQ(user().boxes().size(), 1U);
    expectRefusal(user().boxes()[0], "{TVW_ERR_FOLDER_INVALID}\r\n", "{TVW_ERR_TITLE}");
}

TEST_P(FileWriterDialog, RefusesEachForbiddenCharacterInTheFileName) {
    for (const char each : std::string("\\/:*?\"<>|")) {
        expectRefused([&](User& u) { u.type("txtFileName", std::string("a") + each + ".txt"); },
                      kBadName, "{MORAM_CONFIG_MSG_INVALID_CONFIG}");
    }
}

TEST_P(FileWriterDialog, RefusesAFileNameThatIsANumber) {
    for (const char* name : {"123", "1e3", "-4", " 12.5 "}) {
        expectRefused([&](User& u) { u.type("txtFileName", name); }, kBadName,
                      "{MORAM_CONFIG_MSG_INVALID_CONFIG}");
    }
    setNumberLocale("de-DE");
    expectRefused([](User& u) { u.type("txtFileName", ",5"); }, kBadName,
                  "{MORAM_CONFIG_MSG_INVALID_CONFIG}");
    setNumberLocale("en-US");
    EXPECT_EQ(show(sessionOf({}),
                   [](User& u) {
                       u.type("txtFileName", ",5");
                       u.click("btnOk");
                   }),
              0);
}

TEST_P(FileWriterDialog, WriteFileOnlyNeedsAFormat) {
    expectRefused([](User& u) { u.tick("chkWriteFileOnly"); },
                  "{TVW_CONFIG_INVAILD_PART_FORMAT_WITH_WFO}", "{TVW_ERR_TITLE}");
}

TEST_P(FileWriterDialog, ChecksInItsOrder) {
    for (int i = 0; i < 4; ++i) user().onBox();
    const auto record = sessionOf({});
    const long result = show(record, [](User& u) {
        u.choose("cboPartFormat", "CSV");
        u.tick("chkWriteFileOnly");
        u.click("btnOk");
        u.type("txtFileName", "a:b");
        u.click("btnOk");
        u.type("txtFileFolder", "out");
        u.choose("cboPartFormat", kNoneRow);
        u.click("btnOk");
        u.type("txtFileName", "ab");
        u.click("btnOk");
        u.choose("cboPartFormat", "CSV");
        u.click("btnOk");
    });
    EXPECT_EQ(result, 0);
    std::vector<std::string> told;
    for (const SeenBox& box : user().boxes()) told.push_back(box.text);
    EXPECT_EQ(told, (std::vector<std::string>{"{TVW_ERR_FILE_NAME_INVALID}\r\n",
                                              "{TVW_ERR_FOLDER_INVALID}\r\n", kBadName,
                                              "{TVW_CONFIG_INVAILD_PART_FORMAT_WITH_WFO}"}));
    EXPECT_EQ(dataOf(rowsOf(*record)),
              (std::vector<std::string>{"CSV", "ab", "out", "OverWrite", "true"}));
}

TEST_P(FileWriterDialog, RefusalMovesNoFocus) {
    user().onBox();
    show(sessionOf({}), [](User& u) {
        u.type("txtFileFolder", "out");
        u.type("txtFileName", "a|b");
        u.focus("txtFileFolder");
        u.pressEnter();
        EXPECT_TRUE(u.see("txtFileFolder").focus);
        u.click("btnCancel");
    });
    EXPECT_EQ(user().boxes().size(), 1U);
}

TEST_P(FileWriterDialog, AnyFolderPassesAndIsStoredTrimmed) {
    const auto record = sessionOf({});
    for (const char* folder : {"/not there/", "C:\\out\\", "a<b>|*?", "123", "部品"}) {
        const long result = show(record, [&](User& u) {
            u.choose("cboPartFormat", "CSV");
            u.type("txtFileName", " report.txt ");
            u.type("txtFileFolder", "  " + std::string(folder) + " ");
            u.tick("rdoAppend");
            u.click("btnOk");
        });
        EXPECT_EQ(result, 0);
        EXPECT_EQ(dataOf(rowsOf(*record)),
                  (std::vector<std::string>{"CSV", "report.txt", folder, "Append", "false"}));
    }
    EXPECT_EQ(fileRows("S"), rowsOf(*record));
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(FileWriterDialog, UnseenRunTrimsWhatItStores) {
    const auto record = sessionOf({{"FileName", "  a*b "}, {"FileFolder", " out\t "}});
    saveUnseen(record);
    EXPECT_EQ(record->GetRow("FileName")[1], "a*b");
    EXPECT_EQ(record->GetRow("FileFolder")[1], "out\t");
}

TEST_P(FileWriterDialog, AFormatNameWithOuterBlanksIsStoredTrimmedAndNotFoundAgain) {
    putFormat(" PAD ");
    const auto record = sessionOf(kOwn);
    show(record, [](User& u) {
        u.choose("cboPartFormat", " PAD ");
        u.click("btnOk");
    });
    EXPECT_EQ(record->GetRow("PartFormat")[1], "PAD");
    EXPECT_EQ(g_TallyvanePartFormat, " PAD ");
    show(record, [](User& u) {
        EXPECT_EQ(u.see("cboPartFormat").text, kNoneRow);
        u.click("btnCancel");
    });
}

#ifndef _WIN32  // which stores no such name
TEST_P(FileWriterDialog, AFormatNameWithAnAngleBracketCountsAsNone) {
    putFormat("A<B");
    const auto record = sessionOf({});
    EXPECT_EQ(show(record,
                   [](User& u) {
                       u.choose("cboPartFormat", "A<B");
                       u.click("btnOk");
                   }),
              0);
    EXPECT_EQ(record->GetRow("PartFormat")[1], "A<B");
    user().onBox();
    show(record, [](User& u) {
        u.tick("chkWriteFileOnly");
        u.click("btnOk");
        u.click("btnCancel");
    });
    expectRefusal(user().boxes().back(), "{TVW_CONFIG_INVAILD_PART_FORMAT_WITH_WFO}",
                  "{TVW_ERR_TITLE}");
}
#endif

TEST_P(FileWriterDialog, OnlyOkStoresAnything) {
    putSession("S", {{"FileName", "old"}});
    const std::string before = sessionText("S");
    g_TallyvanePartFormat = "EARLIER";
    const auto record = sessionOf(kOwn);
    const auto leaving = [&](const User::Script& leave) {
        return show(record, [&](User& u) {
            u.choose("cboPartFormat", "PLAIN");
            u.type("txtFileName", "new.txt");
            leave(u);
        });
    };
    EXPECT_EQ(leaving(pressing("btnCancel")), 1);
    EXPECT_EQ(leaving([](User& u) { u.pressEscape(); }), 1);
    EXPECT_EQ(leaving([](User& u) { u.closeByFrame(); }), 0);
    EXPECT_EQ(rowsOf(*record), kOwn);
    EXPECT_EQ(sessionText("S"), before);
    EXPECT_EQ(g_TallyvanePartFormat, "EARLIER");
    EXPECT_EQ(leaving([](User& u) { u.pressEnter(); }), 0);
    EXPECT_EQ(g_TallyvanePartFormat, "PLAIN");
    EXPECT_EQ(rowsOf(*record), with(with(kOwn, "PartFormat", "PLAIN"), "FileName", "new.txt"));
    EXPECT_EQ(fileRows("S"), rowsOf(*record));
}

TEST_P(FileWriterDialog, SavesUnderTheNameAsGiven) {
    show(sessionOf({}), pressing("btnOk"), "lower Case");
    EXPECT_EQ(sessionFiles(), std::vector<std::string>{"lower Case.vla"});
}

TEST_P(FileWriterDialog, InMemoryNoFileIsWritten) {
    g_DatasetMode = true;
    const auto record = sessionOf({});
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(show(record, pressing("btnOk")), 0);
    EXPECT_EQ(rowsOf(*record), kFileWriterDefaults);
    EXPECT_TRUE(sessionFiles().empty());
    EXPECT_EQ(g_TallyvanePartFormat, kNoneRow);
}

TEST_P(FileWriterDialog, ASaveThatFailsIsNotTold) {
    const auto record = sessionOf({});
    disk.failOn(FaultyFileSystem::Operation::Save, "", 0, 2);
    disk.resetCounts();
    EXPECT_EQ(saveUnseen(record), 0);
    EXPECT_EQ(show(record, pressing("btnOk")), 0);
    EXPECT_EQ(disk.count(FaultyFileSystem::Operation::Save), 2U);
    memory->makeFolder(sessionFolder + "S.vla");
    EXPECT_EQ(show(record, pressing("btnOk")), 0);
    g_SessionFolder = "/nowhere/MORAM\\";
    EXPECT_EQ(show(record, pressing("btnOk")), 0);
    EXPECT_EQ(rowsOf(*record), kFileWriterDefaults);
    EXPECT_TRUE(user().boxes().empty());
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(FileWriterDialog, WithoutARecordNothingHappens) {
    frmTallyvaneConfig form;
    form.init(nullptr, "S");
    EXPECT_EQ(form.SaveAdvancedChanges(), 0);
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(form.Result(), 0);
    EXPECT_TRUE(texts->asked.empty());
    EXPECT_TRUE(sessionFiles().empty());
}

TEST_P(FileWriterDialog, LoadsOnceAndReleasesItsCaptionBar) {
    user().onForm("frmTallyvaneConfig", pressing("btnCancel"));
    frmTallyvaneConfig form;
    EXPECT_FALSE(form.loaded());
    form.init(sessionOf({}), "S");
    EXPECT_TRUE(form.UniCaption1.bound());
    form.Show();
    EXPECT_EQ(form.Result(), 1);
    form.Unload();
    EXPECT_FALSE(form.loaded());
    EXPECT_EQ(std::count(texts->asked.begin(), texts->asked.end(), "TVW_CONFIG_TITLE"), 1);
    EXPECT_FALSE(form.UniCaption1.bound());
}

TEST_P(FileWriterDialog, TheTabKeyPassesTheFormatListBy) {
    show(sessionOf({}), [](User& u) {
        EXPECT_FALSE(u.see("cboPartFormat").tabStop);
        EXPECT_TRUE(u.see("txtFileName").tabStop);
        EXPECT_TRUE(u.see("txtFileFolder").tabStop);
        EXPECT_TRUE(u.see("txtFileName").focus);
        u.focus("btnCancel");
        u.pressTab();
        EXPECT_TRUE(u.see("txtFileName").focus);
        u.pressTab();
        EXPECT_TRUE(u.see("txtFileFolder").focus);
        u.click("btnCancel");
    });
}

TEST_P(FileWriterDialog, CaptionsComeByKeyOrAllByDefault) {
    expectTexts<frmTallyvaneConfig>(*texts, kFileWriterTexts);
}

TEST_P(FileWriterDialog, SharesTheFontAndDoesWithoutIt) {
    frmTallyvaneConfig form;
    form.init(sessionOf({}), "S");
    expectFontEverywhere(form, texts->font);
    form.Unload();
    texts->fontFailing = true;
    form.init(sessionOf({}), "S");
    EXPECT_EQ(form.font(), nullptr);
    EXPECT_EQ(form.cboPartFormat.items().size(), 3U);
}

TEST_P(FileWriterDialog, MissingNoneTextCostsTheNoneRowAlone) {
    texts->missing = {"ADD_MORAM_CONFIG_NONE"};
    user().onBox();
    EXPECT_EQ(listed(), (std::vector<std::string>{"CSV", "PLAIN"}));
    ASSERT_EQ(user().boxes().size(), 1U);
    expectFailure(user().boxes()[0], failureText("frmTallyvaneConfig:loadCboPartFormat",
                                                 "no text for ADD_MORAM_CONFIG_NONE"));
}

TEST_P(FileWriterDialog, MissingTextsOfARefusalAreToldAndTheRefusalStands) {
    struct Refusal {
        User::Script enter;
        std::string textKey, tail, titleKey;
    };
    const auto csv = [](User& u) { u.choose("cboPartFormat", "CSV"); };
    const std::vector<Refusal> refusals{
        {csv, "TVW_ERR_FILE_NAME_INVALID", "\r\n", "TVW_ERR_TITLE"},
        {[&](User& u) {
             csv(u);
             u.type("txtFileName", "a");
         },
         "TVW_ERR_FOLDER_INVALID", "\r\n", "TVW_ERR_TITLE"},
        {[](User& u) { u.type("txtFileName", "a:"); }, "MORAM_CONFIG_MSG_INVALID_CHARS",
         kBadName.substr(kBadName.find('\r')), "MORAM_CONFIG_MSG_INVALID_CONFIG"},
        {[](User& u) { u.tick("chkWriteFileOnly"); }, "TVW_CONFIG_INVAILD_PART_FORMAT_WITH_WFO", "",
         "TVW_ERR_TITLE"}};
    for (const Refusal& each : refusals) {
        for (const std::string& missing : {each.textKey, each.titleKey}) {
            texts->missing = {missing};
            user().finish();
            user().onBox();
            user().onBox();
            show(sessionOf({}), [&](User& u) {
                each.enter(u);
                u.click("btnOk");
                u.click("btnCancel");
            });
            ASSERT_EQ(user().boxes().size(), 2U) << missing;
            expectFailure(user().boxes()[0],
                          failureText("frmTallyvaneConfig.ApplyChanges", "no text for " + missing));
            expectRefusal(user().boxes()[1],
                          (missing == each.textKey ? "" : "{" + each.textKey + "}") + each.tail,
                          missing == each.titleKey ? "" : "{" + each.titleKey + "}");
        }
    }
}

TEST_P(FileWriterDialog, ANameTooLongToCheckIsToldAndRefused) {
    user().onBox();
    user().onBox();
    frmTallyvaneConfig form;
    user().onForm("frmTallyvaneConfig", [&](User& u) {
        form.txtFileName.setText(std::string(32768, 'a'));
        u.click("btnOk");
        u.click("btnCancel");
    });
    form.init(sessionOf({}), "S");
    form.Show();
    ASSERT_EQ(user().boxes().size(), 2U);
    EXPECT_TRUE(isFailureOf(user().boxes()[0].text, "frmTallyvaneConfig.ApplyChanges"));
    expectRefusal(user().boxes()[1], kBadName, "{MORAM_CONFIG_MSG_INVALID_CONFIG}");
}

TEST_P(FileWriterDialog, OpeningFailsToTheCallerWithoutTheOkText) {
    texts->missing = {"BUTTON_OK"};
    frmTallyvaneConfig form;
    EXPECT_THROW(form.init(sessionOf(kOwn), "S"), Error);
    EXPECT_FALSE(form.loaded());
    EXPECT_TRUE(user().boxes().empty());
}

TEST_P(FileWriterDialog, BrowsesForAFolderAndTakesItUnchanged) {
    const TemporaryFolder folder;
    // A browse dialog gives it in the system's spelling.
    const std::string picked = std::filesystem::path(folder.path()).make_preferred().string();
    user().onBrowse(picked);
    user().onBrowse("");
    frmTallyvaneConfig form;
    user().onForm("frmTallyvaneConfig", [&](User& u) {
        u.type("txtFileFolder", "earlier");
        u.click("btnBrowseFolder");
        EXPECT_EQ(u.see("txtFileFolder").text, picked);
        u.click("btnBrowseFolder");
        EXPECT_EQ(u.see("txtFileFolder").text, picked);
        ASSERT_EQ(u.browses().size(), 2U);
        const BrowseRequest& request = u.browses()[0];
        EXPECT_EQ(request.title, "{GLOBAL_BROWSE_FOLDER}");
        EXPECT_EQ(request.okCaption, "{BUTTON_OK}");
        EXPECT_EQ(request.cancelCaption, "{BUTTON_CANCEL}");
        EXPECT_FALSE(request.files);
        EXPECT_EQ(request.owner, &form);
        EXPECT_NE(request.font, nullptr);
        EXPECT_EQ(request.font, form.font());
        u.click("btnCancel");
    });
    form.init(sessionOf({}), "S");
    form.Show();
}

TEST_P(FileWriterDialog, BrowseTextsFallBackWhenEmptyOrMissing) {
    user().onBrowse("");
    user().onBrowse("");
    show(sessionOf({}), [&](User& u) {
        texts->texts = {{"GLOBAL_BROWSE_FOLDER", ""}, {"BUTTON_OK", ""}, {"BUTTON_CANCEL", ""}};
        u.click("btnBrowseFolder");
        texts->texts.clear();
        texts->missing = {"GLOBAL_BROWSE_FOLDER", "BUTTON_OK", "BUTTON_CANCEL"};
        u.click("btnBrowseFolder");
        texts->missing.clear();
        u.click("btnCancel");
    });
    ASSERT_EQ(user().browses().size(), 2U);
    for (const BrowseRequest& request : user().browses()) {
        EXPECT_EQ(request.title, "Browse for folder");
        EXPECT_EQ(request.okCaption, "OK");
        EXPECT_EQ(request.cancelCaption, "Cancel");
    }
    EXPECT_TRUE(user().boxes().empty());
}

/// A view whose browse dialog can't be shown.
TEST_P(FileWriterDialog, AFailingBrowseDialogIsToldAndKeepsTheFolder) {
    const auto view = std::make_shared<NoChooser>();
    installView(view);
    view->user().onBox();
    view->user().onForm("frmTallyvaneConfig", [](User& u) {
        u.type("txtFileFolder", "kept");
        u.click("btnBrowseFolder");
        EXPECT_EQ(u.see("txtFileFolder").text, "kept");
        u.click("btnCancel");
    });
    frmTallyvaneConfig form;
    form.init(sessionOf({}), "S");
    form.Show();
    ASSERT_EQ(view->user().boxes().size(), 1U);
    expectFailure(view->user().boxes()[0],
                  failureText("frmTallyvaneConfig:btnBrowseFolder_Click", "no chooser"));
    view->user().finish();
}

}  // namespace
}  // namespace wynconfig
