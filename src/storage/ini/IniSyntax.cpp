#include "storage/ini/IniSyntax.h"

namespace {

bool isBlank(char16_t c) { return c == u' ' || c == u'\t'; }

std::u16string_view trimmed(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

char16_t folded(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c | 0x20) : c; }

}  // namespace

IniLine parseIniLine(std::u16string_view line) {
    while (!line.empty() && isBlank(line.front())) {
        line.remove_prefix(1);
    }
    if (line.empty() || line.front() == u';') {
        return {};
    }
    if (line.front() == u'[') {
        const std::size_t close = line.find(u']');
        if (close == line.npos) {
            return {};
        }
        return {IniLineKind::Section, trimmed(line.substr(1, close - 1)), {}};
    }
    const std::size_t equals = line.find(u'=');
    if (equals == line.npos || equals == 0) {
        return {};
    }
    return {IniLineKind::Key, trimmed(line.substr(0, equals)), line.substr(equals + 1)};
}

IniLineEnd findLineEnd(std::u16string_view text, std::size_t start) {
    std::size_t end = start;
    // Nearly every unit is above both, so one comparison mostly decides.
    while (end < text.size() && (text[end] > u'\r' || (text[end] != u'\r' && text[end] != u'\n'))) {
        ++end;
    }
    if (end == text.size()) {
        return {end, end};
    }
    const bool pair = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
    return {end, end + (pair ? 2U : 1U)};
}

std::u16string_view iniValue(std::u16string_view raw) {
    raw = trimmed(raw);
    const bool quoted = raw.size() >= 2 && raw.front() == raw.back() && (raw.front() == u'"' || raw.front() == u'\'');
    if (quoted) {
        raw = raw.substr(1, raw.size() - 2);
    }
    return raw.substr(0, kIniValueUnits);
}

bool sameName(std::u16string_view left, std::u16string_view right) {
    if (left.size() != right.size()) {
        return false;
    }
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (left[i] != right[i] && folded(left[i]) != folded(right[i])) {
            return false;
        }
    }
    return true;
}

std::uint32_t nameHash(std::u16string_view name) {
    std::uint32_t hash = 2166136261U;
    for (const char16_t c : name) {
        hash = (hash ^ folded(c)) * 16777619U;
    }
    return hash ^ (hash >> 15);
}
