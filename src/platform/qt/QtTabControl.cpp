#include "platform/qt/QtTabControl.h"

#include <QEvent>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>

#include "platform/MainWindow.h"
#include "platform/qt/GridTable.h"
#include "platform/qt/Units.h"

QtTabControl::QtTabControl(const WindowDesign& design, QWidget* client) : tabs_(new QTabWidget(client)) {
    static constexpr std::array kGridNames{"drmLV", "amLV", "fmLV", "favLV"};
    tabs_->setObjectName("SSTab1");
    for (std::size_t tab = 0; tab < grids_.size(); ++tab) {
        const QString caption = toQt(design.tabCaptions[tab]);
        grids_[tab] = std::make_unique<QtGridView>(kGridNames[tab], caption);
        tabs_->addTab(grids_[tab]->page(), caption);
    }
    // A click on a tab must not take the focus from an open edit, which switching tabs discards.
    tabs_->setFocusPolicy(Qt::NoFocus);
    tabs_->tabBar()->setFocusPolicy(Qt::TabFocus);
    tabs_->tabBar()->installEventFilter(this);
    connect(tabs_, &QTabWidget::currentChanged, this, &QtTabControl::tabShown);
    addShortcuts(client);
}

// The shortcuts belong to the client area, because the edit box is not a child of the tab control.
void QtTabControl::addShortcuts(QWidget* client) {
    const auto add = [&](const QList<QKeySequence>& keys, int step) {
        for (const QKeySequence& key : keys) {
            connect(new QShortcut(key, client), &QShortcut::activated, this, [this, step] {
                tabs_->setCurrentIndex(neighbourTab(tabs_->currentIndex(), step, tabs_->count()));
            });
        }
    };
    add(QKeySequence::keyBindings(QKeySequence::NextChild) << QKeySequence(Qt::CTRL | Qt::Key_PageDown), 1);
    add(QKeySequence::keyBindings(QKeySequence::PreviousChild) << QKeySequence(Qt::CTRL | Qt::Key_PageUp), -1);
}

void QtTabControl::tabShown() {
    if (listener_ != nullptr) {
        listener_->tabClicked();
    }
}

bool QtTabControl::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn && listener_ != nullptr) {
        listener_->tabGotFocus();
    }
    return QObject::eventFilter(watched, event);
}

int QtTabControl::currentTab() const { return tabs_->currentIndex(); }

bool QtTabControl::hasFocus() const { return tabs_->tabBar()->hasFocus(); }

double QtTabControl::left() const { return toTwips(tabs_->mapTo(tabs_->window(), QPoint()).x()); }
