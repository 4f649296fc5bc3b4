#include "platform/win32/SystemFont.h"

void SystemFont::create(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    HFONT created = nullptr;
    if (SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)) != 0) {
        created = CreateFontIndirectW(&metrics.lfMessageFont);
    }
    release();
    font_ = created;
}

void SystemFont::applyTo(HWND window) const { SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE); }

SIZE SystemFont::extent(const wchar_t* text, int length) const {
    SIZE size{};
    HDC screen = GetDC(nullptr);
    HGDIOBJ previous = font_ != nullptr ? SelectObject(screen, font_) : nullptr;
    GetTextExtentPoint32W(screen, text, length, &size);
    if (previous != nullptr) {
        SelectObject(screen, previous);
    }
    ReleaseDC(nullptr, screen);
    return size;
}

void SystemFont::release() {
    if (font_ != nullptr) {
        DeleteObject(font_);
        font_ = nullptr;
    }
}
