// The texts and sizes from which a backend builds the main window.
#pragma once

#include "platform/MainWindow.h"

WindowDesign mainWindowDesign();
