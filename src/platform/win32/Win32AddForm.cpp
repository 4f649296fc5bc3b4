#include "platform/win32/Win32AddForm.h"

#include <commctrl.h>

#include <utility>

#include "platform/win32/WideText.h"
#include "platform/win32/WindowText.h"

namespace {

constexpr WPARAM kEnter = 13;
constexpr WPARAM kEscape = 27;

// Otherwise the dialog manager turns Enter and Escape into button presses before a field gets them.
bool wantsForField(LPARAM messageAskedFor) {
    const auto* message = reinterpret_cast<const MSG*>(messageAskedFor);
    return message != nullptr && (message->message == WM_KEYDOWN || message->message == WM_CHAR) &&
           (message->wParam == kEnter || message->wParam == kEscape);
}

// A template without controls; they are created in code, since their sizes depend on the texts.
struct EmptyTemplate {
    DLGTEMPLATE head;
    WORD menu;
    WORD windowClass;
    WORD title;
};

}  // namespace

void Win32AddForm::create(const AddCaptions& captions, AddFormListener& listener) {
    destroy();
    EmptyTemplate dialog{};
    dialog.head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    listener_ = &listener;
    window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &dialog.head, owner_, procedure,
                                         reinterpret_cast<LPARAM>(this));
    if (window_ == nullptr) {
        return;
    }
    createControls(captions);
    layOut();
}

INT_PTR CALLBACK Win32AddForm::procedure(HWND dialog, UINT message, WPARAM w, LPARAM l) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, static_cast<LONG_PTR>(l));
        return FALSE;  // there is no field yet that could take the focus
    }
    auto* self = reinterpret_cast<Win32AddForm*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return self != nullptr && self->window_ == dialog ? self->handle(message, w, l) : FALSE;
}

INT_PTR Win32AddForm::handle(UINT message, WPARAM w, LPARAM) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(w) == IDOK && HIWORD(w) == BN_CLICKED) {
                listener_->saveClicked();
                return TRUE;
            }
            if (LOWORD(w) == IDCANCEL && HIWORD(w) == BN_CLICKED) {
                listener_->cancelClicked();
                return TRUE;
            }
            return FALSE;
        case WM_CLOSE:
            listener_->closeBoxClicked();
            return TRUE;
        case WM_DPICHANGED:
            layOut();
            return TRUE;
        case WM_DESTROY:
            window_ = nullptr;
            return FALSE;
        default:
            return FALSE;
    }
}

LRESULT CALLBACK Win32AddForm::fieldProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* field = Subclass::selfOf<Field>(window);
    return field->form->fieldMessage(*field, window, message, w, l);
}

LRESULT Win32AddForm::fieldMessage(Field& field, HWND window, UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_GETDLGCODE: {
            const LRESULT code = field.subclass.original(window, message, w, l);
            return wantsForField(l) ? code | DLGC_WANTMESSAGE : code;
        }
        case WM_KEYDOWN:
            return w == kEnter || w == kEscape ? commandKey(field, w) : field.subclass.original(window, message, w, l);
        case WM_CHAR:
            return w == kEnter || w == kEscape ? 0 : characterTyped(field, window, w, l);
        default:
            return field.limit.uses(window, message, w) ? 0 : field.subclass.original(window, message, w, l);
    }
}

// Handles the key, not its character, which Ctrl+M and Ctrl+[ also produce. Ctrl+Enter produces another character.
LRESULT Win32AddForm::commandKey(Field& field, WPARAM key) {
    const bool used =
        window_ == nullptr || GetKeyState(VK_CONTROL) < 0 || listener_->keyPressed(field.which, static_cast<int>(key));
    if (!used && window_ != nullptr) {
        key == kEnter ? listener_->saveClicked() : listener_->cancelClicked();
    }
    return 0;  // the control would close an open list
}

LRESULT Win32AddForm::characterTyped(Field& field, HWND window, WPARAM w, LPARAM l) {
    const bool used = window_ == nullptr || listener_->keyPressed(field.which, static_cast<int>(w));
    if (used || window_ == nullptr) {
        return 0;  // the listener may have destroyed the dialog
    }
    return field.limit.uses(window, WM_CHAR, w) ? 0 : field.subclass.original(window, WM_CHAR, w, l);
}

void Win32AddForm::setTitle(std::u16string_view title) { SetWindowTextW(window_, toWide(title).c_str()); }

void Win32AddForm::setCaption(AddControl wanted, std::u16string_view caption) {
    SetWindowTextW(control(wanted), toWide(caption).c_str());
}

void Win32AddForm::setEnabled(AddField wanted, bool enabled) { EnableWindow(field(wanted), enabled ? TRUE : FALSE); }

void Win32AddForm::setItems(AddField combo, const std::vector<std::u16string>& items) {
    SendMessageW(field(combo), CB_RESETCONTENT, 0, 0);
    for (const std::u16string& item : items) {
        SendMessageW(field(combo), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(item).c_str()));
    }
}

std::u16string Win32AddForm::text(AddField wanted) const { return fromWide(windowText(field(wanted))); }

bool Win32AddForm::isListOpen(AddField combo) const {
    return SendMessageW(field(combo), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void Win32AddForm::closeList(AddField combo, bool takeHighlighted) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    GetComboBoxInfo(field(combo), &info);
    const LRESULT highlighted = SendMessageW(info.hwndList, LB_GETCURSEL, 0, 0);
    SendMessageW(field(combo), CB_SHOWDROPDOWN, FALSE, 0);
    if (takeHighlighted && highlighted != LB_ERR) {
        SendMessageW(field(combo), CB_SETCURSEL, static_cast<WPARAM>(highlighted), 0);
    }
}

void Win32AddForm::takeFocus(AddField wanted) {
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(field(wanted)), TRUE);
}

void Win32AddForm::show() {
    RECT owner{};
    RECT own{};
    GetWindowRect(owner_, &owner);
    GetWindowRect(window_, &own);
    const int left = static_cast<int>(owner.left + owner.right - (own.right - own.left)) / 2;
    const int top = static_cast<int>(owner.top + owner.bottom - (own.bottom - own.top)) / 2;
    SetWindowPos(window_, HWND_TOP, left, top, 0, 0, SWP_NOSIZE | SWP_SHOWWINDOW);
}

void Win32AddForm::destroy() {
    if (HWND closed = std::exchange(window_, nullptr)) {
        DestroyWindow(closed);
    }
}
