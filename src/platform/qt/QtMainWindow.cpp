#include "platform/qt/QtMainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/QtEditBox.h"
#include "platform/qt/QtPopupMenu.h"
#include "platform/qt/QtStatusBar.h"
#include "platform/qt/QtTabControl.h"
#include "platform/qt/Units.h"

QtMainWindow::QtMainWindow(const WindowDesign& design)
    : window_(std::make_unique<QMainWindow>()),
      tabs_(std::make_unique<QtTabControl>(design, window_.get())),
      statusBar_(std::make_unique<QtStatusBar>(window_.get())),
      editBox_(std::make_unique<QtEditBox>(window_.get(), [this] { tabs_->currentGrid().takeFocus(); })),
      popupMenu_(std::make_unique<QtPopupMenu>(design, window_.get(), *tabs_)) {
    window_->setObjectName("MainForm");
    window_->setWindowTitle(toQt(design.caption));
    connect(tabs_->widget(), &QTabWidget::currentChanged, this, &QtMainWindow::nameEditBox);
    nameEditBox();
    layOut(design);
    // The program ends with this window, whatever other windows are open.
    QApplication::setQuitOnLastWindowClosed(false);
    qApp->installEventFilter(this);
}

// The widgets are destroyed before the adapters, which they use until then.
QtMainWindow::~QtMainWindow() { destroyWidgets(); }

void QtMainWindow::destroyWidgets() { window_.reset(); }

QWidget* QtMainWindow::widget() const { return window_.get(); }

void QtMainWindow::layOut(const WindowDesign& design) {
    constexpr int kMargin = 8;  // pixels
    auto* middle = new QWidget;
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(kMargin, toPixels(design.gridTopInset) - QtGridView::kBorder, kMargin, 0);
    layout->addWidget(tabs_->widget());
    window_->setCentralWidget(middle);
    window_->setStatusBar(statusBar_->widget());
    window_->resize(toPixels(design.width), toPixels(design.height));
    // Qt lays out the tabs when they are shown, but the columns need their widths before.
    window_->setAttribute(Qt::WA_DontShowOnScreen);
    window_->show();
    QApplication::sendPostedEvents();
    window_->hide();
    window_->setAttribute(Qt::WA_DontShowOnScreen, false);
}

void QtMainWindow::nameEditBox() {
    QTabWidget* tabs = tabs_->widget();
    editBox_->widget()->setAccessibleName(tabs->tabText(tabs->currentIndex()));
}

void QtMainWindow::show() {
    tabs_->currentGrid().takeFocus();
    window_->show();
}

void QtMainWindow::setEnabled(bool enabled) {
    if (enabled == window_->isEnabled()) {
        return;
    }
    if (!enabled) {
        focusBeforeDisabling_ = window_->focusWidget();
    }
    window_->setEnabled(enabled);
    if (enabled && focusBeforeDisabling_ != nullptr) {
        focusBeforeDisabling_->setFocus(Qt::OtherFocusReason);
    }
}

void QtMainWindow::close() { window_->close(); }

bool QtMainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_.get()) {
        if (event->type() == QEvent::Close) {
            closing(*static_cast<QCloseEvent*>(event));
            return true;
        }
        if (event->type() == QEvent::WindowActivate) {
            activated();
        }
    } else if (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched) != nullptr) {
        cameFrom_ = CameFrom::OwnBox;
    }
    return false;
}

void QtMainWindow::activated() {
    const CameFrom from = std::exchange(cameFrom_, CameFrom::Elsewhere);
    if (listener_ != nullptr) {
        listener_->windowGotFocus(from);
    }
}

void QtMainWindow::closing(QCloseEvent& event) {
    if (event.spontaneous() && !window_->isEnabled()) {
        event.ignore();
        return;
    }
    event.accept();
    closed_ = true;
    if (listener_ != nullptr) {
        listener_->windowClosing();
    }
    const auto endEvents = [] { QApplication::exit(0); };
    QMetaObject::invokeMethod(qApp, endEvents, Qt::QueuedConnection);
}
