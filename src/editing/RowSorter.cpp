#include "editing/RowSorter.h"

#include <utility>

namespace {

std::size_t at(std::ptrdiff_t position) { return static_cast<std::size_t>(position); }

}  // namespace

void RowSorter::sort(std::vector<SortRow>& rows, SortKeyType type) {
    type_ = type;
    sortRange(rows, 0, static_cast<Position>(rows.size()) - 1);
}

void RowSorter::sortRange(std::vector<SortRow>& rows, Position low, Position high) {
    while (low < high) {
        const Split split = partition(rows, low, high);
        const Position greater = split.equalsToRight ? gatherEquals(rows, split.pivot, high) : split.pivot + 1;
        // Recursion on the smaller side, the loop on the larger one: bounds the depth.
        if (split.pivot - low < high - greater + 1) {
            sortRange(rows, low, split.pivot - 1);
            low = greater;
        } else {
            sortRange(rows, greater, high);
            high = split.pivot - 1;
        }
    }
}

RowSorter::Split RowSorter::partition(std::vector<SortRow>& rows, Position low, Position high) {
    const Position chosen = drawPivot(low, high);
    SortRow pivot = rows[at(chosen)];
    pivot.wasPivot = true;
    rows[at(chosen)] = rows[at(low)];

    bool equals = false;
    const auto isLess = [&](Position position) {
        const int order = compare(rows[at(position)], pivot);
        equals = equals || order == 0;
        return order < 0;
    };
    while (low < high) {
        while (low < high && !isLess(high)) {
            --high;
        }
        if (low < high) {
            rows[at(low++)] = rows[at(high)];
        }
        while (low < high && isLess(low)) {
            ++low;
        }
        if (low < high) {
            rows[at(high)] = rows[at(low)];
        }
    }
    rows[at(low)] = pivot;
    return {low, equals};
}

// Splitting by one pivot at a time removes equal keys one by one, in quadratic time. With each of them as the next
// pivot they would end up directly after the first one, in any order, with the greater keys still to be sorted; one
// pass does the same. Only a last row with nothing to its right would never become a pivot.
RowSorter::Position RowSorter::gatherEquals(std::vector<SortRow>& rows, Position pivot, Position high) {
    Position end = pivot + 1;
    for (Position position = end; position <= high; ++position) {
        if (compare(rows[at(position)], rows[at(pivot)]) == 0) {
            std::swap(rows[at(position)], rows[at(end)]);
            rows[at(end++)].wasPivot = true;
        }
    }
    if (end > high) {
        rows[at(high)].wasPivot = false;
    }
    return end;
}

RowSorter::Position RowSorter::drawPivot(Position low, Position high) {
    constexpr double kValues = static_cast<double>(std::minstd_rand::max() - std::minstd_rand::min()) + 1;
    const double random = static_cast<double>(generator_() - std::minstd_rand::min()) / kValues;
    return low + static_cast<Position>(random * static_cast<double>(high - low + 1));
}

int RowSorter::compare(const SortRow& left, const SortRow& right) {
    if (type_ == SortKeyType::Text) {
        return textCompare_.compare(left.text, right.text);
    }
    if (left.number == right.number) {
        return 0;
    }
    return left.number < right.number ? -1 : 1;
}
