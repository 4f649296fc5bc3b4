#include "editing/CellEditing.h"

#include <algorithm>
#include <cmath>

#include "editing/ColumnFinder.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ReceptionSystem.h"

namespace {

// For the height of the box: the header counts as one of the rows.
double rowsPerPage(const GridGeometry& geometry) {
    constexpr double kRoundingSlack = 1e-9;
    if (geometry.rowHeight <= 0) {
        return 1;
    }
    return std::max(1.0, std::floor(geometry.height / geometry.rowHeight + kRoundingSlack));
}

}  // namespace

void CellEditing::setLastMouseX(double x, double /*y*/) { edit_.lastMouseX = static_cast<int>(std::nearbyint(x)); }

void CellEditing::startEdit(ListKind kind) {
    commit();
    StationList& list = lists_[kind];
    const int row = list.grid.firstSelected();
    if (row < 1) {
        return;
    }
    widths_.standardise(kind);
    // Before the box is shown: scrolling the row into view ends an open edit.
    const GridGeometry geometry = list.view->geometry(row);
    findColumn(list.grid, geometry.rowLeft);
    edit_.editRow = row;
    edited_ = kind;
    const ListColumn* const column = columnAt(list.columns, edit_.editColumn);
    if (column == nullptr || !column->isEditable) {
        return;
    }
    const double top = geometry.top + geometry.rowTop + kTopInset;
    const double left = tabs_.left() + geometry.left + geometry.rowLeft + edit_.editCellLeft + 50;
    if (column->lengthLimit > 0) {
        box_.setLimit(column->lengthLimit);
    }
    showEditBox(left, top, edit_.editCellWidth, geometry.height / rowsPerPage(geometry), boxText(list.grid, *column));
    statusBar_.setMessage(u"Press 'Enter' Key To Save Modify");
}

void CellEditing::findColumn(const Grid& grid, double rowLeft) {
    const int x = edit_.lastMouseX - static_cast<int>(std::nearbyint(rowLeft));
    if (const auto found = spanAt(columnSpans(grid), x)) {
        edit_.editColumn = found->column;
        edit_.editCellLeft = found->left;
        edit_.editCellWidth = found->width;
    } else {
        edit_.editColumn = -1;
        edit_.editCellWidth = -1;
    }
}

std::u16string CellEditing::boxText(const Grid& grid, const ListColumn& column) const {
    std::u16string text(grid.text(edit_.editRow, edit_.editColumn));
    if (column.content == CellContent::FrequencyWithUnit) {
        text.resize(text.size() - std::min(text.size(), ReceptionSystem::kUnitLength));
    }
    return text;
}

void CellEditing::showEditBox(double left, double top, double width, double height, std::u16string_view text) {
    box_.setVisible(true);
    box_.setBounds(left, top, width, height);
    box_.setText(text);
    box_.takeFocus();
    editing_ = true;
}

void CellEditing::commit() {
    if (!editing_) {
        return;
    }
    editing_ = false;
    // Showing another tab can move its list before tabClicked is called; switching tabs discards the edit.
    if (tabs_.currentTab() == static_cast<int>(edited_)) {
        validation_.commitEdit(box_.text());
    }
    hideEditBox();
}

void CellEditing::hideEditBox() {
    // Set first: a toolkit reports the loss of focus while it hides the box.
    editing_ = false;
    box_.setVisible(false);
    box_.setBounds(0, 0, 0, 0);
}

void CellEditing::itemClicked() {
    hideEditBox();
    statusBar_.setMessage(u"Press 'Delete' Key To Delete ");
}

void CellEditing::moveColumn(ListKind kind, int step) {
    // The arrow keys use the standard widths, as the edit that follows does.
    StationList& list = lists_[kind];
    const int rowLeft = static_cast<int>(std::nearbyint(list.view->geometry(0).rowLeft));
    const int x = edit_.lastMouseX - rowLeft;
    if (const auto target = neighbourOf(columnSpans(standardWidths(list)), list.columns, x, step)) {
        edit_.lastMouseX = rowLeft + target->left + target->width / 2;
    }
}
