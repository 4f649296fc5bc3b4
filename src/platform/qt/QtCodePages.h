// Byte conversions of a system whose own code page is UTF-8. Written out here because the toolkit's
// converters replace ill-formed input in another way.
#pragma once

#include "platform/CodePages.h"

class QtCodePages : public CodePages {
public:
    std::u16string decode(CodePage page, std::string_view bytes) override;
    std::string encode(CodePage page, std::u16string_view text) override;
};
