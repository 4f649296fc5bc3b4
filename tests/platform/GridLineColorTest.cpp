#include <gtest/gtest.h>

#include <vector>

#include "platform/GridLineColor.h"

TEST(GridLineColorTest, BlackAndWhiteHaveTheHighestContrast) {
    EXPECT_NEAR(contrast({0, 0, 0}, {255, 255, 255}), 21, 0.01);
    EXPECT_NEAR(contrast({255, 255, 255}, {119, 119, 119}), 4.48, 0.01);
    EXPECT_EQ(contrast({10, 20, 30}, {10, 20, 30}), 1);
}

TEST(GridLineColorTest, IsVisibleInEveryTheme) {
    struct Theme {
        Rgb base, text;
    };
    const std::vector<Theme> themes = {{{255, 255, 255}, {0, 0, 0}},       {{252, 252, 252}, {35, 38, 41}},
                                       {{0, 0, 0}, {255, 255, 255}},       {{27, 30, 32}, {252, 252, 252}},
                                       {{45, 45, 45}, {255, 255, 255}},    {{0, 0, 0}, {255, 255, 0}},
                                       {{253, 246, 227}, {101, 123, 131}}, {{255, 255, 255}, {0, 0, 255}}};
    for (const auto& [base, text] : themes) {
        const Rgb line = gridLineColor(base, text);
        EXPECT_GE(contrast(line, base), 1.5);
        EXPECT_LT(contrast(line, base), 2.2) << "a line, not a bar";
        EXPECT_NE(line, text);
    }
}

TEST(GridLineColorTest, IsTheTextColourIfThatIsHardlyVisible) {
    EXPECT_EQ(gridLineColor({100, 100, 100}, {110, 110, 110}), (Rgb{110, 110, 110}));
}
