#include "storage/stations/ListColumns.h"

#include <algorithm>
#include <array>
#include <string>

#include "storage/stations/StationLists.h"

namespace {

using enum CellContent;
using enum SortKeyType;

constexpr double kInitialWidth = 1440;  // twips: one inch

// Caption, header key, stored key and place, content, width divisor, sorting, length limit, editable.
constexpr std::array<ListColumn, 4> kDrm = {{
    {u"Programme", u"PROG", u"Programme", 2, StoredText, 5, Text, 10, true},
    {u"Frequency(kHz)", u"FREQ", u"Frequency", 1, StoredText, 5, Number, 5, true},
    {u"Time(UTC)", u"TIME", u"StartStopTimeUTC", 3, StoredText, 5, Text, 0, false},
    {u"Target", u"TARG", u"Target", 4, StoredText, 3, Text, 10, true},
}};
constexpr std::array<ListColumn, 3> kAm = {{
    {u"Programme", u"PROG", u"Programme", 2, StoredText, 3.1, Text, 10, true},
    {u"Frequency(kHz)", u"FREQ", u"Frequency", 1, StoredText, 3.1, Number, 5, true},
    {u"Band", u"BAND", u"", 0, AmBand, 3.1, Text, 0, false},
}};
constexpr std::array<ListColumn, 3> kFm = {{
    {u"Programme", u"PROG", u"Programme", 2, StoredText, 3.1, Text, 10, true},
    {u"Frequency(MHz)", u"FREQ", u"Frequency", 1, Megahertz, 3.1, Number, 6, true},
    {u"Band", u"BAND", u"", 0, FmBand, 3.1, Text, 0, false},
}};
constexpr std::array<ListColumn, 3> kFavourite = {{
    {u"Programme", u"PROG", u"Programme", 1, StoredText, 3.1, Text, 10, true},
    {u"Frequency", u"FREQ", u"Frequency", 2, FrequencyWithUnit, 3.1, Text, 5, true},
    {u"System", u"SYST", u"TYPE", 3, StoredText, 3.1, Text, 0, false},
}};
static_assert(kDrm.size() <= kMaxColumns && kAm.size() <= kMaxColumns && kFm.size() <= kMaxColumns &&
              kFavourite.size() <= kMaxColumns);

}  // namespace

std::span<const ListColumn> columnsOf(ListKind kind) {
    switch (kind) {
        case ListKind::Drm:
            return kDrm;
        case ListKind::Am:
            return kAm;
        case ListKind::Fm:
            return kFm;
        case ListKind::Favourite:
            return kFavourite;
    }
    return {};
}

const ListColumn* columnAt(std::span<const ListColumn> columns, int number) {
    const bool isThere = number >= 1 && number <= static_cast<int>(columns.size());
    return isThere ? &columns[static_cast<std::size_t>(number - 1)] : nullptr;
}

std::vector<int> storedColumns(std::span<const ListColumn> columns) {
    std::vector<int> numbers;
    for (int number = 1; number <= static_cast<int>(columns.size()); ++number) {
        if (columnAt(columns, number)->storedPlace != 0) {
            numbers.push_back(number);
        }
    }
    std::sort(numbers.begin(), numbers.end(), [columns](int left, int right) {
        return columnAt(columns, left)->storedPlace < columnAt(columns, right)->storedPlace;
    });
    return numbers;
}

void addListColumns(StationList& list) {
    for (const ListColumn& column : list.columns) {
        list.grid.addColumn(std::u16string(column.caption), std::u16string(column.headerKey), kInitialWidth);
    }
    if (list.view != nullptr) {
        applyStandardWidths(list);
    }
}

std::vector<double> standardWidths(StationList& list) {
    const double width = list.view->geometry(0).width;
    std::vector<double> widths;
    widths.reserve(list.columns.size());
    for (const ListColumn& column : list.columns) {
        widths.push_back(width / column.widthDivisor);
    }
    return widths;
}

void applyStandardWidths(StationList& list) {
    int column = 0;
    for (const double width : standardWidths(list)) {
        list.grid.setColumnWidth(++column, width);
    }
}
