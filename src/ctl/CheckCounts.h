// Whether the counts of the list files are those of their record sections.
#pragma once

#include "ctl/Faults.h"
#include "platform/CodePages.h"
#include "storage/lists/WorkingCopies.h"

void checkCounts(const WorkingCopyBytes& bytes, CodePages& codePages, Faults& faults);
