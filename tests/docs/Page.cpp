#include "docs/Page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace {

std::vector<std::string> split(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    for (std::size_t end = text.find(separator); end != text.npos; end = text.find(separator)) {
        parts.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
    }
    parts.emplace_back(text);
    return parts;
}

}  // namespace

Page::Page(const std::string& name) {
    std::ifstream file(HALCYON_DOCS "/" + name);
    for (std::string line; std::getline(file, line);) {
        lines_.push_back(line);
    }
    EXPECT_FALSE(lines_.empty()) << name << " is missing";
}

std::vector<std::string> Page::linesOf(std::string_view section) const {
    const auto isHeading = [](const std::string& line) { return line.starts_with("## "); };
    const auto heading = std::find(lines_.begin(), lines_.end(), "## " + std::string(section));
    if (heading == lines_.end()) {
        ADD_FAILURE() << "no section " << section;
        return {};
    }
    return {heading + 1, std::find_if(heading + 1, lines_.end(), isHeading)};
}

std::string Page::block(std::string_view section, std::string_view lineEnd) const {
    const auto isFence = [](const std::string& line) { return line.starts_with("```"); };
    const std::vector<std::string> lines = linesOf(section);
    auto line = std::find_if(lines.begin(), lines.end(), isFence);
    std::string text;
    while (line != lines.end() && ++line != lines.end() && !isFence(*line)) {
        text += *line;
        text += lineEnd;
    }
    return text;
}

std::vector<std::vector<std::string>> Page::cells(std::string_view section) const {
    const std::vector<std::string> lines = linesOf(section);
    auto line = std::find(lines.begin(), lines.end(), "| list | cells |");
    std::vector<std::vector<std::string>> rows;
    for (line = lines.end() - line > 2 ? line + 2 : lines.end(); line != lines.end() && line->starts_with("| ");
         ++line) {
        std::vector<std::string> columns = split(line->substr(2, line->size() - 4), " | ");
        std::vector<std::string> row = split(columns.back(), ", ");
        std::replace(row.begin(), row.end(), std::string("(empty)"), std::string());
        row.insert(row.begin(), columns.front());
        rows.push_back(row);
    }
    return rows;
}
