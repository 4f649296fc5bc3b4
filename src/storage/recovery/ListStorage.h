// The working copies with everything that loads, saves and protects them.
#pragma once

#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Backup.h"
#include "storage/recovery/Recovery.h"

struct ListStorage {
    const WorkingCopies& copies;
    ListLoader& loader;
    ListSaver& saver;
    Recovery& recovery;
    Backup& backup;
};
