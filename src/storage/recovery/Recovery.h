// Protects an interrupted run (killed, power cut) from losing changes: between two saves the grids are the only copy of
// the lists. After each change both files, as a save would write them, go into a snapshot in the folder "Recovery". The
// snapshot of the last save remains after the run, in case the medium loses the files.
//
// A snapshot also records the states in which the run may have left each working copy. At the next start the snapshot
// counts if a working copy is in one of these states, since it then holds the same lists or older ones. A working copy
// that has since been changed, replaced or removed from outside is intended by the user and counts instead. An empty,
// unreadable or damaged working copy is an accident, so the snapshot counts.
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

    // The newest whole snapshot of an earlier run; nullopt if there is none. Numbering continues from it.
    std::optional<Snapshot> find();
    // Adds a state in which this run may leave the working copy. Call before the file is written.
    void mayLeave(ListFileId file, const FileState& state) { left_[file].push_back(state); }
    // From now on this run leaves the working copy in this state, until mayLeave.
    void leaves(ListFileId file, const FileState& state) { left_[file] = {state}; }
    // Writes a snapshot of both files in one step; on failure the previous snapshot stays whole. A file without bytes
    // stays as in the last snapshot. Writes nothing if that would not change. False if the snapshot could not be
    // written.
    bool keep(WorkingCopyBytes bytes);
    // Keeps the lists, saves them, and keeps them once more without the states before the save: after that
    // such a file is somebody's who went back to it. Whether both files are saved, the saver says.
    void save(ListSaver& saver);
    // Removes all but the newest snapshot.
    void keepNewestOnly();

private:
    // Two files take turns, so that a torn one leaves the other. Changes of the newest snapshot follow it in its file
    // while they are shorter than half of it, so that not every edit writes the whole lists.
    static constexpr std::size_t kSlots = 2;
    // The next start applies each of them to the whole lists.
    static constexpr int kMostChanges = 100;
    // For changes that follow the newest snapshot.
    struct Room {
        std::uint64_t start = 0;  // the size of the file
        std::size_t bytes = 0;
        int changes = 0;
    };

    static Room readChanges(std::string_view rest, SnapshotFile& file);
    bool append(const Snapshot& snapshot);
    bool write(const Snapshot& snapshot);
    void makeDurable(std::size_t slot);

    std::u16string folder_;
    std::array<std::u16string, kSlots> slots_;
    Files& files_;
    std::size_t newest_ = 0;  // the slot of kept_
    std::optional<Snapshot> kept_;
    std::uint64_t lastNumber_ = 0;  // of the snapshots kept and of those that failed
    Room room_;
    FileStates left_;
    // What this run knows to be on the device. The snapshot of a killed run may be in the system's cache only.
    std::array<bool, kSlots> isNamed_{};
    bool isDurable_ = false;
};
