#include "platform/win32/Win32MessageBox.h"

#include "platform/win32/WideText.h"

int Win32MessageBox::show(std::u16string_view text, int style, std::u16string_view title) {
    HWND active = GetActiveWindow();
    return MessageBoxW(active != nullptr ? active : owner_, toWide(text).c_str(), toWide(title).c_str(),
                       static_cast<UINT>(style));
}
