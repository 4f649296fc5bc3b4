#include "receiver/mFindDiskDriver.h"

// A test sets another value where the system rounds capacities.
#ifndef HALCYON_RECEIVER_CAPACITY
#define HALCYON_RECEIVER_CAPACITY 1'022'976
#endif

namespace {

constexpr double kReceiverCapacity = HALCYON_RECEIVER_CAPACITY;  // bytes: 999 blocks of 1,024

bool isReceiver(const DiskGeometry& disk) {
    const double total = static_cast<double>(disk.sectorsPerCluster) * static_cast<double>(disk.totalClusters) *
                         static_cast<double>(disk.bytesPerSector);
    return total >= kReceiverCapacity && total < kReceiverCapacity + 1;
}

}  // namespace

std::u16string mFindDiskDriver::FindReceiverDisk() {
    for (const std::u16string& root : volumes_.roots()) {
        // The receiver's volume label is "STNMEMORY", but any disk may have that label and the user may change it; only
        // the capacity identifies the receiver. Reading the label skips unreadable disks.
        if (!volumes_.isPresent(root) || !volumes_.label(root)) {
            continue;
        }
        const auto geometry = volumes_.geometry(root);
        if (geometry && isReceiver(*geometry)) {
            return root;
        }
    }
    return std::u16string(kUnknownDriver);
}

void mFindDiskDriver::ClearFileAttributes(std::u16string_view path) { files_.clearAttributes(path); }
