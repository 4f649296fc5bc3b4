#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTextDocument>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/GridLineColor.h"
#include "platform/qt/RecordingWindow.h"

namespace {

class GridTest : public RecordingWindow {
protected:
    GridTest() {
        fill(40);
        QTest::qWait(0);
        recorder.take();
    }
    void turnWheel(int angle) {
        QWheelEvent wheel(cell(2), table()->viewport()->mapToGlobal(cell(2)), {}, {0, angle}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(table()->viewport(), &wheel);
    }
    void contextMenu(QWidget* widget, const QPoint& at, QContextMenuEvent::Reason reason) {
        QContextMenuEvent event(reason, at, widget->mapToGlobal(at));
        QApplication::sendEvent(widget, &event);
    }
};

TEST_F(GridTest, AClickSelectsTheRowAndReportsIt) {
    click(3);
    EXPECT_EQ(selected(), (std::vector{3}));
    EXPECT_EQ(recorder.take(), (Events{"click"}));
}

TEST_F(GridTest, ADoubleClickComesAfterTheClickWithTheRowSelected) {
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(4, 2));
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell(4, 2));
    EXPECT_EQ(recorder.take(), (Events{"click", "double-click"}));
    EXPECT_EQ(selected(), (std::vector{4}));
    // To the left of the border, in twips, including the header.
    EXPECT_DOUBLE_EQ(recorder.pointer[0], toTwips(cell(4, 2).x()));
    EXPECT_DOUBLE_EQ(recorder.pointer[1], toTwips(cell(4, 2).y() + table()->horizontalHeader()->height()));
}

