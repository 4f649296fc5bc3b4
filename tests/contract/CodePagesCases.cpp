#include <gtest/gtest.h>

#include "contract/Backend.h"
#include "fakes/Text.h"

namespace {

class CodePagesContract : public testing::Test {
protected:
    std::u16string utf8(std::string_view bytes) { return pages->decode(CodePage::Utf8, bytes); }
    std::string toUtf8(std::u16string_view text) { return pages->encode(CodePage::Utf8, text); }
    std::u16string ansi(std::string_view bytes) { return pages->decode(CodePage::Ansi, bytes); }
    std::string toAnsi(std::u16string_view text) { return pages->encode(CodePage::Ansi, text); }

    std::unique_ptr<Backend> backend = makeBackend();
    std::unique_ptr<CodePages> pages = backend->codePages();
};

TEST_F(CodePagesContract, WellFormedUtf8AtEveryBoundaryConvertsBothWays) {
    struct Case {
        std::u16string text;
        std::string bytes;
    };
    const std::vector<Case> cases = {
        {u"\u007F", "\x7F"},
        {u"\u0080", "\xC2\x80"},
        {u"\u07FF", "\xDF\xBF"},
        {u"\u0800", "\xE0\xA0\x80"},
        {u"\uD7FF", "\xED\x9F\xBF"},
        {u"\uE000", "\xEE\x80\x80"},
        {u"\uFFFF", "\xEF\xBF\xBF"},
        {u"\U00010000", "\xF0\x90\x80\x80"},
        {u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
        {u"\uFEFFa",
         "\xEF\xBB\xBF"
         "a"},
        {std::u16string(u"a\0b", 3), std::string("a\0b", 3)},
        {u"", ""},
        {u"Радио 电台 \U0001F4FB",
         "\xD0\xA0\xD0\xB0\xD0\xB4\xD0\xB8\xD0\xBE \xE7\x94\xB5\xE5\x8F\xB0 \xF0\x9F\x93\xBB"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(narrow(utf8(c.bytes)), narrow(c.text));
        EXPECT_TRUE(utf8(c.bytes) == c.text) << narrow(c.text);
        EXPECT_EQ(toUtf8(c.text), c.bytes) << narrow(c.text);
    }
}

TEST_F(CodePagesContract, EachMaximalIllFormedPartBecomesOneReplacement) {
    struct Case {
        std::string bytes;
        std::u16string text;
    };
    const std::vector<Case> cases = {
        {"\x80", u"\uFFFD"},
        {"\xBF\x80", u"\uFFFD\uFFFD"},
        {"\xC0\x80", u"\uFFFD\uFFFD"},  // overlong NUL
        {"\xC1\xBF", u"\uFFFD\uFFFD"},
        {"\xC3", u"\uFFFD"},  // cut short
        {"\xC3(", u"\uFFFD("},
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},  // overlong
        {"\xE0\xA0", u"\uFFFD"},
        {"\xE0\xA0z", u"\uFFFDz"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},  // a surrogate
        {"\xED\xBF\xBF", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF0\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // overlong
        {"\xF0\x90\x80", u"\uFFFD"},
        {"\xF0\x90\x80q", u"\uFFFDq"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
        {"\xF5\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xFE\xFF", u"\uFFFD\uFFFD"},
        {"a\xF1\x80\x80\xE1\x80\xC2"
         "b\x80"
         "c\x80\xBF"
         "d",
         u"a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd"},
        {"\xC3\xC3\xA9", u"\uFFFD\u00E9"},  // the second lead begins anew
    };
    for (const Case& c : cases) {
        EXPECT_EQ(narrow(utf8(c.bytes)), narrow(c.text));
    }
}

TEST_F(CodePagesContract, LoneSurrogatesAreReplacedInUtf8) {
    const char16_t high = 0xD83D;
    const char16_t low = 0xDE00;
    EXPECT_EQ(toUtf8(std::u16string{high}), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(std::u16string{low}), "\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(std::u16string{low, high}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(toUtf8(std::u16string{high, high, low}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
    EXPECT_EQ(toUtf8(std::u16string{u'a', high, u'b'}),
              "a\xEF\xBF\xBD"
              "b");
}

TEST_F(CodePagesContract, EveryAnsiByteConvertsBothWays) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all.push_back(static_cast<char>(byte));
    }
    const std::u16string text = ansi(all);
    ASSERT_EQ(text.size(), 256U);
    EXPECT_TRUE(toAnsi(text) == all);
    EXPECT_TRUE(text.starts_with(std::u16string(u"\0\u0001\u0002", 3)));
}

TEST_F(CodePagesContract, CharactersThatAnsiLacksBecomeAQuestionMark) {
    EXPECT_EQ(toAnsi(u"a\u4E2Db"), "a?b");
    EXPECT_EQ(toAnsi(u"\u2603"), "?");
}

}  // namespace
