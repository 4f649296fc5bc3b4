// A row of a list as the terms of the CSV and JSON files: frequencies in kHz, start and stop apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Grid.h"
#include "storage/stations/ListKind.h"

// Views into the grid or the file that it comes from; empty where the list has no such field.
struct Record {
    std::u16string_view programme;
    std::u16string frequency;    // kHz, as the list files hold it
    std::u16string_view start;   // hh:mm UTC, of the DRM list
    std::u16string_view stop;    // a time cell that is no span stands whole in `start`
    std::u16string_view target;  // of the DRM list
    std::u16string_view system;  // of favourites: "DRM", "AM" or "FM"

    friend bool operator==(const Record&, const Record&) = default;
};

Record recordOf(const Grid& grid, ListKind kind, int row);
// hh:mm-hh:mm; nullopt unless both are times of day hh:mm and the start is the earlier one.
std::optional<std::u16string> timeSpanOf(std::u16string_view start, std::u16string_view stop);
void appendRecord(Grid& grid, ListKind kind, const Record& record);
