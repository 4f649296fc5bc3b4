// The row store behind every grid: columns, cell texts and selection. A view may draw it; without a view it is a
// scratch grid.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

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
    void expectRows(int count, std::shared_ptr<const std::u16string> text) override;
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
        const std::size_t loaded = loaded_->size();
        return cell.start < loaded ? std::u16string_view(*loaded_).substr(cell.start, cell.length)
                                   : std::u16string_view(own_).substr(cell.start - loaded, cell.length);
    }
    // A text outside the loaded one is copied into own_, which has room for it.
    Cell cellOf(std::u16string_view text);
    bool hasRoom(std::size_t units) const { return own_.capacity() - own_.size() >= units; }
    // Makes `loaded` the loaded text. Texts in use that are not in it move to a new own text, with as much free room
    // again. Returns the former own text, since the texts to be added may be views into it.
    std::u16string gather(const std::shared_ptr<const std::u16string>& loaded, std::size_t room);
    std::u16string makeRoom(std::size_t units);
    bool hasRow(int row) const { return row >= 1 && row <= rowCount(); }
    bool hasColumn(int column) const { return column >= 1 && column <= static_cast<int>(columns_.size()); }
    static bool hasCell(int column) { return column >= 1 && column <= kMaxColumns; }
    static std::size_t at(int oneBased) { return static_cast<std::size_t>(oneBased - 1); }
    bool notifies() const { return view_ != nullptr && updates_ == 0; }

    GridView* view_ = nullptr;
    std::vector<GridColumn> columns_;
    std::vector<Row> rows_;
    std::shared_ptr<const std::u16string> loaded_ = std::make_shared<const std::u16string>();
    std::u16string own_;      // every new text is appended; unused texts are dropped when it is full
    bool hasUnused_ = false;  // own_ may contain unused texts
    int updates_ = 0;
    std::uint64_t changes_ = 0;
};
