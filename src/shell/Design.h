// The texts and sizes of the main window, which a backend asks for before it builds the window.
#pragma once

#include "platform/MainWindow.h"

WindowDesign mainWindowDesign();
