// Sending from the sample host's window: the live preview, real files, real programs.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <fstream>
#include <regex>

#include "support/host_window.h"
#include "support/ordinary_user.h"
#include "window/send_panel.h"
#include "window/session_panel.h"
#include "wynconfig/dataset.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class HostSend : public HostWindow {
  protected:
    void SetUp() override {
        HostWindow::SetUp();
        pick("10-0120", 2);
        pick("10-0183", 1);
    }

    fs::path list(const std::string& name) const { return store.lists() / name; }
    fs::path received(const std::string& program) const {
        return store.programs() / (program + ".received");
    }

    /// What a program left beside itself, once it is there.
    static std::string content(const fs::path& path) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(path); }, kPatienceMilliseconds));
        return readFile(path);
    }

    std::string planned() const { return text("plan"); }
    /// The whole history, without the times of the day.
    std::string outcome() const {
        return std::regex_replace(text("outcome"), std::regex("(^|\n)\\d+:\\d\\d [AP]M "), "$1");
    }

    /// Waits until the outcome tells this.
    bool tells(const std::string& part) const {
        return QTest::qWaitFor([&] { return outcome().find(part) != std::string::npos; },
                               kPatienceMilliseconds);
    }

    /// Sets one value of a stored session.
    void setStored(const std::string& session, const std::string& key, const std::string& value) {
        const std::string path = (store.sessions() / (session + ".vla")).string();
        wynconfig::Dataset record;
        record.Load(path);
        record.UpdateRow({key, value}, {key, value});
        record.Save(path);
    }
};

bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

TEST_F(HostSend, PreviewsTheListAsThePartFormatLaysItOut) {
    choose("session", "WORKSHOP COUNTER");
    EXPECT_EQ(text("programList"),
              "Part number,Quantity,Description‹CR›‹LF›\n"
              "10-0120,2,\"Oil filter\"‹CR›‹LF›\n"
              "10-0183,1,\"Air filter element\"‹CR›‹LF›\n");
    choose("partFormat", "QUANTITY FIRST");
    EXPECT_EQ(text("programList"), "  2 x 10-0120‹CR›‹LF›\n  1 x 10-0183");
}

TEST_F(HostSend, PreviewFollowsThePartsList) {
    choose("session", "BODY SHOP QUOTES");
    choose("partFormat", "TAB SEPARATED");
    pick("10-0120", 0);
    pick("10-0350", 12);
    EXPECT_EQ(text("programList"),
              "10-0183‹TAB›1‹TAB›Air filter element‹CR›‹LF›\n"
              "10-0350‹TAB›12‹TAB›Engine oil 5W-30, 1 l‹CR›‹LF›\n");
    window->catalogue().clearPartsList();
    EXPECT_EQ(text("programList"), "‹CR›‹LF›\n");
}

TEST_F(HostSend, PreviewFollowsTheVinAndHintsWithoutBlocking) {
    choose("session", "WARRANTY CLAIMS");
    auto& vin = widget<QLineEdit>("vin");
    vin.setText("ZZZ12");
    EXPECT_TRUE(text("programList").starts_with("VIN;ZZZ12            ‹CR›‹LF›\n"));
    EXPECT_EQ(widget<QLabel>("vinHint").text(), "A VIN has 17 characters; this has 5.");
    EXPECT_TRUE(widget<QPushButton>("send").isEnabled());
    vin.setText(" ZZZ12345678901234 ");
    EXPECT_EQ(widget<QLabel>("vinHint").text(), "");
    EXPECT_TRUE(text("programList").starts_with("VIN;ZZZ12345678901234‹CR›‹LF›\n"));
}

TEST_F(HostSend, FollowsTheSessionChosenAmongTheSessions) {
    window->sessions().selectSession("DEALER ORDER DESK");
    EXPECT_EQ(widget<QComboBox>("session").currentText(), "DEALER ORDER DESK");
    EXPECT_TRUE(holds(planned(), "/order:stock /quiet"));
}

TEST_F(HostSend, ShowsTheCommandLineAndTheFile) {
    choose("session", "WORKSHOP COUNTER");
    EXPECT_TRUE(holds(planned(), "No file is written."));
    EXPECT_TRUE(holds(planned(), "Program: \"" + (store.programs() / "workshop-counter").string() +
                                     "\" --job-card new --import \"parts list.csv\""));
    EXPECT_TRUE(holds(planned(), "is started and gets 90 bytes after 2 s, laid out by COMMA"));
    choose("session", "STOCK TAKING");
    EXPECT_TRUE(holds(planned(), "File: " + list("stock.txt").string()));
    EXPECT_TRUE(holds(planned(), "is made, with 113 bytes, laid out by FIXED WIDTH"));
    EXPECT_TRUE(holds(planned(), "No program is started."));
    EXPECT_FALSE(widget<QComboBox>("partFormat").isEnabled());
}

