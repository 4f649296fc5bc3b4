#include "platform/qt/GridModel.h"

#include "platform/qt/Units.h"

void GridModel::columnAdded() {
    if (resetting_) {
        ++columns_;
        return;
    }
    beginInsertColumns({}, columns_, columns_);
    ++columns_;
    endInsertColumns();
}

void GridModel::beforeReset() {
    resetting_ = true;
    beginResetModel();
}

void GridModel::afterReset() {
    resetting_ = false;
    endResetModel();
}

void GridModel::cellChanged(int row, int column) {
    const QModelIndex changed = index(row - 1, column - 1);
    if (changed.isValid()) {
        Q_EMIT dataChanged(changed, changed);
    }
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || grid_ == nullptr ? 0 : grid_->rowCount();
}

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || grid_ == nullptr || !index.isValid()) {
        return {};
    }
    return toQt(grid_->text(index.row() + 1, index.column() + 1));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        // For screen readers; the vertical header is not shown.
        return role == Qt::DisplayRole ? QVariant(section + 1) : QVariant();
    }
    if (grid_ == nullptr || section < 0 || section >= columns_) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    }
    return role == Qt::DisplayRole ? toQt(grid_->columns()[static_cast<std::size_t>(section)].caption) : QVariant();
}
