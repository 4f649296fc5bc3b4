#include "storage/ini/IniSyntax.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "storage/text/Numbers.h"

namespace {

char16_t folded(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c | 0x20) : c; }

}  // namespace

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

IniLine parseIniLine(std::u16string_view line) {
    while (!line.empty() && isBlank(line.front())) {
        line.remove_prefix(1);
    }
    if (line.empty() || line.front() == u';') {
        return {};
    }
    if (line.front() == u'[') {
        const std::size_t close = line.find(u']');
        return close == line.npos ? IniLine() : IniLine{IniLineKind::Section, trimmed(line.substr(1, close - 1)), {}};
    }
    const std::size_t equals = line.find(u'=');
    if (equals == 0 || equals == line.npos) {
        return {};
    }
    return {IniLineKind::Key, trimmed(line.substr(0, equals)), line.substr(equals + 1)};
}

std::u16string_view iniValue(std::u16string_view raw) {
    // Fast path: most values begin and end with a letter or a digit.
    const auto isPlain = [](char16_t c) { return c > u'\'' || (!isBlank(c) && c != u'"' && c != u'\''); };
    if (!raw.empty() && raw.size() <= kIniValueUnits && isPlain(raw.front()) && isPlain(raw.back())) {
        return raw;
    }
    raw = trimmed(raw);
    const bool quoted = raw.size() >= 2 && raw.front() == raw.back() && (raw.front() == u'"' || raw.front() == u'\'');
    if (quoted) {
        raw = raw.substr(1, raw.size() - 2);
    }
    return raw.substr(0, kIniValueUnits);
}

bool sameWhenFolded(std::u16string_view left, std::u16string_view right) {
    return std::equal(left.begin(), left.end(), right.begin(),
                      [](char16_t a, char16_t b) { return a == b || folded(a) == folded(b); });
}

// Hashes four units at a time. Setting the case bit of every unit also makes a few other characters equal, which only
// costs a comparison.
std::uint32_t nameHash(std::u16string_view name) {
    constexpr std::size_t kUnits = sizeof(std::uint64_t) / sizeof(char16_t);
    std::uint64_t hash = name.size();
    const auto add = [&hash](std::uint64_t units) {
        constexpr std::uint64_t kSmallLetters = 0x0020002000200020;
        hash = (std::rotl(hash, 5) ^ (units | kSmallLetters)) * 0x9E3779B97F4A7C15U;
    };
    for (; name.size() >= kUnits; name.remove_prefix(kUnits)) {
        std::uint64_t units = 0;
        std::memcpy(&units, name.data(), sizeof units);
        add(units);
    }
    for (const char16_t unit : name) {
        add(unit);
    }
    return static_cast<std::uint32_t>(hash >> 32U);
}
