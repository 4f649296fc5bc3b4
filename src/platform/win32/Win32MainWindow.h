// The main window: owns the controls, lays them out and passes the system's messages to them.
#pragma once

#include <windows.h>

#include <array>

#include "platform/MainWindow.h"
#include "platform/win32/SystemFont.h"
#include "platform/win32/Win32EditBox.h"
#include "platform/win32/Win32GridView.h"
#include "platform/win32/Win32PopupMenu.h"
#include "platform/win32/Win32StatusBar.h"
#include "platform/win32/Win32TabControl.h"

class Win32MainWindow : public MainWindow {
public:
    // Creates the window with all its controls, hidden and at its design size.
    explicit Win32MainWindow(const WindowDesign& design);
    ~Win32MainWindow() override;
    Win32MainWindow(const Win32MainWindow&) = delete;
    Win32MainWindow& operator=(const Win32MainWindow&) = delete;

    HWND window() const { return window_; }
    Win32GridView& grid(int tab) { return grids_[static_cast<std::size_t>(tab)]; }
    Win32TabControl& tabs() { return tabs_; }
    Win32EditBox& editBox() { return editBox_; }
    Win32StatusBar& statusBar() { return statusBar_; }
    Win32PopupMenu& popupMenu() { return popupMenu_; }

    void show(int command);
    // Handles keys that work wherever the focus is. True: the message has been handled.
    bool usesKey(const MSG& message);

    void setListener(MainWindowListener& listener) override { listener_ = &listener; }
    void setEnabled(bool enabled) override { EnableWindow(window_, enabled ? TRUE : FALSE); }
    void close() override { SendMessageW(window_, WM_CLOSE, 0, 0); }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT handle(UINT message, WPARAM w, LPARAM l);
    void createFrame(const WindowDesign& design);
    void createControls(const WindowDesign& design);
    void setFonts();
    RECT tabBounds() const;
    void layOut();
    void placeGrids();
    void resized(WPARAM kind, LPARAM size);
    void passToChildren(UINT message, WPARAM w, LPARAM l);
    LRESULT notified(const NMHDR& header);
    void activated(WORD state, HWND other);
    void restoreFocus();
    void resolutionChanged(const RECT& suggested);
    void reportClosing();

    static constexpr UINT_PTR kClockTimer = 1;

    std::array<Win32GridView, kTabCount> grids_;  // by tab
    Win32TabControl tabs_{grids_};
    Win32EditBox editBox_;
    Win32StatusBar statusBar_;
    Win32PopupMenu popupMenu_{grids_};
    double gridTopInset_;
    HWND window_ = nullptr;
    SystemFont font_;
    SIZE laidOut_{};  // the client area of the last layout
    HWND lastFocus_ = nullptr;
    MainWindowListener* listener_ = nullptr;
};
