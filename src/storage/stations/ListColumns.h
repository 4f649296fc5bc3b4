// The columns of the four lists. Each fact about a column is in its row of one table.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "storage/stations/ListKind.h"

struct StationList;

enum class SortKeyType { Text, Number };

// How the text of a cell follows from the record in the file.
enum class CellContent {
    StoredText,
    Megahertz,          // stored in kHz
    FrequencyWithUnit,  // stored in kHz, shown in the unit of the record's system
    AmBand,             // not stored: the band of the frequency
    FmBand,             // not stored: always "VHF"
};

struct ListColumn {
    std::u16string_view caption;
    std::u16string_view headerKey;  // four capital letters, different within a list
    std::u16string_view storedKey;  // key within the record's section of the file
    int storedPlace;                // 1-based place among the keys of the section; 0: not stored
    CellContent content;
    double widthDivisor;   // the standard width is the width of the grid divided by this
    SortKeyType sortedAs;  // favourites mix kHz and MHz, so their frequencies sort as text
    int lengthLimit;       // UTF-16 units that can be typed over a cell; 0: keep the limit of the last edit
    bool isEditable;
};

// A column's number is its 1-based place in the list's table. These are the same in every list.
inline constexpr int kProgrammeColumn = 1;
inline constexpr int kFrequencyColumn = 2;
inline constexpr int kTimeColumn = 3;    // DRM
inline constexpr int kBandColumn = 3;    // AM and FM
inline constexpr int kSystemColumn = 3;  // favourites
inline constexpr int kTargetColumn = 4;  // DRM

std::span<const ListColumn> columnsOf(ListKind kind);
// nullptr if the table has no such number.
const ListColumn* columnAt(std::span<const ListColumn> columns, int number);
// The numbers of the stored columns, in the order of the file.
std::vector<int> storedColumns(std::span<const ListColumn> columns);

// Adds the list's columns to its grid; if a window shows the list, with their standard widths.
void addListColumns(StationList& list);

// The width of each column in twips, as shares of the grid's present width. The sum may differ from the grid's width by
// design. Only for a list that a window shows.
std::vector<double> standardWidths(StationList& list);
void applyStandardWidths(StationList& list);
