#include "platform/win32/Win32TextCompare.h"

#include "platform/win32/WideText.h"

int Win32TextCompare::compare(std::u16string_view left, std::u16string_view right) {
    const std::wstring a = toWide(left);
    const std::wstring b = toWide(right);
    return CompareStringEx(locale_ ? locale_->c_str() : LOCALE_NAME_USER_DEFAULT, NORM_IGNORECASE, a.c_str(),
                           static_cast<int>(a.size()), b.c_str(), static_cast<int>(b.size()), nullptr, nullptr, 0) -
           CSTR_EQUAL;
}
