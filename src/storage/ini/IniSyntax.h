// The grammar of INI files, line by line, as the system's profile functions read them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "storage/text/UnitFinder.h"

inline constexpr std::size_t kIniValueUnits = 254;  // the functions use a buffer of 255 UTF-16 units with its NUL

enum class IniLineKind { Other, Section, Key };  // Other: blank, comment, or neither section nor key

// Views into the line.
struct IniLine {
    IniLineKind kind = IniLineKind::Other;
    std::u16string_view name;   // of the section or key, without surrounding blanks
    std::u16string_view value;  // of a key: everything after the "="
};

// `line` without its line end.
IniLine parseIniLine(std::u16string_view line);

// Where the line that starts at `start` ends and where the next one starts, after CR LF, LF or CR. Positions in UTF-16
// units.
struct IniLineEnd {
    std::size_t end = 0;
    std::size_t next = 0;
    bool hasControls = false;  // whether a unit below CR, such as NUL, is in the line; LF excepted
};

// Inline: a load calls it for every line.
inline IniLineEnd findLineEnd(std::u16string_view text, std::size_t start) {
    const auto isLow = [](char16_t c) { return c <= u'\r'; };
    const auto endsLine = [text](std::size_t at) {
        return at == text.size() || text[at] == u'\r' || text[at] == u'\n';
    };
    // A header usually ends its line.
    std::size_t end = start < text.size() && text[start] == u'\r' ? start : findUnit(text, start, isLow);
    const bool hasControls = !endsLine(end);
    while (!endsLine(end)) {
        end = findUnit(text, end + 1, isLow);
    }
    if (end == text.size()) {
        return {end, end, hasControls};
    }
    const bool isPair = text[end] == u'\r' && end + 1 < text.size() && text[end + 1] == u'\n';
    return {end, end + (isPair ? 2U : 1U), hasControls};
}

// Without surrounding blanks.
std::u16string_view trimmed(std::u16string_view text);

// The value without surrounding blanks and one pair of equal quotes, cut to kIniValueUnits.
std::u16string_view iniValue(std::u16string_view raw);

// Of names of the same length.
bool sameWhenFolded(std::u16string_view left, std::u16string_view right);
// Compares names without regard to the case of A to Z. The names in the receiver's files contain no other letters.
// Inline: a load compares several names for every record, nearly all of them in the same case.
inline bool sameName(std::u16string_view left, std::u16string_view right) {
    return left.size() == right.size() &&
           (std::equal(left.begin(), left.end(), right.begin()) || sameWhenFolded(left, right));
}
std::uint32_t nameHash(std::u16string_view name);  // the same for names that are the same
