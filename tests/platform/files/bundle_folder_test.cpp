// Where the texts are looked for when nobody says where they are.
#include <gtest/gtest.h>

#include <filesystem>

#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

TEST(BundleFolder, IsTheOneOfTheTreeThatTheProgramLiesIn) {
    EXPECT_EQ(std::filesystem::path(bundleFolder()).generic_string(),
              WYNCONFIG_TEST_ROOT WYNCONFIG_RESOURCES);
    EXPECT_FALSE(bundleLanguages(bundleFolder()).empty());
}

}  // namespace
}  // namespace wynconfig
