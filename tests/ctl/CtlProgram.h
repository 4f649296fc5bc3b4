// The command-line program on fakes: a command line goes in; exit code, texts and files come out.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "ctl/CommandLine.h"
#include "ctl/Commands.h"
#include "ctl/DownloadProgress.h"
#include "fakes/FakeCodePages.h"
#include "fakes/FakeConsole.h"
#include "fakes/FakeFiles.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/FakeServices.h"

struct CtlProgram {
    // Returns the exit code; `console` holds the output of this run only.
    int run(const std::vector<std::string>& words) { return run(words, files); }
    // The same on other files, which forward to those of this object.
    int run(const std::vector<std::string>& words, Files& other) {
        console.out.clear();
        console.errors.clear();
        const auto parsed = parseCommandLine(words);
        if (const auto* const end = std::get_if<CommandLineEnd>(&parsed)) {
            return static_cast<int>(endCommandLine(console, *end));
        }
        Services services{other, codePages, volumes,  httpClient, singleInstance,
                          clock, console,   progress, folder,     u"/home/"};
        return static_cast<int>(runCommand(services, std::get<Options>(parsed)));
    }

    std::u16string folder = u"/k7/";  // of the working copies
    FakeFiles files;
    FakeCodePages codePages;
    FakeVolumes volumes;
    FakeHttpClient httpClient;
    FakeSingleInstance singleInstance;
    FakeClock clock;
    FakeConsole console;
    DownloadProgress progress{console};
};
