// Compares the counts in the list files with the number of their record sections.
#pragma once

#include "ctl/Faults.h"
#include "ctl/ParsedFiles.h"

void checkCounts(ParsedFiles& files, Faults& faults);
