// The table widget of a grid: report look, whole rows, nothing editable, uniform row height.
#pragma once

#include <QColor>
#include <QTableView>

class GridTable : public QTableView {
public:
    static constexpr int kSmallestColumn = 24;  // pixels; a narrower column could not be dragged wider again

    explicit GridTable(QWidget* parent);

    // Searches the first column, whichever cell was clicked last.
    void keyboardSearch(const QString& search) override;
    // Shows or hides scroll bars for new column widths at once; Qt would do it after the event.
    void fitScrollBars();

    QColor lineColor() const { return lineColor_; }

protected:
    void changeEvent(QEvent* event) override;
    // After the focus has come by keyboard a row is current but none is selected: the first key selects one.
    void keyPressEvent(QKeyEvent* event) override;
    // Home and End go to the first and last row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    void fitRowsToFont();
    void fitLinesToColors();

    QColor lineColor_;
};
