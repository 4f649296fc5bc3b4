#include "fat/StateTable.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>

namespace {

constexpr const char* kEnd = "\n<!-- end of states -->";

std::string startOf(Loop loop) {
    return loop == Loop::Test ? "<!-- states: written by fat_tests -->\n\n"
                              : "<!-- states: written by scripts/soak -->\n\n";
}

struct Page {
    std::string before;
    std::string table;
    std::string after;
};

std::optional<Page> readPage(const std::string& path, Loop loop) {
    std::ifstream file(path, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::size_t mark = text.find(startOf(loop));
    const std::size_t start = mark == text.npos ? mark : mark + startOf(loop).size();
    const std::size_t end = start == text.npos ? start : text.find(kEnd, start);
    if (end == text.npos) {
        return std::nullopt;
    }
    return Page{text.substr(0, start), text.substr(start, end - start), text.substr(end)};
}

// "| name | 1 | 2 | 3 |"; the name has columns of its own. The lines above the rows have no numbers.
void addRow(StateTable& table, const std::string& line) {
    constexpr int kBars = 4;
    std::size_t bar = line.size();
    for (int i = 0; i < kBars && bar != line.npos && bar > 0; ++i) {
        bar = line.rfind('|', bar - 1);
    }
    constexpr std::size_t kStart = 2;  // "| "
    StateRow row;
    char separator = 0;
    if (bar != line.npos && bar > kStart) {
        std::istringstream numbers(line.substr(bar + 1));
        if (numbers >> row.states >> separator >> row.brokenRaw >> separator >> row.brokenChecked) {
            table[line.substr(kStart, bar - 1 - kStart)] = row;
        }
    }
}

}  // namespace

std::string tableOf(const StateTable& table) {
    std::ostringstream text;
    text << "| volume | options | case | fault | states | broken as found | broken after a check |\n"
         << "|---|---|---|---|---:|---:|---:|\n";
    for (const auto& [name, row] : table) {
        text << "| " << name << " | " << row.states << " | " << row.brokenRaw << " | " << row.brokenChecked << " |\n";
    }
    return text.str();
}

StateTable tableOnPage(const std::string& page, Loop loop) {
    StateTable table;
    const auto read = readPage(page, loop);
    std::istringstream lines(read ? read->table : std::string());
    for (std::string line; std::getline(lines, line);) {
        addRow(table, line);
    }
    return table;
}

bool putOnPage(const std::string& page, Loop loop, StateTable table) {
    const auto read = readPage(page, loop);
    if (!read) {
        return false;
    }
    if (loop == Loop::Soak) {
        table.merge(tableOnPage(page, loop));
    }
    return static_cast<bool>(std::ofstream(page, std::ios::binary) << read->before << tableOf(table) << read->after);
}
