// StatusBar1: messages, short date and short time.
#pragma once

#include <windows.h>

#include "platform/StatusBar.h"
#include "platform/win32/SystemFont.h"

class Win32StatusBar : public StatusBar {
public:
    void createWindow(HWND parent);
    HWND window() const { return window_; }
    // Call when the size of the parent or the font has changed.
    void layOut(const SystemFont& font);
    // Writes date and time, and starts `timer` of the parent for the next minute.
    void showTime(UINT_PTR timer);

    void setMessage(std::u16string_view text) override;

private:
    HWND window_ = nullptr;
};
