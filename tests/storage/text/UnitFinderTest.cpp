#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "storage/text/UnitFinder.h"

namespace {

constexpr auto kIsMark = [](char16_t c) { return c == u'=' || c == u'\0'; };

std::vector<std::size_t> positions(std::u16string_view text, std::size_t start) {
    std::vector<std::size_t> found;
    UnitFinder finder(text, start, kIsMark);
    for (std::size_t at = finder.next(); at < text.size(); at = finder.next()) {
        found.push_back(at);
    }
    EXPECT_EQ(finder.next(), text.size()) << "nothing is found twice";
    return found;
}

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

TEST(UnitFinderTest, AllMatchesAreFoundInOrder) {
    std::u16string text(50, u'x');
    const std::vector<std::size_t> marks = {0, 1, 7, 8, 15, 16, 30, 31, 32, 47, 49};
    for (const std::size_t mark : marks) {
        text[mark] = mark % 2 == 0 ? u'=' : u'\0';
    }
    EXPECT_EQ(positions(text, 0), marks);
    EXPECT_EQ(positions(text, 9), std::vector(marks.begin() + 4, marks.end()));
    EXPECT_EQ(positions(u"", 0), std::vector<std::size_t>());
    EXPECT_EQ(positions(std::u16string(3, u'='), 0), (std::vector<std::size_t>{0, 1, 2}));
}
