// Converts between twips and pixels at the resolution of a window's monitor.
#pragma once

#include <windows.h>

#include <cmath>

class Scale {
public:
    explicit Scale(HWND window) : dpi_(static_cast<int>(GetDpiForWindow(window))) {}
    explicit Scale(int dpi) : dpi_(dpi) {}

    int dpi() const { return dpi_; }
    int pixels(double twips) const { return static_cast<int>(std::lround(twips * dpi_ / kTwipsPerInch)); }
    double twips(int pixels) const { return pixels * kTwipsPerInch / dpi_; }

private:
    static constexpr double kTwipsPerInch = 1440;
    int dpi_;
};
