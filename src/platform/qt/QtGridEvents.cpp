// The part of QtGridView that reports events of Qt's table.
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>

#include "platform/Grid.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/GridTable.h"
#include "platform/qt/Keys.h"
#include "platform/qt/QtGridView.h"
#include "platform/qt/Units.h"

void QtGridView::connectSignals() {
    QHeaderView* header = table_->horizontalHeader();
    const auto clicked = [this](int section) {
        if (section >= 0) {  // -1: to the right of the last column
            listener_->headerClicked(grid_->columns()[static_cast<std::size_t>(section)].key);
        }
    };
    connect(header, &QHeaderView::sectionClicked, this, clicked);
    // Qt reports the second of two quick clicks only as a double click.
    connect(header, &QHeaderView::sectionDoubleClicked, this, clicked);
    connect(header, &QHeaderView::sectionResized, this, [this](int section, int, int width) {
        if (!ownChange_) {
            grid_->columnDragged(section + 1, toTwips(width));
            listener_->columnDragged();
        }
    });
    connect(table_, &QTableView::pressed, this, [this] {
        if (pressedButton_ == Qt::LeftButton) {
            listener_->itemClicked();
        }
    });
    connect(table_, &QTableView::doubleClicked, this, [this] {
        if (pressedButton_ == Qt::LeftButton) {
            listener_->itemDoubleClicked();
        }
    });
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &QtGridView::pushSelection);
    // The focus frame spans the row; Qt repaints only the previous and the new current cell.
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, table_->viewport(),
            qOverload<>(&QWidget::update));
    for (QScrollBar* bar : {table_->horizontalScrollBar(), table_->verticalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, [this] { listener_->viewChanged(); });
    }
    table_->installEventFilter(this);
    viewport_ = table_->viewport();
    viewport_->installEventFilter(this);
    table_->horizontalHeader()->viewport()->installEventFilter(this);
}

void QtGridView::pushSelection(const QItemSelection& selected, const QItemSelection& deselected) {
    if (ownChange_) {
        return;
    }
    const auto push = [this](const QItemSelection& ranges, bool on) {
        for (const QItemSelectionRange& range : ranges) {
            for (int row = range.top(); row <= range.bottom(); ++row) {
                grid_->setSelected(row + 1, on);
            }
        }
    };
    push(deselected, false);
    push(selected, true);
}

bool QtGridView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_) {
        return filterTable(event);
    }
    return watched == viewport_ ? filterViewport(event) : filterHeader(event);
}

bool QtGridView::filterTable(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        return keyPressed(*static_cast<QKeyEvent*>(event));
    }
    if (event->type() == QEvent::ContextMenu &&
        static_cast<QContextMenuEvent*>(event)->reason() != QContextMenuEvent::Mouse) {
        reportMenuKey();
        return true;
    }
    return false;
}

bool QtGridView::keyPressed(const QKeyEvent& event) {
    const int shift = classicShift(event);
    if (event.key() == Qt::Key_F10 && shift == Shift::ShiftKey) {
        reportMenuKey();
        return true;
    }
    const int key = classicKey(event);
    return key != 0 && listener_->keyDown(key, shift);
}

bool QtGridView::filterViewport(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseMove:
            reportPointer(static_cast<QMouseEvent*>(event)->position());
            return false;
        case QEvent::MouseButtonRelease:
            reportPointer(static_cast<QMouseEvent*>(event)->position());
            return static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return mousePressed(*static_cast<QMouseEvent*>(event));
        case QEvent::Resize:
            listener_->resized();
            return false;
        case QEvent::ContextMenu: {
            const QPoint at = static_cast<QContextMenuEvent*>(event)->pos();
            listener_->rightButton(toTwips(at.x()), toTwips(at.y() + headerHeight()));
            return true;
        }
        default:
            return false;
    }
}

bool QtGridView::filterHeader(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick: {
            const auto& mouse = *static_cast<QMouseEvent*>(event);
            listener_->pointerMoved(mouse.position().x() * kTwipsPerPixel, mouse.position().y() * kTwipsPerPixel);
            // Qt reports a double click of any button, but clicks of the left one only.
            return event->type() == QEvent::MouseButtonDblClick && mouse.button() != Qt::LeftButton;
        }
        default:
            return false;
    }
}

bool QtGridView::mousePressed(const QMouseEvent& event) {
    pressedButton_ = event.button();
    reportPointer(event.position());
    const QModelIndex index = table_->indexAt(event.position().toPoint());
    if (!index.isValid()) {
        listener_->viewChanged();
    }
    if (event.button() == Qt::RightButton) {
        listener_->rightPressed(index.row() + 1, event.position().x() * kTwipsPerPixel,
                                (event.position().y() + headerHeight()) * kTwipsPerPixel);
        return true;
    }
    if (!index.isValid() && event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier) {
        table_->clearSelection();
    }
    return false;
}

void QtGridView::reportPointer(const QPointF& position) {
    listener_->pointerMoved(position.x() * kTwipsPerPixel, (position.y() + headerHeight()) * kTwipsPerPixel);
}

void QtGridView::reportMenuKey() {
    const QModelIndex current = table_->currentIndex();
    int y = headerHeight();
    if (current.isValid()) {
        const int middle = table_->rowViewportPosition(current.row()) + table_->rowHeight(current.row()) / 2;
        y += std::clamp(middle, 0, table_->viewport()->height());
    }
    listener_->menuKey(toTwips(y));
}
