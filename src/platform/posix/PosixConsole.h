// The standard streams of the process.
#pragma once

#include "platform/Console.h"

class PosixConsole : public Console {
public:
    // Ignores SIGPIPE for the whole process.
    PosixConsole();

    bool write(std::string_view text) override;
    void writeError(std::string_view text) override;
    std::optional<std::string> readAll() override;
    bool showsColours() override;
    bool showsProgress() override;
};
