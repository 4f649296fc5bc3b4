// A list of station records as rows of cells: the only copy of the records in memory.
// Implemented once, in portable code. A backend draws it and sets the selection.
#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct GridColumn {
    std::u16string caption;
    std::u16string key;  // four capital letters; identifies the header in a click
    double width = 0;    // twips, as shown by the view
};

// Rows and columns are 1-based everywhere. A row or column outside the grid is a no-op
// when written and reads as an empty text or "not selected".
class Grid {
public:
    virtual ~Grid() = default;

    virtual const std::vector<GridColumn>& columns() const = 0;
    virtual void addColumn(std::u16string caption, std::u16string key, double widthTwips) = 0;
    virtual void setColumnWidth(int column, double widthTwips) = 0;
    // Called by the view after the user has dragged a column; the view already shows the width.
    virtual void columnDragged(int column, double widthTwips) = 0;

    virtual int rowCount() const = 0;
    // Valid until the next change of the grid. UTF-16.
    virtual std::u16string_view text(int row, int column) const = 0;
    virtual void setText(int row, int column, std::u16string text) = 0;
    // Before many rows are appended: how many there will be, and a text that most of their cells are parts of. The grid
    // keeps the text instead of copying these parts.
    virtual void expectRows(int count, std::shared_ptr<const std::u16string> text) = 0;
    // Appends one row; missing trailing cells are empty, and cells beyond those that a row can hold are dropped.
    virtual void appendRow(std::span<const std::u16string_view> cells) = 0;
    void appendRow(std::initializer_list<std::u16string_view> cells) {
        appendRow(std::span(cells.begin(), cells.size()));
    }
    virtual void removeSelectedRows() = 0;
    virtual void clear() = 0;

    virtual bool isSelected(int row) const = 0;
    // Called by the view when the user selects; does not notify the view.
    virtual void setSelected(int row, bool selected) = 0;
    // First selected row, 0 when none is.
    virtual int firstSelected() const = 0;

    // The view gets no notification between the two calls, which nest, and one reset after the last endUpdate.
    virtual void beginUpdate() = 0;
    virtual void endUpdate() = 0;
};

// Many changes shown as one.
class GridUpdate {
public:
    explicit GridUpdate(Grid& grid) : grid_(grid) { grid_.beginUpdate(); }
    ~GridUpdate() { grid_.endUpdate(); }
    GridUpdate(const GridUpdate&) = delete;
    GridUpdate& operator=(const GridUpdate&) = delete;

private:
    Grid& grid_;
};
