#include "platform/win32/Win32EditBox.h"

#include <commctrl.h>

#include <string>

#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowText.h"

namespace {

// The box ignores these; the control would beep.
bool isControlOfOneLine(WPARAM character) { return character == L'\r' || character == L'\n' || character == VK_ESCAPE; }

std::wstring captionOfShownList(HWND parent) {
    HWND list = nullptr;
    do {
        list = FindWindowExW(parent, list, WC_LISTVIEWW, nullptr);
    } while (list != nullptr && IsWindowVisible(list) == 0);
    return windowText(list);
}

}  // namespace

HWND Win32EditBox::created() {
    if (window_ == nullptr) {
        const DWORD style = WS_CHILD | WS_BORDER | WS_CLIPSIBLINGS | ES_AUTOHSCROLL;
        HINSTANCE instance = GetModuleHandleW(nullptr);
        name_ = CreateWindowExW(0, WC_STATICW, L"", WS_CHILD | SS_NOPREFIX, 0, 0, 0, 0, parent_, nullptr, instance,
                                nullptr);
        window_ = CreateWindowExW(0, WC_EDITW, L"", style, 0, 0, 0, 0, parent_, nullptr, instance, nullptr);
        setFont(font_);
        subclass_.install(window_, procedure, this);
    }
    return window_;
}

void Win32EditBox::setFont(HFONT font) {
    font_ = font;
    if (window_ != nullptr) {
        SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
    }
}

LRESULT CALLBACK Win32EditBox::procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* box = Subclass::selfOf<Win32EditBox>(window);
    if (box->uses(message, w)) {
        return 0;
    }
    const LRESULT result = box->subclass_.original(window, message, w, l);
    if (message == WM_KILLFOCUS && box->listener_ != nullptr) {
        box->listener_->lostFocus();
    }
    return result;
}

bool Win32EditBox::uses(UINT message, WPARAM w) {
    // The key, not the character: Ctrl+M produces the same character.
    if (message == WM_KEYDOWN && w == VK_RETURN && GetKeyState(VK_CONTROL) >= 0) {
        if (listener_ != nullptr) {
            listener_->enterPressed();
        }
        return true;
    }
    return (message == WM_CHAR && isControlOfOneLine(w)) || limit_.uses(window_, message, w);
}

void Win32EditBox::setLimit(int units) { limit_.setLimit(created(), units); }

void Win32EditBox::setText(std::u16string_view text) {
    SetWindowTextW(created(), toWide(text).c_str());
    SendMessageW(window_, EM_SETSEL, 0, -1);
}

std::u16string Win32EditBox::text() const { return fromWide(windowText(window_)); }

void Win32EditBox::setBounds(double left, double top, double width, double height) {
    const Scale scale(created());
    SetWindowPos(name_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SetWindowPos(window_, name_, scale.pixels(left), scale.pixels(top), scale.pixels(width), scale.pixels(height),
                 SWP_NOACTIVATE);
}

void Win32EditBox::setVisible(bool visible) {
    if (visible) {
        HWND box = created();
        SetWindowTextW(name_, captionOfShownList(parent_).c_str());
        ShowWindow(box, SW_SHOWNA);
    } else if (window_ != nullptr) {
        ShowWindow(window_, SW_HIDE);
    }
}
