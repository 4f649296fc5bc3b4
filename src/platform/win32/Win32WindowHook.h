// The system's thread-local computer-based-training hook.
#pragma once

#include <windows.h>

#include "platform/WindowHook.h"

class Win32WindowHook : public WindowHook {
public:
    HookHandle setHook(int hookType, HookListener& listener) override;
    void unhook(HookHandle hook) override;
    std::intptr_t callNext(HookHandle hook, int code, std::uintptr_t window, std::intptr_t other) override;
    void enumerateChildren(WindowHandle parent, HookListener& listener) override;
    std::u16string className(WindowHandle window) override;
    std::u16string caption(WindowHandle window) override;
    void setCaption(WindowHandle window, std::u16string_view caption) override;

private:
    static LRESULT CALLBACK procedure(int code, WPARAM w, LPARAM l);

    // The hook procedure gets no context pointer; the user-interface thread has at most one hook.
    static inline HookListener* listener_ = nullptr;
};
