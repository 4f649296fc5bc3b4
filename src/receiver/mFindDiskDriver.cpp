#include "receiver/mFindDiskDriver.h"

#include <algorithm>
#include <vector>

// A test sets another value where the system rounds capacities.
#ifndef HALCYON_RECEIVER_CAPACITY
#define HALCYON_RECEIVER_CAPACITY 1'022'976
#endif

namespace {

constexpr double kReceiverCapacity = HALCYON_RECEIVER_CAPACITY;  // bytes: 999 blocks of 1,024

bool hasReceiversCapacity(const DiskGeometry& disk) {
    const double total = static_cast<double>(disk.sectorsPerCluster) * static_cast<double>(disk.totalClusters) *
                         static_cast<double>(disk.bytesPerSector);
    return total >= kReceiverCapacity && total < kReceiverCapacity + 1;
}

}  // namespace

std::u16string mFindDiskDriver::FindReceiverDisk() {
    const std::vector<std::u16string> roots = volumes_.roots();
    const auto found =
        std::find_if(roots.begin(), roots.end(), [this](const std::u16string& root) { return isReceiver(root); });
    return found == roots.end() ? std::u16string(kUnknownDriver) : *found;
}

bool mFindDiskDriver::isReceiver(std::u16string_view root) {
    // The receiver's volume label is "STNMEMORY", but any disk may have that label and the user may change it; only
    // the capacity identifies the receiver. Reading the label skips unreadable disks.
    if (!volumes_.isPresent(root) || !volumes_.label(root)) {
        return false;
    }
    const auto geometry = volumes_.geometry(root);
    return geometry && hasReceiversCapacity(*geometry);
}

void mFindDiskDriver::ClearFileAttributes(std::u16string_view path) { files_.clearAttributes(path); }
