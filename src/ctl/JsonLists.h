// Writes lists as JSON: an object with one array per list, and one object per record.
#pragma once

#include <string>
#include <vector>

#include "ctl/Lists.h"

std::string jsonOf(const Lists& lists, const std::vector<ListKind>& kinds);
// An array of the given rows (1-based) of one list.
std::string jsonOf(const Lists& lists, ListKind kind, const std::vector<int>& rows);
