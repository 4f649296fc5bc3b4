#include <gtest/gtest.h>

#include <string>

#include "fakes/Text.h"
#include "storage/lists/ListFile.h"

TEST(ListFileTest, NamesTheRecordsAndCountsOfEachList) {
    EXPECT_EQ(narrow(RecordSection(ListKind::Drm).of(0)), "DRMSchedule0");
    EXPECT_EQ(narrow(RecordSection(ListKind::Am).of(10)), "AMSchedule10");
    EXPECT_EQ(narrow(RecordSection(ListKind::Fm).of(255)), "FMSchedule255");
    RecordSection favourites(ListKind::Favourite);
    EXPECT_EQ(narrow(favourites.of(100)), "FAVSchedule100");
    EXPECT_EQ(narrow(favourites.of(1)), "FAVSchedule1") << "one buffer for all";
    EXPECT_EQ(narrow(ListFile::countKey(ListKind::Drm)), "drmnumber");
    EXPECT_EQ(narrow(ListFile::countKey(ListKind::Am)), "amnumber");
    EXPECT_EQ(narrow(ListFile::countKey(ListKind::Fm)), "fmnumber");
    EXPECT_EQ(narrow(ListFile::countKey(ListKind::Favourite)), "favnumber");
}

TEST(ListFileTest, NamesARecordWhateverWasNamedBefore) {
    RecordSection section(ListKind::Am);
    for (int index = 0; index < 2100; ++index) {
        ASSERT_EQ(narrow(section.of(index)), "AMSchedule" + std::to_string(index));
    }
    for (const int index : {5, 5, 6, 8, 7, 9, 10, 0, 1}) {
        ASSERT_EQ(narrow(section.of(index)), "AMSchedule" + std::to_string(index));
    }
}
