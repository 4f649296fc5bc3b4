// The system's standard message box. StandardMessageBox is not called MessageBox because a Windows header defines that
// name as a macro.
#pragma once

#include <string_view>

namespace BoxStyle {
inline constexpr int Ok = 0;
inline constexpr int OkCancel = 1;
inline constexpr int AbortRetryIgnore = 2;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int RetryCancel = 5;
}  // namespace BoxStyle

namespace BoxAnswer {
inline constexpr int Ok = 1;
inline constexpr int Cancel = 2;
inline constexpr int Abort = 3;
inline constexpr int Retry = 4;
inline constexpr int Ignore = 5;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
}  // namespace BoxAnswer

class StandardMessageBox {
public:
    virtual ~StandardMessageBox() = default;
    // Modal to the program's active window; returns the button pressed. If the box is closed, the result is Cancel if
    // the box has that button, Ok otherwise. The system provides the button captions.
    virtual int show(std::u16string_view text, int style, std::u16string_view title) = 0;
};
