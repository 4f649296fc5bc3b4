// Every medium that a device may hold after a power cut: between two flushes the writes may be stored in order or in
// any selection, and a write of several sectors may be torn after any sector.
#pragma once

#include <functional>
#include <string>

#include "fat/BlockLog.h"

// returned: the number of marks before the last flush that must have completed; the operations before those marks have
// returned.
// Calls `check` once per state and number of marks.
void eachState(const BlockLog& log, const std::function<void(const std::string& medium, int returned)>& check);
