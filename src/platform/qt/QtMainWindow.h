// The main window: its frame, its closing, and the controls in its client area.
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

#include "platform/MainWindow.h"

class QCloseEvent;
class QMainWindow;
class QWidget;
class QtEditBox;
class QtPopupMenu;
class QtStatusBar;
class QtTabControl;

class QtMainWindow : public QObject, public MainWindow {
public:
    // The window is hidden and laid out at its design size.
    explicit QtMainWindow(const WindowDesign& design);
    ~QtMainWindow() override;

    QWidget* widget() const;
    QtTabControl& tabs() { return *tabs_; }
    QtEditBox& editBox() { return *editBox_; }
    QtStatusBar& statusBar() { return *statusBar_; }
    QtPopupMenu& popupMenu() { return *popupMenu_; }

    void show();
    // Call while the listeners still exist: the controls call them until they are destroyed. Nothing may be used
    // afterwards.
    void destroyWidgets();
    bool isClosed() const { return closed_; }

    void setListener(MainWindowListener& listener) override { listener_ = &listener; }
    void setEnabled(bool enabled) override;
    void close() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void layOut(const WindowDesign& design);
    void nameEditBox();
    void activated();
    void closing(QCloseEvent& event);

    std::unique_ptr<QMainWindow> window_;
    std::unique_ptr<QtTabControl> tabs_;
    std::unique_ptr<QtStatusBar> statusBar_;
    std::unique_ptr<QtEditBox> editBox_;
    std::unique_ptr<QtPopupMenu> popupMenu_;
    MainWindowListener* listener_ = nullptr;
    QPointer<QWidget> focusBeforeDisabling_;
    CameFrom cameFrom_ = CameFrom::Elsewhere;  // what is active before the window is activated next
    bool closed_ = false;
};
