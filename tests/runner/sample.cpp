// A program whose cases end in every way that a case can end, for the test of the runner.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>

namespace {

TEST(Sample, Passes) {
    std::cout << "nobody needs to know\n";
}

TEST(Sample, PassesAsWell) {
    std::cout << "and leaves its line open";
}

TEST(Sample, Fails) {
    std::cerr << "what the failing one prints\n";
    EXPECT_EQ(1, 2);
}

TEST(Sample, Skips) {
    GTEST_SKIP() << "why it skips";
}

TEST(Sample, Crashes) {
    std::cerr << "what the crashing one prints\n";
    std::abort();
}

TEST(Sample, Leaves) {
    std::_Exit(0);
}

TEST(Sample, Hangs) {
    std::cout << "what the hanging one prints" << std::endl;
    while (true) pause();
}

/// As a leak that is found when the program ends.
TEST(BadEnd, Passes) {
    std::atexit([] {
        std::fputs("what the end prints\n", stderr);
        std::_Exit(23);
    });
}

class BadStart : public testing::TestWithParam<int> {
  protected:
    static void SetUpTestSuite() { std::abort(); }
};

TEST_P(BadStart, NeverRuns) {}
INSTANTIATE_TEST_SUITE_P(Some, BadStart, testing::Values(1, 2));

}  // namespace
