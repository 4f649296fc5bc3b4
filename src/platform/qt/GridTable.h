// The table widget of a grid: report look, whole rows, nothing editable, uniform row height.
#pragma once

#include <QColor>
#include <QTableView>

class GridTable : public QTableView {
public:
    explicit GridTable(QWidget* parent);

    // By the text of the first column, whichever cell was clicked last.
    void keyboardSearch(const QString& search) override;
    // Columns of another width may need a scroll bar, or none any more: at once, where Qt would do it after the event.
    void fitScrollBars();

    QColor lineColor() const { return lineColor_; }

protected:
    void changeEvent(QEvent* event) override;
    // A list that is entered by keyboard has a focused row but no selected one: the first key selects a row.
    void keyPressEvent(QKeyEvent* event) override;
    // Home and End go to the first and the last row, as in a list.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void fitRowsToFont();
    void fitLinesToColors();

    QColor lineColor_;
};
