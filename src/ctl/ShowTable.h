// Writes lists as tables with the captions of the window.
#pragma once

#include <string>
#include <vector>

#include "ctl/Lists.h"

// Each table is preceded by a heading and the number of rows.
std::string tablesOf(const Lists& lists, const std::vector<ListKind>& kinds, bool colours);
// The given rows (1-based) of one list, without a heading.
std::string tableOf(const Lists& lists, ListKind kind, const std::vector<int>& rows, bool colours);
