#include <gtest/gtest.h>

#include <string>

#include "storage/text/UnitFinder.h"

namespace {

constexpr auto kIsMark = [](char16_t c) { return c == u'=' || c == u'\0'; };

}  // namespace

TEST(UnitFinderTest, EachPositionOfEachLengthIsFound) {
    for (std::size_t length = 0; length <= 40; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            std::u16string text(length, u'\u3D3D');  // both bytes equal those of "="
            text[at] = u'=';
            for (std::size_t start = 0; start <= length; ++start) {
                EXPECT_EQ(findUnit(text, start, kIsMark), start <= at ? at : length) << length << ' ' << start;
            }
        }
    }
}

TEST(UnitFinderTest, OfTwoMatchesTheFirstIsFound) {
    for (std::size_t first = 0; first < 40; ++first) {
        for (std::size_t second = first; second < 40; ++second) {
            std::u16string text(40, u'x');
            text[second] = u'\0';
            text[first] = u'=';
            EXPECT_EQ(findUnit(text, 0, kIsMark), first) << second;
        }
    }
}

TEST(UnitFinderTest, NothingIsFoundInNothing) { EXPECT_EQ(findUnit(u"", 0, kIsMark), 0U); }
