// The system's message font at a given resolution.
#pragma once

#include <windows.h>

class SystemFont {
public:
    SystemFont() = default;
    ~SystemFont() { release(); }
    SystemFont(const SystemFont&) = delete;
    SystemFont& operator=(const SystemFont&) = delete;

    // Replaces the font; windows with the old font must get the new one at once.
    void create(int dpi);
    HFONT handle() const { return font_; }
    void applyTo(HWND window) const;
    // The size of a text in this font, in pixels.
    SIZE extent(const wchar_t* text, int length) const;

private:
    void release();

    HFONT font_ = nullptr;
};
