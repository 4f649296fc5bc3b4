#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "editing/RowSorter.h"
#include "fakes/FakeServices.h"

namespace {

constexpr int kMostRows = 32767;

// Counts comparisons and the stack depth at which they happen.
class MeasuringTextCompare : public FakeTextCompare {
public:
    int compare(std::u16string_view left, std::u16string_view right) override {
        frames.insert(reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)));
        ++comparisons;
        return FakeTextCompare::compare(left, right);
    }

    std::set<std::uintptr_t> frames;
    std::uint64_t comparisons = 0;
};

std::vector<SortRow> textRows(const std::vector<std::u16string>& texts) {
    std::vector<SortRow> rows;
    rows.reserve(texts.size());
    for (const std::u16string& text : texts) {
        rows.push_back({text, 0, static_cast<int>(rows.size()) + 1, false});
    }
    return rows;
}

std::vector<SortRow> numberRows(const std::vector<double>& numbers) {
    std::vector<SortRow> rows;
    rows.reserve(numbers.size());
    for (const double number : numbers) {
        rows.push_back({{}, number, static_cast<int>(rows.size()) + 1, false});
    }
    return rows;
}

std::u16string paddedText(int value) {
    const std::string digits = std::to_string(100000 + value);
    return {digits.begin(), digits.end()};
}

// Expects every row exactly once, with its own key.
void expectPermutation(const std::vector<SortRow>& before, const std::vector<SortRow>& after) {
    ASSERT_EQ(before.size(), after.size());
    std::vector<bool> seen(before.size(), false);
    for (const SortRow& row : after) {
        const auto source = static_cast<std::size_t>(row.row - 1);
        ASSERT_LT(source, before.size());
        ASSERT_FALSE(seen[source]) << "row " << row.row << " twice";
        seen[source] = true;
        ASSERT_EQ(before[source].text, row.text);
        ASSERT_EQ(before[source].number, row.number);
    }
}

// Between two rows that were never pivots there is a pivot; otherwise they would have been one range of two rows.
void expectPivotsBetweenOthers(const std::vector<SortRow>& rows) {
    for (std::size_t at = 1; at < rows.size(); ++at) {
        ASSERT_TRUE(rows[at - 1].wasPivot || rows[at].wasPivot) << "at " << at;
    }
}

int pivotsOf(const std::vector<SortRow>& rows) {
    return static_cast<int>(std::count_if(rows.begin(), rows.end(), [](const SortRow& row) { return row.wasPivot; }));
}

TEST(RowSorterTest, OrdersAndOnlyPermutesRandomNumbers) {
    FakeTextCompare compare;
    RowSorter sorter(compare);
    std::mt19937 random(7);
    for (int round = 0; round < 400; ++round) {
        const auto size = random() % 120;
        const auto distinct = 1 + random() % 60;
        std::vector<double> numbers;
        for (std::size_t i = 0; i < size; ++i) {
            numbers.push_back(static_cast<double>(random() % distinct) / 4 - 3);
        }
        const std::vector<SortRow> before = numberRows(numbers);
        std::vector<SortRow> rows = before;
        sorter.sort(rows, SortKeyType::Number);
        expectPermutation(before, rows);
        expectPivotsBetweenOthers(rows);
        ASSERT_TRUE(std::is_sorted(rows.begin(), rows.end(),
                                   [](const SortRow& a, const SortRow& b) { return a.number < b.number; }));
    }
}

TEST(RowSorterTest, OrdersAndOnlyPermutesRandomTexts) {
    FakeTextCompare compare;
    RowSorter sorter(compare);
    std::mt19937 random(11);
    for (int round = 0; round < 400; ++round) {
        const auto size = random() % 120;
        const auto distinct = 1 + static_cast<int>(random() % 5);
        std::vector<std::u16string> texts(size);
        for (std::u16string& text : texts) {
            for (auto left = random() % 4; left > 0; --left) {
                text.push_back(
                    static_cast<char16_t>((random() % 2 == 0 ? 'a' : 'A') + static_cast<int>(random()) % distinct));
            }
        }
        const std::vector<SortRow> before = textRows(texts);
        std::vector<SortRow> rows = before;
        sorter.sort(rows, SortKeyType::Text);
        expectPermutation(before, rows);
        expectPivotsBetweenOthers(rows);
        ASSERT_TRUE(std::is_sorted(rows.begin(), rows.end(), [&](const SortRow& a, const SortRow& b) {
            return compare.compare(a.text, b.text) < 0;
        }));
    }
}

