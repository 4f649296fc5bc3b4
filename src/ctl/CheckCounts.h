// Compares the counts in the list files with the number of their record sections.
#pragma once

#include "ctl/Faults.h"
#include "platform/CodePages.h"
#include "storage/lists/WorkingCopies.h"

void checkCounts(const WorkingCopyBytes& bytes, CodePages& codePages, Faults& faults);
