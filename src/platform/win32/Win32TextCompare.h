// The order of the user's language.
#pragma once

#include "platform/TextCompare.h"

class Win32TextCompare : public TextCompare {
public:
    int compare(std::u16string_view left, std::u16string_view right) override;
};
