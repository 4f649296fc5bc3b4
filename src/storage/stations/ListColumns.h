// The columns of the four lists.
#pragma once

#include <vector>

#include "storage/stations/StationLists.h"

// Adds the columns of the list's kind, and gives them their standard widths where a window shows the list.
void addListColumns(StationList& list);

// The width of each column in twips, as shares of the grid's present width; the last columns may reach beyond its right
// edge or leave a gap, as they were designed to. Only for a list that a window shows.
std::vector<double> standardWidths(StationList& list);
void applyStandardWidths(StationList& list);
