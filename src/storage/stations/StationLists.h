// The four station lists as the subsystems see them: each a grid and the view that shows it.
#pragma once

#include <array>
#include <cstddef>

#include "platform/Grid.h"
#include "platform/GridView.h"
#include "storage/stations/ListKind.h"

// One grid with its kind. Owned by the main window, outlives every subsystem.
struct StationList {
    ListKind kind;
    Grid& grid;
    GridView& view;
};

class StationLists {
public:
    explicit StationLists(std::array<StationList, kListCount> lists) : lists_(lists) {}

    StationList& operator[](ListKind kind) { return lists_[static_cast<std::size_t>(kind)]; }
    Grid& grid(ListKind kind) { return (*this)[kind].grid; }
    GridView& view(ListKind kind) { return (*this)[kind].view; }

private:
    std::array<StationList, kListCount> lists_;
};
