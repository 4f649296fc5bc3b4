#include "platform/qt/GridTable.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>
#include <array>

namespace {

constexpr int kRowPadding = 8;       // pixels, above and below the text together
constexpr int kSmallestColumn = 24;  // pixels, so that a dragged column can be found again

// Paints a selected row alike with and without the focus, and the focused row as a whole.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const auto* view = qobject_cast<const QTableView*>(option.widget);
        if (view == nullptr || !view->hasFocus() || view->currentIndex().row() != index.row()) {
            return;
        }
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const QColor line = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        painter->save();
        painter->setPen(QPen(line, 1, Qt::DotLine));
        painter->drawLine(option.rect.topLeft(), option.rect.topRight());
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        painter->restore();
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_HasFocus, false);
        option->state.setFlag(QStyle::State_Active, true);
        option->state.setFlag(QStyle::State_MouseOver, false);
    }
};

// Its height is set below. The size that Qt would find instead takes the measure of each caption in bold, at each new
// column, and loads the bold font for that.
class FixedHeader : public QHeaderView {
public:
    explicit FixedHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}
    QSize sizeHint() const override { return {0, minimumHeight()}; }
};

}  // namespace

GridTable::GridTable(QWidget* parent) : QTableView(parent) {
    setHorizontalHeader(new FixedHeader(this));
    setItemDelegate(new RowDelegate(this));
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setContextMenuPolicy(Qt::DefaultContextMenu);
    viewport()->setMouseTracking(true);

    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* header = horizontalHeader();
    header->setMinimumSectionSize(kSmallestColumn);
    header->setSectionResizeMode(QHeaderView::Interactive);
    header->setSectionsClickable(true);
    header->setHighlightSections(false);
    header->setSortIndicatorShown(false);
    fitRowsToFont();
}

void GridTable::keyboardSearch(const QString& search) {
    if (currentIndex().column() > 0) {
        selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    }
    QTableView::keyboardSearch(search);
}

void GridTable::fitScrollBars() {
    updateGeometries();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);  // the change of a range shows or hides a bar so
}

void GridTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitRowsToFont();
    }
}

void GridTable::keyPressEvent(QKeyEvent* event) {
    QTableView::keyPressEvent(event);
    static constexpr std::array kMoves = {Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                                          Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    const bool moves = std::find(kMoves.begin(), kMoves.end(), event->key()) != kMoves.end();
    if (moves && event->modifiers() == Qt::NoModifier && !selectionModel()->hasSelection()) {
        selectRow(currentIndex().row());
    }
}

QModelIndex GridTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const bool toEnd = action == MoveHome || action == MoveEnd;
    return QTableView::moveCursor(action, toEnd ? modifiers | Qt::ControlModifier : modifiers);
}

void GridTable::fitRowsToFont() {
    const int height = fontMetrics().height() + kRowPadding;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
    horizontalHeader()->setFixedHeight(height);
}
