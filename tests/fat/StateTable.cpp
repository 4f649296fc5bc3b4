#include "fat/StateTable.h"

#include <fstream>
#include <iterator>
#include <sstream>

namespace {

constexpr const char* kStart = "<!-- states: written by fat_tests -->\n\n";
constexpr const char* kEnd = "\n<!-- end of states -->";

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

bool replaceTable(const std::string& page, const std::string& table) {
    std::ifstream file(page, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const std::size_t start = text.find(kStart);
    const std::size_t end = text.find(kEnd);
    if (start == text.npos || end == text.npos || end < start) {
        return false;
    }
    const std::size_t from = start + std::string(kStart).size();
    text.replace(from, end - from, table);
    return static_cast<bool>(std::ofstream(page, std::ios::binary) << text);
}
