// The four station lists: each a grid and, in the window, the view that shows it.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "platform/Grid.h"
#include "platform/GridView.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ListKind.h"

// A grid with its kind; grid and view outlive it.
struct StationList {
    StationList(ListKind listKind, Grid& rows) : kind(listKind), grid(rows) {}
    StationList(ListKind listKind, Grid& rows, GridView& shownBy) : kind(listKind), grid(rows), view(&shownBy) {}

    ListKind kind;
    Grid& grid;
    GridView* view = nullptr;  // null if no window shows the list
    std::span<const ListColumn> columns = columnsOf(kind);
};

class StationLists {
public:
    explicit StationLists(std::array<StationList, kListCount> lists) : lists_(lists) {}

    StationList& operator[](ListKind kind) { return lists_[static_cast<std::size_t>(kind)]; }
    Grid& grid(ListKind kind) { return (*this)[kind].grid; }
    // Only for lists that a window shows.
    GridView& view(ListKind kind) { return *(*this)[kind].view; }

private:
    std::array<StationList, kListCount> lists_;
};
