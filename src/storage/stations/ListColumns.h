// The columns of the four lists.
#pragma once

#include <vector>

#include "storage/stations/StationLists.h"

// Adds the columns of the list's kind, then gives them their standard widths.
void addListColumns(StationList& list);

// The width of each column in twips, as shares of the grid's present width; the last columns may reach beyond its right
// edge or leave a gap, as they were designed to.
std::vector<double> standardWidths(StationList& list);
void applyStandardWidths(StationList& list);
