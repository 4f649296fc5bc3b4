#include "platform/win32/Win32StatusBar.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>

#include "platform/win32/WideText.h"

namespace {

std::wstring shortDate() {
    std::array<wchar_t, 128> text{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                    static_cast<int>(text.size()), nullptr);
    return text.data();
}

std::wstring shortTime() {
    std::array<wchar_t, 128> text{};
    GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, TIME_NOSECONDS, nullptr, nullptr, text.data(),
                    static_cast<int>(text.size()));
    return text.data();
}

}  // namespace

void Win32StatusBar::createWindow(HWND parent) {
    window_ = CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBARS_SIZEGRIP, 0, 0,
                              0, 0, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void Win32StatusBar::layOut(const SystemFont& font) {
    SendMessageW(window_, WM_SIZE, 0, 0);
    RECT area{};
    GetClientRect(window_, &area);
    const std::wstring date = shortDate();
    const std::wstring time = shortTime();
    const int height = area.bottom - area.top;
    const int panel = static_cast<int>(std::max(font.extent(date.c_str(), static_cast<int>(date.size())).cx,
                                                font.extent(time.c_str(), static_cast<int>(time.size())).cx)) +
                      height;
    const int right = static_cast<int>(area.right) - height;  // the size grip is approximately a square
    std::array<int, 3> edges = {std::max(right - 2 * panel, 0), std::max(right - panel, 0), std::max(right, 0)};
    SendMessageW(window_, SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void Win32StatusBar::showTime(UINT_PTR timer) {
    SendMessageW(window_, SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(shortDate().c_str()));
    SendMessageW(window_, SB_SETTEXTW, 2, reinterpret_cast<LPARAM>(shortTime().c_str()));
    SYSTEMTIME now{};
    GetLocalTime(&now);
    SetTimer(GetParent(window_), timer, static_cast<UINT>(millisecondsToNextMinute(now.wSecond, now.wMilliseconds)),
             nullptr);
}

void Win32StatusBar::setMessage(std::u16string_view text) {
    SendMessageW(window_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(toWide(text).c_str()));
    UpdateWindow(window_);
}
