// Before an edit control: what is typed or pasted goes in as far as insertable() says; what is there already stays.
#pragma once

#include <windows.h>

#include <string_view>

class InsertionLimit {
public:
    void setLimit(HWND edit, int units);  // UTF-16 units of the whole text
    void setNoLimit(HWND edit);
    // For the procedure before that of the control. True: the message has been used.
    bool uses(HWND edit, UINT message, WPARAM w);

private:
    static constexpr int kLongest = 0x7FFFFFFE;  // what the control itself takes for no limit

    void insert(HWND edit, std::u16string_view text) const;

    int limit_ = kLongest;
    char16_t firstHalf_ = 0;  // of a pair whose second half is on its way
};
