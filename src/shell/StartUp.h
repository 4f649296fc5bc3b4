// Prepares the working copies and loads them into the grids when the program starts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "receiver/ReceiverCopies.h"
#include "receiver/mFindDiskDriver.h"
#include "storage/lists/ListLoader.h"
#include "storage/lists/ListSaver.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Recovery.h"

class StartUp {
public:
    StartUp(const WorkingCopies& workingCopies, ReceiverCopies& receiverCopies, ListLoader& loader, ListSaver& saver,
            Recovery& recovery, Backup& backup, mFindDiskDriver& findDiskDriver, Files& files, CodePages& codePages)
        : workingCopies_(workingCopies),
          receiverCopies_(receiverCopies),
          loader_(loader),
          saver_(saver),
          recovery_(recovery),
          backup_(backup),
          findDiskDriver_(findDiskDriver),
          files_(files),
          codePages_(codePages) {}

    // "LocalRun" loads the program's own working copies; "NormalRun", without a caller here, first replaces them by the
    // receiver's files. Restores from the snapshot what the previous run could not save (see Recovery). Silent except
    // for receiver files missing in a "NormalRun".
    void run(std::u16string_view RunMode = u"LocalRun");

private:
    // The bytes to load the lists from, in UTF-8; nullopt for a file that cannot be read.
    std::optional<std::string> content(ListFileId file, const Snapshot& last);
    void put(ListFileId file, const std::string& converted, bool isNormalRun);
    void load(const WorkingCopyBytes& bytes, WorkingCopyBytes converted);

    const WorkingCopies& workingCopies_;
    ReceiverCopies& receiverCopies_;
    ListLoader& loader_;
    ListSaver& saver_;
    Recovery& recovery_;
    Backup& backup_;
    mFindDiskDriver& findDiskDriver_;
    Files& files_;
    CodePages& codePages_;
};
