// The two commands for the receiver's disk: "Load From Receiver" and "Save To Receiver".
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "messages/Feedback.h"
#include "platform/Files.h"
#include "receiver/ReceiverFiles.h"
#include "storage/recovery/ListStorage.h"
#include "storage/stations/StationLists.h"

class ReceiverCopies {
public:
    // All references outlive this object.
    ReceiverCopies(StationLists lists, const ListStorage& storage, ReceiverFiles& receiver, Feedback feedback,
                   Files& files);

    // Replaces both working copies by the receiver's files, or neither, and shows them; what is replaced is backed up.
    // A missing disk or file gives a message; then, and (silently) if a file cannot be copied or converted, the grids
    // stay unchanged.
    void ReloadFromReceiver();
    // Saves the grids to the working copies, then copies both files to the receiver, or neither. The receiver's old
    // files are backed up.
    void SaveToReceiver();
    // Copies one file from the receiver's root, as last found, over a working copy. A missing file gives a message.
    // False if nothing was copied.
    bool fetch(ListFileId file);

private:
    bool findDisk();
    void reportMissing(const std::u16string& path);
    bool copyFromReceiver();
    void copyToReceiver();
    void backUp(ListFileId file, const std::optional<std::string>& shown);
    void reloadGrids(WorkingCopyBytes bytes);

    StationLists lists_;
    const WorkingCopies& copies_;
    ReceiverFiles& receiver_;
    ListLoader& loader_;
    ListSaver& saver_;
    mMsgBox& messages_;
    Totals& totals_;
    Files& files_;
    Backup& backup_;
    Recovery& recovery_;
};
