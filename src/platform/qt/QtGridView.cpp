#include "platform/qt/QtGridView.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/Grid.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/GridTable.h"
#include "platform/qt/Units.h"

QtGridView::QtGridView(const QString& objectName, const QString& caption)
    : page_(new QWidget), table_(new GridTable(page_)), model_(new GridModel(table_)) {
    table_->setModel(model_);
    table_->setObjectName(objectName);
    table_->setAccessibleName(caption);
    auto* layout = new QVBoxLayout(page_);
    const int margin = std::max(0, kBorder - table_->frameWidth());
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(table_);
}

void QtGridView::attach(Grid& grid, GridListener& listener) {
    grid_ = &grid;
    listener_ = &listener;
    model_->setGrid(grid);
    connectSignals();
}

void QtGridView::columnAdded(int) {
    const QScopedValueRollback guard(ownChange_, true);
    model_->columnAdded();
}

double QtGridView::showColumnWidth(int column, double widthTwips) {
    const QScopedValueRollback guard(ownChange_, true);
    QHeaderView* header = table_->horizontalHeader();
    header->resizeSection(column - 1, toPixels(widthTwips));
    return toTwips(header->sectionSize(column - 1));
}

void QtGridView::beforeAppend(int row) { model_->beforeAppend(row); }

void QtGridView::afterAppend(int) { model_->afterAppend(); }

void QtGridView::beforeReset() {
    savedRow_ = table_->currentIndex().row();
    savedScroll_ = table_->verticalScrollBar()->value();
    model_->beforeReset();
}

void QtGridView::afterReset() {
    const QScopedValueRollback guard(ownChange_, true);
    model_->afterReset();
    table_->doItemsLayout();
    table_->verticalScrollBar()->setValue(savedScroll_);
    restoreSelection();
}

void QtGridView::cellChanged(int row, int column) { model_->cellChanged(row, column); }

void QtGridView::selectionChanged(int focusedRow) {
    const QScopedValueRollback guard(ownChange_, true);
    savedRow_ = focusedRow - 1;
    restoreSelection();
}

void QtGridView::restoreSelection() {
    QItemSelectionModel* selection = table_->selectionModel();
    const int rows = model_->rowCount();
    if (savedRow_ >= 0 && rows > 0) {
        selection->setCurrentIndex(model_->index(std::min(savedRow_, rows - 1), 0), QItemSelectionModel::NoUpdate);
    }
    QItemSelection wanted;
    for (int row = 0; row < rows; ++row) {
        const int first = row;
        while (row < rows && grid_->isSelected(row + 1)) {
            ++row;
        }
        if (row > first) {
            wanted.append({model_->index(first, 0), model_->index(row - 1, model_->columnCount() - 1)});
        }
    }
    selection->select(wanted, QItemSelectionModel::ClearAndSelect);
}

GridGeometry QtGridView::geometry(int row) {
    QWidget* stack = page_->parentWidget();
    // The stack of the tab control does not lay out a page before it is shown.
    if (stack != nullptr && page_->isHidden()) {
        page_->setGeometry(stack->contentsRect());
    }
    GridGeometry result;
    const QPoint corner = stack != nullptr ? page_->mapTo(stack->parentWidget(), QPoint()) : QPoint();
    result.left = toTwips(corner.x());
    result.top = toTwips(corner.y());
    result.width = toTwips(page_->width());
    result.height = toTwips(page_->height());
    table_->fitScrollBars();
    result.rowLeft = -toTwips(table_->horizontalScrollBar()->value());
    const QModelIndex index = model_->index(row - 1, 0);
    if (index.isValid()) {
        const int sideways = table_->horizontalScrollBar()->value();
        table_->scrollTo(index);
        table_->horizontalScrollBar()->setValue(sideways);
        result.rowTop = toTwips(headerHeight() + table_->rowViewportPosition(row - 1));
        result.rowHeight = toTwips(table_->rowHeight(row - 1));
    }
    return result;
}

void QtGridView::takeFocus() { table_->setFocus(Qt::OtherFocusReason); }

int QtGridView::headerHeight() const { return table_->horizontalHeader()->height(); }

QPoint QtGridView::toGlobal(double x, double y) const {
    return table_->viewport()->mapToGlobal(QPoint(toPixels(x), toPixels(y) - headerHeight()));
}
