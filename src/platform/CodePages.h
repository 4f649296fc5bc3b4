// Converts between bytes of the ANSI code page and UTF-16. No conversion fails: characters without a counterpart are
// replaced.
#pragma once

#include <string>
#include <string_view>

// The ANSI code page: the system's on Windows, Windows-1252 with C1 controls in its five holes elsewhere.
class CodePages {
public:
    virtual ~CodePages() = default;
    // NULs are kept.
    virtual std::u16string decode(std::string_view bytes) = 0;
    // A character that the code page lacks becomes "?".
    virtual std::string encode(std::u16string_view text) = 0;
};
