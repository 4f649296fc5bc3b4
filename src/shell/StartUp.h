// Prepares the working copies and loads them into the grids when the program starts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileServices.h"
#include "receiver/ReceiverCopies.h"
#include "receiver/mFindDiskDriver.h"
#include "storage/recovery/ListStorage.h"

class StartUp {
public:
    // All references outlive this object.
    StartUp(const ListStorage& storage, ReceiverCopies& receiverCopies, mFindDiskDriver& findDiskDriver,
            FileServices services)
        : workingCopies_(storage.copies),
          receiverCopies_(receiverCopies),
          loader_(storage.loader),
          saver_(storage.saver),
          recovery_(storage.recovery),
          backup_(storage.backup),
          findDiskDriver_(findDiskDriver),
          files_(services.files),
          codePages_(services.codePages) {}

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
