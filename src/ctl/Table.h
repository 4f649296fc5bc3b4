// Aligns rows of cells in columns of text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class Table {
public:
    enum class Align { Left, Right };

    void addColumn(std::u16string_view caption, Align align);
    // `cells` has one cell per column. Control characters are replaced.
    void addRow(const std::vector<std::u16string_view>& cells);
    bool isEmpty() const { return cells_.empty(); }
    // Columns are separated by two blanks; lines have no trailing blanks. `colours`: bold captions.
    std::string compose(bool colours) const;

private:
    struct Column {
        std::u16string caption;
        Align align;
        std::size_t width;
    };
    std::vector<Column> columns_;
    std::vector<std::u16string> cells_;  // row by row
};
