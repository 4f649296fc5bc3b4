// The DRM list as a drawing: 24 hours from left to right, a line for each frequency.
#pragma once

#include <string>

#include "platform/Clock.h"
#include "platform/Grid.h"

// An SVG element; empty if no record has a time of day. Coloured by the style sheet of the page.
std::u16string timelineOf(const Grid& drm, const UtcTime& now);
