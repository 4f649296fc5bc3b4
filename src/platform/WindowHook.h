// A thread-local computer-based-training (CBT) hook and the window queries for its procedure.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

using WindowHandle = std::uintptr_t;  // 0 is the null handle
using HookHandle = std::uintptr_t;    // 0: no hook

inline constexpr int kHookTypeCbt = 5;
inline constexpr int kHookActivate = 5;  // a window is about to be activated

class HookListener {
public:
    virtual ~HookListener() = default;
    // For kHookActivate `window` is the window about to be activated. 0 allows the activation.
    virtual std::intptr_t hookProcedure(int code, std::uintptr_t window, std::intptr_t other) = 0;
    // 0 ends the enumeration, 1 continues it.
    virtual int childProcedure(WindowHandle child) = 0;
};

class WindowHook {
public:
    virtual ~WindowHook() = default;
    // For the user-interface thread only; 0 on failure.
    virtual HookHandle setHook(int hookType, HookListener& listener) = 0;
    virtual void unhook(HookHandle hook) = 0;
    virtual std::intptr_t callNext(HookHandle hook, int code, std::uintptr_t window, std::intptr_t other) = 0;
    // Calls childProcedure for each descendant until it returns 0.
    virtual void enumerateChildren(WindowHandle parent, HookListener& listener) = 0;
    virtual std::u16string className(WindowHandle window) = 0;  // "Button" for a push button
    virtual std::u16string caption(WindowHandle window) = 0;    // with its "&"
    virtual void setCaption(WindowHandle window, std::u16string_view caption) = 0;
};
