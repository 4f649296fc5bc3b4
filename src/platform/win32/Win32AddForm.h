// The Add List dialog as a modeless system dialog.
#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "platform/AddFormView.h"
#include "platform/win32/InsertionLimit.h"
#include "platform/win32/Subclass.h"
#include "platform/win32/SystemFont.h"

class Scale;

class Win32AddForm : public AddFormView {
public:
    explicit Win32AddForm(HWND owner) : owner_(owner) {}
    ~Win32AddForm() override { Win32AddForm::destroy(); }
    Win32AddForm(const Win32AddForm&) = delete;
    Win32AddForm& operator=(const Win32AddForm&) = delete;

    // Keyboard navigation within the dialog. True: the message has been handled.
    bool usesMessage(MSG& message) { return window_ != nullptr && IsDialogMessageW(window_, &message) != 0; }

    void create(const AddCaptions& captions, AddFormListener& listener) override;
    void setTitle(std::u16string_view title) override;
    void setCaption(AddControl control, std::u16string_view caption) override;
    void setEnabled(AddField field, bool enabled) override;
    void setItems(AddField combo, const std::vector<std::u16string>& items) override;
    std::u16string text(AddField field) const override;
    bool isListOpen(AddField combo) const override;
    void closeList(AddField combo, bool takeHighlighted) override;
    void takeFocus(AddField field) override;
    void show() override;
    void destroy() override;
    bool isOpen() const override { return window_ != nullptr; }

private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM w, LPARAM l);
    // A text box or combo box, and the subclass of the control that receives the typing.
    struct Field {
        Win32AddForm* form = nullptr;
        AddField which{};
        HWND window = nullptr;
        Subclass subclass;
        InsertionLimit limit;
    };

    static LRESULT CALLBACK fieldProcedure(HWND, UINT, WPARAM, LPARAM);
    INT_PTR handle(UINT message, WPARAM w, LPARAM l);
    LRESULT fieldMessage(Field& field, HWND window, UINT message, WPARAM w, LPARAM l);
    LRESULT commandKey(Field& field, WPARAM key);
    LRESULT characterTyped(Field& field, HWND window, WPARAM w, LPARAM l);
    void createControls(const AddCaptions& captions);
    void createField(AddField field);
    HWND createLabel(std::u16string_view caption, DWORD style);
    HWND createButton(AddControl button, std::u16string_view caption);
    HWND createChild(const wchar_t* className, std::u16string_view text, DWORD style, DWORD extended, int id);
    void layOut();
    int placeRows(const Scale& scale, int labelWidth);  // returns their right edge, in pixels
    int placeButtons(const Scale& scale, int right);    // returns their bottom edge, in pixels
    HWND field(AddField wanted) const { return fields_[static_cast<std::size_t>(wanted)].window; }
    HWND control(AddControl wanted) const { return controls_[static_cast<std::size_t>(wanted)]; }

    HWND owner_;
    HWND window_ = nullptr;
    AddFormListener* listener_ = nullptr;
    std::array<Field, kAddFieldCount> fields_{};
    std::array<HWND, kAddControlCount> controls_{};
    SystemFont font_;
};
