// How many states were tried and how many of them broke a promise: the tables in docs/reliability.md.
#pragma once

#include <map>
#include <string>

struct StateRow {
    int states = 0;
    int brokenRaw = 0;
    int brokenChecked = 0;
};
using StateTable = std::map<std::string, StateRow>;  // by Case::rowName()

enum class Loop { Test, Soak };  // each has a table of its own

std::string tableOf(const StateTable& table);
// Empty if the page has no such table.
StateTable tableOnPage(const std::string& page, Loop loop);
// Replaces the loop's table. The soak, which may run in parts, replaces only the rows of its part. False: the page has
// no marks or cannot be written.
bool putOnPage(const std::string& page, Loop loop, StateTable table);
