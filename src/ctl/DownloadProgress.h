// The progress of a download on one line of standard error, which is updated. Writes nothing unless it is a terminal.
#pragma once

#include <string>

#include "platform/Console.h"
#include "platform/HttpClient.h"

class DownloadProgress {
public:
    // `console` outlives this object.
    explicit DownloadProgress(Console& console) : console_(console) {}

    void begin();
    void update(const HttpProgress& progress);
    // Ends the line.
    void end();

private:
    void show(std::string line);

    Console& console_;
    std::string shown_;  // empty: no download, or no terminal
};
