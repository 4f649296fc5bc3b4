#include "platform/qt/QtGridView.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

#include "platform/Grid.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/GridTable.h"
#include "platform/qt/Units.h"

namespace {

// Calls a function before it is shown.
class Page : public QWidget {
public:
    explicit Page(std::function<void()> beforeShown) : beforeShown_(std::move(beforeShown)) {}
    void setVisible(bool visible) override {
        if (visible) {
            beforeShown_();
        }
        QWidget::setVisible(visible);
    }

private:
    std::function<void()> beforeShown_;
};

}  // namespace

QtGridView::QtGridView(QString objectName, QString caption)
    : objectName_(std::move(objectName)), caption_(std::move(caption)), page_(new Page([this] { createTable(); })) {}

void QtGridView::createTable() {
    if (table_ != nullptr) {
        return;
    }
    table_ = new GridTable(page_);
    model_ = new GridModel(table_);
    table_->setModel(model_);
    table_->setObjectName(objectName_);
    table_->setAccessibleName(caption_);
    auto* layout = new QVBoxLayout(page_);
    const int margin = std::max(0, kBorder - table_->frameWidth());
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addWidget(table_);
    fill();
}

void QtGridView::attach(Grid& grid, GridListener& listener) {
    grid_ = &grid;
    listener_ = &listener;
    fill();
}

void QtGridView::fill() {
    if (table_ == nullptr || grid_ == nullptr) {
        return;
    }
    model_->setGrid(*grid_);
    model_->beforeReset();
    for (std::size_t column = 0; column < grid_->columns().size(); ++column) {
        model_->columnAdded();
    }
    model_->afterReset();
    for (std::size_t column = 0; column < grid_->columns().size(); ++column) {
        showColumnWidth(static_cast<int>(column) + 1, grid_->columns()[column].width);
    }
    connectSignals();
    const QScopedValueRollback guard(ownChange_, true);
    restoreSelection();
}

void QtGridView::columnAdded(int) {
    if (table_ != nullptr) {
        const QScopedValueRollback guard(ownChange_, true);
        model_->columnAdded();
    }
}

double QtGridView::showColumnWidth(int column, double widthTwips) {
    if (table_ == nullptr) {
        return toTwips(std::max(toPixels(widthTwips), GridTable::kSmallestColumn));
    }
    const QScopedValueRollback guard(ownChange_, true);
    QHeaderView* header = table_->horizontalHeader();
    header->resizeSection(column - 1, toPixels(widthTwips));
    return toTwips(header->sectionSize(column - 1));
}

void QtGridView::beforeAppend(int row) {
    if (table_ != nullptr) {
        model_->beforeAppend(row);
    }
}

void QtGridView::afterAppend(int) {
    if (table_ != nullptr) {
        model_->afterAppend();
    }
}

void QtGridView::beforeReset() {
    if (table_ == nullptr) {
        return;
    }
    savedRow_ = table_->currentIndex().row();
    savedScroll_ = table_->verticalScrollBar()->value();
    model_->beforeReset();
}

void QtGridView::afterReset() {
    if (table_ == nullptr) {
        return;
    }
    const QScopedValueRollback guard(ownChange_, true);
    model_->afterReset();
    table_->doItemsLayout();
    table_->verticalScrollBar()->setValue(savedScroll_);
    restoreSelection();
}

void QtGridView::cellChanged(int row, int column) {
    if (table_ != nullptr) {
        model_->cellChanged(row, column);
    }
}

void QtGridView::selectionChanged(int focusedRow) {
    const QScopedValueRollback guard(ownChange_, true);
    savedRow_ = focusedRow - 1;
    if (table_ != nullptr) {
        restoreSelection();
    }
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
    if (row > 0) {
        createTable();
    }
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
    if (table_ == nullptr) {
        return result;
    }
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

void QtGridView::takeFocus() {
    createTable();
    table_->setFocus(Qt::OtherFocusReason);
}

int QtGridView::headerHeight() const { return table_->horizontalHeader()->height(); }

QPoint QtGridView::toGlobal(double x, double y) const {
    return table_->viewport()->mapToGlobal(QPoint(toPixels(x), toPixels(y) - headerHeight()));
}
