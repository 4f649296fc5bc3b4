// The status bar with three panels. Panel 1 shows the program's messages; the backend keeps the short date in panel 2
// and the short time in panel 3 up to date.
#pragma once

#include <string_view>

// The delay until the short time changes, in milliseconds, at least 1.
constexpr int millisecondsToNextMinute(int second, int millisecond) {
    const int passed = second * 1000 + millisecond;
    return passed < 60'000 ? 60'000 - passed : 1;  // a leap second counts 60
}

class StatusBar {
public:
    virtual ~StatusBar() = default;
    virtual void setMessage(std::u16string_view text) = 0;  // panel 1; on screen before the call returns
};
