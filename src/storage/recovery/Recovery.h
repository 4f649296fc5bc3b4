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
#include <vector>

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
    // False if find could not read a file to its end. Its snapshot may be the newest, so it stays for a later start.
    bool foundAll() const { return foundAll_; }
    // Snapshots found that the run after them could not read, so their lists may be nowhere else.
    const std::vector<Snapshot>& unseen() const { return unseen_; }
    // Adds a state in which this run may leave the working copy. Call before the file is written.
    void mayLeave(ListFileId file, const FileState& state) { left_[file].push_back(state); }
    // From now on this run leaves the working copy in this state, until mayLeave.
    void leaves(ListFileId file, const FileState& state) { left_[file] = {state}; }
    // Writes a snapshot of both files in one step; on failure the previous snapshot stays whole. A file without bytes
    // stays as in the last snapshot. Writes nothing if that would not change. False if the snapshot could not be
    // written.
    bool keep(WorkingCopyBytes bytes);
    // Writes a snapshot, saves the lists, and writes another snapshot without the states before the save: a file in
    // such a state was then restored from outside. The saver reports whether both files were saved.
    void save(ListSaver& saver);
    // Removes all but the newest snapshot, except one that find could not read but that can be read now.
    void keepNewestOnly();

private:
    // Two files in turns, so that after a torn write the other is whole. One that a start cannot read is set aside by a
    // rename, as otherwise each later write would be to the only whole one. Changes of the newest snapshot are appended
    // to its file while they are shorter than half of it, so that not every edit writes all lists.
    static constexpr std::size_t kSlots = 2;
    // More than runs ever use. A run that could not read a snapshot skips as many, to exceed that snapshot's number.
    static constexpr std::uint64_t kMostNumbers = std::uint64_t{1} << 40U;
    static constexpr std::uint64_t kAnyLength = ~std::uint64_t{0};
    // A change longer than this part of the file, as after a sort, is written as a whole snapshot: overwriting the
    // other file takes less time than letting this one grow and truncating it later.
    static constexpr std::uint64_t kLongChange = 8;
    // Limits the work of the next start, which applies each change to all lists.
    static constexpr int kMostChanges = 100;
    // The space for changes after the newest snapshot.
    struct Room {
        std::uint64_t start = 0;  // the size of the file
        std::size_t bytes = 0;
        int changes = 0;
    };

    static Room readChanges(std::string_view rest, SnapshotFile& file);
    void findUnread();
    // Both number the snapshot: one that failed may be in the file nevertheless, so each attempt needs a higher number.
    // append fails also if the change is longer than that.
    bool append(Snapshot& snapshot, std::uint64_t mostBytes);
    bool write(Snapshot& snapshot);
    // False if the slot has a snapshot that was not read and that cannot be set aside.
    bool makeFree(std::size_t slot);
    void removeOld(const std::u16string& path, bool isUnread);
    void makeDurable(std::size_t slot);

    std::u16string folder_;
    std::array<std::u16string, kSlots> slots_;
    std::u16string unread_;  // a snapshot set aside
    Files& files_;
    std::size_t newest_ = 0;  // the slot of kept_
    std::optional<Snapshot> kept_;
    std::uint64_t lastNumber_ = 0;  // highest number used, including failed attempts
    std::array<bool, kSlots> isUnread_{};
    bool hasUnread_ = false;
    bool foundAll_ = true;
    std::vector<Snapshot> unseen_;
    Room room_;
    FileStates left_;
    // True if this run has made the name durable. The snapshot of a killed run may be in the system's cache only.
    std::array<bool, kSlots> isNamed_{};
    bool isDurable_ = false;
};
