// What sending by a session does, in which order, and when it does nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "sending/sending.h"
#include "support/file_system_kit.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

/// Keeps what it is told to start; fails when told so.
class RecordingStarter : public ProgramStarter {
  public:
    std::string obstacleTo(const CommandLine&) const override { return obstacle; }
    bool mayWrite(const fs::path& path) const override { return path != mayNotWrite; }
    void start(const ProgramStep& step) override {
        if (!failure.empty()) throw std::runtime_error(failure);
        fileWasThere = fs::exists(expectedFile);
        started.push_back(step);
    }

    std::vector<ProgramStep> started;
    std::string failure;
    std::string obstacle;  ///< seen beforehand
    fs::path mayNotWrite;
    fs::path expectedFile;  ///< looked for at the moment of the start
    bool fileWasThere = false;
};

/// A session with a program that gets part numbers, and a file that gets quantities.
class Sending : public testing::Test {
  protected:
    Sending() {
        m_session.name = "DESK";
        m_session.programPath = "\"/opt/order desk\"";
        m_session.commandLineArgs = "/quiet \"two words\"";
        m_session.formats = {"NUMBERS", "QUANTITIES"};
        m_session.launchDelay = "1.5";
        m_session.fileFormat = "QUANTITIES";
        m_session.fileName = "list.txt";
        m_session.fileFolder = m_folder.path();
        m_formats["NUMBERS"] = format("NUMBERS", "<Part #>");
        m_formats["QUANTITIES"] = format("QUANTITIES", "<Quantity>");
        m_list.parts = {{"AA-1", 1, "Filter"}, {"BB-2", 20, "Belt"}};
    }

    static PartFormat format(const std::string& name, const std::string& record) {
        PartFormat format;
        format.name = name;
        format.record = record;
        format.separator = ",";
        format.maxRecords = "100";
        return format;
    }

    Plan plan(const std::string& formatName = "NUMBERS") const {
        return planSending(m_session, formatName, m_list, [this](const std::string& name) {
            const auto found = m_formats.find(name);
            if (found == m_formats.end()) throw std::runtime_error("There is no " + name + ".");
            return found->second;
        });
    }

    fs::path file() const { return fs::path(m_folder.path()) / "list.txt"; }

