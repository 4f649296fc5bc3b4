// Writes the lists as one self-contained page for a browser or a printer.
#pragma once

#include <string>

#include "ctl/Lists.h"
#include "platform/Clock.h"

// now: time of writing. The page marks the hour of viewing if scripts run, otherwise this one.
std::string htmlOf(const Lists& lists, const UtcTime& now);
