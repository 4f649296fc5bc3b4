#include "platform/win32/Win32Console.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cwchar>

namespace {

constexpr DWORD kLargestPart = 32'768;  // consoles accept at most 64 KiB per call

bool writeTo(DWORD stream, std::string_view text) {
    const HANDLE handle = GetStdHandle(stream);
    while (!text.empty()) {
        const auto part = static_cast<DWORD>(std::min<std::size_t>(text.size(), kLargestPart));
        DWORD put = 0;
        if (WriteFile(handle, text.data(), part, &put, nullptr) == 0) {
            const DWORD error = GetLastError();
            return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED;
        }
        text.remove_prefix(put);
    }
    return true;
}

bool isConsole(DWORD stream) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

// A console interprets escape sequences only after they are enabled.
bool understandsColours() {
    const HANDLE handle = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0 && SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

}  // namespace

Win32Console::Win32Console() : oldCodePage_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }

Win32Console::~Win32Console() { SetConsoleOutputCP(oldCodePage_); }

bool Win32Console::write(std::string_view text) { return writeTo(STD_OUTPUT_HANDLE, text); }

void Win32Console::writeError(std::string_view text) { writeTo(STD_ERROR_HANDLE, text); }

std::optional<std::string> Win32Console::readAll() {
    std::array<char, kLargestPart> block{};
    std::string bytes;
    for (;;) {
        DWORD got = 0;
        if (ReadFile(GetStdHandle(STD_INPUT_HANDLE), block.data(), kLargestPart, &got, nullptr) == 0) {
            return GetLastError() == ERROR_BROKEN_PIPE ? std::optional(bytes) : std::nullopt;
        }
        if (got == 0) {
            return bytes;
        }
        bytes.append(block.data(), got);
    }
}

bool Win32Console::showsColours() {
    return GetEnvironmentVariableW(L"NO_COLOR", nullptr, 0) <= 1 && understandsColours();
}

bool Win32Console::showsProgress() { return isConsole(STD_ERROR_HANDLE); }
