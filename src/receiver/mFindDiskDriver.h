// Finds the receiver's disk by its capacity, and clears a file's attributes before it is overwritten.
#pragma once

#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/Volumes.h"

// Returned when no disk is the receiver's; callers test for exactly these characters.
inline constexpr std::u16string_view kUnknownDriver = u"Unkonwn Driver";

class mFindDiskDriver {
public:
    mFindDiskDriver(Volumes& volumes, Files& files) : volumes_(volumes), files_(files) {}

    // The root of the first disk of exactly the receiver's capacity, with its trailing separator,
    // or kUnknownDriver. Searches anew at each call.
    std::u16string FindReceiverDisk();
    // Writable, not hidden, not system; a failure is silent.
    void ClearFileAttributes(std::u16string_view path);

private:
    Volumes& volumes_;
    Files& files_;
};
