#include "platform/win32/Win32CodePages.h"

#include <windows.h>

#include "platform/win32/WideText.h"

namespace {

// The manifest makes UTF-8 the process's ANSI code page on newer systems, but files written by other programs use that
// of the system's language.
UINT systemAnsiCodePage() {
    DWORD page = 0;
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&page), sizeof page / sizeof(wchar_t));
    constexpr UINT kWesternEuropean = 1252;
    return page != 0 ? page : kWesternEuropean;  // 0: a language without an ANSI code page
}

}  // namespace

std::u16string Win32CodePages::decode(std::string_view bytes) {
    const UINT codePage = systemAnsiCodePage();
    const int count = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(codePage, 0, bytes.data(), count, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), count, text.data(), size);
    return fromWide(text);
}

std::string Win32CodePages::encode(std::u16string_view text) {
    const UINT codePage = systemAnsiCodePage();
    const std::wstring wide = toWide(text);
    const int count = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(codePage, 0, wide.data(), count, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, 0, wide.data(), count, bytes.data(), size, nullptr, nullptr);
    return bytes;
}
