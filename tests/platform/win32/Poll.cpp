#include "platform/win32/Poll.h"

#include <windows.h>

#include <chrono>

namespace {

constexpr std::chrono::seconds kPatience(60);

bool holdsWithin(std::chrono::seconds patience, const std::function<bool()>& holds) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        Sleep(5);
    }
    return true;
}

}  // namespace

bool eventually(const std::function<bool()>& holds) { return holdsWithin(kPatience, holds); }

bool pressUntil(const std::function<void()>& press, const std::function<bool()>& holds) {
    constexpr int kTries = 3;
    for (int i = 0; i < kTries; ++i) {
        press();
        if (holdsWithin(kPatience / kTries, holds)) {
            return true;
        }
    }
    return false;
}
