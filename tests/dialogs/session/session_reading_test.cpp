// What the session dialog shows of a record: full ones, ones with keys missing or odd values, in
// file mode and in the in-memory mode.
#include "platform/text/numbers.h"
#include "support/session_dialog_desk.h"

namespace wynconfig {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

/// The launch tab and the selected list, as a person sees them.
struct Seen {
    std::string path;
    std::string arguments;
    bool reverse = false;
    bool resize = false;
    std::string orientation;  ///< caption of the option that is on, empty for none
    Names formats;
    bool operator==(const Seen&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Seen& seen) {
    out << "{path \"" << seen.path << "\", arguments \"" << seen.arguments << "\", reverse "
        << seen.reverse << ", resize " << seen.resize << ", " << seen.orientation << ", formats";
    for (const std::string& format : seen.formats) out << " \"" << format << "\"";
    return out << "}";
}

Seen seenBy(User& u) {
    Seen seen;
    seen.path = u.see("txtProgramPath").text;
    seen.arguments = u.see("txtCommandLineArgs").text;
    seen.reverse = u.see("chkReverseList").value;
    seen.resize = u.see("chkAutoResize").value;
    for (const char* option : {"rdoTop", "rdoBottom", "rdoLeft", "rdoRight"}) {
        if (u.see(option).value) seen.orientation += option;
    }
    u.changeTab("SSTab2", 1);
    seen.formats = u.see("lstSelectedFormats2").rowTexts();
    return seen;
}

const Pairs kFullRows{{"ProgramPath", "/programs/parts.exe"},
                      {"CommandLineArgs", "/list"},
                      {"ReverseList", "false"},
                      {"AutoResize", "false"},
                      {"Orientation", "bottom"},
                      {"FormatCount", "2"},
                      {"FORMAT1", "CSV"},
                      {"FORMAT2", "PLAIN"},
                      {"DisableProgramLaunch", "false"}};
const Seen kFullSeen{"/programs/parts.exe", "/list", false, false, "rdoBottom", {"CSV", "PLAIN"}};

/// The full rows but for some keys.
Pairs without(const std::set<std::string>& absent) {
    Pairs rows;
    for (const auto& row : kFullRows) {
        if (!absent.contains(row.first)) rows.push_back(row);
    }
    return rows;
}

/// The full rows with other values for some keys.
Pairs with(const Rows& changed) {
    Pairs rows = kFullRows;
    for (auto& [key, value] : rows) {
        if (const auto own = changed.find(key); own != changed.end()) value = own->second;
    }
    return rows;
}

class SessionReading : public SessionDialogDesk {
  protected:
    void SetUp() override {
        SessionDialogDesk::SetUp();
        putFormat("CSV");
        putFormat("PLAIN");
    }

