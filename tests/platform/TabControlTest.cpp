#include <gtest/gtest.h>

#include "platform/TabControl.h"

TEST(TabControlTest, NeighbourTabWrapsAround) {
    EXPECT_EQ(neighbourTab(1, 1, 4), 2);
    EXPECT_EQ(neighbourTab(1, -1, 4), 0);
    EXPECT_EQ(neighbourTab(3, 1, 4), 0);
    EXPECT_EQ(neighbourTab(0, -1, 4), 3);
}
