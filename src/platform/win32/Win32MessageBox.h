// The system's message box, modal to the program's active window.
#pragma once

#include <windows.h>

#include "platform/MessageBox.h"

class Win32MessageBox : public StandardMessageBox {
public:
    // The owner is used if no window of the program is active.
    explicit Win32MessageBox(HWND owner) : owner_(owner) {}

    int show(std::u16string_view text, int style, std::u16string_view title) override;

private:
    HWND owner_;
};
