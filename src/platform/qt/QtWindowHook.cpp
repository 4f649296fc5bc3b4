#include "platform/qt/QtWindowHook.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include "platform/qt/Units.h"

namespace {

QWidget* widgetOf(WindowHandle window) {
    return reinterpret_cast<QWidget*>(window);  // NOLINT(performance-no-int-to-ptr)
}
WindowHandle handleOf(QWidget* widget) { return reinterpret_cast<WindowHandle>(widget); }

}  // namespace

HookHandle QtWindowHook::setHook(int hookType, HookListener& listener) {
    if (hookType != kHookTypeCbt || live_ != 0) {
        return 0;
    }
    listener_ = &listener;
    live_ = ++issued_;
    QCoreApplication::instance()->installEventFilter(this);
    return live_;
}

void QtWindowHook::unhook(HookHandle hook) {
    if (hook == live_ && hook != 0) {
        QCoreApplication::instance()->removeEventFilter(this);
        listener_ = nullptr;
        live_ = 0;
    }
}

// At most one hook is installed, so there is no next one.
std::intptr_t QtWindowHook::callNext(HookHandle, int, std::uintptr_t, std::intptr_t) { return 0; }

bool QtWindowHook::eventFilter(QObject* watched, QEvent* event) {
    // Show occurs before the window is visible, WindowActivate also when the user returns to it.
    if (event->type() == QEvent::Show || event->type() == QEvent::WindowActivate) {
        auto* widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && widget->isWindow()) {
            listener_->hookProcedure(kHookActivate, handleOf(widget), 0);
        }
    }
    return false;
}

void QtWindowHook::enumerateChildren(WindowHandle parent, HookListener& listener) {
    for (QWidget* child : widgetOf(parent)->findChildren<QWidget*>()) {
        if (listener.childProcedure(handleOf(child)) == 0) {
            return;
        }
    }
}

std::u16string QtWindowHook::className(WindowHandle window) {
    const QWidget* widget = widgetOf(window);
    const bool button = qobject_cast<const QAbstractButton*>(widget) != nullptr;
    return button ? u"Button" : fromQt(QString::fromLatin1(widget->metaObject()->className()));
}

std::u16string QtWindowHook::caption(WindowHandle window) {
    const auto* button = qobject_cast<const QAbstractButton*>(widgetOf(window));
    return fromQt(button != nullptr ? button->text() : widgetOf(window)->windowTitle());
}

void QtWindowHook::setCaption(WindowHandle window, std::u16string_view caption) {
    if (auto* button = qobject_cast<QAbstractButton*>(widgetOf(window))) {
        button->setText(toQt(caption));
    } else {
        widgetOf(window)->setWindowTitle(toQt(caption));
    }
}
