#include "win32/Poll.h"

#include <windows.h>

#include <chrono>

bool eventually(const std::function<bool()>& holds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        Sleep(5);
    }
    return true;
}
