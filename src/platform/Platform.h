// Everything that a backend provides. Only the main window takes the whole bundle.
#pragma once

#include <array>
#include <string>

#include "platform/TabControl.h"

class GridView;
class EditBox;
class StatusBar;
class PopupMenu;
class StandardMessageBox;
class WindowHook;
class AddFormView;
class MainWindow;
class Files;
class Volumes;
class HttpClient;
class CodePages;
class TextCompare;
class SingleInstance;
class Clock;

// All references outlive the main window.
struct Platform {
    std::array<GridView*, kTabCount> gridViews;  // by tab
    TabControl& tabs;
    EditBox& editBox;
    StatusBar& statusBar;
    PopupMenu& popupMenu;
    StandardMessageBox& messageBox;
    WindowHook& windowHook;
    AddFormView& addFormView;
    MainWindow& mainWindow;
    Files& files;
    Volumes& volumes;
    HttpClient& httpClient;
    CodePages& codePages;
    TextCompare& textCompare;
    SingleInstance& singleInstance;
    Clock& clock;
    std::u16string programFolder;  // with its trailing separator
};