TEST_F(HostSend, TurnsToTheListThatThereIs) {
    choose("session", "STOCK TAKING");
    EXPECT_TRUE(widget<QPlainTextEdit>("fileList").isVisible());
    choose("session", "WARRANTY CLAIMS");
    EXPECT_TRUE(widget<QPlainTextEdit>("programList").isVisible());
}

TEST_F(HostSend, ShowsTheWindowSearchAsFacts) {
    choose("session", "WORKSHOP COUNTER");
    EXPECT_TRUE(holds(text("facts"), "Window title: starts with \"Job Card - \", case counts"));
    EXPECT_TRUE(holds(text("facts"), "Window class: matches \"JobCardFrame\""));
    EXPECT_TRUE(holds(text("facts"), "Window search delay: 5"));
    EXPECT_TRUE(holds(text("facts"), "looks for no windows"));
}

TEST_F(HostSend, WritesTheFileForReal) {
    choose("session", "WEB SHOP EXPORT");
    click("send");
    EXPECT_EQ(readFile(list("web-shop.csv")),
              "Part number,Quantity,Description\r\n"
              "10-0120,2,\"Oil filter\"\r\n"
              "10-0183,1,\"Air filter element\"\r\n");
    EXPECT_EQ(outcome(), "WEB SHOP EXPORT: The list was written to " +
                             list("web-shop.csv").string() + " (90 bytes).");
    window->catalogue().clearPartsList();
    pick("10-0350", 1);
    click("send");
    EXPECT_EQ(readFile(list("web-shop.csv")),
              "Part number,Quantity,Description\r\n10-0350,1,\"Engine oil 5W-30, 1 l\"\r\n");
}

TEST_F(HostSend, AppendsToTheFileForReal) {
    choose("session", "STOCK TAKING");
    click("send");
    click("send");
    const std::string one =
        "10-0120           00002Oil filter                    \r\n"
        "10-0183           00001Air filter element            \r\nEND";
    EXPECT_EQ(readFile(list("stock.txt")), one + one);
}

TEST_F(HostSend, StartsTheProgramForRealAndHandsItTheList) {
    choose("session", "DEALER ORDER DESK");
    choose("partFormat", "FIXED WIDTH");
    click("send");
    EXPECT_EQ(content(received("order desk")),
              "Called:   " + (store.programs() / "order desk").string() +
                  "\n"
                  "Argument: /order:stock\n"
                  "Argument: /quiet\n"
                  "Got:\n"
                  "10-0183           00001Air filter element            \r\n"
                  "10-0120           00002Oil filter                    \r\nEND");
    EXPECT_TRUE(tells("order desk got the list."));
    EXPECT_TRUE(tells("order desk has finished."));
}

TEST_F(HostSend, KeepsQuotedArgumentsWhole) {
    setStored("WORKSHOP COUNTER", "ProgramLaunchDelay", "0");
    choose("session", "WORKSHOP COUNTER");
    click("send");
    EXPECT_TRUE(holds(content(received("workshop-counter")), "Argument: parts list.csv\n"));
    EXPECT_TRUE(tells("has finished."));
}

TEST_F(HostSend, HandsTheListOverAfterTheDelayAndStaysUsableMeanwhile) {
    choose("session", "WORKSHOP COUNTER");
    QElapsedTimer clock;
    clock.start();
    click("send");
    EXPECT_LT(clock.elapsed(), 1500);
    EXPECT_FALSE(holds(outcome(), "got the list"));
    EXPECT_TRUE(tells("workshop-counter got the list."));
    EXPECT_GE(clock.elapsed(), 2000);
    EXPECT_TRUE(holds(content(received("workshop-counter")), "10-0120,2,\"Oil filter\"\r\n"));
    EXPECT_TRUE(tells("has finished."));
}

TEST_F(HostSend, HandsAWaitingListOverWhenTheWindowGoes) {
    setStored("WORKSHOP COUNTER", "ProgramLaunchDelay", "3600");
    choose("session", "WORKSHOP COUNTER");
    click("send");
    window.reset();
    EXPECT_TRUE(
        holds(content(received("workshop-counter")), "10-0183,1,\"Air filter element\"\r\n"));
    QTest::qWait(100);  // the process object goes with its program
}

