#include "ctl/ShowTable.h"

#include <numeric>

#include "ctl/Table.h"
#include "storage/text/Numbers.h"
#include "storage/text/Utf8.h"

std::string tableOf(const Lists& lists, ListKind kind, const std::vector<int>& rows, bool colours) {
    constexpr int kFrequency = 2;
    const Grid& grid = lists.grid(kind);
    Table table;
    table.addColumn(u"Row", Table::Align::Right);
    for (int column = 1; column <= columnCountOf(kind); ++column) {
        table.addColumn(grid.columns()[static_cast<std::size_t>(column - 1)].caption,
                        column == kFrequency ? Table::Align::Right : Table::Align::Left);
    }
    std::vector<std::u16string_view> cells;
    for (const int row : rows) {
        const std::u16string number = decimal(row);
        cells.assign(1, number);
        for (int column = 1; column <= columnCountOf(kind); ++column) {
            cells.push_back(grid.text(row, column));
        }
        table.addRow(cells);
    }
    return table.compose(colours);
}

std::string tablesOf(const Lists& lists, const std::vector<ListKind>& kinds, bool colours) {
    std::string text;
    for (const ListKind kind : kinds) {
        const int count = lists.grid(kind).rowCount();
        text += text.empty() ? "" : "\n";
        text += toUtf8(std::u16string(titleOf(kind)) + u": " + decimal(count) + u"\n");
        if (count > 0) {
            std::vector<int> rows(static_cast<std::size_t>(count));
            std::iota(rows.begin(), rows.end(), 1);
            text += tableOf(lists, kind, rows, colours);
        }
    }
    return text;
}
