// A grid of the main window: the page of its tab, which contains the table. The table is created when the page is first
// shown, so that the program starts faster.
#pragma once

#include <QItemSelection>
#include <QObject>
#include <QString>

#include "platform/GridView.h"

class GridModel;
class GridTable;
class QKeyEvent;
class QMouseEvent;
class QPoint;
class QPointF;
class QWidget;

class QtGridView : public QObject, public GridView {
public:
    // Pixels from the page's outer edge to the table's first pixel.
    static constexpr int kBorder = 3;

    // Once the page has been added to the tab control, that owns the page and the table in it.
    QtGridView(QString objectName, QString caption);

    QWidget* page() const { return page_; }
    GridTable* table() const { return table_; }  // null before the page is first shown
    // x and y as in GridListener.
    QPoint toGlobal(double x, double y) const;

    void attach(Grid& grid, GridListener& listener) override;
    void columnAdded(int column) override;
    double showColumnWidth(int column, double widthTwips) override;
    void beforeAppend(int row) override;
    void afterAppend(int row) override;
    void beforeReset() override;
    void afterReset() override;
    void cellChanged(int row, int column) override;
    void selectionChanged(int focusedRow) override;
    GridGeometry geometry(int row) override;
    void takeFocus() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createTable();
    void fill();
    void connectSignals();
    bool filterTable(QEvent* event);
    bool filterViewport(QEvent* event);
    bool keyPressed(const QKeyEvent& event);
    bool filterHeader(QEvent* event);
    // True: the table must not get the press.
    bool mousePressed(const QMouseEvent& event);
    void reportPointer(const QPointF& position);
    void reportMenuKey();
    void pushSelection(const QItemSelection& selected, const QItemSelection& deselected);
    void restoreSelection();
    int headerHeight() const;

    QString objectName_;
    QString caption_;
    QWidget* page_;
    GridTable* table_ = nullptr;
    QWidget* viewport_ = nullptr;  // sends events even during the destruction of the table
    GridModel* model_ = nullptr;
    Grid* grid_ = nullptr;
    GridListener* listener_ = nullptr;
    Qt::MouseButton pressedButton_ = Qt::NoButton;
    bool ownChange_ = false;  // true while the program changes widths or selection
    int savedRow_ = -1;
    int savedScroll_ = 0;
};
