// Finds, reads and replaces the two list files on the receiver's disk, as a pair. Shows nothing to the user.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "receiver/mFindDiskDriver.h"
#include "storage/lists/ListFile.h"
#include "storage/recovery/Backup.h"

using ListFilePair = PerListFile<std::string>;

class ReceiverFiles {
public:
    // All references outlive this object. Every search sets root to the root of the disk or to kUnknownDriver.
    ReceiverFiles(mFindDiskDriver& driver, std::u16string& root, Files& files, Backup& backup)
        : driver_(driver), root_(root), files_(files), backup_(backup) {}

    // False if no disk is the receiver's.
    bool findDisk();
    // On the disk last found.
    std::u16string pathOf(ListFileId file) const { return root_ + std::u16string(ListFile::nameOf(file)); }
    // The path of the first of the two files that is missing on the disk; nullopt if both exist.
    std::optional<std::u16string> missingFile();
    // nullopt if either file cannot be read, or if the disk is gone.
    std::optional<ListFilePair> read();
    // Replaces both files or neither, and verifies them on the device. The old ones are backed up, of one that cannot
    // be read the part before the failure. False if the old ones remain.
    bool replace(ListFilePair pair);

private:
    // Null if the disk found last is not there any more.
    std::unique_ptr<Files> openDisk();

    mFindDiskDriver& driver_;
    std::u16string& root_;
    Files& files_;
    Backup& backup_;
};
