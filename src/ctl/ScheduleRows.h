// The records of a broadcast schedule as rows of the DRM list.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "ctl/Options.h"
#include "ctl/Services.h"
#include "storage/stations/RowStore.h"

// Fetches or reads options.input, and appends what the options select to `rows`. Exit::Done, or a message has been
// written.
Exit readSchedule(Services& services, const Options& options, RowStore& rows);
