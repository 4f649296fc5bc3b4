// The real main window on Qt's offscreen platform, with a listener that records every notification.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <array>
#include <memory>
#include <string>
#include <vector>

#include "platform/EditBox.h"
#include "platform/GridView.h"
#include "platform/MainWindow.h"
#include "platform/PopupMenu.h"
#include "platform/TabControl.h"
#include "platform/qt/GridTable.h"
#include "platform/qt/QtBackend.h"
#include "platform/qt/QtEditBox.h"
#include "platform/qt/QtTabControl.h"
#include "platform/qt/Units.h"
#include "storage/stations/RowStore.h"

using Events = std::vector<std::string>;

// Milliseconds to wait for an event on a loaded machine; it usually arrives within a few.
constexpr int kPatience = 60'000;

class Recorder : public GridListener,
                 public EditBoxListener,
                 public TabListener,
                 public MenuListener,
                 public MainWindowListener {
public:
    bool keyDown(int key, int shift) override {
        note("key " + std::to_string(key) + "/" + std::to_string(shift));
        return keepKeys;
    }
    void pointerMoved(double x, double y) override { pointer = {x, y}; }
    void rightPressed(int row, double x, double) override {
        pressX = x;
        note("right press " + std::to_string(row));
    }
    void rightButton(double, double) override { note("right"); }
    void menuKey(double y) override {
        menuY = y;
        note("menu key");
    }
    void itemClicked() override { note("click"); }
    void itemDoubleClicked() override { note("double-click"); }
    void headerClicked(std::u16string_view key) override { note("header " + toQt(key).toStdString()); }
    void columnDragged() override { ++drags; }
    void resized() override { ++resizes; }
    void viewChanged() override { ++viewChanges; }
    void enterPressed() override { note("enter"); }
    void lostFocus() override { note("lost focus"); }
    void tabClicked() override { note("tab"); }
    void tabGotFocus() override { note("tab focus"); }
    void menuChosen(MenuItem item) override { note("menu " + std::to_string(static_cast<int>(item))); }
    void windowGotFocus(CameFrom from) override {
        note(from == CameFrom::OwnBox ? "focus from own box" : "window focus");
    }
    void windowClosing() override { note("closing"); }

    Events take() { return std::exchange(events, {}); }

    Events events;
    bool keepKeys = false;
    std::array<double, 2> pointer{};
    double menuY = 0;
    double pressX = 0;
    int viewChanges = 0;
    int drags = 0;
    int resizes = 0;

private:
    void note(std::string event) { events.push_back(std::move(event)); }
};

inline WindowDesign testDesign() {
    WindowDesign design;
    design.caption = u"Window";
    design.tabCaptions = {u"One", u"Two", u"Three", u"Four"};
    design.menuCaptions = {u"Edit(&E)", u"Delete(&D)", u"c", u"d", u"e", u"f", u"g", u"h"};
    design.width = 9000;
    design.height = 6000;
    design.gridTopInset = 145;
    return design;
}

class RecordingWindow : public testing::Test {
protected:
    RecordingWindow() {
        for (int tab = 0; tab < 4; ++tab) {
            rows.push_back(std::make_unique<RowStore>(view(tab)));
            view(tab).attach(*rows.back(), recorder);
            rows.back()->addColumn(u"Programme", u"PROG", 2700);
            rows.back()->addColumn(u"Frequency(kHz)", u"FREQ", 2700);
        }
        backend.window().tabs().setListener(recorder);
        backend.window().editBox().setListener(recorder);
        platform.popupMenu.setListener(recorder);
        backend.window().setListener(recorder);
        backend.window().show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(backend.window().widget(), kPatience));
        recorder.take();
    }
    ~RecordingWindow() override { backend.window().destroyWidgets(); }

    QtGridView& view(int tab) { return backend.window().tabs().grid(tab); }
    GridTable* table(int tab = 0) { return view(tab).table(); }
    QLineEdit* edit() { return backend.window().editBox().widget(); }
    QTabWidget* tabs() { return backend.window().tabs().widget(); }
    RowStore& grid(int tab = 0) { return *rows[static_cast<std::size_t>(tab)]; }

    void fill(int count, int tab = 0) {
        const GridUpdate update(grid(tab));
        for (int i = 1; i <= count; ++i) {
            const std::u16string number = QString::number(i).toStdU16String();
            grid(tab).appendRow({u"Radio " + number, number});
        }
    }
    QPoint cell(int row, int column = 1) {
        return table()->visualRect(table()->model()->index(row - 1, column - 1)).center();
    }
    void click(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::mouseClick(table()->viewport(), button, held, cell(row));
    }
    std::vector<int> selected() {
        std::vector<int> found;
        for (int row = 1; row <= grid().rowCount(); ++row) {
            if (grid().isSelected(row)) {
                found.push_back(row);
            }
        }
        return found;
    }
    void openEdit(std::u16string_view text) {
        EditBox& box = backend.window().editBox();
        box.setLimit(10);
        box.setVisible(true);
        box.setBounds(300, 900, 2700, 375);
        box.setText(text);
        box.takeFocus();
        ASSERT_TRUE(edit()->hasFocus());
        recorder.take();
    }

    Recorder recorder;
    QtBackend backend{testDesign(), u"/nowhere/"};
    Platform platform = backend.platform();
    std::vector<std::unique_ptr<RowStore>> rows;
};
