#include <gtest/gtest.h>

#include "fakes/FakeControls.h"
#include "fakes/Text.h"
#include "messages/Totals.h"
#include "storage/stations/RowStore.h"

namespace {

class TotalsTest : public testing::Test {
protected:
    TotalsTest() {
        for (int tab = 0; tab < 4; ++tab) {
            for (int row = 0; row < 10 * tab + 2; ++row) {
                grids[static_cast<std::size_t>(tab)].appendRow({u"station"});
            }
        }
    }
    std::string message() const { return narrow(statusBar.message); }

    std::array<RowStore, 4> grids;
    FakeTabControl tabs;
    FakeStatusBar statusBar;
    Totals totals{tabs, statusBar, {&grids[0], &grids[1], &grids[2], &grids[3]}};
};

TEST_F(TotalsTest, EachTabHasItsLabelFollowedByItsCount) {
    const std::array<std::string, 4> expected = {"Total Number Of DRM List: 2", "Total Number Of AM List: 12",
                                                 "Total Number Of FM List: 22", "Total Number Of Favourite List: 32"};
    for (int tab = 0; tab < 4; ++tab) {
        tabs.tab = tab;
        totals.ShowTotals();
        EXPECT_EQ(message(), expected[static_cast<std::size_t>(tab)]);
    }
}

TEST_F(TotalsTest, AnEmptyListHasZero) {
    grids[0].clear();
    totals.ShowTotals();
    EXPECT_EQ(message(), "Total Number Of DRM List: 0");
}

TEST_F(TotalsTest, ATabOutsideTheFourKeepsTheStatusBar) {
    statusBar.setMessage(u"hint");
    for (const int tab : {-1, 4, 99}) {
        tabs.tab = tab;
        totals.ShowTotals();
        totals.showTotalOf(tab);
    }
    EXPECT_EQ(message(), "hint");
    EXPECT_EQ(statusBar.history.size(), 1U);
}

TEST_F(TotalsTest, OnlyTheCurrentTabIsShown) {
    tabs.tab = 1;
    totals.ShowTotals();
    grids[2].appendRow({u"station"});
    EXPECT_EQ(message(), "Total Number Of AM List: 12");
    EXPECT_EQ(statusBar.history.size(), 1U);
    tabs.tab = 2;
    totals.ShowTotals();
    EXPECT_EQ(message(), "Total Number Of FM List: 23");
}

TEST_F(TotalsTest, TheTotalIsNotUpdatedUntilShownAgain) {
    totals.ShowTotals();
    grids[0].appendRow({u"station"});
    EXPECT_EQ(message(), "Total Number Of DRM List: 2");
    totals.ShowTotals();
    EXPECT_EQ(message(), "Total Number Of DRM List: 3");
}

TEST_F(TotalsTest, TheTotalOfAnotherTabCanBeShown) {
    tabs.tab = 0;
    totals.showTotalOf(3);
    EXPECT_EQ(message(), "Total Number Of Favourite List: 32");
}

}  // namespace
