// The folder of the working copies that a command line is about.
#pragma once

#include <string>
#include <string_view>

#include "ctl/Options.h"
#include "platform/Files.h"
#include "platform/ProgramFolders.h"

// With a trailing separator: that of --folder, or the program's. A command that only reads creates no folder.
// currentFolder ends with the separator of the system.
std::u16string workingFolder(const Options& options, std::u16string_view currentFolder, ProgramFolders& folders,
                             Files& files);
