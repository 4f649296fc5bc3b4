// UTF-8 and Windows-1252 as every backend must convert them, in plain code.
#pragma once

#include "platform/CodePages.h"

class FakeCodePages : public CodePages {
public:
    std::u16string decode(CodePage page, std::string_view bytes) override;
    std::string encode(CodePage page, std::u16string_view text) override;
};
