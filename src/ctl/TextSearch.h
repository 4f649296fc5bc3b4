// Searches texts, ignoring the case of A to Z.
#pragma once

#include <algorithm>
#include <string_view>

inline bool containsText(std::u16string_view text, std::u16string_view part) {
    const auto folded = [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    };
    return std::search(text.begin(), text.end(), part.begin(), part.end(),
                       [folded](char16_t a, char16_t b) { return folded(a) == folded(b); }) != text.end();
}
