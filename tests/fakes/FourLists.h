// The four lists on fake views, with functions that read them.
#pragma once

#include <array>
#include <string>

#include "fakes/FakeGridView.h"
#include "fakes/Text.h"
#include "storage/stations/RowStore.h"
#include "storage/stations/StationLists.h"

inline constexpr std::array<ListKind, kListCount> kAllLists = {ListKind::Drm, ListKind::Am, ListKind::Fm,
                                                               ListKind::Favourite};

class FourLists {
public:
    FourLists() = default;
    FourLists(const FourLists&) = delete;  // the grids refer to their views
    FourLists& operator=(const FourLists&) = delete;

    RowStore& grid(ListKind kind) { return grids[static_cast<std::size_t>(kind)]; }
    FakeGridView& view(ListKind kind) { return views[static_cast<std::size_t>(kind)]; }
    std::array<Grid*, kListCount> allGrids() { return {&grids[0], &grids[1], &grids[2], &grids[3]}; }
    // The cells of a row, joined by "|".
    std::string rowText(ListKind kind, int number) {
        std::string joined = narrow(grid(kind).text(number, 1));
        for (int column = 2; column <= (kind == ListKind::Drm ? 4 : 3); ++column) {
            joined += "|" + narrow(grid(kind).text(number, column));
        }
        return joined;
    }

    std::array<FakeGridView, kListCount> views;
    std::array<RowStore, kListCount> grids{RowStore(views[0]), RowStore(views[1]), RowStore(views[2]),
                                           RowStore(views[3])};
    StationLists lists{{StationList{ListKind::Drm, grids[0], views[0]}, StationList{ListKind::Am, grids[1], views[1]},
                        StationList{ListKind::Fm, grids[2], views[2]},
                        StationList{ListKind::Favourite, grids[3], views[3]}}};
};
