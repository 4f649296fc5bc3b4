#include "platform/qt/GridTable.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "platform/GridLineColor.h"

namespace {

constexpr int kRowPadding = 8;  // pixels, above and below the text in total

Rgb rgbOf(const QColor& color) { return {color.red(), color.green(), color.blue()}; }

// Paints a selected row the same with and without focus, and the focus frame around the whole row. Draws its own grid
// lines, since those of many styles are invisible in dark themes.
class RowDelegate : public QStyledItemDelegate {
public:
    explicit RowDelegate(GridTable* table) : QStyledItemDelegate(table), table_(*table) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        painter->save();
        painter->setPen(table_.lineColor());
        painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        painter->restore();
        if (table_.hasFocus() && table_.currentIndex().row() == index.row()) {
            paintFocus(painter, option);
        }
    }

    // Shows the whole text of an elided cell as a tooltip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        if (event->type() != QEvent::ToolTip) {
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        }
        const QRect shown = option.rect.intersected(table_.viewport()->rect());
        if (index.isValid() && sizeHint(option, index).width() > shown.width()) {
            const QString text = index.data().toString();
            QToolTip::showText(event->globalPos(), Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text,
                               table_.viewport(), option.rect);
        } else {
            QToolTip::hideText();
        }
        return true;
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_HasFocus, false);
        option->state.setFlag(QStyle::State_Active, true);
        option->state.setFlag(QStyle::State_MouseOver, false);
    }

private:
    static void paintFocus(QPainter* painter, const QStyleOptionViewItem& option) {
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const QColor line = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        painter->save();
        painter->setPen(QPen(line, 1, Qt::DotLine));
        painter->drawLine(option.rect.topLeft(), option.rect.topRight());
        painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
        painter->restore();
    }

    GridTable& table_;
};

// The height is set below. The default sizeHint measures each caption in bold whenever a column is added, and loads the
// bold font for that.
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
    setShowGrid(false);
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
    fitLinesToColors();
}

void GridTable::keyboardSearch(const QString& search) {
    if (currentIndex().column() > 0) {
        selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    }
    QTableView::keyboardSearch(search);
}

void GridTable::fitScrollBars() {
    updateGeometries();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);  // shows or hides the bars for the new ranges
}

void GridTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitRowsToFont();
    }
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        fitLinesToColors();
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

void GridTable::fitLinesToColors() {
    const Rgb line = gridLineColor(rgbOf(palette().color(QPalette::Base)), rgbOf(palette().color(QPalette::Text)));
    lineColor_ = QColor(line.red, line.green, line.blue);
}
