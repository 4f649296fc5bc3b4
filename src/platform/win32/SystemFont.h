// The system's message font at a resolution.
#pragma once

#include <windows.h>

class SystemFont {
public:
    SystemFont() = default;
    ~SystemFont() { release(); }
    SystemFont(const SystemFont&) = delete;
    SystemFont& operator=(const SystemFont&) = delete;

    // Replaces the font; windows that still use the old one must be given the new one at once.
    void create(int dpi);
    HFONT handle() const { return font_; }
    void applyTo(HWND window) const;
    // Pixels that a text takes in this font.
    SIZE extent(const wchar_t* text, int length) const;

private:
    void release();

    HFONT font_ = nullptr;
};
