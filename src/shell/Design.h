// What a backend asks for before it builds the main window: its texts and sizes, and where its files lie.
#pragma once

#include <string>

#include "platform/MainWindow.h"
#include "platform/ProgramFolders.h"

WindowDesign mainWindowDesign();

// Where the working copies live: the executable's folder where it can be written, else one named after the program in
// the user's application data. With its trailing separator.
std::u16string programFolder(ProgramFolders& folders);
