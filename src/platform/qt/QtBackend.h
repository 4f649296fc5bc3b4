// Everything of this backend in one place, made in the order in which its parts need each other.
#pragma once

#include <string>

#include "platform/Platform.h"
#include "platform/qt/QtAddForm.h"
#include "platform/qt/QtClock.h"
#include "platform/qt/QtCodePages.h"
#include "platform/qt/QtFiles.h"
#include "platform/qt/QtHttpClient.h"
#include "platform/qt/QtMainWindow.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtSingleInstance.h"
#include "platform/qt/QtTextCompare.h"
#include "platform/qt/QtVolumes.h"
#include "platform/qt/QtWindowHook.h"

class QtBackend {
public:
    // The application object exists already. programFolder: with its trailing separator.
    QtBackend(const WindowDesign& design, std::u16string programFolder);

    Platform platform();
    QtMainWindow& window() { return window_; }

private:
    std::u16string programFolder_;
    QtMainWindow window_;
    QtMessageBox messageBox_;
    QtWindowHook windowHook_;
    QtAddForm addForm_;
    QtFiles files_;
    QtVolumes volumes_;
    QtHttpClient httpClient_;
    QtCodePages codePages_;
    QtTextCompare textCompare_;
    QtSingleInstance singleInstance_;
    QtClock clock_;
};
