// What a run that ends in the middle (killed, power cut) would lose: between two saves the grids are the only copy of
// the lists. After each change both files, as a save would write them, go into the folder "Recovery"; a run that ends
// normally removes it, and the next start finds it only if none did.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Snapshot.h"

class Recovery {
public:
    // programFolder ends with its separator.
    Recovery(std::u16string_view programFolder, Files& files);

    // The newest whole snapshot that an earlier run has left; nullopt when there is none. Later ones count on from it.
    std::optional<WorkingCopyBytes> find();
    // Keeps both files in one step; whatever fails, the snapshot before stays whole. A file of which nothing is known
    // stays as kept last. Nothing is written when this run has kept the same last. False when it could not be written.
    bool keep(WorkingCopyBytes bytes);
    // Removes all of it: the working copies hold the same now.
    void discard();

private:
    // Two files take turns, so that a torn one leaves the other.
    static constexpr std::size_t kSlots = 2;

    std::u16string folder_;
    std::array<std::u16string, kSlots> slots_;
    Files& files_;
    std::size_t newest_ = 0;  // the slot of kept_
    std::uint64_t number_ = 0;
    std::optional<WorkingCopyBytes> kept_;
    // What this run knows to be on the device. The snapshot of a killed run may be in the system's cache only.
    std::array<bool, kSlots> isNamed_{};
    bool isDurable_ = false;
};
