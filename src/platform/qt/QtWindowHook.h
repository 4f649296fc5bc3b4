// Emulates the activation hook by Qt's events: the listener gets each window of the program that is about to be
// activated. A window handle is the address of the widget.
#pragma once

#include <QObject>

#include "platform/WindowHook.h"

class QtWindowHook : public QObject, public WindowHook {
public:
    HookHandle setHook(int hookType, HookListener& listener) override;
    void unhook(HookHandle hook) override;
    std::intptr_t callNext(HookHandle hook, int code, std::uintptr_t window, std::intptr_t other) override;
    void enumerateChildren(WindowHandle parent, HookListener& listener) override;
    std::u16string className(WindowHandle window) override;
    std::u16string caption(WindowHandle window) override;
    void setCaption(WindowHandle window, std::u16string_view caption) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    HookListener* listener_ = nullptr;
    HookHandle live_ = 0;
    HookHandle issued_ = 0;
};
