#include "editing/CellEditingFixture.h"

namespace {

class CellEditingTest : public CellEditingFixture {};

using enum ListKind;

TEST_F(CellEditingTest, RoundsThePointerPositionHalfToEven) {
    const std::vector<std::pair<double, int>> table = {{0.5, 0},         {1.5, 2},       {2.5, 2},
                                                       {-0.5, 0},        {-1.5, -2},     {99.4, 99},
                                                       {32767.6, 32768}, {57600, 57600}, {-40000, -40000}};
    for (const auto& [x, expected] : table) {
        editing.setLastMouseX(x, 5);
        EXPECT_EQ(expected, edit.lastMouseX) << x;
    }
}

TEST_F(CellEditingTest, PlacesTheBoxOverTheCell) {
    addDrmRow();
    addDrmRow();
    start(Drm, kDrmFrequencyX, 2);
    EXPECT_TRUE(box.visible);
    EXPECT_TRUE(editing.isEditing());
    EXPECT_EQ(2, edit.editRow);
    EXPECT_EQ(2, edit.editColumn);
    EXPECT_EQ(1200, edit.editCellWidth);
    EXPECT_EQ(1200, edit.editCellLeft);
    EXPECT_EQ(120 + 60 + 0 + 1200 + 50, box.bounds[0]);  // tab control, grid, row, cell
    EXPECT_EQ(300 + 285 + 255 + 145, box.bounds[1]);     // grid, row; not the tab control
    EXPECT_EQ(1200, box.bounds[2]);
    EXPECT_EQ(4000.0 / 15, box.bounds[3]);  // 15 whole rows of 255 twips
    EXPECT_EQ(u"9620", box.content);
    EXPECT_EQ(1, box.focusCount);
    EXPECT_EQ(u"Press 'Enter' Key To Save Modify", statusBar.message);
}

TEST_F(CellEditingTest, OpensTheColumnUnderThePointerInAHorizontallyScrolledGrid) {
    addDrmRow();
    view(Drm).shape.rowLeft = -400;
    start(Drm, 850);  // 1,250 within the row
    EXPECT_EQ(edit.editColumn, kFrequencyColumn);
    EXPECT_EQ(120 + 60 - 400 + 1200 + 50, box.bounds[0]);
}

TEST_F(CellEditingTest, TheArrowKeysCountFromTheScrolledRow) {
    addDrmRow();
    view(Drm).shape.rowLeft = -400;
    editing.setLastMouseX(0, 0);
    editing.moveColumn(Drm, 1);
    EXPECT_EQ(edit.lastMouseX, 1800 - 400);
}

TEST_F(CellEditingTest, EditsTheLastColumnOfTheWidestScreen) {
    addDrmRow();
    view(Drm).shape.width = 3840 * 15;
    start(Drm, 50000);
    EXPECT_EQ(edit.editColumn, kTargetColumn);
    EXPECT_EQ(box.bounds[0], 120 + 60 + 34560 + 50);
    EXPECT_EQ(box.bounds[2], 19200);
}

TEST_F(CellEditingTest, CountsALastRowThatJustFits) {
    addDrmRow();
    view(Drm).shape.height = 15 * view(Drm).shape.rowHeight;
    start(Drm, kDrmFrequencyX);
    EXPECT_EQ(view(Drm).shape.rowHeight, box.bounds[3]);
}

TEST_F(CellEditingTest, MakesTheBoxAsTallAsAGridThatHoldsNoWholeRow) {
    addDrmRow();
    view(Drm).shape.height = 200;
    start(Drm, kDrmFrequencyX);
    EXPECT_EQ(200, box.bounds[3]);
    editing.hideEditBox();
    view(Drm).shape.rowHeight = 0;
    editing.startEdit(Drm);
    EXPECT_EQ(200, box.bounds[3]);
}

TEST_F(CellEditingTest, OpensTheEditableColumnsWithTheirTextsAndLimits) {
    struct Case {
        ListKind kind;
        double x;
        int column;
        std::u16string text;
        int limit;
    };
    addDrmRow();
    addRow(Am, {u"Medium", u"999", u"MW"});
    addRow(Fm, {u"Music", u"87.5", u"VHF"});
    addRow(Favourite, {u"Loved", u"9620  kHz", u"DRM"});
    for (const Case& c : std::vector<Case>{{Drm, 0, 1, u"Voice", 10},
                                           {Drm, kDrmFrequencyX, 2, u"9620", 5},
                                           {Drm, kDrmTargetX, 4, u"Europe", 10},
                                           {Am, 0, 1, u"Medium", 10},
                                           {Am, kFrequencyX, 2, u"999", 5},
                                           {Fm, 0, 1, u"Music", 10},
                                           {Fm, kFrequencyX, 2, u"87.5", 6},
                                           {Favourite, 0, 1, u"Loved", 10},
                                           {Favourite, kFrequencyX, 2, u"9620", 5}}) {
        start(c.kind, c.x);
        EXPECT_TRUE(box.visible);
        EXPECT_EQ(c.column, edit.editColumn);
        EXPECT_EQ(narrow(c.text), narrow(box.content));
        EXPECT_EQ(c.limit, box.limit);
        editing.hideEditBox();
    }
}

TEST_F(CellEditingTest, LimitsAnFmFavouriteToFiveCharacters) {
    addRow(Favourite, {u"Music", u"98.1  MHz", u"FM"});
    start(Favourite, kFrequencyX);
    EXPECT_EQ(u"98.1", box.content);
    EXPECT_EQ(5, box.limit);
}

TEST_F(CellEditingTest, SetsTheLimitOfTheTargetAfterAnFmFrequency) {
    addRow(Fm, {u"Music", u"87.5", u"VHF"});
    addDrmRow();
    start(Fm, kFrequencyX);
    EXPECT_EQ(6, box.limit);
    editing.commit();
    start(Drm, kDrmTargetX);
    EXPECT_EQ(10, box.limit);
}

TEST_F(CellEditingTest, NeverOpensColumnThree) {
    addDrmRow();
    addRow(Am, {u"Medium", u"999", u"MW"});
    addRow(Fm, {u"Music", u"87.5", u"VHF"});
    addRow(Favourite, {u"Loved", u"9620  kHz", u"DRM"});
    statusBar.message = u"before";
    box.limit = 33;
    for (const ListKind kind : kAllLists) {
        start(kind, kind == Drm ? kDrmTimeX : kThirdX);
        EXPECT_EQ(3, edit.editColumn);
        EXPECT_FALSE(box.visible);
        EXPECT_FALSE(editing.isEditing());
    }
    EXPECT_EQ(33, box.limit);
    EXPECT_EQ(u"before", statusBar.message);
}

TEST_F(CellEditingTest, OpensNothingOutsideTheColumns) {
    addDrmRow();
    for (const double x : {-1.0, 5600.0, 30000.0}) {
        start(Drm, x);
        EXPECT_EQ(-1, edit.editColumn);
        EXPECT_EQ(-1, edit.editCellWidth);
        EXPECT_FALSE(box.visible);
    }
    EXPECT_TRUE(statusBar.history.empty());
}

TEST_F(CellEditingTest, DoesNothingWithoutASelectedRow) {
    addDrmRow();
    grid(Drm).setColumnWidth(1, 3000);
    editing.setLastMouseX(10, 10);
    for (const ListKind kind : kAllLists) {
        editing.startEdit(kind);
    }
    EXPECT_EQ(-1, edit.editColumn);
    EXPECT_EQ(3000, grid(Drm).columns()[0].width);
    EXPECT_FALSE(box.visible);
}

TEST_F(CellEditingTest, EditsTheFirstOfSeveralSelectedRows) {
    addDrmRow();
    addRow(Drm, {u"Second"});
    addRow(Drm, {u"Third"});
    select(Drm, 3);
    start(Drm, 0, 2);
    EXPECT_EQ(2, edit.editRow);
    EXPECT_EQ(u"Second", box.content);
}

TEST_F(CellEditingTest, SnapsDraggedColumnsBackBeforeFindingTheColumn) {
    addDrmRow();
    grid(Drm).columnDragged(1, 3000);
    start(Drm, kDrmFrequencyX);
    EXPECT_EQ(1200, grid(Drm).columns()[0].width);
    EXPECT_EQ(2, edit.editColumn);
    EXPECT_EQ(u"9620", box.content);
}

TEST_F(CellEditingTest, StoresAFavouriteFrequencyWithItsUnitAgain) {
    addRow(Favourite, {u"Loved", u"9620  kHz", u"DRM"});
    start(Favourite, kFrequencyX);
    EXPECT_EQ(u"9620", box.content);
    box.content = u"9630";
    editing.commit();
    EXPECT_EQ("Loved|9630  kHz|DRM", rowText(Favourite, 1));
}

TEST_F(CellEditingTest, OpensAFavouriteCellShorterThanItsUnitEmpty) {
    addRow(Favourite, {u"Loved", u"kHz", u"DRM"});
    start(Favourite, kFrequencyX);
    EXPECT_TRUE(box.visible);
    EXPECT_EQ(u"", box.content);
}

TEST_F(CellEditingTest, KeepsATextLongerThanTheLimit) {
    const std::u16string programme = u"abcdefghijklmnopqrstuvwxyz";
    addRow(Drm, {programme, u"9620", u"", u""});
    start(Drm, 0);
    EXPECT_EQ(programme, box.content);
    editing.commit();
    EXPECT_EQ(programme, grid(Drm).text(1, 1));
}

TEST_F(CellEditingTest, ArrowKeysSelectTheColumnThatEnterEdits) {
    addDrmRow();
    select(Drm, 1);
    const std::vector<std::pair<int, int>> steps = {{1, 2}, {1, 4}, {1, 4}, {-1, 2}, {-1, 1}, {-1, 1}};
    for (const auto& [step, expected] : steps) {
        editing.moveColumn(Drm, step);
        editing.startEdit(Drm);
        EXPECT_EQ(expected, edit.editColumn);
        editing.hideEditBox();
    }
    EXPECT_EQ(600, edit.lastMouseX);
}

TEST_F(CellEditingTest, ArrowKeysStopBeforeTheThirdColumnOfTheOtherLists) {
    for (const ListKind kind : {Am, Fm, Favourite}) {
        editing.setLastMouseX(100, 0);
        editing.moveColumn(kind, 1);
        EXPECT_EQ(1935 + 1935 / 2, edit.lastMouseX);
        editing.moveColumn(kind, 1);
        EXPECT_EQ(1935 + 1935 / 2, edit.lastMouseX);
    }
}

TEST_F(CellEditingTest, ArrowKeysUseTheWidthsOfTheEdit) {
    addDrmRow();
    select(Drm, 1);
    grid(Drm).columnDragged(1, 4000);
    editing.setLastMouseX(100, 0);
    editing.moveColumn(Drm, 1);
    EXPECT_EQ(4000, grid(Drm).columns()[0].width);  // snaps back when the edit starts, not before
    editing.startEdit(Drm);
    EXPECT_EQ(2, edit.editColumn);
}

}  // namespace
