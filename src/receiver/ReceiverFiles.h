// The two list files on the receiver's disk: found, read and replaced as a pair. Shows nothing to the user.
#pragma once

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
    // The references outlive this object. Every search sets root: to the root of the disk, or to kUnknownDriver.
    ReceiverFiles(mFindDiskDriver& driver, std::u16string& root, Files& files, Backup& backup)
        : driver_(driver), root_(root), files_(files), backup_(backup) {}

    // Searches for the disk; false if none is the receiver's.
    bool findDisk();
    // On the disk found last.
    std::u16string pathOf(ListFileId file) const { return root_ + std::u16string(ListFile::nameOf(file)); }
    // The path of the first of the two files that the disk lacks; nullopt if it has both.
    std::optional<std::u16string> missingFile();
    // nullopt if either file cannot be read.
    std::optional<ListFilePair> read();
    // Both files or neither, read back from the device. The old ones are backed up. False if the old ones remain.
    bool replace(ListFilePair pair);

private:
    mFindDiskDriver& driver_;
    std::u16string& root_;
    Files& files_;
    Backup& backup_;
};