TEST_F(HostSend, TellsThatTheProgramEndedBeforeItGotTheList) {
    std::ofstream(store.programs() / "workshop-counter") << "#!/bin/sh\nexit 3\n";
    choose("session", "WORKSHOP COUNTER");
    click("send");
    EXPECT_TRUE(tells("workshop-counter ended before it got the list."));
}

TEST_F(HostSend, TellsTheCodeOfTheProgram) {
    std::ofstream(store.programs() / "order desk") << "#!/bin/sh\ncat >/dev/null\nexit 3\n";
    choose("session", "DEALER ORDER DESK");
    click("send");
    EXPECT_TRUE(tells("order desk has finished with a failure (its code is 3)."));
}

TEST_F(HostSend, SaysThatTheProgramIsNotThere) {
    const fs::path program = store.programs() / "order desk";
    const std::string lead = "The program " + program.string() + " can't be started: ";
    const std::string advice = ". Give the session another one, or have it put right.";
    const auto expectRefused = [&](const std::string& why) {
        window->sending().readStore();
        choose("session", "DEALER ORDER DESK");
        EXPECT_TRUE(planned().starts_with("Nothing will be sent:\n" + lead + why + advice + "\n"))
            << planned();
        EXPECT_TRUE(holds(planned(), "would be started and get"));
        click("send");
        EXPECT_TRUE(holds(outcome(), "Nothing was sent. " + lead + why + advice)) << outcome();
    };
    fs::permissions(program, fs::perms::owner_read);
    expectRefused("you have no right to run it, or it is no program");
    fs::remove(program);
    expectRefused("it is not there");
    fs::create_directory(program);
    expectRefused("it is a folder");
    EXPECT_FALSE(fs::exists(received("order desk")));
}

TEST_F(HostSend, LooksForAProgramWithoutAFolderAsTheSystemDoes) {
    setStored("DEALER ORDER DESK", "ProgramPath", "no such program at all");
    choose("session", "DEALER ORDER DESK");
    EXPECT_TRUE(
        holds(planned(), "no such program at all can't be started: it is not on this computer."));
    setStored("DEALER ORDER DESK", "ProgramPath", "true");
    window->sending().readStore();
    EXPECT_FALSE(holds(planned(), "Nothing will be sent"));
    EXPECT_TRUE(holds(planned(), "Program: true /order:stock /quiet"));
}

TEST_F(HostSend, SaysOfAProgramThatTheComputerCantRunNothingOfItsCalls) {
    std::ofstream(store.programs() / "order desk") << "\x7f"
                                                   << "ELF, but not really";
    choose("session", "DEALER ORDER DESK");
    EXPECT_FALSE(holds(planned(), "Nothing will be sent"));
    click("send");
    EXPECT_TRUE(holds(outcome(), "can't be started: this computer can't run it.")) << outcome();
    EXPECT_FALSE(holds(outcome(), "exec")) << outcome();
}

TEST_F(HostSend, WritesNoFileWhenItsProgramIsSeenToBeMissing) {
    setStored("STOCK TAKING", "DisableProgramLaunch", "false");
    setStored("STOCK TAKING", "ProgramPath", "/no/such/program");
    choose("session", "STOCK TAKING");
    EXPECT_TRUE(holds(planned(), "  would get 113 bytes, laid out by FIXED WIDTH"));
    click("send");
    EXPECT_FALSE(fs::exists(list("stock.txt")));
}

TEST_F(HostSend, TellsWhatBecomesOfTheFile) {
    choose("session", "WEB SHOP EXPORT");
    EXPECT_TRUE(holds(planned(), "  is made, with 90 bytes, laid out by COMMA SEPARATED"));
    click("send");
    EXPECT_TRUE(
        holds(planned(), "  is overwritten: 90 bytes replace the 90 bytes that it holds, laid"));
    choose("session", "STOCK TAKING");
    click("send");
    click("send");
    EXPECT_TRUE(
        holds(planned(), "  gets 113 bytes behind the 226 bytes that it holds, laid out by"));
}

