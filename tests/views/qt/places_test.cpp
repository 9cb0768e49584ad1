// Where the desktop view can work, and what it says where it can't.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <thread>

#include "support/raised.h"
#include "wynconfig/error.h"
#include "wynconfig/qt_view.h"
#include "wynconfig/scripted_view.h"

namespace wynconfig {
namespace {

/// Makes a view in a process of its own, which has no application object yet, and says on the error
/// stream why there is none.
[[noreturn]] void tellWhyNot(const std::function<void()>& prepare) {
    prepare();
    try {
        makeQtView();
    } catch (const Error& error) {
        std::cerr << error.description() << std::flush;
        std::_Exit(error.number() == errc::InvalidCall ? 7 : 8);
    }
    std::_Exit(0);
}

void useDisplay(const char* name) {
    for (const char* each : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"}) unsetenv(each);
    if (name) setenv("DISPLAY", name, 1);
}

class QtPlaces : public testing::Test {
  protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};
using QtPlacesDeathTest = QtPlaces;

TEST_F(QtPlacesDeathTest, AreNoneWithoutADisplay) {
    EXPECT_EXIT(tellWhyNot([] { useDisplay(nullptr); }), testing::ExitedWithCode(7),
                "^The desktop view needs a display, and neither DISPLAY nor WAYLAND_DISPLAY names "
                "one\\.$");
    EXPECT_EXIT(tellWhyNot([] { useDisplay(":4711"); }), testing::ExitedWithCode(7),
                "^The desktop view needs a display, and \":4711\" does not answer\\.$");
}

TEST_F(QtPlacesDeathTest, AreNoneInAProgramWithoutWidgets) {
    EXPECT_EXIT(tellWhyNot([] {
                    static int count = 1;
                    static char name[] = "host";
                    static char* arguments[] = {name, nullptr};
                    new QGuiApplication(count, arguments);
                }),
                testing::ExitedWithCode(7), "QApplication in place of its QGuiApplication");
}

TEST_F(QtPlaces, AreOnTheThreadOfTheApplicationAlone) {
    const std::string refusal = "The desktop view works on the thread of the QApplication alone.";
    const std::shared_ptr<View> view = makeQtView();
    std::thread([&] {
        EXPECT_EQ(raisedBy([] { makeQtView(); }).description(), refusal);
        const auto scripted = std::make_shared<ScriptedView>();
        installView(scripted);
        EXPECT_EQ(raisedBy([&] { installView(view); }).description(), refusal);
        EXPECT_EQ(installedView(), scripted);
    }).join();
    EXPECT_NO_THROW(installView(view));
    installView(nullptr);
}

}  // namespace
}  // namespace wynconfig
