#include "platform/win32/InsertionLimit.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "platform/EditBox.h"
#include "platform/win32/WideText.h"

namespace {

std::u16string clipboardText(HWND edit) {
    std::u16string text;
    if (OpenClipboard(edit) == 0) {
        return text;
    }
    if (HANDLE data = GetClipboardData(CF_UNICODETEXT); data != nullptr) {
        if (const auto* units = static_cast<const wchar_t*>(GlobalLock(data)); units != nullptr) {
            const std::wstring_view all(units, GlobalSize(data) / sizeof(wchar_t));
            text = fromWide(all.substr(0, all.find(L'\0')));
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    return text;
}

}  // namespace

void InsertionLimit::setLimit(HWND edit, int units) {
    limit_ = units;
    SendMessageW(edit, EM_SETLIMITTEXT, static_cast<WPARAM>(units), 0);
}

void InsertionLimit::setNoLimit(HWND edit) { setLimit(edit, kLongest); }

bool InsertionLimit::uses(HWND edit, UINT message, WPARAM w) {
    if (message == WM_PASTE) {
        insert(edit, clipboardText(edit));
        return true;
    }
    if (message != WM_CHAR) {
        return false;
    }
    // The halves of a surrogate pair arrive one by one; if only one fits, the control would insert it.
    if (IS_HIGH_SURROGATE(w)) {
        firstHalf_ = static_cast<char16_t>(w);
        return true;
    }
    const char16_t firstHalf = std::exchange(firstHalf_, u'\0');
    if (firstHalf == 0 || !IS_LOW_SURROGATE(w)) {
        return false;
    }
    const std::array<char16_t, 2> pair{firstHalf, static_cast<char16_t>(w)};
    insert(edit, {pair.data(), pair.size()});
    return true;
}

void InsertionLimit::insert(HWND edit, std::u16string_view text) const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    const int kept = GetWindowTextLengthW(edit) - static_cast<int>(end - start);
    const std::wstring accepted = toWide(insertable(text, static_cast<std::size_t>(std::max(limit_ - kept, 0))));
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(accepted.c_str()));
}
