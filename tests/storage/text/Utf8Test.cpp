#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fakes/Text.h"
#include "storage/text/Utf8.h"

namespace {

// The table of well-formed sequences in the Unicode standard: the range of each byte.
struct Row {
    std::vector<std::pair<int, int>> ranges;
};

const std::vector<Row> kWellFormed = {
    {{{0x00, 0x7F}}},
    {{{0xC2, 0xDF}, {0x80, 0xBF}}},
    {{{0xE0, 0xE0}, {0xA0, 0xBF}, {0x80, 0xBF}}},
    {{{0xE1, 0xEC}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xED, 0xED}, {0x80, 0x9F}, {0x80, 0xBF}}},
    {{{0xEE, 0xEF}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xF0, 0xF0}, {0x90, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xF1, 0xF3}, {0x80, 0xBF}, {0x80, 0xBF}, {0x80, 0xBF}}},
    {{{0xF4, 0xF4}, {0x80, 0x8F}, {0x80, 0xBF}, {0x80, 0xBF}}},
};

// The number of leading bytes of `bytes` that match the row.
std::size_t fitting(const Row& row, std::string_view bytes) {
    std::size_t count = 0;
    while (count < row.ranges.size() && count < bytes.size()) {
        const int byte = static_cast<unsigned char>(bytes[count]);
        if (byte < row.ranges[count].first || byte > row.ranges[count].second) {
            break;
        }
        ++count;
    }
    return count;
}

// The result when U+FFFD, in UTF-8, replaces every maximal ill-formed part.
std::string repaired(std::string_view bytes) {
    std::string whole;
    while (!bytes.empty()) {
        std::size_t longest = 1;
        bool wellFormed = false;
        for (const Row& row : kWellFormed) {
            const std::size_t count = fitting(row, bytes);
            wellFormed = wellFormed || count == row.ranges.size();
            longest = std::max(longest, count);
            // A continuation byte outside the narrowed range of a lead byte belongs to the ill-formed part.
            if (count == 1 && row.ranges.size() > 1 && bytes.size() > 1 && (bytes[1] & 0xC0) == 0x80) {
                longest = std::max<std::size_t>(longest, 2);
            }
        }
        whole += wellFormed ? bytes.substr(0, longest) : "\xEF\xBF\xBD";
        bytes.remove_prefix(longest);
    }
    return whole;
}

}  // namespace

TEST(Utf8Test, AppendedTextsLeaveWhatPrecedesThem) {
    std::string bytes = "before ";
    appendUtf8(bytes, u"");
    appendUtf8(bytes, u"r\u00E9seau \u4E2D");
    EXPECT_EQ(bytes, "before r\xC3\xA9seau \xE4\xB8\xAD");
}

TEST(Utf8Test, WellFormedTextAtEveryBoundaryConvertsBothWays) {
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
        EXPECT_EQ(narrow(fromUtf8(c.bytes)), narrow(c.text));
        EXPECT_TRUE(fromUtf8(c.bytes) == c.text) << narrow(c.text);
        EXPECT_EQ(toUtf8(c.text), c.bytes) << narrow(c.text);
    }
}

