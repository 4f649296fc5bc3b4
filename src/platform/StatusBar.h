// The status bar: three panels. Panel 1 is the program's; the short date and the short time
// in panels 2 and 3 are kept up to date by the backend.
#pragma once

#include <string_view>

class StatusBar {
public:
    virtual ~StatusBar() = default;
    virtual void setMessage(std::u16string_view text) = 0;  // panel 1; on screen before the call returns
};
