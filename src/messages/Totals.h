// The totals line of the status bar.
#pragma once

#include <array>

#include "platform/Grid.h"
#include "platform/StatusBar.h"
#include "platform/TabControl.h"
#include "storage/stations/ListKind.h"

class Totals {
public:
    Totals(TabControl& tabs, StatusBar& statusBar, std::array<Grid*, kListCount> grids)
        : tabs_(tabs), statusBar_(statusBar), grids_(grids) {}

    // Shows the total of the current tab; nothing if the tab control shows none of the four.
    void ShowTotals();
    // Shows the total of a tab by its 0-based index; nothing outside 0..3.
    void showTotalOf(int tab);

private:
    TabControl& tabs_;
    StatusBar& statusBar_;
    std::array<Grid*, kListCount> grids_;
};
