// Reads broadcast schedules as rows of the DRM list.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Exit.h"
#include "ctl/Options.h"
#include "ctl/Services.h"
#include "storage/stations/RowStore.h"

// Downloads or reads options.input and appends the selected broadcasts to `rows`. Exit::Done, or a message was written.
Exit readSchedule(Services& services, const Options& options, RowStore& rows);
