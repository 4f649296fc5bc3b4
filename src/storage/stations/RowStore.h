// The row store behind every grid: columns, cell texts and selection. A view may draw it; without a view it is a
// scratch grid.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/Grid.h"
#include "platform/GridView.h"
#include "storage/stations/ListKind.h"

class RowStore : public Grid {
public:
    RowStore() = default;
    explicit RowStore(GridView& view) : view_(&view) {}

    const std::vector<GridColumn>& columns() const override { return columns_; }
    void addColumn(std::u16string caption, std::u16string key, double widthTwips) override;
    void setColumnWidth(int column, double widthTwips) override;
    void columnDragged(int column, double widthTwips) override;

    int rowCount() const override { return static_cast<int>(rows_.size()); }
    std::u16string_view text(int row, int column) const override;
    void setText(int row, int column, std::u16string text) override;
    void expectRows(int count, SharedText text) override;
    using Grid::appendRow;
    void appendRow(std::span<const std::u16string_view> cells) override;
    void removeSelectedRows() override;
    void clear() override;
    std::uint64_t changes() const override { return changes_; }

    bool isSelected(int row) const override;
    void setSelected(int row, bool selected) override;
    int firstSelected() const override;

    void beginUpdate() override;
    void endUpdate() override;

private:
    // A range of the loaded text or, for offsets past its end, of the store's own text.
    struct Cell {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
    };
    struct Row {
        std::array<Cell, kMaxColumns> cells;
        bool selected = false;
    };

    std::u16string_view textOf(Cell cell) const {
        const std::u16string_view loaded = loaded_.view();
        return cell.start < loaded.size() ? loaded.substr(cell.start, cell.length)
                                          : std::u16string_view(own_).substr(cell.start - loaded.size(), cell.length);
    }
    // The position of a text in the loaded one; nullopt if it is elsewhere.
    std::optional<std::uint32_t> startInLoaded(std::u16string_view text) const {
        const auto number = [](const char16_t* unit) { return reinterpret_cast<std::uintptr_t>(unit); };
        const std::u16string_view loaded = loaded_.view();
        // A text that begins before the loaded one gives an offset larger than any.
        const std::uintptr_t offset = (number(text.data()) - number(loaded.data())) / sizeof(char16_t);
        const bool isInside = offset <= loaded.size() && text.size() <= loaded.size() - offset;
        return isInside ? std::optional(static_cast<std::uint32_t>(offset)) : std::nullopt;
    }
    // Copies the text into own_, which has room for it.
    Cell ownCellOf(std::u16string_view text);
    bool hasRoom(std::size_t units) const { return own_.capacity() - own_.size() >= units; }
    // Makes `loaded` the loaded text. Texts in use that are not in it move to a new own text, with as much free room
    // again. Returns the former own text, since the texts to be added may be views into it.
    std::u16string gather(const SharedText& loaded, std::size_t room);
    std::u16string makeRoom(std::size_t units);
    bool hasRow(int row) const { return row >= 1 && row <= rowCount(); }
    bool hasColumn(int column) const { return column >= 1 && column <= static_cast<int>(columns_.size()); }
    static bool hasCell(int column) { return column >= 1 && column <= kMaxColumns; }
    static std::size_t at(int oneBased) { return static_cast<std::size_t>(oneBased - 1); }
    bool notifies() const { return view_ != nullptr && updates_ == 0; }

    GridView* view_ = nullptr;
    std::vector<GridColumn> columns_;
    std::vector<Row> rows_;
    SharedText loaded_;
    std::u16string own_;      // every new text is appended; unused texts are dropped when it is full
    bool hasUnused_ = false;  // own_ may contain unused texts
    int updates_ = 0;
    std::uint64_t changes_ = 0;
};