TEST(RowSorterTest, HasNoPivotInARangeOfLessThanTwoRows) {
    FakeTextCompare compare;
    RowSorter sorter(compare);
    std::vector<SortRow> none;
    sorter.sort(none, SortKeyType::Number);
    EXPECT_TRUE(none.empty());
    std::vector<SortRow> one = numberRows({4.5});
    sorter.sort(one, SortKeyType::Number);
    EXPECT_EQ(0, pivotsOf(one));
}

TEST(RowSorterTest, HasOnePivotInARangeOfTwoRows) {
    FakeTextCompare compare;
    RowSorter sorter(compare);
    for (const std::vector<double>& numbers : {std::vector<double>{1, 2}, {2, 1}, {1, 1}}) {
        for (int round = 0; round < 20; ++round) {
            std::vector<SortRow> rows = numberRows(numbers);
            sorter.sort(rows, SortKeyType::Number);
            EXPECT_EQ(1, pivotsOf(rows));
        }
    }
}

TEST(RowSorterTest, OfEqualKeysAllButOneBecomePivots) {
    FakeTextCompare compare;
    RowSorter sorter(compare);
    for (const std::size_t size : {2U, 3U, 10U, 999U}) {
        std::vector<SortRow> rows = numberRows(std::vector<double>(size, 98.5));
        sorter.sort(rows, SortKeyType::Number);
        EXPECT_EQ(static_cast<int>(size) - 1, pivotsOf(rows));
    }
}

TEST(RowSorterTest, EveryRunChoosesTheSamePivots) {
    FakeTextCompare compare;
    std::vector<double> numbers(500);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = static_cast<double>(i);
    }
    const auto pivotsAfterTwoSorts = [&](RowSorter& sorter) {
        std::vector<std::vector<bool>> result;
        for (int round = 0; round < 2; ++round) {
            std::vector<SortRow> rows = numberRows(numbers);
            sorter.sort(rows, SortKeyType::Number);
            auto& pivots = result.emplace_back();
            for (const SortRow& row : rows) {
                pivots.push_back(row.wasPivot);
            }
        }
        return result;
    };
    RowSorter first(compare);
    RowSorter second(compare);
    const auto pivots = pivotsAfterTwoSorts(first);
    EXPECT_EQ(pivots, pivotsAfterTwoSorts(second));
    EXPECT_NE(pivots[0], pivots[1]);
}

// The longest lists that can be loaded, in orders that are unfavourable for quicksort.
class RowSorterTestLarge : public ::testing::TestWithParam<int> {
protected:
    static std::u16string keyAt(int row) {
        switch (GetParam()) {
            case 0:
                return u"same";
            case 1:
                return std::vector<std::u16string>{u"LW", u"MW", u"SW"}[static_cast<std::size_t>(row) % 3];
            case 2:
                return paddedText(row);
            case 3:
                return paddedText(kMostRows - row);
            case 4:
                return row % 2 == 0 ? u"same" : paddedText(row);
            default:
                return paddedText(std::min(row, kMostRows - row));
        }
    }
};

TEST_P(RowSorterTestLarge, StaysShallowAndFarFromQuadratic) {
    MeasuringTextCompare compare;
    RowSorter sorter(compare);
    std::vector<std::u16string> texts;
    texts.reserve(kMostRows);
    for (int row = 0; row < kMostRows; ++row) {
        texts.push_back(keyAt(row));
    }
    const std::vector<SortRow> before = textRows(texts);
    std::vector<SortRow> rows = before;
    sorter.sort(rows, SortKeyType::Text);
    expectPermutation(before, rows);
    EXPECT_TRUE(
        std::is_sorted(rows.begin(), rows.end(), [](const SortRow& a, const SortRow& b) { return a.text < b.text; }));
    // Fifteen levels at most, in each of which two routines compare.
    EXPECT_LE(compare.frames.size(), 30U);
    // n log2 n is 491,505; a quadratic sort takes about 500 million.
    EXPECT_LT(compare.comparisons, 2'000'000U);
}

INSTANTIATE_TEST_SUITE_P(Orders, RowSorterTestLarge, ::testing::Range(0, 6));

}  // namespace
