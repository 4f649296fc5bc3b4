#include <QContextMenuEvent>

#include "platform/qt/RecordingWindow.h"

namespace {

class EditTest : public RecordingWindow {
protected:
    EditTest() {
        fill(5);
        fill(3, 1);
        QTest::qWait(0);
    }
};

TEST_F(EditTest, TypingReplacesTheSelectedText) {
    openEdit(u"Radio 1");
    QTest::keyClicks(edit(), "999");
    EXPECT_EQ(toQt(backend.window().editBox().text()), "999");
    EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(EditTest, OnlyTheTwoEnterKeysAreReported) {
    openEdit(u"x");
    QTest::keyClick(edit(), Qt::Key_Return);
    QTest::keyClick(edit(), Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(edit(), Qt::Key_Escape);
    EXPECT_EQ(recorder.take(), (Events{"enter", "enter"}));
    EXPECT_TRUE(edit()->isVisible());
    EXPECT_EQ(edit()->text(), "x");
}

TEST_F(EditTest, ALetterWithCtrlOrAltNeitherTypesNorCommits) {
    openEdit(u"x");
    QTest::keyClick(edit(), Qt::Key_M, Qt::ControlModifier);
    QTest::keyClick(edit(), Qt::Key_J, Qt::ControlModifier);
    QTest::keyClick(edit(), Qt::Key_Q, Qt::AltModifier);
    EXPECT_EQ(recorder.take(), Events{});
    EXPECT_EQ(edit()->text(), "x");
}

TEST_F(EditTest, AClickOnAnotherRowLosesTheFocusBeforeTheClick) {
    openEdit(u"x");
    // As with a user's click, the focus moves before the grid gets the button.
    QTest::mouseClick(table()->window()->windowHandle(), Qt::LeftButton, {},
                      table()->viewport()->mapTo(table()->window(), cell(4)));
    EXPECT_EQ(recorder.take(), (Events{"lost focus", "click"}));
}

TEST_F(EditTest, LosingTheWindowLosesTheFocus) {
    openEdit(u"x");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other, kPatience));
    EXPECT_EQ(recorder.take(), (Events{"lost focus"}));
}

TEST_F(EditTest, TheBoxesOwnMenuIsNoLossOfFocus) {
    openEdit(u"x");
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, edit()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(edit(), &event);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
    EXPECT_EQ(recorder.take(), Events{});
    EXPECT_TRUE(edit()->hasFocus());
}

TEST_F(EditTest, HidingFocusesTheGridWithoutALossOfFocus) {
    openEdit(u"x");
    backend.window().editBox().setVisible(false);
    EXPECT_FALSE(edit()->isVisible());
    EXPECT_TRUE(table()->hasFocus());
    EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(EditTest, CtrlTabSwitchesTheTabWithoutALossOfFocusBefore) {
    openEdit(u"x");
    QTest::keyClick(edit(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(platform.tabs.currentTab(), 1);
    ASSERT_FALSE(recorder.events.empty());
    EXPECT_EQ(recorder.events.front(), "tab");
}

TEST_F(EditTest, AClickOnATabSwitchesWithoutALossOfFocusBefore) {
    openEdit(u"x");
    QTabBar* strip = tabs()->tabBar();
    const QPoint second = strip->mapTo(strip->window(), strip->tabRect(2).center());
    QTest::mouseClick(strip->window()->windowHandle(), Qt::LeftButton, {}, second);
    EXPECT_EQ(platform.tabs.currentTab(), 2);
    ASSERT_FALSE(recorder.events.empty());
    EXPECT_EQ(recorder.events.front(), "tab");
    EXPECT_FALSE(strip->hasFocus());
}

TEST_F(EditTest, TheTabBarIsReachableFromTheGrid) {
    QTest::keyClick(table(), Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(platform.tabs.currentTab(), 3);
    EXPECT_TRUE(table(3)->hasFocus());
    QTest::keyClick(table(3), Qt::Key_PageDown, Qt::ControlModifier);
    QTest::keyClick(table(0), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(platform.tabs.currentTab(), 3);
}

TEST_F(EditTest, TheTabBarKeepsItsFocus) {
    tabs()->tabBar()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(recorder.take(), (Events{"tab focus"}));
    QTest::keyClick(tabs()->tabBar(), Qt::Key_Right);
    EXPECT_EQ(recorder.take(), (Events{"tab"}));
    EXPECT_TRUE(tabs()->tabBar()->hasFocus());
}

}  // namespace
