// Windows-1252 in plain code.
#pragma once

#include "platform/CodePages.h"

class FakeCodePages : public CodePages {
public:
    std::u16string decode(std::string_view bytes) override;
    std::string encode(std::u16string_view text) override;
};
