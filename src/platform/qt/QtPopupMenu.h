// The popup menu PMenu.
#pragma once

#include <QObject>
#include <array>

#include "platform/PopupMenu.h"

class QAction;
class QMenu;
class QWidget;
class QtTabs;
struct WindowDesign;

class QtPopupMenu : public QObject, public PopupMenu {
public:
    QtPopupMenu(const WindowDesign& design, QWidget* client, QtTabs& tabs);  // the menu belongs to the client area

    void setListener(MenuListener& listener) override { listener_ = &listener; }
    void setEnabled(MenuItem item, bool enabled) override;
    void show(int tab, double x, double y) override;

private:
    QMenu* menu_;
    QtTabs& tabs_;
    std::array<QAction*, kMenuItemCount> actions_{};
    MenuListener* listener_ = nullptr;
};
