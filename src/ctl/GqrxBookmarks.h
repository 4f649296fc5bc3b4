// Writes lists as a bookmark file of gqrx, a receiver program.
#pragma once

#include <string>

#include "ctl/Lists.h"

std::string gqrxOf(const Lists& lists);
