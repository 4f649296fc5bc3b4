// Chooses the folder of the lists.
#pragma once

#include <string>

#include "platform/Files.h"
#include "platform/ProgramFolders.h"

// The folder of the working copies, with its trailing separator. A portable copy of the program keeps them next to its
// executable. For an installed program, and if that folder cannot be written, they are in the user's application data,
// whatever the rights of the user; lists next to the executable are copied there before the first start.
std::u16string findProgramFolder(ProgramFolders& folders, Files& files);
// The same for a program that only reads: creates and copies nothing. Lists next to the executable that have not been
// copied yet are read there.
std::u16string findProgramFolderToRead(ProgramFolders& folders, Files& files);
