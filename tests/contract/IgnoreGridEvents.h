// A listener that ignores every event.
#pragma once

#include "platform/GridView.h"

class IgnoreGridEvents : public GridListener {
public:
    bool keyDown(int, int) override { return false; }
    void pointerMoved(double, double) override {}
    void rightPressed(int, double, double) override {}
    void rightButton(double, double) override {}
    void menuKey(double) override {}
    void itemClicked() override {}
    void itemDoubleClicked() override {}
    void headerClicked(std::u16string_view) override {}
    void columnDragged() override {}
    void resized() override {}
    void viewChanged() override {}
};
