// Writes snapshots of changed lists while the program runs, in case the run is interrupted.
#pragma once

#include <array>
#include <cstdint>

#include "storage/lists/ListSaver.h"
#include "storage/recovery/Recovery.h"
#include "storage/stations/RowStore.h"

class KeptLists {
public:
    using Rows = std::array<const RowStore*, kListCount>;
    KeptLists(Rows rows, ListSaver& saver, Recovery& recovery) : rows_(rows), saver_(saver), recovery_(recovery) {}

    // Call after loading: these lists need no new snapshot.
    void startFromHere() { keptChanges_ = changes(); }
    // Writes a snapshot if a list has changed since the last one.
    void keep();
    void save() { recovery_.save(saver_); }
    // Call after the last save of a run: a list that could not be saved waits in the snapshot for the next start.
    void end();

    // Scope guard around a command: writes a snapshot at the end if the command has changed a list.
    class AtEnd {
    public:
        explicit AtEnd(KeptLists& lists) : lists_(lists) {}
        ~AtEnd() { lists_.keep(); }
        AtEnd(const AtEnd&) = delete;
        AtEnd& operator=(const AtEnd&) = delete;

    private:
        KeptLists& lists_;
    };

private:
    std::uint64_t changes() const;

    Rows rows_;
    ListSaver& saver_;
    Recovery& recovery_;
    ComposedLists composed_;
    std::uint64_t keptChanges_ = 0;  // changes() at the last snapshot
};
