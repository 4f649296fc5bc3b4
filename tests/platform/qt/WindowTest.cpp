#include <QtTest/qtestspontaneevent.h>

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QTimer>
#include <csignal>

#include "platform/StatusBar.h"
#include "platform/qt/InputBlock.h"
#include "platform/qt/QtSignals.h"
#include "platform/qt/QtStatusBar.h"
#include "platform/qt/RecordingWindow.h"

namespace {

class FakeWindow : public MainWindow {
public:
    void setListener(MainWindowListener&) override {}
    void setEnabled(bool) override {}
    void close() override { ++closed; }
    int closed = 0;
};

class WindowTest : public RecordingWindow {
protected:
    QLabel* panel(const char* name) { return backend.window().widget()->findChild<QLabel*>(name); }
    QMenu* menu() { return backend.window().widget()->findChild<QMenu*>("PMenu"); }
    bool userCloses() {
        QCloseEvent event;
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(backend.window().widget(), &event);  // sendEvent would mark the event as the program's own
        return event.isAccepted();
    }
};

TEST_F(WindowTest, HasItsDesignSizeAndCaptions) {
    EXPECT_EQ(backend.window().widget()->size(), QSize(600, 400));
    EXPECT_EQ(backend.window().widget()->windowTitle(), "Window");
    EXPECT_EQ(tabs()->tabText(3), "Four");
    EXPECT_EQ(tabs()->objectName(), "SSTab1");
}

TEST_F(WindowTest, ATableIsCreatedWhenItsTabIsFirstShown) {
    fill(5, 1);
    grid(1).setSelected(3, true);
    grid(1).setColumnWidth(2, 3300);
    grid(1).setColumnWidth(1, 15);
    EXPECT_EQ(grid(1).columns()[0].width, toTwips(GridTable::kSmallestColumn));
    const GridGeometry first = view(0).geometry(0);
    const GridGeometry hidden = view(1).geometry(0);
    EXPECT_EQ(table(1), nullptr);
    tabs()->setCurrentIndex(1);
    ASSERT_NE(table(1), nullptr);
    EXPECT_EQ(table(2), nullptr);
    EXPECT_TRUE(table(1)->isVisible());
    EXPECT_EQ(table(1)->accessibleName(), "Two");
    EXPECT_EQ(table(1)->model()->rowCount(), 5);
    EXPECT_EQ(table(1)->model()->index(4, 0).data().toString(), "Radio 5");
    EXPECT_TRUE(table(1)->selectionModel()->isRowSelected(2, {}));
    EXPECT_EQ(table(1)->columnWidth(0), GridTable::kSmallestColumn);
    EXPECT_EQ(table(1)->columnWidth(1), 220);
    for (const GridGeometry& shown : {hidden, view(1).geometry(0)}) {
        EXPECT_EQ(shown.left, first.left);
        EXPECT_EQ(shown.top, first.top);
        EXPECT_EQ(shown.width, first.width);
        EXPECT_EQ(shown.height, first.height);
    }
    GridTable* created = table(1);
    tabs()->setCurrentIndex(0);
    tabs()->setCurrentIndex(1);
    EXPECT_EQ(table(1), created);
}

TEST_F(WindowTest, TheStatusBarShowsMessageDateAndTime) {
    platform.statusBar.setMessage(u"Total <b>");
    EXPECT_EQ(panel("Panel1")->text(), "Total <b>");
    EXPECT_EQ(panel("Panel1")->textFormat(), Qt::PlainText);
    EXPECT_EQ(panel("Panel2")->text(), QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat));
    EXPECT_FALSE(panel("Panel3")->text().isEmpty());
    EXPECT_LE(panel("Panel3")->text().count(':'), 1);
    EXPECT_EQ(panel("Panel2")->width(), panel("Panel3")->width());
    EXPECT_GT(panel("Panel1")->width(), 2 * panel("Panel2")->width());
}

QString shortTime(QTime time) {
    const QLocale locale = QLocale::system();
    return locale.language() == QLocale::C ? time.toString("HH:mm") : locale.toString(time, QLocale::ShortFormat);
}

int untilNextMinute(QTime time) { return millisecondsToNextMinute(time.second(), time.msec()); }

