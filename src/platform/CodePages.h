// Converts between bytes in the ANSI code page and UTF-16. No conversion fails: a character without a counterpart is
// replaced.
#pragma once

#include <string>
#include <string_view>

// The ANSI code page: on Windows the system's, elsewhere Windows-1252 with C1 controls at its five undefined bytes.
class CodePages {
public:
    virtual ~CodePages() = default;
    // NULs are kept.
    virtual std::u16string decode(std::string_view bytes) = 0;
    // A character that is not in the code page becomes "?".
    virtual std::string encode(std::u16string_view text) = 0;
};
