// Waits for other threads and processes.
#pragma once

#include <functional>

// Polls the condition until it is true; false after a time that no healthy run needs.
bool eventually(const std::function<bool()>& holds);

// Presses keys and waits as above; presses them again if they had no effect. When a window gets the focus, Wine queries
// the X server for the pressed keys and may release Ctrl and Alt, which only Wine has pressed.
bool pressUntil(const std::function<void()>& press, const std::function<bool()>& holds);
