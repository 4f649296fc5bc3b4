// From the start of the program to the filled grids: the working copies are made ready and loaded.
#pragma once

#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "shell/mFindDiskDriver.h"
#include "storage/ListLoader.h"
#include "storage/ReceiverCopies.h"
#include "storage/WorkingCopies.h"

class StartUp {
public:
    StartUp(const WorkingCopies& workingCopies, ReceiverCopies& receiverCopies, ListLoader& loader,
            mFindDiskDriver& findDiskDriver, Files& files, CodePages& codePages)
        : workingCopies_(workingCopies),
          receiverCopies_(receiverCopies),
          loader_(loader),
          findDiskDriver_(findDiskDriver),
          files_(files),
          codePages_(codePages) {}

    // "LocalRun": the program's own working copies. "NormalRun" copies the receiver's files over them first;
    // every start today is a "LocalRun". Silent but for receiver files missing in a "NormalRun".
    void run(std::u16string_view RunMode = u"LocalRun");

private:
    void prepareFromReceiver();
    void prepareLocal();

    const WorkingCopies& workingCopies_;
    ReceiverCopies& receiverCopies_;
    ListLoader& loader_;
    mFindDiskDriver& findDiskDriver_;
    Files& files_;
    CodePages& codePages_;
};
