#include "platform/win32/Win32EditBox.h"

#include <commctrl.h>

#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"

namespace {

constexpr WPARAM kEnter = 13;

}  // namespace

void Win32EditBox::createWindow(HWND parent) {
    const DWORD style = WS_CHILD | WS_BORDER | WS_CLIPSIBLINGS | ES_AUTOHSCROLL;
    window_ = CreateWindowExW(0, WC_EDITW, L"", style, 0, 0, 0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    subclass_.install(window_, procedure, this);
}

LRESULT CALLBACK Win32EditBox::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    const auto* box = Subclass::selfOf<Win32EditBox>(window);
    if (message == WM_CHAR && w == kEnter) {
        if (box->listener_ != nullptr) {
            box->listener_->enterPressed();
        }
        return 0;
    }
    const LRESULT result = box->subclass_.original(window, message, w, l);
    if (message == WM_KILLFOCUS && box->listener_ != nullptr) {
        box->listener_->lostFocus();
    }
    return result;
}

void Win32EditBox::setLimit(int units) { SendMessageW(window_, EM_SETLIMITTEXT, static_cast<WPARAM>(units), 0); }

void Win32EditBox::setText(std::u16string_view text) {
    SetWindowTextW(window_, toWide(text).c_str());
    SendMessageW(window_, EM_SETSEL, 0, -1);
}

std::u16string Win32EditBox::text() const {
    std::wstring buffer(static_cast<std::size_t>(GetWindowTextLengthW(window_)) + 1, L'\0');
    buffer.resize(static_cast<std::size_t>(GetWindowTextW(window_, buffer.data(), static_cast<int>(buffer.size()))));
    return fromWide(buffer);
}

void Win32EditBox::setBounds(double left, double top, double width, double height) {
    const Scale scale(window_);
    SetWindowPos(window_, HWND_TOP, scale.pixels(left), scale.pixels(top), scale.pixels(width), scale.pixels(height),
                 SWP_NOACTIVATE);
}

void Win32EditBox::setVisible(bool visible) { ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE); }
