#include "platform/win32/Win32Clock.h"

#include <windows.h>

UtcTime Win32Clock::now() {
    SYSTEMTIME time{};
    GetSystemTime(&time);
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}
