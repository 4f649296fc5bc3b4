#include "platform/win32/Win32WindowHook.h"

#include <array>

#include "platform/win32/WideText.h"

namespace {

constexpr int kTextUnits = 256;

HWND windowOf(WindowHandle handle) { return reinterpret_cast<HWND>(handle); }

BOOL CALLBACK forwardChild(HWND child, LPARAM listener) {
    return reinterpret_cast<HookListener*>(listener)->childProcedure(reinterpret_cast<WindowHandle>(child)) != 0;
}

}  // namespace

LRESULT CALLBACK Win32WindowHook::procedure(int code, WPARAM w, LPARAM l) {
    return listener_ != nullptr ? listener_->hookProcedure(code, w, l) : CallNextHookEx(nullptr, code, w, l);
}

HookHandle Win32WindowHook::setHook(int hookType, HookListener& listener) {
    HHOOK hook = SetWindowsHookExW(hookType, procedure, nullptr, GetCurrentThreadId());
    if (hook != nullptr) {
        listener_ = &listener;
    }
    return reinterpret_cast<HookHandle>(hook);
}

void Win32WindowHook::unhook(HookHandle hook) {
    if (UnhookWindowsHookEx(reinterpret_cast<HHOOK>(hook)) != 0) {
        listener_ = nullptr;
    }
}

std::intptr_t Win32WindowHook::callNext(HookHandle hook, int code, std::uintptr_t window, std::intptr_t other) {
    return CallNextHookEx(reinterpret_cast<HHOOK>(hook), code, window, other);
}

void Win32WindowHook::enumerateChildren(WindowHandle parent, HookListener& listener) {
    EnumChildWindows(windowOf(parent), forwardChild, reinterpret_cast<LPARAM>(&listener));
}

std::u16string Win32WindowHook::className(WindowHandle window) {
    std::array<wchar_t, kTextUnits> name{};
    const int length = GetClassNameW(windowOf(window), name.data(), kTextUnits);
    return fromWide({name.data(), static_cast<std::size_t>(length)});
}

std::u16string Win32WindowHook::caption(WindowHandle window) {
    std::array<wchar_t, kTextUnits> text{};
    const int length = GetWindowTextW(windowOf(window), text.data(), kTextUnits);
    return fromWide({text.data(), static_cast<std::size_t>(length)});
}

void Win32WindowHook::setCaption(WindowHandle window, std::u16string_view caption) {
    SetWindowTextW(windowOf(window), toWide(caption).c_str());
}
