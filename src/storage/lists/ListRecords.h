// The records of a list in its parsed file, as the cells of rows.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "storage/ini/IniReader.h"
#include "storage/lists/ListFile.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/ListKind.h"

class ListRecords {
public:
    // `file` and `columns` outlive this object.
    ListRecords(IniReader& file, ListKind kind, std::span<const ListColumn> columns);
    ListRecords(IniReader& file, ListKind kind) : ListRecords(file, kind, columnsOf(kind)) {}

    // As the file states it, negative ones included; nullopt if it is outside 16 bits.
    std::optional<int> count();
    // The cells of the record with this 0-based index; those of a missing section are what empty texts give. Fastest in
    // rising order. Valid until the next call.
    std::span<const std::u16string_view> cells(int index);

private:
    static std::size_t at(int number) { return static_cast<std::size_t>(number - 1); }
    std::u16string_view& cell(int number) { return cells_[at(number)]; }
    // `frequency`: as stored, in kHz.
    void compute(CellContent content, int number, std::u16string_view frequency);
    const std::u16string& decimalOf(int number, double value);

    IniReader& file_;
    ListKind kind_;
    RecordSection section_;
    std::span<const ListColumn> columns_;
    std::vector<int> stored_;                  // column numbers, in the order of the file
    std::vector<std::u16string_view> keys_;    // of stored_
    std::vector<std::u16string_view> values_;  // of stored_
    std::array<std::u16string_view, kMaxColumns> cells_;
    std::array<std::u16string, kMaxColumns> computed_;  // the texts of cells that are not in the file
};
