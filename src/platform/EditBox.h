// The single-line edit box that is laid over a grid cell. A child of the main window's client area.
#pragma once

#include <string>
#include <string_view>

class EditBoxListener {
public:
    virtual ~EditBoxListener() = default;
    virtual void enterPressed() = 0;
    virtual void lostFocus() = 0;
};

class EditBox {
public:
    virtual ~EditBox() = default;
    // The listener outlives the window; set once, before the window is shown.
    virtual void setListener(EditBoxListener& listener) = 0;
    // Most UTF-16 units that typing and pasting may reach; a text set by setText is never cut by it.
    // A paste is cut to what fits. Line breaks never enter the text.
    virtual void setLimit(int units) = 0;
    virtual void setText(std::u16string_view text) = 0;  // caret at the end, everything selected
    virtual std::u16string text() const = 0;
    virtual void setBounds(double left, double top, double width, double height) = 0;  // twips
    virtual void setVisible(bool visible) = 0;
    virtual void takeFocus() = 0;
};
