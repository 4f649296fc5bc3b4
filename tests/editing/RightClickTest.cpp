#include "editing/CellEditingFixture.h"
#include "editing/RightClick.h"

namespace {

using enum ListKind;

class RightClickTest : public CellEditingFixture {
protected:
    RightClickTest() {
        for (int i = 0; i < 4; ++i) {
            addDrmRow();
        }
        select(Drm, 1);
        select(Drm, 3);
        view(Drm).calls.clear();
    }
    std::vector<int> selected() {
        std::vector<int> rows;
        for (int row = 1; row <= grid(Drm).rowCount(); ++row) {
            if (grid(Drm).isSelected(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    RightClick rightClick{lists, editing};
};

TEST_F(RightClickTest, SelectsAnUnselectedRowAlone) {
    rightClick.pressed(Drm, 2, 100);
    EXPECT_EQ(selected(), (std::vector{2}));
    EXPECT_EQ(view(Drm).focusedRow, 2);
}

TEST_F(RightClickTest, KeepsTheSelectionOnASelectedRowAndOnEmptySpace) {
    rightClick.pressed(Drm, 3, 100);
    rightClick.pressed(Drm, 0, 100);
    EXPECT_EQ(selected(), (std::vector{1, 3}));
    EXPECT_TRUE(view(Drm).calls.empty());
}

TEST_F(RightClickTest, TheMenuWorksOnTheColumnOfThePress) {
    rightClick.pressed(Drm, 3, kDrmFrequencyX);
    editing.setLastMouseX(kDrmTargetX, 0);  // the pointer moves before the release
    rightClick.menuOpens();
    EXPECT_EQ(edit.lastMouseX, kDrmFrequencyX);
}

}  // namespace
