// The hosts of the examples, in scripts and in C++: each runs as a program of its own, with a
// person who closes what comes up, and tells what it got.
#include <gtest/gtest.h>

#include <string>

#include "com/com_kit.h"

namespace wynconfig::com {
namespace {

class Hosts : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        ASSERT_EQ(Library::get().registerServer(), S_OK);
    }
    void TearDown() override {
        EXPECT_EQ(Library::get().unregisterServer(), S_OK);
        ::CoUninitialize();
    }
    /// What a host writes, a line each.
    static std::string transcript(const std::string& command) {
        const StoreFolder store;
        return outputOf(command + " " + store.root());
    }
    static std::string script(const std::string& name) {
        return transcript("cscript //nologo " WYNCONFIG_EXAMPLES "/" + name);
    }
};

TEST_F(Hosts, VBScript) {
    EXPECT_EQ(script("host.vbs"),
              "The store is made: True\n"
              "Adding a session gave 1 and ''\n"
              "Picking a session gave 1 and ''\n"
              "Part formats in memory: an array of type 8200\n"
              "Its text has 0 characters\n"
              "Texts were asked for: True\n");
}

TEST_F(Hosts, JScript) {
    EXPECT_EQ(script("host.js"),
              "The button to confirm reads Abbrechen\n"
              "Sessions: 0\n"
              "The session dialog gave 1\n"
              "In memory is KEPT BY THE HOST\n");
}

TEST_F(Hosts, CPlusPlus) {
    EXPECT_EQ(transcript(WYNCONFIG_COM_HOST),
              "The session dialog gave 1 and 'FROM C++'\n"
              "References left: 0\n");
}

}  // namespace
}  // namespace wynconfig::com
