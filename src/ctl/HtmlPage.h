// The lists as one page for a browser or a printer that needs no other file.
#pragma once

#include <string>

#include "ctl/Lists.h"
#include "platform/Clock.h"

// now: when the page is made; the page marks the hour in which it is looked at where scripts run, else this one.
std::string htmlOf(const Lists& lists, const UtcTime& now);
