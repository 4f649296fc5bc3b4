// The records of each list as last composed, so that an unchanged list is not composed again.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "storage/stations/ListKind.h"

struct ComposedRecords {
    std::uint64_t changes = 0;  // changes() of the grid when the records were composed
    std::string bytes;          // UTF-8
    std::size_t units = 0;      // length in UTF-16
};

class ComposedLists {
public:
    std::optional<ComposedRecords>& operator[](ListKind kind) { return lists_[static_cast<std::size_t>(kind)]; }

private:
    std::array<std::optional<ComposedRecords>, kListCount> lists_;
};