TEST_F(HostSend, SaysThatTheFileMayNotBeWritten) {
    std::ofstream(list("web-shop.csv")) << "kept";
    const std::string lead = "Nothing will be sent:\nThe file " + list("web-shop.csv").string() +
                             " can't be written: you have no right to ";
    const std::vector<std::string> owned = {folder.path(), store.root.string(),
                                            store.lists().string(), list("web-shop.csv").string()};
    wynconfig::asOrdinaryUser(owned, [&] {
        fs::permissions(list("web-shop.csv"), fs::perms::owner_read);
        choose("session", "WEB SHOP EXPORT");
        EXPECT_TRUE(planned().starts_with(lead + "change it. Give the session another file.\n"))
            << planned();
        fs::permissions(store.lists(), fs::perms::owner_read | fs::perms::owner_exec);
        window->sending().readStore();
        EXPECT_TRUE(planned().starts_with(
            lead + "make files in its folder. Give the session another file.\n"))
            << planned();
        fs::permissions(store.lists(), fs::perms::owner_all);
    });
    EXPECT_EQ(readFile(list("web-shop.csv")), "kept");
}

TEST_F(HostSend, SaysThatTheFolderIsNotThere) {
    fs::remove(store.lists());
    const std::string why = "The file " + list("web-shop.csv").string() +
                            " can't be written: its folder is not there. Make the folder, or give "
                            "the session another one.";
    choose("session", "WEB SHOP EXPORT");
    EXPECT_TRUE(planned().starts_with("Nothing will be sent:\n" + why + "\nFile: ")) << planned();
    click("send");
    EXPECT_EQ(outcome(), "WEB SHOP EXPORT: Nothing was sent. " + why);
}

TEST_F(HostSend, SaysThatTheListIsEmpty) {
    window->catalogue().clearPartsList();
    choose("session", "WEB SHOP EXPORT");
    EXPECT_TRUE(planned().starts_with("Nothing will be sent:\nThe parts list is empty.\n"));
    click("send");
    EXPECT_EQ(outcome(), "WEB SHOP EXPORT: Nothing was sent. The parts list is empty.");
    EXPECT_FALSE(fs::exists(list("web-shop.csv")));
}

TEST_F(HostSend, SaysThatAPartFormatIsGone) {
    choose("session", "WEB SHOP EXPORT");
    fs::remove(store.formats() / "COMMA SEPARATED.vla");
    click("send");
    EXPECT_EQ(outcome(),
              "WEB SHOP EXPORT: Nothing was sent. The part format COMMA SEPARATED can't be read: "
              "it is not in the "
              "store.");
}

TEST_F(HostSend, SaysThatASessionCantBeRead) {
    std::ofstream(store.sessions() / "WEB SHOP EXPORT.vla") << "no record";
    choose("session", "WEB SHOP EXPORT");
    click("send");
    EXPECT_TRUE(outcome().starts_with(
        "WEB SHOP EXPORT: Nothing was sent. The session WEB SHOP EXPORT can't be read: "))
        << outcome();
}

TEST_F(HostSend, KeepsWhatCameOfEarlierSendings) {
    window->catalogue().clearPartsList();
    choose("session", "WEB SHOP EXPORT");
    click("send");
    const std::string first = outcome();
    for (int times = 0; times < 20; ++times) click("send");
    pick("10-0120", 1);
    auto& box = widget<QPlainTextEdit>("outcome");
    box.verticalScrollBar()->setValue(0);
    click("send");
    EXPECT_TRUE(outcome().starts_with(first + "\n" + first + "\n"));
    EXPECT_TRUE(holds(outcome(), first + "\nWEB SHOP EXPORT: The list was written to "));
    EXPECT_EQ(box.verticalScrollBar()->value(), box.verticalScrollBar()->maximum());
    EXPECT_TRUE(std::regex_search(text("outcome"), std::regex("^\\d+:\\d\\d [AP]M WEB SHOP")));
}

TEST_F(HostSend, SendsWhatTheSessionHoldsAtThatMoment) {
    choose("session", "WEB SHOP EXPORT");
    setStored("WEB SHOP EXPORT", "FileName", "other.csv");
    click("send");
    EXPECT_TRUE(fs::exists(list("other.csv")));
    EXPECT_FALSE(fs::exists(list("web-shop.csv")));
}

TEST_F(HostSend, IsInReachOfTheKeyboard) {
    choose("session", "WEB SHOP EXPORT");
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(fs::exists(list("web-shop.csv")));
    fs::remove(list("web-shop.csv"));
    QTest::keyClick(window.get(), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(list("web-shop.csv")); }, 2000));
}

}  // namespace
}  // namespace host
