// The status bar with three panels: messages of the program, short date and short time. The backend keeps the last two
// up to date.
#pragma once

#include <string_view>

// The delay until the short time changes, in milliseconds, at least 1.
constexpr int millisecondsToNextMinute(int second, int millisecond) {
    const int passed = second * 1000 + millisecond;
    return passed < 60'000 ? 60'000 - passed : 1;  // a leap second has number 60
}

class StatusBar {
public:
    virtual ~StatusBar() = default;
    virtual void setMessage(std::u16string_view text) = 0;  // panel 1; visible before the call returns
};
