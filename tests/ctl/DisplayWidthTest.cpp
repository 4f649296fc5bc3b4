#include <gtest/gtest.h>

#include "ctl/DisplayWidth.h"

TEST(DisplayWidthTest, WideCharactersTakeTwoColumnsAndMarksNone) {
    EXPECT_EQ(displayWidth(u""), 0U);
    EXPECT_EQ(displayWidth(u"Radio"), 5U);
    EXPECT_EQ(displayWidth(u"Волна"), 5U);
    EXPECT_EQ(displayWidth(u"中央之声"), 8U);
    EXPECT_EQ(displayWidth(u"도시"), 4U);
    EXPECT_EQ(displayWidth(u"ラジオ"), 6U);
    EXPECT_EQ(displayWidth(u"e\u0301"), 1U);
    EXPECT_EQ(displayWidth(u"\U0001F4FB"), 2U);
    EXPECT_EQ(displayWidth(u"\U00020000"), 2U);
    EXPECT_EQ(displayWidth(std::u16string_view(u"\xD83D", 1)), 1U) << "half a pair";
}
