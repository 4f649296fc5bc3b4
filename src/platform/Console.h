// Standard input, output and error of a command-line program. All text is UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>

class Console {
public:
    virtual ~Console() = default;
    // False if not everything could be written. A closed pipe is no failure: the text is dropped.
    virtual bool write(std::string_view text) = 0;
    virtual void writeError(std::string_view text) = 0;
    // Standard input up to its end; nullopt on failure.
    virtual std::optional<std::string> readAll() = 0;
    // True if standard output is a terminal and the user has not disabled colours.
    virtual bool showsColours() = 0;
    // True if standard error is a terminal.
    virtual bool showsProgress() = 0;
};
