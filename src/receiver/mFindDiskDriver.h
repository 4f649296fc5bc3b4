// Finds the receiver's disk by its capacity, and clears a file's attributes before it is overwritten.
#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/Volumes.h"

// The result without a receiver; callers compare with exactly this text.
inline constexpr std::u16string_view kUnknownDriver = u"Unkonwn Driver";

class mFindDiskDriver {
public:
    mFindDiskDriver(Volumes& volumes, Files& files) : volumes_(volumes), files_(files) {}

    // The root of the first disk with exactly the receiver's capacity, with its trailing separator, or kUnknownDriver.
    // Searches again at each call.
    std::u16string FindReceiverDisk();
    // Whether the disk at this root is the receiver's now.
    bool isReceiver(std::u16string_view root);
    // Makes the file writable, not hidden and not system. A failure is silent.
    void ClearFileAttributes(std::u16string_view path);

private:
    Volumes& volumes_;
    Files& files_;
};
