// The tab control SSTab1 of the main window.
#pragma once

// The next tab (step 1) or the previous one (step -1), cyclic. Tabs are 0-based.
constexpr int neighbourTab(int tab, int step, int count) { return (tab + step + count) % count; }

inline constexpr int kTabCount = 4;  // one for each list

class TabListener {
public:
    virtual ~TabListener() = default;
    // Another tab is shown, by mouse or keyboard; the focus has not moved before this call.
    virtual void tabClicked() = 0;
    virtual void tabGotFocus() = 0;
};

class TabControl {
public:
    virtual ~TabControl() = default;
    // The listener outlives the window; set once, before the window is shown.
    virtual void setListener(TabListener& listener) = 0;
    virtual int currentTab() const = 0;  // 0-based
    virtual bool hasFocus() const = 0;   // true if the tab bar has the focus
    virtual double left() const = 0;     // twips, within the client area of the main window
};
