// Extracts the examples from a page of docs/.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class Page {
public:
    // Fails the test if the page is missing or empty.
    explicit Page(const std::string& name);

    // The lines of the first fenced block of a section, each with the given line end; "" if it has none.
    std::string block(std::string_view section, std::string_view lineEnd) const;
    // The rows below the "list | cells" header of a section: the list, then its cells.
    std::vector<std::vector<std::string>> cells(std::string_view section) const;

private:
    std::vector<std::string> linesOf(std::string_view section) const;

    std::vector<std::string> lines_;
};
