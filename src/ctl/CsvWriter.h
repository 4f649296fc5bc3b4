// Writes lists as comma-separated values: UTF-8, one line of column names and one line per record.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "storage/lists/WorkingCopies.h"

// In the order of the output; input may have any order.
inline constexpr std::array<std::u16string_view, 7> kCsvColumns = {
    u"list", u"programme", u"frequency_khz", u"start_utc", u"stop_utc", u"target", u"system"};

// The lists of both files.
std::string csvOf(WorkingCopyBytes files);
