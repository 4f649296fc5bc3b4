#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/Text.h"
#include "storage/lists/ListRecords.h"

namespace {

std::vector<std::string> cellsOf(ListRecords& records, int index) {
    std::vector<std::string> cells;
    for (const std::u16string_view cell : records.cells(index)) {
        cells.push_back(narrow(cell));
    }
    return cells;
}

using Cells = std::vector<std::string>;

}  // namespace

TEST(ListRecordsTest, CellsAreInTheOrderOfTheColumns) {
    IniReader file(
        u"[Total]\ndrmnumber=1\namnumber=1\n[DRMSchedule0]\nFrequency=6095\nProgramme=A\n"
        u"StartStopTimeUTC=07:00-16:00\nTarget=Europe\n[AMSchedule0]\nFrequency=198\nProgramme=B\n");
    ListRecords drm(file, ListKind::Drm);
    EXPECT_EQ(drm.count(), 1);
    EXPECT_EQ(cellsOf(drm, 0), (Cells{"A", "6095", "07:00-16:00", "Europe"}));
    ListRecords am(file, ListKind::Am);
    EXPECT_EQ(cellsOf(am, 0), (Cells{"B", "198", "LW"}));
}

TEST(ListRecordsTest, FrequenciesAreInTheUnitOfTheList) {
    IniReader list(u"[FMSchedule0]\nFrequency=98500\nProgramme=A\n");
    ListRecords fm(list, ListKind::Fm);
    EXPECT_EQ(cellsOf(fm, 0), (Cells{"A", "98.5", "VHF"}));
    IniReader user(u"[FAVSchedule0]\nTYPE=FM\nFrequency=98500\n[FAVSchedule1]\nTYPE=DRM\nFrequency=6095\n");
    ListRecords favourites(user, ListKind::Favourite);
    EXPECT_EQ(cellsOf(favourites, 0), (Cells{"", "98.5  MHz", "FM"}));
    EXPECT_EQ(cellsOf(favourites, 1), (Cells{"", "6095  kHz", "DRM"}));
}

TEST(ListRecordsTest, AMissingSectionGivesTheCellsOfEmptyTexts) {
    IniReader file(u"[Total]\namnumber=2\n[AMSchedule1]\nFrequency=999\nProgramme=B\n");
    ListRecords am(file, ListKind::Am);
    EXPECT_EQ(cellsOf(am, 0), (Cells{"", "", "LW"}));
    EXPECT_EQ(cellsOf(am, 1), (Cells{"B", "999", "MW"}));
    EXPECT_EQ(cellsOf(am, 0), (Cells{"", "", "LW"})) << "in any order";
}

TEST(ListRecordsTest, TheCountHasSixteenBits) {
    IniReader file(u"[Total]\ndrmnumber=32768\namnumber=-3\nfmnumber=x\n");
    EXPECT_EQ(ListRecords(file, ListKind::Drm).count(), std::nullopt);
    EXPECT_EQ(ListRecords(file, ListKind::Am).count(), -3);
    EXPECT_EQ(ListRecords(file, ListKind::Fm).count(), 0);
}
