// The ANSI code page through the system's conversions.
#pragma once

#include "platform/CodePages.h"

class Win32CodePages : public CodePages {
public:
    std::u16string decode(std::string_view bytes) override;
    std::string encode(std::u16string_view text) override;
};
