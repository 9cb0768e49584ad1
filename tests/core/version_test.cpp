// The version as headers and library tell it.
#include "wynconfig/version.h"

#include <gtest/gtest.h>

#include <string>

namespace wynconfig {
namespace {

TEST(Version, IsThatOfTheHeaders) {
    EXPECT_EQ(version(), WYNCONFIG_VERSION);
    EXPECT_EQ(versionText(), std::to_string(version() / 10000) + "." +
                                 std::to_string(version() / 100 % 100) + "." +
                                 std::to_string(version() % 100));
}

}  // namespace
}  // namespace wynconfig
