#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <utility>

#include "fakes/FakeGridView.h"
#include "storage/stations/RowStore.h"

namespace {

using Calls = std::vector<std::string>;

TEST(RowStoreTest, RowsAndColumnsAreOneBasedAndAnythingOutsideIsEmpty) {
    RowStore rows;
    rows.appendRow({u"a", u"b"});
    EXPECT_EQ(rows.text(1, 1), u"a");
    EXPECT_EQ(rows.text(1, 2), u"b");
    EXPECT_EQ(rows.text(1, 3), u"");
    EXPECT_EQ(rows.text(0, 1), u"");
    EXPECT_EQ(rows.text(2, 1), u"");
    EXPECT_EQ(rows.text(1, 0), u"");
    EXPECT_EQ(rows.text(1, 5), u"");
    rows.setText(2, 1, u"lost");
    rows.setText(1, 5, u"lost");
    EXPECT_EQ(rows.rowCount(), 1);
}

TEST(RowStoreTest, MissingColumnsAreNeitherResizedNorDragged) {
    RowStore rows;
    rows.addColumn(u"Programme", u"PROG", 100);
    rows.setColumnWidth(1, 150);
    for (const int column : {0, 2}) {
        rows.setColumnWidth(column, 300);
        rows.columnDragged(column, 300);
    }
    ASSERT_EQ(rows.columns().size(), 1U);
    EXPECT_EQ(rows.columns()[0].width, 150);
    EXPECT_FALSE(rows.isSelected(1));
}

TEST(RowStoreTest, EveryChangeOfARowIsCounted) {
    RowStore rows;
    std::uint64_t last = rows.changes();
    const auto grew = [&] { return rows.changes() > std::exchange(last, rows.changes()); };
    rows.appendRow({u"a"});
    EXPECT_TRUE(grew());
    rows.setText(1, 1, u"b");
    EXPECT_TRUE(grew());
    rows.setSelected(1, true);
    rows.addColumn(u"Programme", u"PROG", 100);
    EXPECT_FALSE(grew()) << "no row has changed";
    rows.removeSelectedRows();
    EXPECT_TRUE(grew());
    rows.clear();
    EXPECT_TRUE(grew());
}

TEST(RowStoreTest, RemovingSelectedRowsKeepsTheOthersInOrder) {
    RowStore rows;
    for (const char16_t* name : {u"1", u"2", u"3", u"4", u"5", u"6"}) {
        rows.appendRow({name});
    }
    for (const int row : {2, 5, 6}) {
        rows.setSelected(row, true);
    }
    rows.removeSelectedRows();
    ASSERT_EQ(rows.rowCount(), 3);
    EXPECT_EQ(rows.text(1, 1), u"1");
    EXPECT_EQ(rows.text(2, 1), u"3");
    EXPECT_EQ(rows.text(3, 1), u"4");
    EXPECT_EQ(rows.firstSelected(), 0);
}

TEST(RowStoreTest, PartsOfAnExpectedTextAreNotCopied) {
    const SharedText text{std::u16string(u"Programme=Radio;Frequency=6000")};
    const std::u16string_view programme = text.view().substr(10, 5);
    RowStore rows;
    rows.expectRows(1, text);
    rows.appendRow({programme, u"own", text.view().substr(30)});
    EXPECT_EQ(rows.text(1, 1).data(), programme.data());
    EXPECT_EQ(rows.text(1, 2), u"own");
    EXPECT_EQ(rows.text(1, 3), u"");
    rows.setText(1, 1, u"edited");
    EXPECT_EQ(rows.text(1, 1), u"edited");
    EXPECT_EQ(text.view(), u"Programme=Radio;Frequency=6000");
}

TEST(RowStoreTest, RowsOfAnEarlierTextSurviveTheNextExpectRows) {
    RowStore rows;
    for (const char16_t* content : {u"one", u"seven"}) {
        const SharedText text{std::u16string(content)};
        rows.expectRows(1, text);
        rows.appendRow({text.view(), u"own"});
    }
    EXPECT_EQ(rows.text(1, 1), u"one");
    EXPECT_EQ(rows.text(1, 2), u"own");
    EXPECT_EQ(rows.text(2, 1), u"seven");
    EXPECT_EQ(rows.text(2, 2), u"own");
}

// What no cell holds any more makes room for what comes, over and over.
TEST(RowStoreTest, TextsSurviveManyEditsAndDeletions) {
    RowStore rows;
    const SharedText text{std::u16string(u"loaded")};
    rows.expectRows(2, text);
    rows.appendRow({text.view(), u"kept"});
    rows.appendRow({u"edited"});
    std::u16string longer;
    for (int edit = 0; edit < 1000; ++edit) {
        longer += u'x';
        rows.setText(2, 3, longer);
        rows.appendRow({rows.text(1, 2), rows.text(2, 3)});
        ASSERT_EQ(rows.text(3, 1), u"kept");
        ASSERT_EQ(rows.text(3, 2), longer) << "a row may be made of texts of the same grid";
        rows.setSelected(3, true);
        rows.removeSelectedRows();
    }
    EXPECT_EQ(rows.text(1, 1), u"loaded");
    EXPECT_EQ(rows.text(1, 2), u"kept");
    EXPECT_EQ(rows.text(2, 1), u"edited");
    EXPECT_EQ(rows.text(2, 3), longer);
    rows.clear();
    rows.appendRow({u"a"});
    EXPECT_EQ(rows.text(1, 1), u"a");
}

TEST(RowStoreTest, AnUpdateOfManyRowsResetsTheViewOnce) {
    FakeGridView view;
    RowStore rows(view);
    {
        const GridUpdate outer(rows);
        const GridUpdate inner(rows);
        rows.appendRow({u"a"});
        rows.appendRow({u"b"});
        rows.setText(1, 1, u"c");
        rows.clear();
    }
    EXPECT_EQ(view.calls, (Calls{"beforeReset", "afterReset"}));
}

TEST(RowStoreTest, SingleChangesReachTheView) {
    FakeGridView view;
    RowStore rows(view);
    rows.appendRow({u"a"});
    rows.setText(1, 1, u"b");
    EXPECT_EQ(view.calls, (Calls{"beforeAppend", "afterAppend", "cellChanged"}));
}

TEST(RowStoreTest, AColumnKeepsTheWidthThatTheViewShows) {
    class RoundingView : public FakeGridView {
        double showColumnWidth(int, double) override { return 1500; }
    } view;
    RowStore rows(view);
    rows.addColumn(u"Programme", u"PROG", 1440);
    EXPECT_EQ(rows.columns().at(0).width, 1500);
    rows.columnDragged(1, 900);
    EXPECT_EQ(rows.columns().at(0).width, 900);
}

}  // namespace
