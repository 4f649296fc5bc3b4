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

RowStore::Cell RowStore::ownCellOf(std::u16string_view text) {
    const std::size_t start = loaded_.view().size() + own_.size();
    own_ += text;
    return {static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(text.size())};
}

std::u16string RowStore::gather(const SharedText& loaded, std::size_t room) {
    const std::size_t loadedUnits = loaded.view().size();
    const auto moves = [&](const Cell& cell) { return loaded != loaded_ || cell.start >= loadedUnits; };
    std::size_t units = room;
    for (const Row& row : rows_) {
        for (const Cell& cell : row.cells) {
            units += moves(cell) ? cell.length : 0U;
        }
    }
    std::u16string own;
    own.reserve(2 * units);
    for (Row& row : rows_) {
        for (Cell& cell : row.cells) {
            if (moves(cell)) {
                const std::u16string_view text = textOf(cell);
                cell.start = static_cast<std::uint32_t>(loadedUnits + own.size());
                own += text;
            }
        }
    }
    loaded_ = loaded;
    own_.swap(own);
    hasUnused_ = false;
    return own;
}

std::u16string RowStore::makeRoom(std::size_t units) {
    if (hasUnused_) {
        return gather(loaded_, units);
    }
    std::u16string larger;
    larger.reserve(2 * (own_.size() + units));
    larger += own_;
    own_.swap(larger);
    return larger;
}

void RowStore::expectRows(int count, SharedText text) {
    constexpr std::size_t kUsualUnits = 6;  // half of a frequency with its unit; gather allocates twice as many
    const auto added = static_cast<std::size_t>(count);
    gather(text, added * kUsualUnits);
    rows_.reserve(rows_.size() + added);
}

std::u16string_view RowStore::text(int row, int column) const {
    if (!hasRow(row) || !hasCell(column)) {
        return {};
    }
    return textOf(rows_[at(row)].cells[at(column)]);
}

void RowStore::setText(int row, int column, std::u16string text) {
    if (!hasRow(row) || !hasCell(column)) {
        return;
    }
    const std::u16string former = hasRoom(text.size()) ? std::u16string() : makeRoom(text.size());
    rows_[at(row)].cells[at(column)] = ownCellOf(text);
    hasUnused_ = true;
    ++changes_;
    if (notifies()) {
        view_->cellChanged(row, column);
    }
}

void RowStore::appendRow(std::span<const std::u16string_view> cells) {
    cells = cells.first(std::min<std::size_t>(cells.size(), kMaxColumns));
    const int row = rowCount() + 1;
    if (notifies()) {
        view_->beforeAppend(row);
    }
    ++changes_;
    constexpr std::uint32_t kOwn = ~std::uint32_t{0};
    Row added;
    std::size_t ownUnits = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto start = startInLoaded(cells[i]);
        added.cells[i] = {start.value_or(kOwn), static_cast<std::uint32_t>(cells[i].size())};
        ownUnits += start ? 0 : cells[i].size();
    }
    const std::u16string former = hasRoom(ownUnits) ? std::u16string() : makeRoom(ownUnits);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (added.cells[i].start == kOwn) {
            added.cells[i] = ownCellOf(cells[i]);
        }
    }
    rows_.push_back(added);
    if (notifies()) {
        view_->afterAppend(row);
    }
}

void RowStore::removeSelectedRows() {
    const GridUpdate update(*this);
    ++changes_;
    std::erase_if(rows_, [](const Row& row) { return row.selected; });
    hasUnused_ = true;
}

void RowStore::clear() {
    const GridUpdate update(*this);
    ++changes_;
    rows_.clear();
    own_.clear();
    hasUnused_ = false;
    loaded_ = SharedText();
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
