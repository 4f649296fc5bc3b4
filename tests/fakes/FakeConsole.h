// A terminal or a pipe as plain texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Console.h"

class FakeConsole : public Console {
public:
    bool write(std::string_view text) override {
        out += isBroken ? "" : text;
        return !isBroken;
    }
    void writeError(std::string_view text) override { errors += text; }
    std::optional<std::string> readAll() override { return input; }
    bool showsColours() override { return isTerminal; }
    bool showsProgress() override { return isTerminal; }

    std::string out;
    std::string errors;
    std::optional<std::string> input = "";
    bool isTerminal = false;
    bool isBroken = false;
};
