// The system services for the commands.
#pragma once

#include <string>

#include "ctl/DownloadProgress.h"
#include "platform/Clock.h"
#include "platform/CodePages.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/HttpClient.h"
#include "platform/SingleInstance.h"
#include "platform/Volumes.h"

struct Services {
    Files& files;
    CodePages& codePages;
    Volumes& volumes;
    HttpClient& httpClient;
    SingleInstance& singleInstance;  // for `folder`
    Clock& clock;
    Console& console;
    DownloadProgress& progress;    // updated by `httpClient`
    std::u16string folder;         // folder of the working copies, with trailing separator
    std::u16string currentFolder;  // base of relative paths, with trailing separator
};
