// What the commands ask of the system.
#pragma once

#include <string>

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
    SingleInstance& singleInstance;  // of `folder`
    Clock& clock;
    Console& console;
    std::u16string folder;         // of the working copies, with its trailing separator
    std::u16string currentFolder;  // what relative paths start from, with its trailing separator
};
