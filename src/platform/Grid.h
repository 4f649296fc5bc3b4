// A list of station records as rows of cells: the only copy of the records in memory.
// Implemented once, in portable code. A backend draws the grid and sets the selection.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SharedText.h"

struct GridColumn {
    std::u16string caption;
    std::u16string key;  // four capital letters; identifies the header in a click
    double width = 0;    // twips, as shown by the view
};

// Rows and columns are 1-based everywhere. For a row or column outside the grid, writing does nothing and reading gives
// an empty text or "not selected".
class Grid {
public:
    virtual ~Grid() = default;

    virtual const std::vector<GridColumn>& columns() const = 0;
    virtual void addColumn(std::u16string caption, std::u16string key, double widthTwips) = 0;
    virtual void setColumnWidth(int column, double widthTwips) = 0;
    // The view calls this after the user has dragged a column; it already shows the width.
    virtual void columnDragged(int column, double widthTwips) = 0;

    virtual int rowCount() const = 0;
    // Valid until the next change of the grid.
    virtual std::u16string_view text(int row, int column) const = 0;
    virtual void setText(int row, int column, std::u16string text) = 0;
    // Call before appending many rows: their number, and a text that contains most of their cells. The grid keeps this
    // text instead of copying those cells.
    virtual void expectRows(int count, SharedText text) = 0;
    // Appends one row; missing trailing cells are empty, cells beyond the columns of a row are dropped.
    virtual void appendRow(std::span<const std::u16string_view> cells) = 0;
    void appendRow(std::initializer_list<std::u16string_view> cells) {
        appendRow(std::span(cells.begin(), cells.size()));
    }
    virtual void removeSelectedRows() = 0;
    virtual void clear() = 0;
    // Counts changes of rows; selection and columns do not count.
    virtual std::uint64_t changes() const = 0;

    virtual bool isSelected(int row) const = 0;
    // The view calls this when the user selects; the view is not notified.
    virtual void setSelected(int row, bool selected) = 0;
    // The first selected row, 0 if there is none.
    virtual int firstSelected() const = 0;

    // Between the two calls, which nest, the view is not notified; the last endUpdate notifies it of one reset.
    virtual void beginUpdate() = 0;
    virtual void endUpdate() = 0;
};

// Scope guard: the changes during its lifetime are shown as one.
class GridUpdate {
public:
    explicit GridUpdate(Grid& grid) : grid_(grid) { grid_.beginUpdate(); }
    ~GridUpdate() { grid_.endUpdate(); }
    GridUpdate(const GridUpdate&) = delete;
    GridUpdate& operator=(const GridUpdate&) = delete;

private:
    Grid& grid_;
};
