// Owns all objects of this backend, in the order in which they depend on each other.
#pragma once

#include <array>
#include <string>

#include "platform/Platform.h"
#include "platform/posix/PosixClock.h"
#include "platform/posix/PosixCodePages.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixSingleInstance.h"
#include "platform/posix/PosixVolumes.h"
#include "platform/qt/QtAddForm.h"
#include "platform/qt/QtHttpClient.h"
#include "platform/qt/QtMainWindow.h"
#include "platform/qt/QtMessageBox.h"
#include "platform/qt/QtTextCompare.h"
#include "platform/qt/QtWindowHook.h"

class QtBackend {
public:
    // The application object must exist. programFolder ends with its separator.
    QtBackend(const WindowDesign& design, std::u16string programFolder);

    Platform platform();
    QtMainWindow& window() { return window_; }

private:
    template <typename Backend>
    friend Platform platformOf(Backend& backend);
    std::array<GridView*, kTabCount> gridViews();

    std::u16string programFolder_;
    QtMainWindow window_;
    QtMessageBox messageBox_;
    QtWindowHook windowHook_;
    QtAddForm addForm_;
    PosixFiles files_;
    PosixVolumes volumes_;
    QtHttpClient httpClient_;
    PosixCodePages codePages_;
    QtTextCompare textCompare_;
    PosixSingleInstance singleInstance_;
    PosixClock clock_;
};
