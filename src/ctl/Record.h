// A row of a list in the terms of the CSV and JSON files: frequency in kHz, start and stop separate.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/Grid.h"
#include "storage/stations/ListKind.h"

// Views into the grid or the input file; empty if the list has no such field.
struct Record {
    std::u16string_view programme;
    std::u16string frequency;    // kHz, as stored in the list files
    std::u16string_view start;   // hh:mm UTC; DRM list only
    std::u16string_view stop;    // a time cell that is no span is in `start` as a whole
    std::u16string_view target;  // DRM list only
    std::u16string_view system;  // favourites only: "DRM", "AM" or "FM"

    friend bool operator==(const Record&, const Record&) = default;
};

// `cells`: of a row of the list.
Record recordOf(ListKind kind, std::span<const std::u16string_view> cells);
Record recordOf(const Grid& grid, ListKind kind, int row);
// True if both are times of day, hh:mm, and start is earlier.
bool areTimes(std::u16string_view start, std::u16string_view stop);
void appendRecord(Grid& grid, ListKind kind, const Record& record);
