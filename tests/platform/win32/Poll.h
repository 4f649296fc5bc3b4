// Waiting for what another thread or process does.
#pragma once

#include <functional>

// Asks again and again until it holds; false when it does not within a time that no healthy run needs.
bool eventually(const std::function<bool()>& holds);

// Presses keys and waits as above; again where they have come to nothing. A window that has just got the focus has Wine
// ask the screen which keys are down, and Ctrl and Alt, which only Wine knows of, may count as up from then on.
bool pressUntil(const std::function<void()>& press, const std::function<bool()>& holds);
