// Where the lists live.
#pragma once

#include <string>

#include "platform/Files.h"
#include "platform/ProgramFolders.h"

// The folder of the working copies, with its trailing separator. A portable copy of the program keeps them beside its
// executable. The lists of an installed program, and of a copy in a folder that cannot be written, are in the user's
// application data, so that rights of an administrator make no difference; lists that stand beside the executable are
// copied there before the first start.
std::u16string findProgramFolder(ProgramFolders& folders, Files& files);
