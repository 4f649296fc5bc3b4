// Reading and writing text files takes both.
#pragma once

#include "platform/CodePages.h"
#include "platform/Files.h"

struct FileServices {
    Files& files;
    CodePages& codePages;
};
