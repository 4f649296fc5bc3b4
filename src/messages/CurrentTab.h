// The tab shown, as the main window last set it: 0 DRM, 1 AM, 2 FM, 3 Favourite.
#pragma once

class CurrentTab {
public:
    void SetCurrentTab(int index) { index_ = index; }
    int GetCurrentTab() const { return index_; }

private:
    int index_ = 0;
};
