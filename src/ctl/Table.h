// Rows of cells as lines of text with aligned columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class Table {
public:
    enum class Align { Left, Right };

    void addColumn(std::u16string_view caption, Align align);
    // As many cells as columns. Control characters are replaced.
    void addRow(const std::vector<std::u16string_view>& cells);
    bool isEmpty() const { return cells_.empty(); }
    // Two blanks between columns, none at the end of a line. Colours make the captions bold.
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
