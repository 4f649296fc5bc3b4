// The services for reading and writing text files.
#pragma once

#include "platform/CodePages.h"
#include "platform/Files.h"

struct FileServices {
    Files& files;
    CodePages& codePages;
};
