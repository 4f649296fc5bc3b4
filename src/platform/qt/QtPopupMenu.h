// The popup menu PMenu.
#pragma once

#include <QObject>
#include <array>

#include "platform/PopupMenu.h"

class QAction;
class QMenu;
class QWidget;
class QtTabControl;
struct WindowDesign;

class QtPopupMenu : public QObject, public PopupMenu {
public:
    QtPopupMenu(const WindowDesign& design, QWidget* client,
                QtTabControl& tabs);  // the client area owns the menu

    void setListener(MenuListener& listener) override { listener_ = &listener; }
    void setEnabled(MenuItem item, bool enabled) override;
    void show(int tab, double x, double y) override;

private:
    QMenu* menu_;
    QtTabControl& tabs_;
    std::array<QAction*, kMenuItemCount> actions_{};
    MenuListener* listener_ = nullptr;
};
