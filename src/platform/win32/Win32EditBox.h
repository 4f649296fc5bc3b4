// txtEdit as the system's edit control, a child of the main window above the grids.
#pragma once

#include <windows.h>

#include "platform/EditBox.h"

class Win32EditBox : public EditBox {
public:
    void createWindow(HWND parent);
    HWND window() const { return window_; }

    void setListener(EditBoxListener& listener) override { listener_ = &listener; }
    void setLimit(int units) override;
    void setText(std::u16string_view text) override;
    std::u16string text() const override;
    void setBounds(double left, double top, double width, double height) override;
    void setVisible(bool visible) override;
    bool isVisible() const override { return visible_; }
    void takeFocus() override { SetFocus(window_); }

private:
    static LRESULT CALLBACK procedure(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR self);

    HWND window_ = nullptr;
    // Known before the window hides: hiding takes the focus away, and that must not look like a visible box losing it.
    bool visible_ = false;
    EditBoxListener* listener_ = nullptr;
};
