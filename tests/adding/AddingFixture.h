// The four lists with everything that adding records touches, on fakes.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "fakes/FakeControls.h"
#include "fakes/FakeGridView.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/Text.h"
#include "shell/Totals.h"
#include "shell/mMsgBox.h"
#include "storage/RowStore.h"
#include "storage/StationLists.h"

class AddingFixture : public testing::Test {
protected:
    AddingFixture() { showTab(ListKind::Drm); }
    ~AddingFixture() override { SetCurrentTab(0); }

    RowStore& grid(ListKind kind) { return grids[static_cast<std::size_t>(kind)]; }
    FakeGridView& view(ListKind kind) { return views[static_cast<std::size_t>(kind)]; }
    void showTab(ListKind kind) {
        tabs.tab = static_cast<int>(kind);
        SetCurrentTab(tabs.tab);
    }
    void fill(ListKind kind, int rows) {
        while (grid(kind).rowCount() < rows) {
            grid(kind).appendRow({u"filler"});
        }
    }
    // The cells of a row, joined by "|".
    std::string rowText(ListKind kind, int row) {
        std::string text;
        for (int column = 1; column <= 4; ++column) {
            text += (column > 1 ? "|" : "") + narrow(grid(kind).text(row, column));
        }
        return text;
    }
    std::string status() const { return narrow(statusBar.message); }

    std::array<FakeGridView, 4> views;
    std::array<RowStore, 4> grids{RowStore(views[0]), RowStore(views[1]), RowStore(views[2]), RowStore(views[3])};
    StationLists lists{{StationList{ListKind::Drm, grids[0], views[0]}, StationList{ListKind::Am, grids[1], views[1]},
                        StationList{ListKind::Fm, grids[2], views[2]},
                        StationList{ListKind::Favourite, grids[3], views[3]}}};
    FakeTabControl tabs;
    FakeStatusBar statusBar;
    Totals totals{tabs, statusBar, {&grids[0], &grids[1], &grids[2], &grids[3]}};
    FakeMessageBox box;
    FakeWindowHook hook;
    mMsgBox messages{box, hook};
};
