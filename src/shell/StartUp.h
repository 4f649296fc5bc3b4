// From the start of the program to the filled grids: the working copies are made ready and loaded.
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
            Recovery& recovery, mFindDiskDriver& findDiskDriver, Files& files, CodePages& codePages)
        : workingCopies_(workingCopies),
          receiverCopies_(receiverCopies),
          loader_(loader),
          saver_(saver),
          recovery_(recovery),
          findDiskDriver_(findDiskDriver),
          files_(files),
          codePages_(codePages) {}

    // "LocalRun": the program's own working copies. "NormalRun" copies the receiver's files over them first;
    // every start today is a "LocalRun". What a run that did not end has left is put back before. Silent but for
    // receiver files missing in a "NormalRun".
    void run(std::u16string_view RunMode = u"LocalRun");

private:
    void restore();
    void prepareFromReceiver();
    void prepareLocal();
    void putBack(ListFileId file);
    std::optional<std::string> present(ListFileId file);
    std::string convert(ListFileId file, const std::optional<std::string>& bytes, bool onDisk);

    const WorkingCopies& workingCopies_;
    ReceiverCopies& receiverCopies_;
    ListLoader& loader_;
    ListSaver& saver_;
    Recovery& recovery_;
    mFindDiskDriver& findDiskDriver_;
    Files& files_;
    CodePages& codePages_;
    WorkingCopyBytes restored_;  // the last run's lists that could not be written over the working copies
};
