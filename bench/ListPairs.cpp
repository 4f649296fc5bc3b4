// Compares sorting a list and merging a schedule with the minimum cost of such work.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Paired.h"
#include "SampleLists.h"
#include "editing/SortListview.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/qt/QtTextCompare.h"
#include "storage/text/Numbers.h"
#include "sync/ScheduleRecords.h"

namespace {

constexpr int kRounds = 101;
constexpr int kFewRounds = 15;
constexpr int kMostRows = 32'767;
constexpr std::size_t kLongestSchedule = 32'767;  // characters

using Cells = std::array<std::u16string, 4>;

struct Key {
    std::u16string_view text;
    double number;
    std::size_t row;
};

std::vector<Cells> copyOut(const Grid& grid) {
    std::vector<Cells> rows(static_cast<std::size_t>(grid.rowCount()));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (int column = 1; column <= 4; ++column) {
            rows[row][static_cast<std::size_t>(column - 1)] = grid.text(static_cast<int>(row) + 1, column);
        }
    }
    return rows;
}

void copyIn(Grid& grid, const std::vector<Cells>& rows, const std::vector<Key>& order) {
    const GridUpdate update(grid);
    for (std::size_t at = 0; at < order.size(); ++at) {
        for (int column = 1; column <= 4; ++column) {
            grid.setText(static_cast<int>(at) + 1, column, rows[order[at].row][static_cast<std::size_t>(column - 1)]);
        }
    }
}

// Copies the rows out, sorts them by the same keys with std::sort, and copies them back.
void sortPlainly(Grid& grid, std::size_t column, TextCompare* textCompare) {
    const std::vector<Cells> rows = copyOut(grid);
    std::vector<Key> keys;
    keys.reserve(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const std::u16string_view text = rows[row][column];
        keys.push_back({text, textCompare == nullptr ? leadingNumber(text) : 0, row});
    }
    if (textCompare != nullptr) {
        std::sort(keys.begin(), keys.end(),
                  [=](const Key& a, const Key& b) { return textCompare->compare(a.text, b.text) < 0; });
    } else {
        std::sort(keys.begin(), keys.end(), [](const Key& a, const Key& b) { return a.number < b.number; });
    }
    copyIn(grid, rows, keys);
}

void measureSorts(int rows, int rounds) {
    SampleLists lists(u"/");
    QtTextCompare textCompare;
    SortListview sorter(textCompare);
    StationLists stationLists = lists.lists();
    StationList& drm = stationLists[ListKind::Drm];
    const auto fill = [&] { lists.fill(rows); };
    const std::string size = " of " + std::to_string(rows) + " rows";
    measurePair("sort by name" + size + " / std::sort and copying", {[&] { sorter.headerClicked(drm, u"PROG"); }, fill},
                {[&] { sortPlainly(drm.grid, 0, &textCompare); }, fill}, rounds);
    measurePair("sort by frequency" + size + " / std::sort and copying",
                {[&] { sorter.headerClicked(drm, u"FREQ"); }, fill}, {[&] { sortPlainly(drm.grid, 1, nullptr); }, fill},
                rounds);
}

void measureMerge() {
    const std::u16string schedule = sampleSchedule(kLongestSchedule);
    PosixCodePages codePages;
    const std::string bytes = codePages.encode(schedule);
    RowStore grid;
    const Work merge{[&] { keep(static_cast<std::size_t>(AddScheduleRecords(grid, schedule, 0))); },
                     [&] { grid.clear(); }};
    measurePair("schedule merged / memchr from line end to line end", merge, {[&] {
                    std::size_t lines = 0;
                    const char* const end = bytes.data() + bytes.size();
                    for (const char* at = bytes.data(); at < end; ++lines) {
                        const void* found = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
                        at = found == nullptr ? end : static_cast<const char*>(found) + 1;
                    }
                    keep(lines);
                }},
                kRounds);
    measurePair("schedule merged / memchr for a missing byte", merge, {[&] { keep(bytes.find('\t')); }}, kRounds);
    if (grid.rowCount() < 100) {
        std::fprintf(stderr, "list_pairs: the schedule was not taken\n");
        std::exit(1);
    }
}

}  // namespace

int main() {
    measureSorts(kMaxRecords, kRounds);
    measureSorts(kMostRows, kFewRounds);
    measureMerge();
    return 0;
}
