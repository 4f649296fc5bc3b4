// The columns of the four lists.
#pragma once

#include "storage/StationLists.h"

// Adds the columns of the list's kind, then gives them their standard widths.
void addListColumns(StationList& list);

// Widths as shares of the grid's present width (twips); the last columns may reach beyond its right edge or
// leave a gap, as they were designed to.
void applyStandardWidths(StationList& list);
