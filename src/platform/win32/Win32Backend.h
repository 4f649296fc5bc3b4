// Owns all objects of this backend, in the order in which they depend on each other.
#pragma once

#include <array>
#include <string>

#include "platform/Platform.h"
#include "platform/win32/Win32AddForm.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32CodePages.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32HttpClient.h"
#include "platform/win32/Win32MainWindow.h"
#include "platform/win32/Win32MessageBox.h"
#include "platform/win32/Win32SingleInstance.h"
#include "platform/win32/Win32TextCompare.h"
#include "platform/win32/Win32Volumes.h"
#include "platform/win32/Win32WindowHook.h"

class Win32Backend {
public:
    // programFolder ends with its separator.
    Win32Backend(const WindowDesign& design, std::u16string programFolder);

    Platform platform();
    Win32MainWindow& window() { return window_; }
    // Runs until the main window is destroyed; returns the exit code of the process.
    int runEvents();

private:
    template <typename Backend>
    friend Platform platformOf(Backend& backend);
    std::array<GridView*, kTabCount> gridViews();

    // Before the window, which needs these classes.
    struct ControlClasses {
        ControlClasses();
    };

    ControlClasses controlClasses_;
    std::u16string programFolder_;
    Win32MainWindow window_;
    Win32MessageBox messageBox_;
    Win32WindowHook windowHook_;
    Win32AddForm addForm_;
    Win32Files files_;
    Win32Volumes volumes_;
    Win32HttpClient httpClient_;
    Win32CodePages codePages_;
    Win32TextCompare textCompare_;
    Win32SingleInstance singleInstance_;
    Win32Clock clock_;
};
