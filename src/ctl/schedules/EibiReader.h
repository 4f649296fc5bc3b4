// Reads the schedule that EiBi publishes: lines of eleven fields, separated by semicolons, in Windows-1252. The first
// line begins with "kHz:".
#pragma once

#include <string_view>

#include "ctl/schedules/ScheduleEntry.h"
#include "platform/Clock.h"

// Entries out of season today are skipped. DRM broadcasts are recognised by their names.
ScheduleEntries readEibi(std::string_view bytes, const UtcTime& today);
