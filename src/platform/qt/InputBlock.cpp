#include "platform/qt/InputBlock.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>

InputBlock::InputBlock() {
    qApp->installEventFilter(this);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

InputBlock::~InputBlock() { QGuiApplication::restoreOverrideCursor(); }

bool InputBlock::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::NativeGesture:
            return true;
        case QEvent::Close:
            // Only the user's click on the close box is dropped; the program may close its windows.
            if (event->spontaneous()) {
                event->ignore();
                return true;
            }
            return false;
        default:
            return false;
    }
}
