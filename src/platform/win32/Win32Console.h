// The standard streams of the process.
#pragma once

#include "platform/Console.h"

class Win32Console : public Console {
public:
    // The console uses UTF-8 during the lifetime of this object.
    Win32Console();
    ~Win32Console() override;
    Win32Console(const Win32Console&) = delete;
    Win32Console& operator=(const Win32Console&) = delete;

    bool write(std::string_view text) override;
    void writeError(std::string_view text) override;
    std::optional<std::string> readAll() override;
    bool showsColours() override;
    bool showsProgress() override;

private:
    unsigned oldCodePage_;
};
