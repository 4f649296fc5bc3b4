#include <gtest/gtest.h>

#include "fakes/FakeGridView.h"
#include "storage/stations/ListColumns.h"
#include "storage/stations/RowStore.h"

TEST(ListColumnsTest, AListThatNoWindowShowsHasItsColumns) {
    RowStore rows;
    StationList list(ListKind::Drm, rows);
    addListColumns(list);
    ASSERT_EQ(rows.columns().size(), 4U);
    EXPECT_EQ(rows.columns()[3].caption, u"Target");
}

TEST(ListColumnsTest, AListInAWindowHasItsStandardWidths) {
    FakeGridView view;
    view.shape.width = 3000;
    RowStore rows(view);
    StationList list(ListKind::Drm, rows, view);
    addListColumns(list);
    ASSERT_EQ(rows.columns().size(), 4U);
    EXPECT_EQ(rows.columns()[0].width, 600);
    EXPECT_EQ(rows.columns()[3].width, 1000);
}
