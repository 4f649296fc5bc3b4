// The one row store behind every grid: columns, cell texts and selection. A view, where there is one,
// draws it; without a view it is a scratch grid.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/Grid.h"
#include "platform/GridView.h"

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
    void appendRow(std::initializer_list<std::u16string_view> cells) override;
    void removeSelectedRows() override;
    void clear() override;

    bool isSelected(int row) const override;
    void setSelected(int row, bool selected) override;
    int firstSelected() const override;

    // Grows with every change of a row, not with selections and columns.
    std::uint64_t changes() const { return changes_; }

    void beginUpdate() override;
    void endUpdate() override;

private:
    static constexpr int kMaxColumns = 4;

    // The cells one behind the other in one text, so that a row is one piece of memory and not five.
    struct Row {
        std::u16string texts;
        std::array<std::uint32_t, kMaxColumns> ends{};  // of each cell, in UTF-16 units of `texts`
        bool selected = false;

        std::size_t start(std::size_t cell) const { return cell == 0 ? 0 : ends[cell - 1]; }
        std::u16string_view text(std::size_t cell) const;
        void setText(std::size_t cell, std::u16string_view text);
    };

    static Row rowOf(std::initializer_list<std::u16string_view> cells);
    bool hasRow(int row) const { return row >= 1 && row <= rowCount(); }
    bool hasColumn(int column) const { return column >= 1 && column <= static_cast<int>(columns_.size()); }
    static bool hasCell(int column) { return column >= 1 && column <= kMaxColumns; }
    static std::size_t at(int oneBased) { return static_cast<std::size_t>(oneBased - 1); }
    bool notifies() const { return view_ != nullptr && updates_ == 0; }

    GridView* view_ = nullptr;
    std::vector<GridColumn> columns_;
    std::vector<Row> rows_;
    int updates_ = 0;
    std::uint64_t changes_ = 0;
};
