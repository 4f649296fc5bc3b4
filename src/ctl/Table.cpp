#include "ctl/Table.h"

#include <algorithm>

#include "ctl/DisplayWidth.h"
#include "ctl/Messages.h"
#include "storage/lists/ComposedFile.h"

namespace {

void appendCell(std::u16string& line, std::u16string_view cell, std::size_t width, bool toTheRight) {
    const std::size_t blanks = width - displayWidth(cell);
    line.append(toTheRight ? blanks : 0, u' ');
    line += cell;
    line.append(toTheRight ? 0 : blanks, u' ');
}

void endLine(std::u16string& text) {
    text.erase(text.find_last_not_of(u' ') + 1);
    text += u'\n';
}

}  // namespace

void Table::addColumn(std::u16string_view caption, Align align) {
    columns_.push_back({std::u16string(caption), align, displayWidth(caption)});
}

void Table::addRow(const std::vector<std::u16string_view>& cells) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        cells_.push_back(printable(cells[i]));
        columns_[i].width = std::max(columns_[i].width, displayWidth(cells_.back()));
    }
}

std::string Table::compose(bool colours) const {
    constexpr std::size_t kUsualLine = 64;
    constexpr std::u16string_view kGap = u"  ";
    ComposedFile composed(u"", (cells_.size() / std::max<std::size_t>(columns_.size(), 1) + 1) * kUsualLine);
    std::u16string line;
    const auto addLine = [&](auto cellOf, std::u16string_view before, std::u16string_view after) {
        line.clear();
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            line += i == 0 ? u"" : kGap;
            appendCell(line, cellOf(i), columns_[i].width, columns_[i].align == Align::Right);
        }
        endLine(line);
        line.insert(line.size() - 1, after);
        (composed.text() += before) += line;
        composed.endRecord();
    };
    addLine([this](std::size_t i) -> std::u16string_view { return columns_[i].caption; }, colours ? u"\x1B[1m" : u"",
            colours ? u"\x1B[0m" : u"");
    for (std::size_t row = 0; row < cells_.size(); row += columns_.size()) {
        addLine([&](std::size_t i) -> std::u16string_view { return cells_[row + i]; }, u"", u"");
    }
    return composed.takeBytes();
}
