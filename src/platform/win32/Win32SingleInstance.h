// A named mutex per program folder; the system releases it when the process ends, even by a crash.
#pragma once

#include <windows.h>

#include <string>

#include "platform/SingleInstance.h"

class Win32SingleInstance : public SingleInstance {
public:
    explicit Win32SingleInstance(std::u16string_view programFolder);
    ~Win32SingleInstance() override;
    Win32SingleInstance(const Win32SingleInstance&) = delete;
    Win32SingleInstance& operator=(const Win32SingleInstance&) = delete;

    bool previousInstance() override;

private:
    std::wstring name_;
    HANDLE mutex_ = nullptr;
};
