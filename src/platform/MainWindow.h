// The main window as a whole.
#pragma once

#include <array>
#include <string>

#include "platform/PopupMenu.h"
#include "platform/TabControl.h"

// Texts and sizes from which a backend builds the window. Lengths in twips.
struct WindowDesign {
    std::u16string caption;
    std::array<std::u16string, kTabCount> tabCaptions;
    std::array<std::u16string, kMenuItemCount> menuCaptions;  // by MenuItem; "(&E)" contains the mnemonic
    double width = 0;                                         // client area at 100 %
    double height = 0;
    double gridTopInset = 0;  // from the top of the client area to the top of SSTab1, plus the grid's border
};

// What was active before the main window became active.
enum class CameFrom {
    Elsewhere,  // another program's window, or none
    OwnBox,     // a message box or a dialog of this program
};

class MainWindowListener {
public:
    virtual ~MainWindowListener() = default;
    // The window has become the active one.
    virtual void windowGotFocus(CameFrom from) = 0;
    // The window is about to close (close box, session end, termination signal). May be called more than once.
    virtual void windowClosing() = 0;
};

class MainWindow {
public:
    virtual ~MainWindow() = default;
    // The listener outlives the window; set once, before the window is shown.
    virtual void setListener(MainWindowListener& listener) = 0;
    virtual void setEnabled(bool enabled) = 0;
    // Acts as a click on the close box, even if the window is disabled. The program ends with its last window.
    virtual void close() = 0;
};