TEST_F(WindowTest, TheClockIsUpdatedEveryMinute) {
    auto* timer = backend.window().statusBar().findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_TRUE(timer->isSingleShot());
    panel("Panel2")->setText("no date");
    panel("Panel3")->setText("no time");
    const QDateTime before = QDateTime::currentDateTime();
    ASSERT_TRUE(QMetaObject::invokeMethod(timer, "timeout"));
    const QDateTime after = QDateTime::currentDateTime();
    // A new minute, or a new day, may begin between the two readings.
    const auto isOneOf = [](const QString& text, const QString& one, const QString& other) {
        return text == one || text == other;
    };
    const auto date = [](const QDateTime& time) {
        return QLocale::system().toString(time.date(), QLocale::ShortFormat);
    };
    EXPECT_TRUE(isOneOf(panel("Panel2")->text(), date(before), date(after)));
    EXPECT_TRUE(isOneOf(panel("Panel3")->text(), shortTime(before.time()), shortTime(after.time())));
    const int longest = untilNextMinute(before.time());
    const int shortest = untilNextMinute(after.time());
    if (shortest <= longest) {
        EXPECT_LE(timer->interval(), longest);
        EXPECT_GE(timer->interval(), shortest);
    } else {
        EXPECT_TRUE(timer->interval() <= longest || timer->interval() >= shortest);
    }
}

TEST_F(WindowTest, ALongMessageDoesNotWidenTheWindow) {
    platform.statusBar.setMessage(std::u16string(1000, u'x'));
    QTest::qWait(0);
    EXPECT_EQ(backend.window().widget()->width(), 600);
    EXPECT_LT(backend.window().widget()->minimumSizeHint().width(), 600);
}

TEST_F(WindowTest, MenuItemsReportAfterTheMenuHasClosed) {
    platform.popupMenu.setEnabled(MenuItem::AddTo, false);
    platform.popupMenu.show(0, 1500, 900);
    ASSERT_TRUE(menu()->isVisible());
    EXPECT_EQ(menu()->pos(), view(0).toGlobal(1500, 900));
    EXPECT_EQ(menu()->actions().at(1)->text(), "Delete(&D)");
    EXPECT_FALSE(menu()->actions().at(3)->isEnabled());
    QTest::keyClick(menu(), Qt::Key_D);
    EXPECT_FALSE(menu()->isVisible());
    EXPECT_EQ(recorder.take(), Events{});
    QCoreApplication::processEvents();
    EXPECT_EQ(recorder.take(), (Events{"menu 1"}));
}

TEST_F(WindowTest, ClosesAndEndsTheProgram) {
    EXPECT_TRUE(userCloses());
    EXPECT_TRUE(backend.window().isClosed());
    EXPECT_EQ(recorder.take(), (Events{"closing"}));
    EXPECT_EQ(QApplication::exec(), 0);  // the program ends
}

TEST_F(WindowTest, ADisabledWindowIsClosedByTheProgramOnly) {
    backend.window().setEnabled(false);
    EXPECT_FALSE(userCloses());
    EXPECT_EQ(recorder.take(), Events{});
    backend.window().close();
    EXPECT_EQ(recorder.take(), (Events{"closing"}));
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(WindowTest, EverySignalToEndClosesTheWindow) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        FakeWindow window;
        const QtSignals signals(window);
        std::raise(number);
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.closed == 1; }, kPatience)) << number;
    }
}

TEST_F(WindowTest, BlockedInputIncludesTheCloseBoxAndKeys) {
    fill(3);
    recorder.take();
    {
        const InputBlock block;
        EXPECT_FALSE(userCloses());
        QTest::keyClick(table(), Qt::Key_Delete);
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell(2));
        QTest::keyClick(table(), Qt::Key_Tab, Qt::ControlModifier);
        EXPECT_EQ(recorder.take(), Events{});
        EXPECT_EQ(platform.tabs.currentTab(), 0);
    }
    QTest::keyClick(table(), Qt::Key_Delete);
    EXPECT_EQ(recorder.take().size(), 1U);
    EXPECT_TRUE(userCloses());
}

TEST_F(WindowTest, DistinguishesReturningFromAnOwnBoxAndFromElsewhere) {
    // Qt's tests consider a window active as soon as one of its boxes is.
    const auto activate = [](QWidget& window) {
        window.activateWindow();
        return QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }, kPatience);
    };
    QWidget elsewhere;
    elsewhere.show();
    ASSERT_TRUE(activate(elsewhere));
    recorder.take();
    ASSERT_TRUE(activate(*backend.window().widget()));
    EXPECT_EQ(recorder.take(), (Events{"window focus"}));
    QDialog own(backend.window().widget());
    own.show();
    ASSERT_TRUE(activate(own));
    own.hide();
    ASSERT_TRUE(activate(*backend.window().widget()));
    EXPECT_EQ(recorder.take(), (Events{"focus from own box"}));
    ASSERT_TRUE(activate(elsewhere));
    ASSERT_TRUE(activate(*backend.window().widget()));
    EXPECT_EQ(recorder.take(), (Events{"window focus"}));
}

}  // namespace
