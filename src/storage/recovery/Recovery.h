// What an interrupted run (killed, power cut) would lose: between two saves the grids are the only copy of the lists.
// After each change both files, as a save would write them, go into the folder "Recovery". The snapshot of the last
// save stays there when the run has ended, in case the medium loses the files.
//
// A snapshot also says what the run may have left of each working copy. The next start takes the lists from the
// snapshot as long as a working copy is just that: it then holds the same lists or older ones. A working copy that
// somebody else has changed, replaced or removed since is what the user wants and wins. One that is empty, unreadable
// or no list file at all is neither: nobody keeps lists in that form, so the medium or the program has been
// interrupted, and the snapshot counts.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "storage/lists/ListSaver.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/recovery/Snapshot.h"

class Recovery {
public:
    // programFolder ends with its separator.
    Recovery(std::u16string_view programFolder, Files& files);

    // The newest whole snapshot that an earlier run has left; nullopt when there is none. Later ones count on from it.
    std::optional<Snapshot> find();
    // This run, too, may leave the working copy so. To be kept before the file is written.
    void mayLeave(ListFileId file, const FileState& state) { left_[file].push_back(state); }
    // From now on it leaves the working copy so, until mayLeave.
    void leaves(ListFileId file, const FileState& state) { left_[file] = {state}; }
    // Keeps both files in one step; whatever fails, the snapshot before stays whole. A file of which nothing is known
    // stays as kept last. Nothing is written when this run has kept the same last. False when it could not be written.
    bool keep(WorkingCopyBytes bytes);
    // Keeps the lists, saves them, and keeps them once more without the states before the save: after that
    // such a file is somebody's who went back to it. Whether both files are saved, the saver says.
    void save(ListSaver& saver);
    // Removes all but the newest snapshot.
    void keepNewestOnly();

private:
    // Two files take turns, so that a torn one leaves the other.
    static constexpr std::size_t kSlots = 2;

    std::u16string folder_;
    std::array<std::u16string, kSlots> slots_;
    Files& files_;
    std::size_t newest_ = 0;  // the slot of kept_
    std::optional<Snapshot> kept_;
    FileStates left_;
    // What this run knows to be on the device. The snapshot of a killed run may be in the system's cache only.
    std::array<bool, kSlots> isNamed_{};
    bool isDurable_ = false;
};