TEST_F(GridTest, CtrlAndShiftExtendTheSelection) {
    click(2);
    click(4, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(selected(), (std::vector{2, 3, 4}));
    click(3, Qt::LeftButton, Qt::ControlModifier);
    click(6, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(selected(), (std::vector{2, 4, 6}));
}

TEST_F(GridTest, ARightClickKeepsASelectedRow) {
    click(2);
    click(3, Qt::LeftButton, Qt::ControlModifier);
    recorder.take();
    click(3, Qt::RightButton);
    contextMenu(table()->viewport(), cell(3), QContextMenuEvent::Mouse);
    EXPECT_EQ(selected(), (std::vector{2, 3}));
    EXPECT_EQ(recorder.take(), (Events{"right press 3", "right"}));
}

TEST_F(GridTest, TheRightButtonLeavesTheSelectionToTheListener) {
    click(2);
    recorder.take();
    for (const auto held : {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier}) {
        click(5, Qt::RightButton, held);
        EXPECT_EQ(selected(), (std::vector{2}));
        EXPECT_EQ(recorder.take(), (Events{"right press 5"}));
        EXPECT_DOUBLE_EQ(recorder.pressX, toTwips(cell(5).x()));
    }
}

TEST_F(GridTest, ShowsASelectionMadeByTheProgram) {
    click(2);
    grid().setSelected(2, false);
    grid().setSelected(5, true);
    view(0).selectionChanged(5);
    EXPECT_TRUE(table()->selectionModel()->isRowSelected(4, {}));
    EXPECT_FALSE(table()->selectionModel()->isRowSelected(1, {}));
    EXPECT_EQ(table()->currentIndex().row(), 4);
    EXPECT_EQ(selected(), (std::vector{5}));
}

TEST_F(GridTest, EmptySpaceIsNoRow) {
    grid().clear();
    fill(3);
    click(2);
    recorder.take();
    const QPoint below(20, table()->viewport()->height() - 5);
    QTest::mouseClick(table()->viewport(), Qt::RightButton, {}, below);
    contextMenu(table()->viewport(), below, QContextMenuEvent::Mouse);
    EXPECT_EQ(selected(), (std::vector{2}));
    EXPECT_EQ(recorder.take(), (Events{"right press 0", "right"}));
    const int before = recorder.viewChanges;
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, below);
    EXPECT_EQ(selected(), std::vector<int>{});
    EXPECT_GT(recorder.viewChanges, before);
    EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(GridTest, TheMenuKeyReportsTheMiddleOfTheFocusedRow) {
    click(5);
    recorder.take();
    contextMenu(table(), {}, QContextMenuEvent::Keyboard);
    EXPECT_NEAR(recorder.menuY, toTwips(cell(5).y() + table()->horizontalHeader()->height()), 15);
    QTest::keyClick(table(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(recorder.take(), (Events{"menu key", "menu key"}));
}

TEST_F(GridTest, AHeaderClickReportsTheColumnsKey) {
    QHeaderView* header = table()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, {header->sectionViewportPosition(1) + 40, 8});
    EXPECT_EQ(recorder.take(), (Events{"header FREQ"}));
    EXPECT_FALSE(header->isSortIndicatorShown());
}

TEST_F(GridTest, TwoQuickHeaderClicksAreBothReported) {
    QHeaderView* header = table()->horizontalHeader();
    const QPoint at(header->sectionViewportPosition(1) + 30, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, at);
    EXPECT_EQ(recorder.take(), (Events{"header FREQ", "header FREQ"}));
}

TEST_F(GridTest, OnlyTheLeftButtonOnAColumnSorts) {
    QHeaderView* header = table()->horizontalHeader();
    const QPoint onColumn(header->sectionViewportPosition(1) + 30, header->height() / 2);
    const QPoint beside(header->length() + 30, header->height() / 2);
    for (const auto button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(header->viewport(), button, {}, onColumn);
        QTest::mouseDClick(header->viewport(), button, {}, onColumn);
    }
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, beside);
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(GridTest, ThePointerOverTheHeaderIsReported) {
    QTest::mouseMove(table()->viewport(), cell(2, 1));
    QHeaderView* header = table()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::MiddleButton, {}, {213, 7});
    EXPECT_DOUBLE_EQ(recorder.pointer[0], toTwips(213));
    EXPECT_DOUBLE_EQ(recorder.pointer[1], toTwips(7));
    EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(GridTest, TheGeometryIncludesHorizontalScrolling) {
    grid().setColumnWidth(1, 15000);
    view(0).geometry(0);
    table()->horizontalScrollBar()->setValue(40);
    EXPECT_DOUBLE_EQ(view(0).geometry(0).rowLeft, toTwips(-40));
    EXPECT_DOUBLE_EQ(view(0).geometry(3).rowLeft, toTwips(-40));
}

TEST_F(GridTest, TheGridLinesAreVisibleInLightAndDarkThemes) {
    for (const auto& [base, text] : {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QPalette palette = table()->palette();
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, text);
        table()->setPalette(palette);
        const QRect third = table()->visualRect(table()->model()->index(2, 1));
        const QImage picture = table()->viewport()->grab().toImage();
        const auto at = [&](int x, int y) {
            const QColor color = picture.pixelColor(x, y);
            return Rgb{color.red(), color.green(), color.blue()};
        };
        const Rgb cells = at(third.right() - 3, third.center().y());
        EXPECT_GE(contrast(at(third.right(), third.center().y()), cells), 1.5);
        EXPECT_GE(contrast(at(third.right() - 3, third.bottom()), cells), 1.5);
    }
}

TEST_F(GridTest, ATruncatedTextIsShownInATooltip) {
    grid().setText(2, 1, u"A programme with a name that is <b>too</b> long for its column");
    const auto hover = [&](int row) {
        QHelpEvent event(QEvent::ToolTip, cell(row), table()->viewport()->mapToGlobal(cell(row)));
        QApplication::sendEvent(table()->viewport(), &event);
    };
    hover(2);
    EXPECT_TRUE(QToolTip::isVisible());
    QTextDocument shown;
    shown.setHtml(QToolTip::text());
    EXPECT_EQ(shown.toPlainText().toStdString(), toQt(grid().text(2, 1)).toStdString());
    hover(3);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, kPatience));
}

TEST_F(GridTest, TheFirstMoveByKeyboardSelectsARow) {
    table()->setFocus();
    ASSERT_EQ(selected(), (std::vector<int>{}));
    QTest::keyClick(table(), Qt::Key_Home);
    EXPECT_EQ(selected(), (std::vector{1}));
    QTest::keyClick(table(), Qt::Key_Down);
    EXPECT_EQ(selected(), (std::vector{2}));
}

TEST_F(GridTest, KeysAreReportedWithVirtualKeyCodes) {
    QTest::keyClick(table(), Qt::Key_Return);
    QTest::keyClick(table(), Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(table(), Qt::Key_Delete);
    QTest::keyClick(table(), Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(table(), Qt::Key_Left);
    QTest::keyClick(table(), Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(recorder.take(), (Events{"key 13/0", "key 13/0", "key 46/0", "key 68/2", "key 37/0", "key 39/1"}));
    // In other key tables the full stop and the apostrophe have the codes of Delete and Right.
    QTest::keyClick(table(), Qt::Key_Period);
    QTest::keyClick(table(), Qt::Key_Apostrophe);
    EXPECT_EQ(recorder.take(), Events{});
}

TEST_F(GridTest, AHandledKeyDoesNotReachTheTable) {
    click(2);
    recorder.keepKeys = true;
    QTest::keyClick(table(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(table(), Qt::Key_Down);
    EXPECT_EQ(selected(), (std::vector{2}));
    recorder.keepKeys = false;
    QTest::keyClick(table(), Qt::Key_Down);
    EXPECT_EQ(selected(), (std::vector{3}));
}

TEST_F(GridTest, TypingFindsAProgrammeWhicheverColumnIsCurrent) {
    grid().clear();
    for (const char16_t* name : {u"Alpha", u"Bravo", u"Charlie"}) {
        grid().appendRow({name, u"100"});
    }
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(1, 2));
    QTest::keyClick(table(), Qt::Key_C);
    EXPECT_EQ(selected(), (std::vector{3}));
}

TEST_F(GridTest, NothingIsEditedInTheTableItself) {
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(1));
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell(1));
    QTest::keyClick(table(), Qt::Key_F2);
    EXPECT_EQ(table()->viewport()->findChild<QLineEdit*>(), nullptr);
}

TEST_F(GridTest, ScrollingDraggingAndTheWheelMoveTheView) {
    int before = recorder.viewChanges;
    table()->verticalScrollBar()->setValue(3);
    EXPECT_GT(recorder.viewChanges, before);
    before = recorder.viewChanges;
    table()->horizontalHeader()->resizeSection(0, 222);
    EXPECT_EQ(recorder.drags, 1);
    EXPECT_DOUBLE_EQ(grid().columns()[0].width, toTwips(222));
    const int resizes = recorder.resizes;
    backend.window().widget()->resize(700, 500);
    QTest::qWait(0);
    EXPECT_GT(recorder.resizes, resizes);
    before = recorder.viewChanges;
    turnWheel(-120);
    EXPECT_GT(recorder.viewChanges, before);
}

TEST_F(GridTest, TheWheelWithoutScrollingIsNoViewChange) {
    const int before = recorder.viewChanges;
    turnWheel(120);  // the first row is already at the top
    EXPECT_EQ(recorder.viewChanges, before);
}

TEST_F(GridTest, SettingAWidthIsNotADrag) {
    const int before = recorder.viewChanges;
    grid().setColumnWidth(1, 3000);
    EXPECT_EQ(recorder.viewChanges, before);
    EXPECT_EQ(table()->columnWidth(0), 200);
}

TEST_F(GridTest, AResetKeepsTheScrollPositionAndTheSelection) {
    table()->verticalScrollBar()->setValue(7);
    {
        const GridUpdate update(grid());
        grid().setSelected(9, true);
        grid().setSelected(11, true);
    }
    EXPECT_EQ(table()->verticalScrollBar()->value(), 7);
    const QItemSelectionModel* shown = table()->selectionModel();
    EXPECT_TRUE(shown->isRowSelected(8, {}));
    EXPECT_FALSE(shown->isRowSelected(9, {}));
    EXPECT_TRUE(shown->isRowSelected(10, {}));
}

TEST_F(GridTest, TheGridOfAHiddenTabHasTheSizeOfTheVisibleOne) {
    const GridGeometry shown = view(0).geometry(0);
    const GridGeometry hidden = view(3).geometry(0);
    EXPECT_EQ(shown.width, hidden.width);
    EXPECT_EQ(shown.height, hidden.height);
    EXPECT_EQ(shown.left, hidden.left);
    EXPECT_EQ(shown.top, hidden.top);
}

TEST_F(GridTest, TheGeometryPlacesTheEditBoxOnItsCell) {
    table()->verticalScrollBar()->setValue(2);
    const GridGeometry geometry = view(0).geometry(6);
    const double left = platform.tabs.left() + geometry.left + geometry.rowLeft + grid().columns()[0].width + 50;
    EditBox& box = backend.window().editBox();
    box.setVisible(true);
    box.setBounds(left, geometry.top + geometry.rowTop + 145, grid().columns()[1].width, geometry.rowHeight);
    const QRect expected = table()->visualRect(table()->model()->index(5, 1));
    const QPoint onWindow = table()->viewport()->mapTo(backend.window().widget(), expected.topLeft());
    EXPECT_EQ(edit()->geometry().topLeft(), onWindow);
    // Without the grid line after each cell.
    EXPECT_NEAR(edit()->width(), expected.width(), 1);
    EXPECT_NEAR(edit()->height(), expected.height(), 1);
}

TEST_F(GridTest, AssistiveTechnologyReadsEveryCell) {
    grid().clear();
    fill(256);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(table());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->text(QAccessible::Name), "One");
    QAccessibleTableInterface* cells = accessible->tableInterface();
    ASSERT_NE(cells, nullptr);
    ASSERT_EQ(cells->rowCount(), 256);
    EXPECT_EQ(cells->columnDescription(1), "Frequency(kHz)");
    for (int row = 0; row < 256; ++row) {
        EXPECT_EQ(cells->cellAt(row, 1)->text(QAccessible::Name), QString::number(row + 1));
    }
    for (int child = 0; child < accessible->childCount(); ++child) {
        ASSERT_NE(accessible->child(child), nullptr);
    }
}

TEST_F(GridTest, TheMaximumOfRowsIsShownSelectedAndRemoved) {
    fill(32'767 - 40);
    EXPECT_EQ(table()->model()->rowCount(), 32'767);
    table()->selectAll();
    EXPECT_TRUE(grid().isSelected(1));
    EXPECT_TRUE(grid().isSelected(32'767));
    {
        const GridUpdate update(grid());
        for (int row = 1; row <= 32'767; row += 2) {
            grid().setSelected(row, false);
        }
    }
    EXPECT_FALSE(table()->selectionModel()->isRowSelected(0, {}));
    EXPECT_TRUE(table()->selectionModel()->isRowSelected(32'765, {}));
    grid().removeSelectedRows();
    EXPECT_EQ(table()->model()->rowCount(), 16'384);
}

}  // namespace
