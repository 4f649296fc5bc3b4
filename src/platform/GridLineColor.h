// The colour of the lines between the cells of a grid, for any theme.
#pragma once

#include <cmath>

struct Rgb {
    int red = 0;  // 0..255
    int green = 0;
    int blue = 0;
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

// Contrast as the Web Content Accessibility Guidelines define it: 1 for equal colours, 21 for black and white.
inline double contrast(const Rgb& one, const Rgb& other) {
    const auto luminance = [](const Rgb& color) {
        const auto linear = [](int channel) {
            const double value = channel / 255.0;
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
    };
    const double first = luminance(one) + 0.05;
    const double second = luminance(other) + 0.05;
    return first > second ? first / second : second / first;
}

// Between the colours of the cells and of their text: the colour nearest to the cells that has enough contrast to them,
// or the text's colour if there is none.
inline Rgb gridLineColor(const Rgb& base, const Rgb& text) {
    constexpr double kContrast = 1.7;
    constexpr int kSteps = 64;
    const auto mixed = [](int from, int to, int step) { return from + (to - from) * step / kSteps; };
    for (int step = 1; step < kSteps; ++step) {
        const Rgb color{mixed(base.red, text.red, step), mixed(base.green, text.green, step),
                        mixed(base.blue, text.blue, step)};
        if (contrast(color, base) >= kContrast) {
            return color;
        }
    }
    return text;
}
