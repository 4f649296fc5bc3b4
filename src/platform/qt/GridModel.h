// The item model of a Grid for Qt's table view; stores no cells.
#pragma once

#include <QAbstractTableModel>

#include "platform/Grid.h"

class GridModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void setGrid(const Grid& grid) { grid_ = &grid; }

    // Notifications of the grid: rows and columns are 1-based here, 0-based in the overrides below.
    void columnAdded();
    void beforeAppend(int row) { beginInsertRows({}, row - 1, row - 1); }
    void afterAppend() { endInsertRows(); }
    void beforeReset();
    void afterReset();
    void cellChanged(int row, int column);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const Grid* grid_ = nullptr;
    int columns_ = 0;
    bool resetting_ = false;
};
