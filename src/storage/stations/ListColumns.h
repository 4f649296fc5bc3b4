// The columns of the four lists. Each fact about a column stands in its row of one table.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "storage/stations/ListKind.h"

struct StationList;

enum class SortKeyType { Text, Number };

// How a cell follows from the record in the file.
enum class CellContent {
    StoredText,
    Megahertz,          // stored in kHz
    FrequencyWithUnit,  // stored in kHz, shown in the unit of the record's system
    AmBand,             // not stored: the band of the frequency
    FmBand,             // not stored: always the same
};

struct ListColumn {
    std::u16string_view caption;
    std::u16string_view headerKey;  // four capital letters, different within a list
    std::u16string_view storedKey;  // of the record's section in the file
    int storedPlace;                // among the keys of the section, from 1; 0: not stored
    CellContent content;
    double widthDivisor;   // the standard width is the grid's width divided by it
    SortKeyType sortedAs;  // favourites mix kHz and MHz, so their frequencies sort as texts
    int lengthLimit;       // UTF-16 units that can be typed over a cell; 0: the limit of the last edit stays
    bool isEditable;
};

// A column's number is its place in the list's table, from 1. These have the same place in every list.
inline constexpr int kProgrammeColumn = 1;
inline constexpr int kFrequencyColumn = 2;
inline constexpr int kTimeColumn = 3;    // DRM
inline constexpr int kBandColumn = 3;    // AM and FM
inline constexpr int kSystemColumn = 3;  // favourites
inline constexpr int kTargetColumn = 4;  // DRM

std::span<const ListColumn> columnsOf(ListKind kind);
// nullptr for a number that the table does not have.
const ListColumn* columnAt(std::span<const ListColumn> columns, int number);

// Adds the list's columns to its grid, and gives them their standard widths where a window shows the list.
void addListColumns(StationList& list);

// The width of each column in twips, as shares of the grid's present width; the last columns may reach beyond its right
// edge or leave a gap, as they were designed to. Only for a list that a window shows.
std::vector<double> standardWidths(StationList& list);
void applyStandardWidths(StationList& list);
