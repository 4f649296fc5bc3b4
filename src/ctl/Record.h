// A row of a list in the terms of the CSV and JSON files: frequency in kHz, start and stop separate.
#pragma once

#include <optional>
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

Record recordOf(const Grid& grid, ListKind kind, int row);
// hh:mm-hh:mm; nullopt unless both are times of day and start is earlier.
std::optional<std::u16string> timeSpanOf(std::u16string_view start, std::u16string_view stop);
void appendRecord(Grid& grid, ListKind kind, const Record& record);
