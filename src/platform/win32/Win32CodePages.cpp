#include "platform/win32/Win32CodePages.h"

#include <windows.h>

#include "platform/win32/WideText.h"

namespace {

// The manifest makes UTF-8 the program's own "ANSI" code page on newer systems, but files written by others are
// in that of the system's language.
UINT systemAnsiCodePage() {
    DWORD page = 0;
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&page), sizeof page / sizeof(wchar_t));
    constexpr UINT kWesternEuropean = 1252;
    return page != 0 ? page : kWesternEuropean;  // 0: a language without one
}

UINT codePageOf(CodePage page) { return page == CodePage::Utf8 ? CP_UTF8 : systemAnsiCodePage(); }

}  // namespace

std::u16string Win32CodePages::decode(CodePage page, std::string_view bytes) {
    if (bytes.empty()) {
        return {};
    }
    const UINT codePage = codePageOf(page);
    const int count = static_cast<int>(bytes.size());
    std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, bytes.data(), count, nullptr, 0)), 0);
    MultiByteToWideChar(codePage, 0, bytes.data(), count, text.data(), static_cast<int>(text.size()));
    return fromWide(text);
}

std::string Win32CodePages::encode(CodePage page, std::u16string_view text) {
    if (text.empty()) {
        return {};
    }
    const UINT codePage = codePageOf(page);
    const DWORD flags = page == CodePage::Utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* replacement = page == CodePage::Utf8 ? nullptr : "?";
    const std::wstring wide = toWide(text);
    const int count = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(codePage, flags, wide.data(), count, nullptr, 0, replacement, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), count, bytes.data(), size, replacement, nullptr);
    return bytes;
}
