#include <gtest/gtest.h>

#include <utility>

#include "ctl/Duplicates.h"

namespace {

using Pairs = std::vector<std::pair<int, int>>;

// The rows of the AM list of a file, each with the first row that is the same.
Pairs duplicatesOf(std::u16string text, int rowCount) {
    IniReader file(std::move(text));
    ListRecords records(file, ListKind::Am);
    Duplicates duplicates(rowCount);
    for (int row = 1; row <= rowCount; ++row) {
        duplicates.add(row, records.cells(row - 1));
    }
    Pairs pairs;
    for (const Duplicates::Pair& pair : duplicates.find(records)) {
        pairs.emplace_back(pair.row, pair.first);
    }
    return pairs;
}

}  // namespace

TEST(DuplicatesTest, EachIsPairedWithTheFirst) {
    EXPECT_EQ(duplicatesOf(u"[AMSchedule0]\nProgramme=A\nFrequency=999\n[AMSchedule1]\nProgramme=B\nFrequency=999\n"
                           u"[AMSchedule2]\nFrequency=999\nProgramme=A\n[AMSchedule3]\nProgramme=B\nFrequency=999\n"
                           u"[AMSchedule4]\nProgramme=A\nFrequency=999\n",
                           5),
              (Pairs{{3, 1}, {4, 2}, {5, 1}}));
}

TEST(DuplicatesTest, RecordsThatDifferInOneFieldAreNone) {
    EXPECT_EQ(duplicatesOf(u"[AMSchedule0]\nProgramme=A\nFrequency=999\n[AMSchedule1]\nProgramme=A\nFrequency=998\n"
                           u"[AMSchedule2]\nProgramme=a\nFrequency=999\n[AMSchedule3]\nProgramme=A9\nFrequency=99\n",
                           4),
              Pairs());
}

TEST(DuplicatesTest, MissingRecordsAreTheSame) { EXPECT_EQ(duplicatesOf(u"", 3), (Pairs{{2, 1}, {3, 1}})); }

TEST(DuplicatesTest, AnEqualHashOfOtherCellsIsNoDuplicate) {
    IniReader file(u"[AMSchedule0]\nProgramme=A\n[AMSchedule1]\nProgramme=B\n[AMSchedule2]\nProgramme=A\n");
    ListRecords records(file, ListKind::Am);
    Duplicates duplicates(3);
    for (int row = 1; row <= 3; ++row) {
        duplicates.add(row, {});  // no cells: one hash for all
    }
    const auto pairs = duplicates.find(records);
    ASSERT_EQ(pairs.size(), 1U);
    EXPECT_EQ(pairs.front().row, 3);
    EXPECT_EQ(pairs.front().first, 1);
}
