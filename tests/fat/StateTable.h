// How many states were tried and how many of them broke a promise: the table in docs/reliability.md.
#pragma once

#include <map>
#include <string>

struct StateRow {
    int states = 0;
    int brokenRaw = 0;
    int brokenChecked = 0;
};
using StateTable = std::map<std::string, StateRow>;  // by Case::rowName()

std::string tableOf(const StateTable& table);
// Replaces the table between the marks of the page. False: the page has no marks or cannot be written.
bool replaceTable(const std::string& page, const std::string& table);