    /// Shows the rows in file mode and in the in-memory mode, each time to the script.
    void inBothModes(const Pairs& rows, const User::Script& look) {
        for (const bool inMemory : {false, true}) {
            SCOPED_TRACE(inMemory ? "in memory" : "in file mode");
            const User::Script script = [&](User& u) {
                look(u);
                u.click("btnCancel");
            };
            if (inMemory) {
                auto session = std::make_shared<Dataset>();
                for (const auto& [key, value] : rows) session->AddRow({key, value});
                ConfigGlobalModule::g_Session = session;
                editHeld("DESK", script);
            } else {
                putSession("DESK", rows);
                edit("DESK", script);
            }
        }
    }
    void expectSeen(const Pairs& rows, const Seen& expected) {
        inBothModes(rows, [&](User& u) { EXPECT_EQ(seenBy(u), expected); });
    }
};
ON_EVERY_VIEW(SessionReading);

TEST_P(SessionReading, AFullRecordShowsEveryValue) {
    expectSeen(kFullRows, kFullSeen);
}

TEST_P(SessionReading, EachOrientationTurnsItsOptionOn) {
    for (const auto& [word, option] : std::map<std::string, std::string>{{"top", "rdoTop"},
                                                                         {"bottom", "rdoBottom"},
                                                                         {"right", "rdoRight"},
                                                                         {"left", "rdoLeft"}}) {
        Seen expected = kFullSeen;
        expected.orientation = option;
        expectSeen(with({{"Orientation", word}}), expected);
    }
}

TEST_P(SessionReading, SwitchesAreOnForTrue) {
    Seen expected = kFullSeen;
    expected.reverse = expected.resize = true;
    expectSeen(with({{"ReverseList", "true"}, {"AutoResize", "true"}}), expected);
}

TEST_P(SessionReading, ValuesAreComparedExactly) {
    Seen expected = kFullSeen;
    expected.orientation = "rdoLeft";
    for (const char* notTrue : {"True", "TRUE", " true", "true ", "1", "-1", "yes", ""}) {
        for (const char* noWord : {"Top", "TOP", "bottom ", "up", ""}) {
            expectSeen(
                with({{"ReverseList", notTrue}, {"AutoResize", notTrue}, {"Orientation", noWord}}),
                expected);
        }
    }
}

TEST_P(SessionReading, KeysAreComparedExactly) {
    Pairs rows = without({"CommandLineArgs"});
    rows.emplace_back("COMMANDLINEARGS", "/shouted");
    Seen expected = kFullSeen;
    expected.arguments = expected.path;
    expectSeen(rows, expected);
}

TEST_P(SessionReading, WithNoRowsTheDefaultsShow) {
    expectSeen({}, {"", "", true, true, "rdoTop", {}});
}

TEST_P(SessionReading, WithoutTheProgramPathItsBoxStaysEmpty) {
    Seen expected = kFullSeen;
    expected.path = "";
    expectSeen(without({"ProgramPath"}), expected);
}

TEST_P(SessionReading, WithoutTheCommandLineItsBoxShowsTheProgramPath) {
    Seen expected = kFullSeen;
    expected.arguments = "/programs/parts.exe";
    expectSeen(without({"CommandLineArgs"}), expected);
}

TEST_P(SessionReading, WithoutPathAndCommandLineBothBoxesStayEmpty) {
    Seen expected = kFullSeen;
    expected.path = expected.arguments = "";
    expectSeen(without({"ProgramPath", "CommandLineArgs"}), expected);
}

TEST_P(SessionReading, WithoutTheReverseSwitchTheCommandLineDecides) {
    expectSeen(without({"ReverseList"}), kFullSeen);
    Pairs rows = without({"ReverseList"});
    rows[1].second = "true";
    Seen expected = kFullSeen;
    expected.arguments = "true";
    expected.reverse = true;
    expectSeen(rows, expected);
}

TEST_P(SessionReading, WithoutAnyRowBeforeItTheReverseSwitchIsOn) {
    Seen expected = kFullSeen;
    expected.path = expected.arguments = "";
    expected.reverse = true;
    expectSeen(without({"ProgramPath", "CommandLineArgs", "ReverseList"}), expected);
}

TEST_P(SessionReading, WithoutTheResizeSwitchTheReverseSwitchDecides) {
    expectSeen(without({"AutoResize"}), kFullSeen);
    Pairs rows = without({"AutoResize"});
    rows[2].second = "true";
    Seen expected = kFullSeen;
    expected.reverse = expected.resize = true;
    expectSeen(rows, expected);
}

TEST_P(SessionReading, WithoutAnyRowBeforeItTheResizeSwitchIsOn) {
    Seen expected{"", "", true, true, "rdoBottom", {"CSV", "PLAIN"}};
    expectSeen(without({"ProgramPath", "CommandLineArgs", "ReverseList", "AutoResize"}), expected);
}

TEST_P(SessionReading, WithoutTheOrientationThePrecedingDataDecides) {
    Seen expected = kFullSeen;
    expected.orientation = "rdoLeft";
    expectSeen(without({"Orientation"}), expected);

    Pairs rows = without({"Orientation"});
    rows[3].second = "right";
    expected.orientation = "rdoRight";
    expectSeen(rows, expected);
}

TEST_P(SessionReading, WithoutAnyRowBeforeItTheOrientationIsTop) {
    Seen expected{"", "", true, true, "rdoTop", {"CSV", "PLAIN"}};
    expectSeen(
        without({"ProgramPath", "CommandLineArgs", "ReverseList", "AutoResize", "Orientation"}),
        expected);
}

TEST_P(SessionReading, WithoutTheFormatCountThereAreNoFormats) {
    Seen expected = kFullSeen;
    expected.formats = {};
    expectSeen(without({"FormatCount"}), expected);
}

TEST_P(SessionReading, WithoutTheFormatCountANumericOrientationCounts) {
    Pairs rows = without({"FormatCount"});
    rows[4].second = "1";
    Seen expected = kFullSeen;
    expected.orientation = "rdoLeft";
    expected.formats = {"CSV"};
    expectSeen(rows, expected);
}

TEST_P(SessionReading, WithTheFormatCountAloneTheFormatsShow) {
    Seen expected{"", "", true, true, "rdoTop", {"CSV"}};
    expectSeen({{"FormatCount", "1"}, {"FORMAT1", "CSV"}}, expected);
}

TEST_P(SessionReading, WithoutTheFirstFormatTheCountItselfShowsAsOne) {
    Seen expected = kFullSeen;
    expected.formats = {"2", "PLAIN"};
    expectSeen(without({"FORMAT1"}), expected);
}

TEST_P(SessionReading, WithoutALaterFormatTheOneBeforeItIsNotAddedTwice) {
    Seen expected = kFullSeen;
    expected.formats = {"CSV"};
    expectSeen(without({"FORMAT2"}), expected);
}

TEST_P(SessionReading, FormatsBeyondTheCountDoNotShow) {
    Seen expected = kFullSeen;
    expected.formats = {"CSV"};
    expectSeen(with({{"FormatCount", "1"}}), expected);
}

TEST_P(SessionReading, ACountBeyondTheFormatsAddsNothing) {
    expectSeen(with({{"FormatCount", "5"}}), kFullSeen);
}

TEST_P(SessionReading, TwoRowsOfOneFormatShowAsOne) {
    Seen expected = kFullSeen;
    expected.formats = {"PLAIN"};
    expectSeen(with({{"FORMAT1", "PLAIN"}}), expected);
}

TEST_P(SessionReading, FormatsThatDifferInCaseAreTwo) {
    Seen expected = kFullSeen;
    expected.formats = {"plain", "PLAIN"};
    expectSeen(with({{"FORMAT1", "plain"}}), expected);
}

TEST_P(SessionReading, AFormatThatIsGoneShowsAllTheSame) {
    Seen expected = kFullSeen;
    expected.formats = {"GONE", "PLAIN"};
    expectSeen(with({{"FORMAT1", "GONE"}}), expected);
}

TEST_P(SessionReading, TheCountIsReadAsANumberOfSixteenBits) {
    for (const auto& [count, shown] : std::map<std::string, std::size_t>{{"1.5", 2},
                                                                         {"0.5", 0},
                                                                         {"2.5", 2},
                                                                         {" 1 ", 1},
                                                                         {"1e0", 1},
                                                                         {"-2", 0},
                                                                         {"0", 0},
                                                                         {"", 0},
                                                                         {"two", 0},
                                                                         {"32768", 0},
                                                                         {"1e400", 0}}) {
        Seen expected = kFullSeen;
        expected.formats.resize(shown);
        SCOPED_TRACE(count);
        expectSeen(with({{"FormatCount", count}}), expected);
    }
}

TEST_P(SessionReading, AFormatCountOfFullWidthCountsWhereItIsANumber) {
    setNumberLocale("ja-JP");
    Seen expected = kFullSeen;
    expected.formats.resize(1);
    expectSeen(with({{"FormatCount", "１"}}), expected);
    setNumberLocale("en-US");
    expected.formats.clear();
    expectSeen(with({{"FormatCount", "１"}}), expected);
}

TEST_P(SessionReading, AnOddProgramPathShowsAsItStands) {
    for (const char* path : {"\"C:\\My Programs\\parts.exe\"", "  blanks  ", "部品.exe",
                             "e\xCC\x81t\xC3\xA9 \xF0\x9F\x94\xA7"}) {
        Seen expected = kFullSeen;
        expected.path = path;
        expectSeen(with({{"ProgramPath", path}}), expected);
    }
}

TEST_P(SessionReading, TheBoxesOfTheProgramFollowTheLaunchSwitch) {
    for (const auto& [value, enabled] : std::map<std::string, bool>{
             {"false", true}, {"true", false}, {"False", false}, {"", false}, {"no", false}}) {
        SCOPED_TRACE(value);
        inBothModes(with({{"DisableProgramLaunch", value}}), [enabled = enabled](User& u) {
            for (const char* box : {"txtProgramPath", "txtCommandLineArgs"}) {
                EXPECT_EQ(u.see(box).enabled, enabled);
                EXPECT_EQ(u.see(box).background,
                          enabled ? Background::Window : Background::InactiveBorder);
            }
            EXPECT_TRUE(u.see("btnBrowseFile").enabled);
            EXPECT_EQ(u.see("txtProgramPath").text, "/programs/parts.exe");
        });
    }
}

TEST_P(SessionReading, WithoutTheLaunchSwitchTheBoxesAreEnabled) {
    inBothModes(without({"DisableProgramLaunch"}), [](User& u) {
        for (const char* box : {"txtProgramPath", "txtCommandLineArgs"}) {
            EXPECT_TRUE(u.see(box).enabled);
            EXPECT_EQ(u.see(box).background, Background::Window);
        }
    });
}

}  // namespace
}  // namespace wynconfig