    std::string fileContent() const {
        std::ifstream stream(file(), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// The only problem of the plan, which then must do nothing at all.
    std::string onlyProblem() {
        const Plan made = plan();
        const SendingReport report = carryOut(made, m_starter);
        EXPECT_TRUE(report.done.empty());
        EXPECT_TRUE(m_starter.started.empty());
        EXPECT_FALSE(fs::exists(file()));
        EXPECT_EQ(made.problems.size(), 1U);
        EXPECT_EQ(report.failure, made.problems.empty() ? "" : made.problems.front());
        return report.failure;
    }

    wynconfig::TemporaryFolder m_folder;
    Session m_session;
    std::map<std::string, PartFormat> m_formats;
    PartsList m_list;
    RecordingStarter m_starter;
};

TEST_F(Sending, PlansTheFileWithItsOwnFormat) {
    const Plan made = plan();
    ASSERT_TRUE(made.file.has_value());
    EXPECT_EQ(made.file->file.path, file());
    EXPECT_FALSE(made.file->file.append);
    EXPECT_EQ(made.file->formatName, "QUANTITIES");
    EXPECT_EQ(made.file->list.text, "1,20");
}

TEST_F(Sending, PlansTheProgramWithTheChosenFormat) {
    const Plan made = plan();
    ASSERT_TRUE(made.program.has_value());
    EXPECT_EQ(made.program->command, (CommandLine{"/opt/order desk", {"/quiet", "two words"}}));
    EXPECT_EQ(made.program->list.text, "AA-1,BB-2");
    EXPECT_EQ(made.program->delay, milliseconds(1500));
    EXPECT_EQ(plan("QUANTITIES").program->list.text, "1,20");
}

TEST_F(Sending, TakesTheFirstFormatWhenTheChosenIsNotTheSessions) {
    m_formats["OTHER"] = format("OTHER", "x");
    EXPECT_EQ(plan("").program->formatName, "NUMBERS");
    EXPECT_EQ(plan("OTHER").program->formatName, "NUMBERS");
}

TEST_F(Sending, TouchesNothingWhilePlanning) {
    plan();
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(Sending, WritesTheFileBeforeItStartsTheProgram) {
    m_starter.expectedFile = file();
    const SendingReport report = carryOut(plan(), m_starter);
    EXPECT_EQ(report.failure, "");
    EXPECT_EQ(fileContent(), "1,20");
    ASSERT_EQ(m_starter.started.size(), 1U);
    EXPECT_TRUE(m_starter.fileWasThere);
    EXPECT_EQ(m_starter.started.front().list.text, "AA-1,BB-2");
    EXPECT_EQ(report.done, (std::vector<std::string>{
                               "The list was written to " + file().string() + " (4 bytes).",
                               "Started /opt/order desk; it gets the list after 1.5 s "
                               "(9 bytes)."}));
}

TEST_F(Sending, AppendsWhenTheSessionSaysSo) {
    m_session.append = true;
    carryOut(plan(), m_starter);
    const SendingReport report = carryOut(plan(), m_starter);
    EXPECT_EQ(fileContent(), "1,201,20");
    EXPECT_EQ(report.done.front(), "The list was appended to " + file().string() + " (4 bytes).");
}

TEST_F(Sending, ReversesBothLists) {
    m_session.reverseList = true;
    EXPECT_EQ(plan().program->list.text, "BB-2,AA-1");
    EXPECT_EQ(plan().file->list.text, "20,1");
}

TEST_F(Sending, StartsNoProgramWhenTheLaunchIsDisabled) {
    m_session.launchDisabled = true;
    EXPECT_EQ(carryOut(plan(), m_starter).failure, "");
    EXPECT_TRUE(m_starter.started.empty());
    EXPECT_EQ(fileContent(), "1,20");
}

TEST_F(Sending, StartsNoProgramWhenOnlyTheFileIsWritten) {
    m_session.writeFileOnly = true;
    EXPECT_EQ(carryOut(plan(), m_starter).failure, "");
    EXPECT_TRUE(m_starter.started.empty());
    EXPECT_EQ(fileContent(), "1,20");
}

TEST_F(Sending, WritesNoFileWithoutAFormatForIt) {
    m_session.fileFormat = "";
    EXPECT_EQ(carryOut(plan(), m_starter).failure, "");
    EXPECT_FALSE(fs::exists(file()));
    EXPECT_EQ(m_starter.started.size(), 1U);
}

TEST_F(Sending, RemarksThatNoProgramIsNamedAndWritesTheFile) {
    m_session.programPath = " ";
    const Plan made = plan();
    EXPECT_FALSE(made.program.has_value());
    EXPECT_EQ(made.remarks.front(), "The session names no program, so none is started.");
    EXPECT_EQ(carryOut(made, m_starter).failure, "");
    EXPECT_EQ(fileContent(), "1,20");
}

TEST_F(Sending, RefusesAnEmptyListButStillShowsItsLayout) {
    m_list.parts.clear();
    EXPECT_EQ(onlyProblem(), "The parts list is empty.");
    EXPECT_TRUE(plan().file.has_value());
}

TEST_F(Sending, RefusesWhenThereIsNothingToDo) {
    m_session.fileFormat = "";
    m_session.launchDisabled = true;
    EXPECT_EQ(onlyProblem(), "The session DESK neither writes a file nor starts a program.");
}

TEST_F(Sending, RefusesAFileOnlyWithoutAFormat) {
    m_session.fileFormat = "";
    m_session.writeFileOnly = true;
    EXPECT_EQ(onlyProblem(), "The session writes a file only, but has no part format for it.");
}

TEST_F(Sending, RefusesAFileWithoutANameOrAFolder) {
    const std::string expected =
        "The session has a part format for a file, but not the file's name and folder.";
    m_session.fileName = "";
    EXPECT_EQ(onlyProblem(), expected);
    m_session.fileName = "list.txt";
    m_session.fileFolder = "";
    EXPECT_EQ(onlyProblem(), expected);
}

TEST_F(Sending, RefusesAFileNameThatLeadsElsewhere) {
    m_session.fileName = "../list.txt";
    EXPECT_EQ(onlyProblem(), "\"../list.txt\" is no name of a file.");
}

TEST_F(Sending, RefusesAProgramWithoutAFormat) {
    m_session.formats.clear();
    EXPECT_EQ(onlyProblem(), "The session has no part format for its program.");
}

TEST_F(Sending, DoesNothingWhenAFormatIsGone) {
    m_formats.erase("NUMBERS");
    EXPECT_EQ(onlyProblem(), "There is no NUMBERS.");
}

TEST_F(Sending, DoesNothingWhenTheFormatOfTheFileIsGone) {
    m_session.fileFormat = "GONE";
    EXPECT_EQ(onlyProblem(), "There is no GONE.");
}

TEST_F(Sending, StartsNoProgramWhenTheFileFails) {
    fs::create_directory(file());
    const SendingReport report = carryOut(plan(), m_starter);
    EXPECT_NE(report.failure.find("it is a folder"), std::string::npos) << report.failure;
    EXPECT_TRUE(report.done.empty());
    EXPECT_TRUE(m_starter.started.empty());
}

TEST_F(Sending, TellsWhatWasDoneBeforeTheProgramFailed) {
    m_starter.failure = "It is not there.";
    const SendingReport report = carryOut(plan(), m_starter);
    EXPECT_EQ(report.failure, "It is not there.");
    EXPECT_EQ(report.done.size(), 1U);
    EXPECT_EQ(fileContent(), "1,20");
}

TEST_F(Sending, TellsThatTheListGoesOverAtOnce) {
    m_session.launchDelay = "0";
    m_session.fileFormat = "";
    EXPECT_EQ(carryOut(plan(), m_starter).done.front(),
              "Started /opt/order desk; it gets the list at once (9 bytes).");
}

TEST_F(Sending, RemarksOnCutValuesAndPagesOncePerFormat) {
    m_formats["QUANTITIES"].quantity = {.on = true, .length = "1", .right = true, .pad = "0"};
    m_formats["QUANTITIES"].maxRecords = "1";
    const std::vector<std::string> expected = {
        "QUANTITIES: 1 value(s) are cut to their field length.",
        "QUANTITIES: the list goes over in 2 pages."};
    EXPECT_EQ(plan("QUANTITIES").remarks, expected);
}

TEST_F(Sending, RemarksOnADelayThatIsNoNumber) {
    m_session.launchDelay = "soon";
    const Plan made = plan();
    EXPECT_EQ(made.program->delay, milliseconds(0));
    ASSERT_EQ(made.remarks.size(), 1U);
    EXPECT_NE(made.remarks.front().find("soon"), std::string::npos);
}

/// What is foreseen of a plan.
class SendingForeseen : public Sending {
  protected:
    Plan foreseen() const {
        Plan made = plan();
        foresee(made, m_starter);
        return made;
    }
    std::string refusal(const std::string& why) const {
        return "The file " + file().string() + " can't be written: " + why;
    }
};

TEST_F(SendingForeseen, NamesWhatLiesInThePlaceOfTheFile) {
    Plan made = foreseen();
    EXPECT_TRUE(made.problems.empty());
    ASSERT_TRUE(made.file->place.has_value());
    EXPECT_FALSE(made.file->place->isThere);
    std::ofstream(file()) << "12345";
    made = foreseen();
    EXPECT_TRUE(made.file->place->isThere);
    EXPECT_EQ(made.file->place->size, 5U);
    EXPECT_EQ(made.file->place->file, file());
}

TEST_F(SendingForeseen, RefusesAFileThatCantBeWritten) {
    fs::create_directory(file());
    EXPECT_EQ(foreseen().problems,
              (std::vector{refusal("it is a folder. Give the session another file.")}));
    m_session.fileFolder += "/gone";
    EXPECT_NE(foreseen().problems.at(0).find("its folder is not there. Make the folder"),
              std::string::npos);
}

TEST_F(SendingForeseen, RefusesAFileThatTheUserHasNoRightTo) {
    m_starter.mayNotWrite = file();
    EXPECT_TRUE(foreseen().problems.empty());  // it is not there yet
    std::ofstream(file()) << "1";
    EXPECT_EQ(foreseen().problems, (std::vector{refusal("you have no right to change it. Give the "
                                                        "session another file.")}));
    m_starter.mayNotWrite = file().parent_path();
    EXPECT_EQ(foreseen().problems,
              (std::vector{refusal("you have no right to make files in its folder. Give the "
                                   "session another file.")}));
}

TEST_F(SendingForeseen, RefusesAProgramThatCantBeStartedAndWritesNoFileThen) {
    m_starter.obstacle = "It is not there.";
    const Plan made = foreseen();
    EXPECT_EQ(made.problems, (std::vector<std::string>{"It is not there."}));
    EXPECT_EQ(carryOut(made, m_starter).failure, "It is not there.");
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(SendingForeseen, AsksNothingOfWhatIsNotUsed) {
    m_starter.obstacle = "It is not there.";
    m_session.launchDisabled = true;
    EXPECT_TRUE(foreseen().problems.empty());
    m_session.fileFormat = "";
    fs::create_directory(file());
    EXPECT_EQ(foreseen().problems.size(), 1U);  // there is nothing to do
}

}  // namespace
}  // namespace host
