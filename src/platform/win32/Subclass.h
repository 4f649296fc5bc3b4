// Puts a procedure before that of a system control. SetWindowSubclass would look up a window property twice for each
// message, and under Wine each look-up asks another process: half of what the program's start would ask of it.
#pragma once

#include <windows.h>

class Subclass {
public:
    // `self` is what selfOf gives back in the procedure. Once for a control; the control's user data is taken.
    void install(HWND control, WNDPROC procedure, void* self) {
        SetWindowLongPtrW(control, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        original_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(control, GWLP_WNDPROC, toLong(procedure)));
    }
    // What the control itself makes of the message.
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
