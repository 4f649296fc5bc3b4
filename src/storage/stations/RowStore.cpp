#include "storage/stations/RowStore.h"

#include <algorithm>
#include <utility>

void RowStore::addColumn(std::u16string caption, std::u16string key, double widthTwips) {
    columns_.push_back({std::move(caption), std::move(key), widthTwips});
    const int column = static_cast<int>(columns_.size());
    if (view_ != nullptr) {
        view_->columnAdded(column);
        setColumnWidth(column, widthTwips);
    }
}

void RowStore::setColumnWidth(int column, double widthTwips) {
    if (hasColumn(column)) {
        columns_[at(column)].width = view_ != nullptr ? view_->showColumnWidth(column, widthTwips) : widthTwips;
    }
}

void RowStore::columnDragged(int column, double widthTwips) {
    if (hasColumn(column)) {
        columns_[at(column)].width = widthTwips;
    }
}

std::u16string_view RowStore::Row::text(std::size_t cell) const {
    return std::u16string_view(texts).substr(start(cell), ends[cell] - start(cell));
}

void RowStore::Row::setText(std::size_t cell, std::u16string_view text) {
    const auto oldLength = static_cast<std::uint32_t>(ends[cell] - start(cell));
    texts.replace(start(cell), oldLength, text);
    for (std::size_t i = cell; i < ends.size(); ++i) {
        ends[i] += static_cast<std::uint32_t>(text.size()) - oldLength;
    }
}

RowStore::Row RowStore::rowOf(std::initializer_list<std::u16string_view> cells) {
    Row row;
    std::size_t length = 0;
    for (const std::u16string_view cell : cells) {
        length += cell.size();
    }
    row.texts.reserve(length);
    const auto* cell = cells.begin();
    for (std::uint32_t& end : row.ends) {
        if (cell != cells.end()) {
            row.texts += *cell++;
        }
        end = static_cast<std::uint32_t>(row.texts.size());
    }
    return row;
}

std::u16string_view RowStore::text(int row, int column) const {
    if (!hasRow(row) || !hasCell(column)) {
        return {};
    }
    return rows_[at(row)].text(at(column));
}

void RowStore::setText(int row, int column, std::u16string text) {
    if (!hasRow(row) || !hasCell(column)) {
        return;
    }
    rows_[at(row)].setText(at(column), text);
    ++changes_;
    if (notifies()) {
        view_->cellChanged(row, column);
    }
}

void RowStore::appendRow(std::initializer_list<std::u16string_view> cells) {
    const int row = rowCount() + 1;
    if (notifies()) {
        view_->beforeAppend(row);
    }
    ++changes_;
    rows_.push_back(rowOf(cells));
    if (notifies()) {
        view_->afterAppend(row);
    }
}

void RowStore::removeSelectedRows() {
    const GridUpdate update(*this);
    ++changes_;
    std::erase_if(rows_, [](const Row& row) { return row.selected; });
}

void RowStore::clear() {
    const GridUpdate update(*this);
    ++changes_;
    rows_.clear();
}

bool RowStore::isSelected(int row) const { return hasRow(row) && rows_[at(row)].selected; }

void RowStore::setSelected(int row, bool selected) {
    if (hasRow(row)) {
        rows_[at(row)].selected = selected;
    }
}

int RowStore::firstSelected() const {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.selected; });
    return found == rows_.end() ? 0 : static_cast<int>(found - rows_.begin()) + 1;
}

void RowStore::beginUpdate() {
    if (notifies()) {
        view_->beforeReset();
    }
    ++updates_;
}

void RowStore::endUpdate() {
    --updates_;
    if (notifies()) {
        view_->afterReset();
    }
}
