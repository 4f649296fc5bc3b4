// Chooses the folder of the lists.
#pragma once

#include <string>

#include "platform/Files.h"
#include "platform/ProgramFolders.h"

// The folder of the working copies, with its trailing separator. A portable copy of the program keeps them next to its
// executable. For an installed program, and if that folder cannot be written, they are in the user's application data,
// whatever the rights of the user; lists next to the executable are copied there before the first start.
std::u16string findProgramFolder(ProgramFolders& folders, Files& files);
