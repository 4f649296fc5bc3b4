// A hash of the cells of a record.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <tuple>

inline std::size_t hashOf(std::span<const std::u16string_view> cells) {
    constexpr std::size_t kFactor = 31;
    std::size_t hash = 0;
    for (const std::u16string_view cell : cells) {
        hash = hash * kFactor + std::hash<std::u16string_view>()(cell);
    }
    return hash;
}

// A row and the hash of its cells; ordered by the hash.
struct HashedRow {
    std::size_t hash = 0;
    int row = 0;

    friend bool operator<(const HashedRow& a, const HashedRow& b) {
        return std::tie(a.hash, a.row) < std::tie(b.hash, b.row);
    }
};
