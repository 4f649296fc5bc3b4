// Reads the schedule that the HFCC publishes: lines with fixed columns in Latin-1; ";" starts a comment line.
#pragma once

#include <string_view>

#include "ctl/schedules/ScheduleEntry.h"
#include "platform/Clock.h"

// broadcasters: the file "broadcas.txt" published with the schedule, a code and a name per line; if empty, broadcasts
// are named by their codes. Entries out of season today are skipped.
ScheduleEntries readHfcc(std::string_view bytes, std::string_view broadcasters, const UtcTime& today);
