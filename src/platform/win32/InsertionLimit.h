// Limits an edit control: inserts typed or pasted text as insertable() defines; existing text stays.
#pragma once

#include <windows.h>

#include <string_view>

class InsertionLimit {
public:
    void setLimit(HWND edit, int units);  // UTF-16 units of the whole text
    void setNoLimit(HWND edit);
    // Call for each message before the control's own procedure. True: the message has been handled.
    bool uses(HWND edit, UINT message, WPARAM w);

private:
    static constexpr int kLongest = 0x7FFFFFFE;  // means no limit to the control

    void insert(HWND edit, std::u16string_view text) const;

    int limit_ = kLongest;
    char16_t firstHalf_ = 0;  // of a pair whose second half has not arrived yet
};
