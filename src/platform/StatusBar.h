// The status bar: three panels. Panel 1 is the program's; the short date and the short time
// in panels 2 and 3 are kept up to date by the backend.
#pragma once

#include <string_view>

// How long the short time stays as it is, in milliseconds, at least 1.
constexpr int millisecondsToNextMinute(int second, int millisecond) {
    const int passed = second * 1000 + millisecond;
    return passed < 60'000 ? 60'000 - passed : 1;  // a leap second counts 60
}

class StatusBar {
public:
    virtual ~StatusBar() = default;
    virtual void setMessage(std::u16string_view text) = 0;  // panel 1; on screen before the call returns
};
