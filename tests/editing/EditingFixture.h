// Four lists on fake controls, and the small things that every editing test needs.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "fakes/FakeControls.h"
#include "fakes/FakeGridView.h"
#include "fakes/FakeMessageBox.h"
#include "fakes/FakeServices.h"
#include "fakes/Text.h"
#include "shell/Totals.h"
#include "shell/mMsgBox.h"
#include "storage/ListColumns.h"
#include "storage/RowStore.h"
#include "storage/StationLists.h"

inline constexpr std::array<ListKind, 4> kAllLists = {ListKind::Drm, ListKind::Am, ListKind::Fm, ListKind::Favourite};

// A view that may report a change whenever it is asked to move something.
class RestlessGridView : public FakeGridView {
public:
    double showColumnWidth(int column, double widthTwips) override {
        report();
        return FakeGridView::showColumnWidth(column, widthTwips);
    }
    GridGeometry geometry(int row) override {
        report();
        return FakeGridView::geometry(row);
    }

    std::function<void()> moved;

private:
    void report() const {
        if (moved) {
            moved();
        }
    }
};

// A box during which something else happens in the program.
class InterruptedMessageBox : public FakeMessageBox {
public:
    int show(std::u16string_view text, int style, std::u16string_view title) override {
        if (meanwhile) {
            meanwhile();
        }
        return FakeMessageBox::show(text, style, title);
    }

    std::function<void()> meanwhile;
};

class EditingFixture : public ::testing::Test {
protected:
    EditingFixture() {
        for (const ListKind kind : kAllLists) {
            addListColumns(lists[kind]);
            view(kind).calls.clear();
        }
    }

    RowStore& grid(ListKind kind) { return grids[static_cast<std::size_t>(kind)]; }
    RestlessGridView& view(ListKind kind) { return views[static_cast<std::size_t>(kind)]; }

    void showTab(ListKind kind) { tabs.tab = static_cast<int>(kind); }
    void addRow(ListKind kind, std::initializer_list<std::u16string_view> cells) { grid(kind).appendRow(cells); }
    void select(ListKind kind, int row) { grid(kind).setSelected(row, true); }

    // The cells of a row, joined by "|".
    std::string row(ListKind kind, int number) {
        std::string joined;
        for (int column = 1; column <= static_cast<int>(grid(kind).columns().size()); ++column) {
            joined += (column > 1 ? "|" : "") + narrow(grid(kind).text(number, column));
        }
        return joined;
    }
    std::vector<std::string> column(ListKind kind, int number) {
        std::vector<std::string> texts;
        for (int at = 1; at <= grid(kind).rowCount(); ++at) {
            texts.push_back(narrow(grid(kind).text(at, number)));
        }
        return texts;
    }

    std::array<RestlessGridView, 4> views;
    std::array<RowStore, 4> grids{RowStore(views[0]), RowStore(views[1]), RowStore(views[2]), RowStore(views[3])};
    StationLists lists{{{{ListKind::Drm, grids[0], views[0]},
                         {ListKind::Am, grids[1], views[1]},
                         {ListKind::Fm, grids[2], views[2]},
                         {ListKind::Favourite, grids[3], views[3]}}}};
    FakeTabControl tabs;
    FakeStatusBar statusBar;
    InterruptedMessageBox messageBox;
    FakeWindowHook hook;
    mMsgBox messages{messageBox, hook};
    Totals totals{tabs, statusBar, {&grids[0], &grids[1], &grids[2], &grids[3]}};
};
