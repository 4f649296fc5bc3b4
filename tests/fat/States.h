// Every medium that a device may hold after its power was cut: writes reach it in order between two flushes or in any
// other selection, and a write of several sectors may be torn after any of them.
#pragma once

#include <functional>
#include <string>

#include "fat/BlockLog.h"

// returned: how many marks came before the last flush that must have ended; the operation before them is done then.
// A state is given once for each number of marks.
void eachState(const BlockLog& log, const std::function<void(const std::string& medium, int returned)>& check);
