// The grammar of INI files, line by line, as the system's profile functions read them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "storage/text/Numbers.h"
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
// Parses a line that does not begin with a blank. equals: the position of its first "=", or any position past its end.
IniLine parseIniLine(std::u16string_view line, std::size_t equals);

// Where the line that starts at `start` ends and where the next one starts, after CR LF, LF or CR. Positions in UTF-16
// units.
struct IniLineEnd {
    std::size_t end = 0;
    std::size_t next = 0;
};
IniLineEnd findLineEnd(std::u16string_view text, std::size_t start);

// Iterates over the lines of a text; `start` is the start of a line.
class IniLines {
public:
    IniLines(std::u16string_view text, std::size_t start) : text_(text), start_(start), marks_(text, start, {}) {}
    // False at the end of the text. Inline, so that the finder stays in registers.
    bool next(IniLine& line) {
        if (start_ >= text_.size()) {
            return false;
        }
        std::size_t equals = text_.npos;
        std::size_t end = marks_.next();
        for (; end < text_.size() && text_[end] != u'\r' && text_[end] != u'\n'; end = marks_.next()) {
            equals = text_[end] == u'=' ? std::min(equals, end) : equals;
        }
        const std::u16string_view units = text_.substr(start_, end - start_);
        line = units.empty() || isBlank(units.front()) ? parseIniLine(units) : parseIniLine(units, equals - start_);
        start_ = end + 1;
        if (start_ < text_.size() && text_[end] == u'\r' && text_[start_] == u'\n') {
            start_ = marks_.next() + 1;
        }
        return true;
    }

private:
    // Line ends and "=", and a few rare control characters.
    struct IsMark {
        bool operator()(char16_t c) const { return c <= u'\r' || c == u'='; }
    };

    std::u16string_view text_;
    std::size_t start_;  // of the next line
    UnitFinder<IsMark> marks_;
};

// The value without surrounding blanks and one pair of equal quotes, cut to kIniValueUnits.
std::u16string_view iniValue(std::u16string_view raw);

// Compares names without regard to the case of A to Z. The names in the receiver's files contain no other letters.
bool sameName(std::u16string_view left, std::u16string_view right);
std::uint32_t nameHash(std::u16string_view name);  // the same for names that are the same
