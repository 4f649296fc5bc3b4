// The popup menu PMenu of the grids.
#pragma once

enum class MenuItem { Edt, Del, AddNew, AddTo, SyncInternet, LoadFromReceiver, SaveToReceiver, DeleteAll };
inline constexpr int kMenuItemCount = 8;

class MenuListener {
public:
    virtual ~MenuListener() = default;
    virtual void menuChosen(MenuItem item) = 0;  // called after the menu has closed
};

class PopupMenu {
public:
    virtual ~PopupMenu() = default;
    // The listener outlives the window; set once, before the window is shown.
    virtual void setListener(MenuListener& listener) = 0;
    virtual void setEnabled(MenuItem item, bool enabled) = 0;
    // Opens the menu over the grid of a tab (0..3); x and y as in GridListener.
    virtual void show(int tab, double x, double y) = 0;
};
