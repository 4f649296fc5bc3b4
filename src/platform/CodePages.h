// Conversion between bytes and UTF-16. Nothing fails: what cannot be converted is replaced.
#pragma once

#include <string>
#include <string_view>

enum class CodePage {
    Ansi,  // the system's on Windows, Windows-1252 with C1 controls in its five holes elsewhere
    Utf8,
};

class CodePages {
public:
    virtual ~CodePages() = default;
    // Ill-formed UTF-8: one U+FFFD for each maximal ill-formed part. No mark is skipped; NULs pass.
    virtual std::u16string decode(CodePage page, std::string_view bytes) = 0;
    // A lone surrogate becomes EF BF BD in UTF-8; a character that the ANSI code page lacks becomes "?".
    virtual std::string encode(CodePage page, std::u16string_view text) = 0;
};
