#include <gtest/gtest.h>

#include <array>

#include "editing/ColumnFinder.h"
#include "storage/stations/RowStore.h"

namespace {

RowStore gridOf(const std::vector<double>& widths) {
    RowStore grid;
    for (const double width : widths) {
        grid.addColumn(u"Caption", u"KEYS", width);
    }
    return grid;
}

int columnAtX(const Grid& grid, int x) {
    const auto found = spanAt(columnSpans(grid), x);
    return found ? found->column : -1;
}

int neighbourColumn(const Grid& grid, int x, int step) {
    const auto found = neighbourOf(columnSpans(grid), columnsOf(ListKind::Drm).first(grid.columns().size()), x, step);
    return found ? found->column : -1;
}

TEST(ColumnFinderTest, GivesAnEdgeToTheColumnOnItsRight) {
    const RowStore grid = gridOf({1200, 1200, 1200, 2000});
    EXPECT_EQ(-1, columnAtX(grid, -1));
    EXPECT_EQ(1, columnAtX(grid, 0));
    EXPECT_EQ(1, columnAtX(grid, 1199));
    EXPECT_EQ(2, columnAtX(grid, 1200));
    EXPECT_EQ(2, columnAtX(grid, 2399));
    EXPECT_EQ(3, columnAtX(grid, 2400));
    EXPECT_EQ(4, columnAtX(grid, 3600));
    EXPECT_EQ(4, columnAtX(grid, 5599));
    EXPECT_EQ(-1, columnAtX(grid, 5600));
    EXPECT_EQ(-1, columnAtX(grid, 32767));
}

TEST(ColumnFinderTest, RoundsEachRunningSumHalfToEven) {
    const RowStore grid = gridOf({10.5, 10.5, 1.5});
    const auto spans = columnSpans(grid);  // 10.5 to 10; 20.5 to 20; 21.5 to 22
    EXPECT_EQ(0, spans[0].left);
    EXPECT_EQ(10, spans[0].width);
    EXPECT_EQ(10, spans[1].left);
    EXPECT_EQ(10, spans[1].width);
    EXPECT_EQ(20, spans[2].left);
    EXPECT_EQ(2, spans[2].width);
}

TEST(ColumnFinderTest, FindsTheColumnsOfTheWidestScreens) {
    const RowStore grid = gridOf({40000, 40000, 40000});
    EXPECT_EQ(1, columnAtX(grid, 39999));
    EXPECT_EQ(2, columnAtX(grid, 40000));
    EXPECT_EQ(3, columnAtX(grid, 119999));
    EXPECT_EQ(-1, columnAtX(grid, 120000));
}

TEST(ColumnFinderTest, FindsNothingInAGridWithoutColumns) {
    const RowStore grid;
    EXPECT_EQ(-1, columnAtX(grid, 0));
    EXPECT_EQ(-1, neighbourColumn(grid, 0, 1));
    EXPECT_EQ(-1, neighbourColumn(grid, 0, -1));
}

TEST(ColumnFinderTest, StepsOverColumnThree) {
    const RowStore grid = gridOf({100, 100, 100, 100});
    const std::vector<std::array<int, 3>> table = {// x, column to the left, column to the right
                                                   {-1, 1, 1},  {0, 1, 2},   {99, 1, 2},  {100, 1, 4},
                                                   {199, 1, 4}, {200, 2, 4}, {299, 2, 4}, {300, 2, 4},
                                                   {399, 2, 4}, {400, 4, 4}, {900, 4, 4}};
    for (const auto& [x, left, right] : table) {
        EXPECT_EQ(left, neighbourColumn(grid, x, -1)) << x;
        EXPECT_EQ(right, neighbourColumn(grid, x, 1)) << x;
    }
}

TEST(ColumnFinderTest, StopsBeforeColumnThreeIfItIsTheLast) {
    const RowStore grid = gridOf({100, 100, 100});
    EXPECT_EQ(2, neighbourColumn(grid, 50, 1));
    EXPECT_EQ(2, neighbourColumn(grid, 150, 1));
    EXPECT_EQ(2, neighbourColumn(grid, 250, 1));
    EXPECT_EQ(2, neighbourColumn(grid, 250, -1));
    EXPECT_EQ(1, neighbourColumn(grid, 150, -1));
}

}  // namespace
