// Draws the DRM list as a timeline of 24 hours, one line per frequency.
#pragma once

#include <string>

#include "platform/Clock.h"
#include "platform/Grid.h"

// An SVG element, coloured by the style sheet of the page; empty if no record has a time of day.
std::u16string timelineOf(const Grid& drm, const UtcTime& now);
