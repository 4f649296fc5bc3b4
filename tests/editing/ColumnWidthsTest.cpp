#include "editing/ColumnWidths.h"
#include "editing/EditingFixture.h"

namespace {

using enum ListKind;

class ColumnWidthsTest : public EditingFixture {
protected:
    void resize(double width) {
        view(Drm).shape.width = width;
        widths.resized(Drm);
    }
    double firstWidth() { return grid(Drm).columns()[0].width; }

    ColumnWidths widths{lists};
};

TEST_F(ColumnWidthsTest, FollowTheWindow) {
    resize(9000);
    EXPECT_EQ(firstWidth(), 1800);
    EXPECT_EQ(grid(Drm).columns()[3].width, 3000);
    resize(3000);
    EXPECT_EQ(firstWidth(), 600);
}

TEST_F(ColumnWidthsTest, ADraggedColumnStaysUntilTheNextEdit) {
    resize(9000);
    grid(Drm).columnDragged(1, 2500);
    widths.dragged(Drm);
    resize(6000);
    EXPECT_EQ(firstWidth(), 2500);
    widths.standardise(Drm);
    EXPECT_EQ(firstWidth(), 1200);
    resize(9000);
    EXPECT_EQ(firstWidth(), 1800);
}

TEST_F(ColumnWidthsTest, AScrollBarThatAppearsDuringADragChangesNothing) {
    resize(9000);
    grid(Drm).columnDragged(1, 8000);
    widths.resized(Drm);  // a scroll bar reduces the space for the rows, not the size of the grid
    EXPECT_EQ(firstWidth(), 8000);
}

TEST_F(ColumnWidthsTest, EachListIsIndependent) {
    widths.dragged(Am);
    resize(9000);
    EXPECT_EQ(firstWidth(), 1800);
}

}  // namespace
