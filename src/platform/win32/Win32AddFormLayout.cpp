// The layout of the Add List dialog: creates its controls and places them.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>

#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32AddForm.h"
#include "platform/win32/WindowText.h"

namespace {

// Lengths in twips.
constexpr double kMargin = 165;
constexpr double kGap = 105;
constexpr double kRowPitch = 435;
constexpr double kFieldHeight = 345;
constexpr double kFieldWidth = 2700;
constexpr double kComboWidth = 825;
constexpr double kUnitWidth = 600;
constexpr double kButtonWidth = 1260;
constexpr double kButtonHeight = 375;
constexpr double kDropHeight = 3000;

int rowTop(const Scale& scale, int row) { return scale.pixels(kMargin + row * kRowPitch); }

}  // namespace

HWND Win32AddForm::createChild(const wchar_t* className, std::u16string_view text, DWORD style, DWORD extended,
                               int id) {
    return CreateWindowExW(extended, className, toWide(text).c_str(), WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                           window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                           nullptr);
}

HWND Win32AddForm::createLabel(std::u16string_view caption, DWORD style) {
    return createChild(WC_STATICW, caption, style, 0, -1);
}

void Win32AddForm::createField(AddField which) {
    HWND window = isCombo(which)
                      ? createChild(WC_COMBOBOXW, {}, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0, 0)
                      : createChild(WC_EDITW, {}, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, 0);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    HWND typedInto = isCombo(which) && GetComboBoxInfo(window, &info) != 0 ? info.hwndItem : window;
    Field& made = fields_[static_cast<std::size_t>(which)];
    made.form = this;
    made.which = which;
    made.window = window;
    made.subclass.install(typedInto, fieldProcedure, &made);
    made.limit.setNoLimit(typedInto);
}

HWND Win32AddForm::createButton(AddControl which, std::u16string_view caption) {
    const int id = which == AddControl::saveCmd ? IDOK : IDCANCEL;
    const bool isDefault = which == kAddDefaultButton;
    const DWORD kind = isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    HWND button = createChild(WC_BUTTONW, caption, WS_TABSTOP | kind, 0, id);
    if (isDefault) {
        SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(id), 0);
    }
    return button;
}

// In tab order. A label precedes its field, which gets its name and mnemonic.
void Win32AddForm::createControls(const AddCaptions& captions) {
    const auto indexOf = [](AddControl which) { return static_cast<std::size_t>(which); };
    for (const AddRow& row : kAddRows) {
        controls_[indexOf(row.label)] = createLabel(captions[indexOf(row.label)], SS_CENTERIMAGE);
        createField(row.field);
        if (row.after) {
            controls_[indexOf(*row.after)] = createLabel(captions[indexOf(*row.after)], SS_CENTERIMAGE);
        }
        if (row.second) {
            // A screen reader uses the label before a field, visible or not, as its name. The separator between hours
            // and minutes would be a poor name.
            ShowWindow(createLabel(withoutMnemonic(captions[indexOf(row.label)]), SS_NOPREFIX), SW_HIDE);
            createField(*row.second);
        }
    }
    for (const AddControl button : kAddButtons) {
        controls_[indexOf(button)] = createButton(button, captions[indexOf(button)]);
    }
}

void Win32AddForm::layOut() {
    const Scale scale(window_);
    font_.create(scale.dpi());
    int labelWidth = 0;
    for (HWND child : controls_) {
        const std::wstring caption = windowText(child);
        const SIZE extent = font_.extent(caption.c_str(), static_cast<int>(caption.size()));
        labelWidth = std::max(labelWidth, static_cast<int>(extent.cx));
        font_.applyTo(child);
    }
    for (const Field& field : fields_) {
        font_.applyTo(field.window);
    }
    const int right = placeRows(scale, labelWidth);
    const int bottom = placeButtons(scale, right);
    RECT area{0, 0, right + scale.pixels(kMargin), bottom + scale.pixels(kMargin)};
    AdjustWindowRectExForDpi(&area, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)),
                             static_cast<UINT>(scale.dpi()));
    SetWindowPos(window_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

int Win32AddForm::placeRows(const Scale& scale, int labelWidth) {
    const int gap = scale.pixels(kGap);
    int right = 0;
    int line = 0;
    for (const AddRow& row : kAddRows) {
        const int top = rowTop(scale, line++);
        const auto place = [&](HWND child, int left, int width, int dropHeight = 0) {
            MoveWindow(child, left, top, width, scale.pixels(kFieldHeight) + dropHeight, TRUE);
            return left + width;
        };
        const auto placeField = [&](AddField which, int left) {
            return isCombo(which) ? place(field(which), left, scale.pixels(kComboWidth), scale.pixels(kDropHeight))
                                  : place(field(which), left, scale.pixels(kFieldWidth));
        };
        int end = place(control(row.label), scale.pixels(kMargin), labelWidth);
        end = placeField(row.field, end + gap);
        if (row.after) {
            end = place(control(*row.after), end + gap, row.second ? 2 * gap : scale.pixels(kUnitWidth));
        }
        if (row.second) {
            end = placeField(*row.second, end + gap);
        }
        right = std::max(right, end);
    }
    return right;
}

int Win32AddForm::placeButtons(const Scale& scale, int right) {
    const int gap = scale.pixels(kGap);
    const int width = scale.pixels(kButtonWidth);
    const int height = scale.pixels(kButtonHeight);
    const int top = rowTop(scale, static_cast<int>(kAddRows.size())) + gap;
    int left = right + gap - static_cast<int>(kAddButtons.size()) * (width + gap);
    for (const AddControl button : kAddButtons) {
        MoveWindow(control(button), left, top, width, height, TRUE);
        left += width + gap;
    }
    return top + height;
}
