// A grid view that draws nothing, records its notifications and reports events on demand.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "platform/Grid.h"
#include "platform/GridView.h"

class FakeGridView : public GridView {
public:
    void attach(Grid& attachedGrid, GridListener& attachedListener) override {
        grid = &attachedGrid;
        listener = &attachedListener;
    }
    void columnAdded(int) override { calls.emplace_back("columnAdded"); }
    double showColumnWidth(int, double widthTwips) override {
        moved();
        return widthTwips;
    }
    void beforeAppend(int) override { calls.emplace_back("beforeAppend"); }
    void afterAppend(int) override { calls.emplace_back("afterAppend"); }
    void beforeReset() override { calls.emplace_back("beforeReset"); }
    void afterReset() override { calls.emplace_back("afterReset"); }
    void cellChanged(int, int) override { calls.emplace_back("cellChanged"); }
    GridGeometry geometry(int row) override {
        moved();
        GridGeometry result = shape;
        if (row < 1) {
            result.rowTop = result.rowHeight = 0;
            return result;
        }
        const double rowsInSight = shape.rowHeight > 0 ? (shape.height - shape.rowTop) / shape.rowHeight : 1;
        const int page = static_cast<int>(rowsInSight);
        topRow = std::min(topRow, row);
        topRow = std::max(topRow, row - page + 1);
        result.rowTop += (row - topRow) * shape.rowHeight;
        return result;
    }
    void selectionChanged(int row) override {
        focusedRow = row;
        calls.emplace_back("selectionChanged");
    }
    void takeFocus() override { ++focusCount; }

    Grid* grid = nullptr;
    GridListener* listener = nullptr;
    std::vector<std::string> calls;
    std::function<void()> moved = [] {};  // called when a column is widened or a row is scrolled into view
    int focusCount = 0;
    int focusedRow = 0;  // of the last selectionChanged
    int topRow = 1;      // the first visible row
    // A grid of 6,000 by 4,000 twips, 60 right of and 300 below the tab control's corner.
    GridGeometry shape{60, 300, 6000, 4000, 0, 285, 255};
};
