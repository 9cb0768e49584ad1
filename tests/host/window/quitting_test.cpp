// What the window asks before it goes.
#include <fstream>

#include "support/host_window.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class HostQuitting : public HostWindow {};

TEST_F(HostQuitting, AsksNothingOfAnEmptyList) {
    EXPECT_TRUE(closeBy("stay"));
    EXPECT_EQ(question(), "");
}

TEST_F(HostQuitting, AsksOfAListThatWasNotSent) {
    pick("10-0120", 1);
    EXPECT_FALSE(closeBy("stay"));
    EXPECT_EQ(question(), "The parts list was not sent. Quit all the same?");
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(closeBy("quit"));
    EXPECT_NE(question(), "");
}

TEST_F(HostQuitting, AsksNothingOfAListThatWasSentAsItIs) {
    pick("10-0120", 1);
    sendToFile();
    EXPECT_TRUE(closeBy("stay"));
    EXPECT_EQ(question(), "");
}

TEST_F(HostQuitting, AsksOfAListThatWasChangedSinceItWasSent) {
    pick("10-0120", 1);
    sendToFile();
    pick("10-0120", 2);
    EXPECT_FALSE(closeBy("stay"));
    pick("10-0120", 1);  // the list that was sent
    EXPECT_TRUE(closeBy("stay"));
}

TEST_F(HostQuitting, AsksOfAListThatCouldNotBeSent) {
    fs::remove(store.lists());
    pick("10-0120", 1);
    sendToFile();
    EXPECT_FALSE(closeBy("stay"));
}

TEST_F(HostQuitting, AsksOfAListThatItsProgramDidNotTake) {
    std::ofstream(store.programs() / "order desk") << "#!/bin/sh\ncat >/dev/null\nexit 3\n";
    pick("10-0120", 1);
    choose("session", "DEALER ORDER DESK");
    click("send");
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return text("outcome").find("(its code is 3).") != std::string::npos; },
        kPatienceMilliseconds));
    EXPECT_FALSE(closeBy("stay"));
}

}  // namespace
}  // namespace host
