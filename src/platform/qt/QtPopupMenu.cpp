#include "platform/qt/QtPopupMenu.h"

#include <QMenu>

#include "platform/MainWindow.h"
#include "platform/qt/QtTabControl.h"
#include "platform/qt/Units.h"

QtPopupMenu::QtPopupMenu(const WindowDesign& design, QWidget* client, QtTabControl& tabs)
    : menu_(new QMenu(client)), tabs_(tabs) {
    static constexpr std::array kNames{
        "Edt", "Del", "AddNew", "AddTo", "SyncInternet", "LoadFromReceiver", "SaveToReceiver", "DeleteAll"};
    menu_->setObjectName("PMenu");
    for (std::size_t i = 0; i < actions_.size(); ++i) {
        actions_[i] = menu_->addAction(toQt(design.menuCaptions[i]));
        actions_[i]->setObjectName(kNames[i]);
        // Queued, because a command may open a window, which must happen after the menu has closed.
        connect(
            actions_[i], &QAction::triggered, this,
            [this, i] {
                if (listener_ != nullptr) {
                    listener_->menuChosen(static_cast<MenuItem>(i));
                }
            },
            Qt::QueuedConnection);
    }
}

void QtPopupMenu::setEnabled(MenuItem item, bool enabled) {
    actions_[static_cast<std::size_t>(item)]->setEnabled(enabled);
}

void QtPopupMenu::show(int tab, double x, double y) { menu_->popup(tabs_.grid(tab).toGlobal(x, y)); }
