#include <gtest/gtest.h>

#include "fakes/FakeCodePages.h"

TEST(FakeCodePagesTest, IsWindows1252) {
    EXPECT_EQ(FakeCodePages().decode("\x80\x81\x9F\xE9"), u"\u20AC\u0081\u0178\u00E9");
    EXPECT_EQ(FakeCodePages().encode(u"\u20AC\u0081\u0178\u00E9中📻"), "\x80\x81\x9F\xE9??");
}
