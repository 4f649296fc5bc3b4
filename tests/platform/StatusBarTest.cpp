#include <gtest/gtest.h>

#include "platform/StatusBar.h"

TEST(StatusBarTest, MillisecondsToNextMinuteIsTheRestOfThisMinute) {
    EXPECT_EQ(millisecondsToNextMinute(0, 0), 60'000);
    EXPECT_EQ(millisecondsToNextMinute(0, 1), 59'999);
    EXPECT_EQ(millisecondsToNextMinute(12, 345), 47'655);
    EXPECT_EQ(millisecondsToNextMinute(59, 999), 1);
}

TEST(StatusBarTest, MillisecondsToNextMinuteIsPositiveInALeapSecond) {
    EXPECT_EQ(millisecondsToNextMinute(60, 0), 1);
    EXPECT_EQ(millisecondsToNextMinute(60, 999), 1);
}
