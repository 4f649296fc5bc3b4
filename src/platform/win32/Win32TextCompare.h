// Compares texts by the user's locale.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/TextCompare.h"

class Win32TextCompare : public TextCompare {
public:
    // A locale name such as "de-DE"; the user's by default.
    explicit Win32TextCompare(const wchar_t* locale = LOCALE_NAME_USER_DEFAULT)
        : locale_(locale != nullptr ? std::optional<std::wstring>(locale) : std::nullopt) {}

    int compare(std::u16string_view left, std::u16string_view right) override;

private:
    std::optional<std::wstring> locale_;
};
