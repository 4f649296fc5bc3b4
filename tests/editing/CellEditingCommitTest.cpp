#include "editing/CellEditingFixture.h"

namespace {

class CellEditingCommitTest : public CellEditingFixture {};

using enum ListKind;

TEST_F(CellEditingCommitTest, HidesTheBoxAndGivesTheFocusBack) {
    addRow(Am, {u"Medium", u"700", u"MW"});
    start(Am, kFrequencyX);
    box.content = u"6000";
    editing.commit();
    EXPECT_EQ("Medium|6000|SW", rowText(Am, 1));
    EXPECT_EQ(1, view(Am).focusCount);
    expectHidden();
}

TEST_F(CellEditingCommitTest, DoesNothingWhileHidden) {
    addDrmRow();
    start(Drm, 0);
    editing.hideEditBox();
    box.content = u"Left behind";
    editing.commit();
    EXPECT_EQ("Voice|9620|0000-2400|Europe", rowText(Drm, 1));
    EXPECT_EQ(0, view(Drm).focusCount);
}

TEST_F(CellEditingCommitTest, AnInvalidTextIsDiscardedAndTheBoxHidden) {
    addDrmRow();
    start(Drm, kDrmFrequencyX);
    box.content = u"149";
    messageBox.expect({u"Out of range: (150--30000) kHz"});
    editing.commit();
    EXPECT_EQ("Voice|9620|0000-2400|Europe", rowText(Drm, 1));
    expectHidden();
}

TEST_F(CellEditingCommitTest, CommitsOnceWhenTheMessageBoxTakesTheFocus) {
    addDrmRow();
    start(Drm, kDrmFrequencyX);
    box.content = u"12a";
    messageBox.expect({u"Please input (0-9)"});
    messageBox.whileShown = [this] {
        box.listener->lostFocus();
        editing.commit();
    };
    editing.commit();
    expectHidden();
    EXPECT_EQ(1U, messageBox.shown.size());
}

TEST_F(CellEditingCommitTest, TheBoxIsHiddenAfterTheMessage) {
    addDrmRow();
    start(Drm, kDrmFrequencyX);
    box.content = u"";
    bool visibleMeanwhile = false;
    messageBox.expect({u"Input can't be empty"});
    messageBox.whileShown = [&] { visibleMeanwhile = box.visible; };
    editing.commit();
    EXPECT_TRUE(visibleMeanwhile);
    expectHidden();
}

TEST_F(CellEditingCommitTest, HidingDiscardsAlthoughTheBoxLosesTheFocus) {
    typeOverProgramme();
    tabs.tab = 1;  // a tab switch hides the box
    editing.hideEditBox();
    EXPECT_EQ("Voice|9620|0000-2400|Europe", rowText(Drm, 1));
    expectHidden();
}

TEST_F(CellEditingCommitTest, AClickOnARowHidesTheBoxAndShowsAHint) {
    typeOverProgramme();
    editing.itemClicked();
    EXPECT_EQ("Voice|9620|0000-2400|Europe", rowText(Drm, 1));
    EXPECT_EQ(u"Press 'Delete' Key To Delete ", statusBar.message);
    expectHidden();
}

TEST_F(CellEditingCommitTest, AClickOnAnotherRowCommitsByTheLossOfFocusBeforeIt) {
    typeOverProgramme();
    editing.commit();
    editing.itemClicked();
    EXPECT_EQ("Typed|9620|0000-2400|Europe", rowText(Drm, 1));
    EXPECT_EQ(u"Press 'Delete' Key To Delete ", statusBar.message);
}

TEST_F(CellEditingCommitTest, ASecondOneDoesNothing) {
    typeOverProgramme();
    editing.commit();
    EXPECT_EQ("Typed|9620|0000-2400|Europe", rowText(Drm, 1));
    expectHidden();
    editing.commit();
    EXPECT_EQ(1, view(Drm).focusCount);
}

TEST_F(CellEditingCommitTest, ViewChangesAtTheStartOfAnEditDoNotEndIt) {
    addDrmRow();
    view(Drm).moved = [this] { editing.commit(); };
    start(Drm, kDrmFrequencyX);
    EXPECT_TRUE(editing.isEditing());
    EXPECT_TRUE(box.visible);
    EXPECT_EQ(u"9620", box.content);
    EXPECT_EQ(0, view(Drm).focusCount);
}

TEST_F(CellEditingCommitTest, AnEditStartedOverAnOpenOneCommitsThatFirst) {
    typeOverProgramme();
    start(Drm, kDrmTargetX);
    EXPECT_EQ("Typed|9620|0000-2400|Europe", rowText(Drm, 1));
    EXPECT_TRUE(editing.isEditing());
    EXPECT_EQ(u"Europe", box.content);
}

}  // namespace
