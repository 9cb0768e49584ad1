// Where the texts are looked for when nobody says where they are.
#include <gtest/gtest.h>

#include "wynconfig/resource_manager.h"

namespace wynconfig {
namespace {

TEST(BundleFolder, IsTheOneOfTheTreeThatTheProgramLiesIn) {
    EXPECT_EQ(bundleFolder(), WYNCONFIG_RESOURCES);
    EXPECT_FALSE(bundleLanguages(bundleFolder()).empty());
}

}  // namespace
}  // namespace wynconfig
