#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/Text.h"
#include "storage/stations/Bands.h"

TEST(BandsTest, ThreeRulesDifferAtTheirBounds) {
    struct Case {
        double frequency;
        std::string loaded, edited, added;
    };
    const std::vector<Case> table = {{150, "LW", "LW", "LW"},   {288, "LW", "LW", "LW"},  {522, "MW", "MW", "MW"},
                                     {1709, "MW", "MW", "MW"},  {1710, "SW", "MW", "SW"}, {1711, "SW", "SW", "SW"},
                                     {29999, "SW", "SW", "SW"}, {30000, "SW", "SW", ""}};
    for (const auto& [frequency, loaded, edited, added] : table) {
        EXPECT_EQ(narrow(Bands::ofLoadedRecord(frequency)), loaded) << frequency;
        EXPECT_EQ(narrow(Bands::ofEditedCell(frequency)), edited) << frequency;
        EXPECT_EQ(narrow(Bands::ofNewRecord(frequency)), added) << frequency;
    }
}

TEST(BandsTest, ALoadedRecordMayHaveAnyFrequency) {
    EXPECT_EQ(narrow(Bands::ofLoadedRecord(0)), "LW");
    EXPECT_EQ(narrow(Bands::ofLoadedRecord(-5)), "LW");
    EXPECT_EQ(narrow(Bands::ofLoadedRecord(289)), "");
    EXPECT_EQ(narrow(Bands::ofLoadedRecord(521)), "");
    EXPECT_EQ(narrow(Bands::ofLoadedRecord(99999)), "SW");
}

TEST(BandsTest, ANewRecordOutsideTheBandsHasNone) {
    for (const double frequency : {149, 289, 521, 30001}) {
        EXPECT_EQ(narrow(Bands::ofNewRecord(frequency)), "") << frequency;
    }
}
