// The schedule that the HFCC publishes: lines of fixed columns in Latin-1; those that begin with ";" are comments.
#pragma once

#include <string_view>

#include "ctl/schedules/ScheduleEntry.h"
#include "platform/Clock.h"

// broadcasters: the file "broadcas.txt" that is published with it, with a code and a name on each line; may be empty,
// then broadcasts have the codes for names. today decides which entries are out of season.
ScheduleEntries readHfcc(std::string_view bytes, std::string_view broadcasters, const UtcTime& today);
