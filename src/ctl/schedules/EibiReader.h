// The schedule that EiBi publishes: lines of eleven fields with semicolons between them, in Windows-1252. The first
// line begins with "kHz:".
#pragma once

#include <string_view>

#include "ctl/schedules/ScheduleEntry.h"
#include "platform/Clock.h"

// today decides which entries are out of season. DRM broadcasts are known by their names.
ScheduleEntries readEibi(std::string_view bytes, const UtcTime& today);
