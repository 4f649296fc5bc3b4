// The grammar of INI files as the system's profile functions read them, line by line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

inline constexpr std::size_t kIniValueUnits = 254;  // a buffer of 255 UTF-16 units with its NUL

enum class IniLineKind { Other, Section, Key };  // Other: blank, comment, or neither section nor key

// Parts of the line's text, valid as long as it is.
struct IniLine {
    IniLineKind kind = IniLineKind::Other;
    std::u16string_view name;   // of the section or the key, without the blanks around it
    std::u16string_view value;  // of a key, as it stands behind the "="
};

// `line` without its line end.
IniLine parseIniLine(std::u16string_view line);

// Where the line that starts at `start` ends, and where the next one starts: behind CR LF, LF or CR. UTF-16 units.
struct IniLineEnd {
    std::size_t end = 0;
    std::size_t next = 0;
};
IniLineEnd findLineEnd(std::u16string_view text, std::size_t start);

// The value without blanks around it, without a pair of equal quotes, cut to kIniValueUnits.
std::u16string_view iniValue(std::u16string_view raw);

// Names compare without regard to the case of the letters A to Z. The names of the receiver's files have no others,
// so letters of other alphabets are not folded.
bool sameName(std::u16string_view left, std::u16string_view right);
std::uint32_t nameHash(std::u16string_view name);  // equal for same names
