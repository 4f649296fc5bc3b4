// Waiting for what another thread or process does.
#pragma once

#include <functional>

// Asks again and again until it holds; false when it does not within a time that no healthy run needs.
bool eventually(const std::function<bool()>& holds);
