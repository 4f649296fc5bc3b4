// The lists as JSON: an object with one array for each list, in which each record is an object.
#pragma once

#include <string>
#include <vector>

#include "ctl/Lists.h"

std::string jsonOf(const Lists& lists, const std::vector<ListKind>& kinds);
// These rows (1-based) of one list: an array.
std::string jsonOf(const Lists& lists, ListKind kind, const std::vector<int>& rows);
