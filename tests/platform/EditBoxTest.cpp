#include <gtest/gtest.h>

#include "platform/EditBox.h"

TEST(EditBoxTest, ATextThatFitsIsInsertedUnchanged) {
    EXPECT_EQ(insertable(u"", 0), u"");
    EXPECT_EQ(insertable(u"abc", 3), u"abc");
    EXPECT_EQ(insertable(u"abc", 100), u"abc");
}

TEST(EditBoxTest, TheRestIsCut) {
    EXPECT_EQ(insertable(u"abc", 2), u"ab");
    EXPECT_EQ(insertable(u"abc", 0), u"");
}

TEST(EditBoxTest, ATextEndsBeforeItsFirstLineBreak) {
    EXPECT_EQ(insertable(u"one\r\ntwo", 100), u"one");
    EXPECT_EQ(insertable(u"one\ntwo", 100), u"one");
    EXPECT_EQ(insertable(u"one\u2028two\u2029", 100), u"one");
    EXPECT_EQ(insertable(u"\nabc", 100), u"");
    EXPECT_EQ(insertable(u"one\n", 2), u"on");
}

TEST(EditBoxTest, ACutNeverSplitsASurrogatePair) {
    EXPECT_EQ(insertable(u"a\U0001F4FBb", 1), u"a");
    EXPECT_EQ(insertable(u"a\U0001F4FBb", 2), u"a");
    EXPECT_EQ(insertable(u"a\U0001F4FBb", 3), u"a\U0001F4FB");
    EXPECT_EQ(insertable(u"\U0001F4FB", 1), u"");
}

TEST(EditBoxTest, ALoneSurrogateCountsAsAUnit) {
    EXPECT_EQ(insertable(u"a\xD83Dz", 2), u"a\xD83D");
    EXPECT_EQ(insertable(u"\xD83D", 1), u"\xD83D");
    EXPECT_EQ(insertable(u"\xDCFB\xDCFB", 1), u"\xDCFB");
}
