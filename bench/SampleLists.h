// Four lists as a listener far from Europe keeps them: names of many scripts, the same ones at every run.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/GridView.h"
#include "storage/lists/WorkingCopies.h"
#include "storage/stations/ReceiverSettings.h"
#include "storage/stations/RowStore.h"
#include "storage/stations/StationLists.h"

// Latin: every name in the letters of English, so that any font has them.
enum class Names { Mixed, Latin };

// The grids and what the storage routines need around them; nothing draws them.
class SampleLists {
public:
    // The working copies lie in `folder`, which ends with its separator, by the names that the program gives them.
    explicit SampleLists(std::u16string_view folder, Names names = Names::Mixed);

    // Empties the grids, then appends `records` to each.
    void fill(int records);
    void clear();
    StationLists lists();
    RowStore& grid(ListKind kind) { return grids_[static_cast<std::size_t>(kind)]; }
    const WorkingCopies& copies() const { return copies_; }
    ReceiverSettings& settings() { return settings_; }

    // Writes both working copies as a save leaves them (UTF-8), or as the running program keeps them (UTF-16).
    void writeUtf8(Files& files, CodePages& codePages);
    void writeUtf16(Files& files, CodePages& codePages);

private:
    class NoView : public GridView {
    public:
        void attach(Grid&, GridListener&) override {}
        void columnAdded(int) override {}
        double showColumnWidth(int, double widthTwips) override { return widthTwips; }
        void beforeAppend(int) override {}
        void afterAppend(int) override {}
        void beforeReset() override {}
        void afterReset() override {}
        void cellChanged(int, int) override {}
        void selectionChanged(int) override {}
        GridGeometry geometry(int) override { return {}; }
        void takeFocus() override {}
    };

    Names names_;
    NoView view_;
    std::array<RowStore, kListCount> grids_;
    WorkingCopies copies_;
    ReceiverSettings settings_;
};

// A station's name, different for every number.
std::u16string sampleName(int number, Names names);
// A schedule of at most `units` characters; as many whole records as fit, all of them valid.
std::u16string sampleSchedule(std::size_t units);
