// The events of a grid: pointer, keys, header and scroll bars.
#include <windows.h>
#include <windowsx.h>

#include <utility>

#include "platform/win32/Scale.h"
#include "platform/win32/Win32GridView.h"

namespace {

bool held(int key) { return GetKeyState(key) < 0; }

int shiftState() {
    return (held(VK_SHIFT) ? Shift::ShiftKey : 0) | (held(VK_CONTROL) ? Shift::Ctrl : 0) |
           (held(VK_MENU) ? Shift::Alt : 0);
}

int headerItemAt(HWND header, LPARAM point) {
    HDHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
    SendMessageW(header, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return (hit.flags & HHT_ONHEADER) != 0 ? hit.iItem : -1;
}

bool isPointerMessage(UINT message) { return message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK; }

}  // namespace

LRESULT CALLBACK Win32GridView::listProcedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    auto* view = Subclass::selfOf<Win32GridView>(window);
    return view->listener_ != nullptr ? view->listMessage(message, w, l) : view->list_.original(window, message, w, l);
}

LRESULT Win32GridView::listMessage(UINT message, WPARAM w, LPARAM l) {
    if (isPointerMessage(message)) {
        pointerAt(window_, l);
        tipAt({GET_X_LPARAM(l), GET_Y_LPARAM(l)});
        tip_.relay(message, w, l);
    }
    switch (message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return keyMessage(message, w, l);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return leftPressed(message, w, l);
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            rightPressed(l);
            return 0;
        case WM_RBUTTONUP:
            rightReleased(l);
            return 0;
        case WM_CONTEXTMENU:
            contextMenu(l);
            return 0;
        case WM_NOTIFY: {
            const LRESULT result = list_.original(window_, message, w, l);
            headerNotified(*reinterpret_cast<const NMHDR*>(l));
            return result;
        }
        case WM_VSCROLL:
        case WM_HSCROLL:
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            return scroll(message, w, l);
        case WM_SIZE: {
            const LRESULT result = list_.original(window_, message, w, l);
            if (quiet_ == 0) {
                listener_->resized();
            }
            return result;
        }
        default:
            return list_.original(window_, message, w, l);
    }
}

LRESULT Win32GridView::scroll(UINT message, WPARAM w, LPARAM l) {
    const auto before = scrollPosition();
    const LRESULT result = list_.original(window_, message, w, l);
    if (scrollPosition() != before) {
        reportViewChange();
    }
    return result;
}

LRESULT Win32GridView::keyMessage(UINT message, WPARAM w, LPARAM l) {
    // The character of this key is already queued; a handled key must not also type it.
    const UINT characterMessage = message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR;
    MSG character{};
    const bool hasCharacter = PeekMessageW(&character, window_, characterMessage, characterMessage, PM_REMOVE) != 0;
    if (listener_->keyDown(static_cast<int>(w), shiftState())) {
        return 0;
    }
    const LRESULT result = list_.original(window_, message, w, l);
    if (hasCharacter) {
        list_.original(window_, characterMessage, character.wParam, character.lParam);
    }
    return result;
}

void Win32GridView::pointerAt(HWND source, LPARAM point) {
    POINT at{GET_X_LPARAM(point), GET_Y_LPARAM(point)};
    MapWindowPoints(source, window_, &at, 1);
    const Scale scale(window_);
    listener_->pointerMoved(scale.twips(at.x), scale.twips(at.y));
}

int Win32GridView::rowAt(LPARAM point) const {
    LVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
    return static_cast<int>(send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

LRESULT Win32GridView::leftPressed(UINT message, WPARAM w, LPARAM l) {
    // Focus first, so that an open edit ends while its row is still selected.
    SetFocus(window_);
    const LRESULT result = list_.original(window_, message, w, l);
    if (rowAt(l) < 0) {
        reportViewChange();
    } else if (message == WM_LBUTTONDBLCLK) {
        listener_->itemDoubleClicked();
    } else {
        listener_->itemClicked();
    }
    return result;
}

// The control must not get the press: it would clear the selection on empty space and consume the release.
void Win32GridView::rightPressed(LPARAM point) {
    rightDown_ = true;
    SetFocus(window_);
    const Scale scale(window_);
    listener_->rightPressed(rowAt(point) + 1, scale.twips(GET_X_LPARAM(point)), scale.twips(GET_Y_LPARAM(point)));
}

void Win32GridView::rightReleased(LPARAM point) {
    if (std::exchange(rightDown_, false)) {
        const Scale scale(window_);
        listener_->rightButton(scale.twips(GET_X_LPARAM(point)), scale.twips(GET_Y_LPARAM(point)));
    }
}

void Win32GridView::contextMenu(LPARAM point) {
    if (point != -1) {
        return;  // the pointer's menu opens when the button is released
    }
    int middle = 0;
    const auto focused = send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
    if (focused >= 0) {
        const Quiet quiet(quiet_);
        send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(focused), FALSE);
        const RECT bounds = rowBounds(static_cast<int>(focused));
        middle = static_cast<int>(bounds.top + bounds.bottom) / 2;
    }
    listener_->menuKey(Scale(window_).twips(middle));
}

std::pair<int, int> Win32GridView::scrollPosition() const {
    return {GetScrollPos(window_, SB_HORZ), static_cast<int>(send(LVM_GETTOPINDEX))};
}

void Win32GridView::reportViewChange() {
    if (quiet_ == 0) {
        listener_->viewChanged();
    }
}

void Win32GridView::headerNotified(const NMHDR& header) {
    if (quiet_ != 0 || (header.code != HDN_ITEMCHANGEDW && header.code != HDN_ITEMCHANGEDA)) {
        return;
    }
    const int index = reinterpret_cast<const NMHEADERW&>(header).iItem;
    const auto width = static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(index)));
    grid_->columnDragged(index + 1, Scale(window_).twips(width));
    listener_->columnDragged();
}

LRESULT CALLBACK Win32GridView::headerProcedure(HWND header, UINT message, WPARAM w, LPARAM l) {
    auto* view = Subclass::selfOf<Win32GridView>(header);
    if (view->listener_ != nullptr && isPointerMessage(message)) {
        view->pointerAt(header, l);
    }
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
        view->pressedHeader_ = headerItemAt(header, l);
    }
    const LRESULT result = view->header_.original(header, message, w, l);
    if (message == WM_LBUTTONUP && view->listener_ != nullptr) {
        // A header without buttons does not report clicks.
        const int index = headerItemAt(header, l);
        if (index >= 0 && index == view->pressedHeader_) {
            view->listener_->headerClicked(view->grid_->columns()[static_cast<std::size_t>(index)].key);
        }
        view->pressedHeader_ = -1;
    }
    return result;
}
