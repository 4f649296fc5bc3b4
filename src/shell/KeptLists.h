// Keeps the lists for the next start while the program runs, in case the run is cut off.
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

    // The lists as just loaded are kept already.
    void startFromHere() { keptChanges_ = changes(); }
    // Nothing when no list has changed since.
    void keep();
    void save() { recovery_.save(saver_); }
    // After the last save of a run: what could not be saved waits for the next start.
    void end();

    // Around a command: what it has changed is kept when it ends.
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
    std::uint64_t keptChanges_ = 0;  // what changes() was when the lists were kept last
};
