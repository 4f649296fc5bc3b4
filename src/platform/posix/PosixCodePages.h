// Windows-1252: a system whose own code page is UTF-8 has no ANSI code page.
#pragma once

#include "platform/CodePages.h"

class PosixCodePages : public CodePages {
public:
    std::u16string decode(std::string_view bytes) override;
    std::string encode(std::u16string_view text) override;
};
