// The main window as designed: its texts and sizes, from which a backend builds it.
#pragma once

#include "platform/MainWindow.h"

WindowDesign mainWindowDesign();
