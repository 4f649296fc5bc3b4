// StatusBar1: the program's messages, the short date and the short time.
#pragma once

#include <windows.h>

#include "platform/StatusBar.h"
#include "platform/win32/SystemFont.h"

class Win32StatusBar : public StatusBar {
public:
    void createWindow(HWND parent);
    HWND window() const { return window_; }
    // After the parent or the font has changed.
    void layOut(const SystemFont& font);
    // Writes date and time anew and has `timer` of the parent fire when the next minute begins.
    void showTime(UINT_PTR timer);

    void setMessage(std::u16string_view text) override;

private:
    HWND window_ = nullptr;
};
