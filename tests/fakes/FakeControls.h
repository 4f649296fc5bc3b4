// The small controls of the main window as plain data.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "platform/EditBox.h"
#include "platform/MainWindow.h"
#include "platform/PopupMenu.h"
#include "platform/StatusBar.h"
#include "platform/TabControl.h"

class FakeTabControl : public TabControl {
public:
    void setListener(TabListener& tabListener) override { listener = &tabListener; }
    int currentTab() const override { return tab; }
    bool hasFocus() const override { return focused; }
    double left() const override { return leftTwips; }

    // Acts as a user's click on a tab.
    void click(int newTab) {
        tab = newTab;
        if (listener != nullptr) {
            listener->tabClicked();
        }
    }

    TabListener* listener = nullptr;
    int tab = 0;
    bool focused = false;
    double leftTwips = 120;
};

class FakeEditBox : public EditBox {
public:
    void setListener(EditBoxListener& boxListener) override { listener = &boxListener; }
    void setLimit(int units) override { limit = units; }
    void setText(std::u16string_view text) override { content = text; }
    std::u16string text() const override { return content; }
    void setBounds(double left, double top, double width, double height) override {
        bounds = {left, top, width, height};
    }
    void setVisible(bool shown) override { visible = shown; }
    void takeFocus() override { ++focusCount; }

    EditBoxListener* listener = nullptr;
    int limit = 0;
    std::u16string content;
    std::array<double, 4> bounds{};
    bool visible = false;
    int focusCount = 0;
};

class FakeStatusBar : public StatusBar {
public:
    void setMessage(std::u16string_view text) override {
        message = text;
        history.emplace_back(text);
    }

    std::u16string message;
    std::vector<std::u16string> history;
};

class FakePopupMenu : public PopupMenu {
public:
    void setListener(MenuListener& menuListener) override { listener = &menuListener; }
    void setEnabled(MenuItem item, bool on) override { enabled[item] = on; }
    void show(int tab, double x, double y) override {
        ++showCount;
        shownAt = {static_cast<double>(tab), x, y};
    }
    bool isEnabled(MenuItem item) const {
        const auto found = enabled.find(item);
        return found == enabled.end() || found->second;
    }

    MenuListener* listener = nullptr;
    std::map<MenuItem, bool> enabled;
    int showCount = 0;
    std::array<double, 3> shownAt{};
};

class FakeMainWindow : public MainWindow {
public:
    void setListener(MainWindowListener& windowListener) override { listener = &windowListener; }
    void setEnabled(bool on) override { enabled = on; }
    void close() override {
        if (open) {
            open = false;
            if (listener != nullptr) {
                listener->windowClosing();
            }
        }
    }

    MainWindowListener* listener = nullptr;
    bool enabled = true;
    bool open = true;
};
