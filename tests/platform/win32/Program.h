// The real program in its own folder, driven by messages and the keyboard.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/TemporaryFolder.h"

// The path of the built program, relative to the folder of this test.
std::filesystem::path builtProgram(const wchar_t* relative = LR"(..\..\..\Halcyon_K7.exe)");

// Columns, rows and panels are 1-based; pixels are relative to the window named.
class Program {
public:
    // Copies the program into the folder, starts it and waits for its window.
    explicit Program(const TemporaryFolder& folder, const std::filesystem::path& built = builtProgram());
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    HWND window() const { return window_; }
    // Null if the tab has not been shown yet.
    HWND list(const wchar_t* tabCaption) const { return FindWindowExW(window_, nullptr, L"SysListView32", tabCaption); }
    // Shows a tab, 1-based, as its user does; returns its list.
    HWND showTab(int tab, const wchar_t* caption) const;
    HWND box() const { return FindWindowExW(window_, nullptr, L"Edit", nullptr); }
    bool boxIsOpen() const { return IsWindowVisible(box()) != 0; }
    // Waits for a dialog or message box with this title; null if none appears.
    HWND dialog(const wchar_t* title) const;
    // The dialog that opens after the key is pressed with Ctrl.
    HWND dialogBy(WORD key, const wchar_t* title) const;
    HWND menu() const;  // the open popup menu, or null
    HWND focus() const;
    bool hasEnded() const { return WaitForSingleObject(process_.hProcess, 0) == WAIT_OBJECT_0; }
    // Closes the window as a user does and waits until the process has ended.
    bool close();

    int rowCount(HWND list) const { return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)); }
    std::wstring cell(HWND list, int row, int column) const;
    std::vector<std::wstring> columnTexts(HWND list, int column) const;
    RECT cellBounds(HWND list, int row, int column) const;
    std::wstring status(int panel = 1) const;
    // Sets a status text from outside; the next text of the program replaces it.
    bool overwriteStatus(int panel, std::wstring_view text) const;
    // Sends the message of a window that was moved to a screen with this resolution.
    void comeToResolution(int dpi, const RECT& suggested) const;

    void click(HWND list, int row, int column) const;
    void doubleClick(HWND list, int row, int column) const;
    void rightClick(HWND list, int row, int column) const;
    void clickHeader(HWND list, int column) const;

private:
    HWND statusBar() const { return FindWindowExW(window_, nullptr, STATUSCLASSNAMEW, nullptr); }
    HWND findOwnWindow(const wchar_t* className, const wchar_t* title) const;
    LPARAM middleOf(HWND list, int row, int column) const;

    PROCESS_INFORMATION process_{};
    HWND window_ = nullptr;
};

// Keyboard input for the window with the focus.
void pressKey(WORD key);
void pressWithCtrl(WORD key);
void pressWithAlt(WORD key);
void pressWithShift(WORD key);
void typeInto(HWND window, std::wstring_view text);
bool putOnClipboard(const std::wstring& text);
std::wstring textOf(HWND window);
std::wstring messageOf(HWND messageBox);                          // the label of an icon has no text
HWND childOf(HWND dialog, const wchar_t* className, int number);  // 1-based, in the dialog's order
