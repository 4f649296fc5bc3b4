// The system's collation of texts, ignoring letter case.
#pragma once

#include <string_view>

class TextCompare {
public:
    virtual ~TextCompare() = default;
    // -1, 0 or 1. A strict weak order; "abc" and "ABC" are equal.
    virtual int compare(std::u16string_view left, std::u16string_view right) = 0;
};
