// Texts with places for others.
#include "platform/forms/filled_in.h"

#include <gtest/gtest.h>

namespace wynconfig {
namespace {

TEST(FilledIn, HasEachTextAtItsPlaces) {
    EXPECT_EQ(filledIn("%1 of %2", "a", "b"), "a of b");
    EXPECT_EQ(filledIn("%2, %1, %1", "a", "b"), "b, a, a");
    EXPECT_EQ(filledIn("", "a", "b"), "");
}

TEST(FilledIn, TakesNothingElseForAPlace) {
    EXPECT_EQ(filledIn("100 % %3 %%1 %", "a", "b"), "100 % %3 %a %");
    EXPECT_EQ(filledIn("“%1”, “%2”", "%2", "%1"), "“%2”, “%1”") << "not within what was put there";
}

}  // namespace
}  // namespace wynconfig
