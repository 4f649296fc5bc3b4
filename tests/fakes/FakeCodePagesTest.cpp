#include <gtest/gtest.h>

#include "fakes/FakeCodePages.h"

namespace {

std::u16string utf8(std::string_view bytes) { return FakeCodePages().decode(CodePage::Utf8, bytes); }

}  // namespace

TEST(FakeCodePages, Utf8OfEveryLengthIsReadAndWritten) {
    const std::string bytes = "a\xC3\xA9\xE4\xB8\xAD\xF0\x9F\x93\xBB";
    const std::u16string text = u"aé中📻";
    EXPECT_EQ(utf8(bytes), text);
    EXPECT_EQ(FakeCodePages().encode(CodePage::Utf8, text), bytes);
}

TEST(FakeCodePages, OneReplacementForEachMaximalIllFormedPart) {
    EXPECT_EQ(utf8("\xFF"), u"\uFFFD");
    EXPECT_EQ(utf8("\xE4\xB8"), u"\uFFFD");
    EXPECT_EQ(utf8("\xE4\xB8x"), u"\uFFFDx");
    EXPECT_EQ(utf8("\xF0\x80\x80\x41"), u"\uFFFD\uFFFD\uFFFDA");
    EXPECT_EQ(utf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(utf8("\xC0\xAF"), u"\uFFFD\uFFFD");
    EXPECT_EQ(utf8("\xF5\x80"), u"\uFFFD\uFFFD");
}

TEST(FakeCodePages, LoneSurrogateIsWrittenAsReplacement) {
    const std::u16string lone = {u'a', 0xD800, u'b', 0xDC00};
    EXPECT_EQ(FakeCodePages().encode(CodePage::Utf8, lone),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
}

TEST(FakeCodePages, AnsiIsWindows1252) {
    EXPECT_EQ(FakeCodePages().decode(CodePage::Ansi, "\x80\x81\x9F\xE9"), u"\u20AC\u0081\u0178\u00E9");
    EXPECT_EQ(FakeCodePages().encode(CodePage::Ansi, u"\u20AC\u0081\u0178\u00E9中📻"), "\x80\x81\x9F\xE9??");
}
