// Subclasses a system control. SetWindowSubclass would read a window property twice per message, and under Wine each
// read is a request to another process: half of those of the program's start.
#pragma once

#include <windows.h>

class Subclass {
public:
    // selfOf returns `self` in the procedure. Once per control; uses the control's user data.
    void install(HWND control, WNDPROC procedure, void* self) {
        SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        original_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(control, GWLP_WNDPROC, toLong(procedure)));
    }
    // Calls the control's own procedure.
    LRESULT original(HWND control, UINT message, WPARAM w, LPARAM l) const {
        return CallWindowProcW(original_, control, message, w, l);
    }
    template <typename Self>
    static Self* selfOf(HWND control) {
        return reinterpret_cast<Self*>(GetWindowLongPtrW(control, GWLP_USERDATA));
    }

private:
    static LONG_PTR toLong(WNDPROC procedure) { return reinterpret_cast<LONG_PTR>(procedure); }

    WNDPROC original_ = nullptr;
};
