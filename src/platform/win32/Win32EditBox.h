// txtEdit as the system's edit control, a child of the main window above the grids.
#pragma once

#include <windows.h>

#include "platform/EditBox.h"
#include "platform/win32/InsertionLimit.h"
#include "platform/win32/Subclass.h"

class Win32EditBox : public EditBox {
public:
    // The window itself is created when it is first used.
    void setParent(HWND parent) { parent_ = parent; }
    HWND window() const { return window_; }  // null before it is first used
    void setFont(HFONT font);

    void setListener(EditBoxListener& listener) override { listener_ = &listener; }
    void setLimit(int units) override;
    void setText(std::u16string_view text) override;
    std::u16string text() const override;
    void setBounds(double left, double top, double width, double height) override;
    void setVisible(bool visible) override;
    void takeFocus() override { SetFocus(created()); }

private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM);
    HWND created();
    bool uses(UINT message, WPARAM w);

    HWND parent_ = nullptr;
    HFONT font_ = nullptr;
    HWND window_ = nullptr;
    HWND name_ = nullptr;  // hidden; screen readers use the label before a box as its name
    Subclass subclass_;
    InsertionLimit limit_;
    EditBoxListener* listener_ = nullptr;
};
