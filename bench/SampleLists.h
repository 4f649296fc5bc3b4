// Four sample lists with names in many scripts, the same in every run.
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

// Latin: ASCII names only, which every font can display.
enum class Names { Mixed, Latin };

// The grids with everything that the storage classes need; no view draws them.
class SampleLists {
public:
    // The working copies are in `folder`, which ends with its separator, with the names that the program uses.
    explicit SampleLists(std::u16string_view folder, Names names = Names::Mixed);

    // Clears the grids, then appends `records` to each.
    void fill(int records);
    void clear();
    StationLists lists();
    RowStore& grid(ListKind kind) { return grids_[static_cast<std::size_t>(kind)]; }
    const WorkingCopies& copies() const { return copies_; }
    ReceiverSettings& settings() { return settings_; }

    // Writes both working copies as a save does (UTF-8), or as a running program keeps them (UTF-16).
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

// The name of a station, different for every number.
std::u16string sampleName(int number, Names names);
// A schedule of at most `units` characters, with as many whole and valid records as fit.
std::u16string sampleSchedule(std::size_t units);
