// The single-line edit box over a grid cell, a child of the main window's client area.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The part of a typed or pasted text that is inserted if `room` UTF-16 units are free. It ends before the first line
// break and never within a surrogate pair.
constexpr std::u16string_view insertable(std::u16string_view text, std::size_t room) {
    text = text.substr(0, text.find_first_of(u"\r\n\u2028\u2029"));
    if (text.size() <= room) {
        return text;
    }
    const bool cutsPair = room > 0 && (text[room - 1] & 0xFC00) == 0xD800 && (text[room] & 0xFC00) == 0xDC00;
    return text.substr(0, cutsPair ? room - 1 : room);
}

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
    // Maximum length by typing or pasting, in UTF-16 units; a longer paste is cut. setText is never truncated. The text
    // never contains a line break.
    virtual void setLimit(int units) = 0;
    virtual void setText(std::u16string_view text) = 0;  // caret at the end, everything selected
    virtual std::u16string text() const = 0;
    virtual void setBounds(double left, double top, double width, double height) = 0;  // twips
    virtual void setVisible(bool visible) = 0;
    virtual void takeFocus() = 0;
};