TEST(Utf8Test, EachMaximalIllFormedPartBecomesOneReplacement) {
    struct Case {
        std::string bytes;
        std::u16string text;
    };
    const std::vector<Case> cases = {
        {"\x80", u"\uFFFD"},
        {"\xBF\x80", u"\uFFFD\uFFFD"},
        {"\xC0\x80", u"\uFFFD\uFFFD"},  // overlong NUL
        {"\xC1\xBF", u"\uFFFD\uFFFD"},
        {"\xC3", u"\uFFFD"},  // truncated
        {"\xC3(", u"\uFFFD("},
        {"\xE0\x80\x80", u"\uFFFD\uFFFD"},  // overlong
        {"\xE0\xA0", u"\uFFFD"},
        {"\xE0\xA0z", u"\uFFFDz"},
        {"\xED\xA0\xBD", u"\uFFFD\uFFFD"},  // a surrogate
        {"\xED\xBF\xBF", u"\uFFFD\uFFFD"},
        {"\xED\xA0", u"\uFFFD"},
        {"\xF0\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD"},  // overlong
        {"\xF0\x90\x80", u"\uFFFD"},
        {"\xF0\x90\x80q", u"\uFFFDq"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
        {"\xF5\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xFE\xFF", u"\uFFFD\uFFFD"},
        {"a\xF1\x80\x80\xE1\x80\xC2"
         "b\x80"
         "c\x80\xBF"
         "d",
         u"a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd"},
        {"\xC3\xC3\xA9", u"\uFFFD\u00E9"},  // the second lead byte starts a character
    };
    for (const Case& c : cases) {
        EXPECT_EQ(narrow(fromUtf8(c.bytes)), narrow(c.text));
    }
}

TEST(Utf8Test, LoneSurrogatesAreReplaced) {
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

TEST(Utf8Test, EveryCharacterSurvivesBothConversions) {
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c == 0xD800) {
            c = 0xE000;
        }
        std::u16string text(1, static_cast<char16_t>(c));
        if (c >= 0x10000) {
            text = {static_cast<char16_t>(0xD7C0 + (c >> 10)), static_cast<char16_t>(0xDC00 + (c & 0x3FF))};
        }
        const std::string bytes = toUtf8(text);
        ASSERT_EQ(bytes.size(), c < 0x80 ? 1U : c < 0x800 ? 2U : c < 0x10000 ? 3U : 4U) << static_cast<unsigned>(c);
        ASSERT_EQ(repaired(bytes), bytes) << static_cast<unsigned>(c);
        ASSERT_TRUE(fromUtf8(bytes) == text) << static_cast<unsigned>(c);
    }
}

// Four-byte sequences from both ends of every range, with a letter on either side.
TEST(Utf8Test, AnyBytesAreDecodedByTheTable) {
    const std::string_view edges(
        "\0A\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5\xFF", 25);
    std::string bytes = "<1234>";
    for (std::size_t i = 0; i < edges.size() * edges.size() * edges.size() * edges.size(); ++i) {
        std::size_t digits = i;
        for (std::size_t place = 1; place <= 4; ++place, digits /= edges.size()) {
            bytes[place] = edges[digits % edges.size()];
        }
        ASSERT_EQ(toUtf8(fromUtf8(bytes)), repaired(bytes)) << i;
    }
}

// A character after runs of letters of every length, and one truncated by the end of the text.
TEST(Utf8Test, ALongTextIsConvertedCompletely) {
    std::string bytes;
    std::u16string text;
    for (std::size_t run = 0; run < 40; ++run) {
        bytes += std::string(run, 'x') + "\xE4\xB8\xAD" + std::string(run % 3, '\0') + "\xF0\x9F\x93\xBB";
        text += std::u16string(run, u'x') + u"\u4E2D" + std::u16string(run % 3, u'\0') + u"\U0001F4FB";
        EXPECT_TRUE(fromUtf8(bytes) == text) << run;
        EXPECT_TRUE(fromUtf8(std::string_view(bytes).substr(0, bytes.size() - 1)) ==
                    text.substr(0, text.size() - 2) + u'\uFFFD')
            << run;
        EXPECT_EQ(toUtf8(text), bytes) << run;
    }
}

TEST(Utf8Test, ACharacterMayLieAnywhereInALongText) {
    const std::u16string character = u"\U0001F4FB";
    for (std::size_t before = 8180; before < 8200; ++before) {
        for (const char16_t unit : {u'a', u'\u044F', u'\u5E7F'}) {
            const std::u16string text = std::u16string(before, unit) + character + std::u16string(9000, unit);
            EXPECT_TRUE(fromUtf8(toUtf8(text)) == text) << before;
        }
    }
}
