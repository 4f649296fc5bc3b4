#include <gtest/gtest.h>

#include "contract/Backend.h"
#include "contract/IgnoreGridEvents.h"
#include "fakes/Text.h"
#include "storage/stations/RowStore.h"

namespace {

class LastPointer : public IgnoreGridEvents {
public:
    void pointerMoved(double movedTo, double) override { x = movedTo; }
    double x = 0;  // twips
};

class GridViewContract : public testing::Test {
protected:
    GridViewContract() {
        probe->view().attach(rows, listener);
        rows.addColumn(u"Programme", u"PROG", 3000);
        rows.addColumn(u"Frequency(kHz)", u"FREQ", 2000);
    }

    // The view is destroyed before its grid and its listener.
    ~GridViewContract() override { probe.reset(); }

    // Compares the cells shown with the cells of the grid.
    void expectSame() {
        ASSERT_EQ(probe->shownRows(), rows.rowCount());
        for (int row = 1; row <= rows.rowCount(); ++row) {
            EXPECT_EQ(probe->shownSelected(row), rows.isSelected(row)) << "row " << row;
            for (int column = 1; column <= 2; ++column) {
                EXPECT_EQ(narrow(probe->shownText(row, column)), narrow(rows.text(row, column)));
            }
        }
    }
    void append(int count) {
        for (int i = 0; i < count; ++i) {
            const std::u16string number(1, static_cast<char16_t>(u'1' + rows.rowCount()));
            rows.appendRow({u"Radio " + number, number});
        }
    }

    std::unique_ptr<Backend> backend = makeBackend();
    LastPointer listener;
    std::unique_ptr<GridViewProbe> probe = backend->gridView();
    RowStore rows{probe->view()};
};

TEST_F(GridViewContract, ShowsSingleChangesAtOnce) {
    expectSame();
    append(3);
    expectSame();
    rows.setText(2, 1, u"Rádio Ω");
    rows.setText(3, 2, u"");
    expectSame();
}

TEST_F(GridViewContract, ShowsAnUpdateAtItsEnd) {
    append(2);
    {
        const GridUpdate update(rows);
        rows.clear();
        append(5);
        rows.setText(1, 1, u"first");
        rows.setSelected(4, true);
    }
    expectSame();
    rows.clear();
    expectSame();
}

TEST_F(GridViewContract, ReportsTheUsersSelectionToTheGrid) {
    append(6);
    probe->userSelects(2);
    EXPECT_EQ(rows.firstSelected(), 2);
    expectSame();
    probe->userExtendsTo(5);
    for (int row = 1; row <= 6; ++row) {
        EXPECT_EQ(rows.isSelected(row), row >= 2 && row <= 5) << row;
    }
    probe->userSelects(6);
    EXPECT_EQ(rows.firstSelected(), 6);
    expectSame();
}

TEST_F(GridViewContract, RemovedRowsTakeTheirSelectionWithThem) {
    append(6);
    probe->userSelects(2);
    probe->userExtendsTo(4);
    rows.removeSelectedRows();
    EXPECT_EQ(rows.rowCount(), 3);
    EXPECT_EQ(rows.firstSelected(), 0);
    expectSame();
    probe->userSelects(3);
    EXPECT_EQ(rows.firstSelected(), 3);
}

TEST_F(GridViewContract, AColumnKeepsTheShownWidth) {
    rows.setColumnWidth(1, 2222);
    const double width = rows.columns()[0].width;
    EXPECT_NEAR(width, 2222, 15);
    EXPECT_DOUBLE_EQ(width, probe->view().showColumnWidth(1, width));
}

TEST_F(GridViewContract, RowsAreBelowEachOther) {
    append(3);
    const GridGeometry none = probe->view().geometry(0);
    EXPECT_EQ(none.rowHeight, 0);
    EXPECT_GT(none.width, 0);
    EXPECT_GT(none.height, 0);
    const GridGeometry first = probe->view().geometry(1);
    const GridGeometry third = probe->view().geometry(3);
    EXPECT_GT(first.rowTop, 0);  // below the header
    EXPECT_GT(first.rowHeight, 0);
    EXPECT_DOUBLE_EQ(third.rowTop, first.rowTop + 2 * first.rowHeight);
    EXPECT_EQ(first.rowLeft, 0);
    EXPECT_EQ(first.width, none.width);
}

TEST_F(GridViewContract, ARowOutOfSightIsScrolledIntoView) {
    {
        const GridUpdate update(rows);
        for (int i = 0; i < 500; ++i) {
            rows.appendRow({u"Radio", u"1"});
        }
    }
    for (const int row : {500, 1, 250}) {
        const GridGeometry geometry = probe->view().geometry(row);
        EXPECT_GT(geometry.rowTop, 0) << row;
        EXPECT_LE(geometry.rowTop + geometry.rowHeight, geometry.height) << row;
    }
}

// Columns wider than the widest screen: positions beyond 32,767 twips.
class GridViewContractWide : public GridViewContract {
protected:
    static constexpr double kTwipsPerPixel = 15;

    GridViewContractWide() {
        append(1);
        rows.setColumnWidth(1, 60000);
    }
};

TEST_F(GridViewContractWide, TheGeometryFollowsAScrollToTheRight) {
    const int moved = probe->userScrollsToTheRight();
    EXPECT_GT(moved * kTwipsPerPixel, 32767);
    EXPECT_NEAR(probe->view().geometry(1).rowLeft, -moved * kTwipsPerPixel, kTwipsPerPixel);
}

TEST_F(GridViewContractWide, ThePointerIsReportedAtAnyDistance) {
    constexpr int kX = 3840;
    probe->userPointsAt(kX);
    EXPECT_NEAR(listener.x, kX * kTwipsPerPixel, kTwipsPerPixel);
}

}  // namespace
