// The tab control SSTab1 with the four grids in it.
#pragma once

#include <QObject>
#include <array>
#include <memory>

#include "platform/TabControl.h"
#include "platform/qt/QtGridView.h"

class QTabWidget;
struct WindowDesign;

class QtTabControl : public QObject, public TabControl {
public:
    QtTabControl(const WindowDesign& design, QWidget* client);  // the client area owns the widget

    QTabWidget* widget() const { return tabs_; }
    QtGridView& grid(int tab) { return *grids_[static_cast<std::size_t>(tab)]; }
    QtGridView& currentGrid() { return grid(currentTab()); }

    void setListener(TabListener& listener) override { listener_ = &listener; }
    int currentTab() const override;
    bool hasFocus() const override;
    double left() const override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addShortcuts(QWidget* client);
    void tabShown();

    QTabWidget* tabs_;
    std::array<std::unique_ptr<QtGridView>, kTabCount> grids_;
    TabListener* listener_ = nullptr;
};
