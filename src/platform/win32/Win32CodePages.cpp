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

struct Utf8Part {
    std::size_t length = 1;  // bytes
    bool wellFormed = false;
};

// The first character of `bytes`, or as much of its ill-formed start as one character could have begun with.
Utf8Part firstPart(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    if (lead < 0x80) {
        return {1, true};
    }
    const std::size_t wanted = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4) {
        return {};
    }
    // The second byte's range keeps out overlong forms, surrogates and what lies beyond U+10FFFF.
    unsigned char least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned char most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    std::size_t length = 1;
    while (length < wanted && length < bytes.size()) {
        const auto next = static_cast<unsigned char>(bytes[length]);
        if (next < least || next > most) {
            break;
        }
        least = 0x80;
        most = 0xBF;
        ++length;
    }
    return {length, length == wanted};
}

std::wstring convert(UINT codePage, DWORD flags, std::string_view bytes) {
    const int count = static_cast<int>(bytes.size());
    std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(codePage, flags, bytes.data(), count, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(codePage, flags, bytes.data(), count, text.data(), static_cast<int>(text.size()));
    return text;
}

// Systems differ in how many replacements an ill-formed sequence becomes, so they only convert what is well-formed.
std::wstring convertIllFormedUtf8(std::string_view bytes) {
    std::wstring text;
    std::size_t start = 0;
    for (std::size_t i = 0; i < bytes.size();) {
        const Utf8Part part = firstPart(bytes.substr(i));
        if (!part.wellFormed) {
            text += i > start ? convert(CP_UTF8, 0, bytes.substr(start, i - start)) : std::wstring();
            text += L'\uFFFD';
            start = i + part.length;
        }
        i += part.length;
    }
    text += start < bytes.size() ? convert(CP_UTF8, 0, bytes.substr(start)) : std::wstring();
    return text;
}

UINT codePageOf(CodePage page) { return page == CodePage::Utf8 ? CP_UTF8 : systemAnsiCodePage(); }

}  // namespace

std::u16string Win32CodePages::decode(CodePage page, std::string_view bytes) {
    if (bytes.empty()) {
        return {};
    }
    if (page == CodePage::Ansi) {
        return fromWide(convert(systemAnsiCodePage(), 0, bytes));
    }
    const std::wstring text = convert(CP_UTF8, MB_ERR_INVALID_CHARS, bytes);
    return fromWide(text.empty() ? convertIllFormedUtf8(bytes) : text);
}

std::string Win32CodePages::encode(CodePage page, std::u16string_view text) {
    if (text.empty()) {
        return {};
    }
    const UINT codePage = codePageOf(page);
    // UTF-8 takes neither, and may be the ANSI code page as well.
    const DWORD flags = codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* replacement = codePage == CP_UTF8 ? nullptr : "?";
    const std::wstring wide = toWide(text);
    const int count = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(codePage, flags, wide.data(), count, nullptr, 0, replacement, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), count, bytes.data(), size, replacement, nullptr);
    return bytes;
}
