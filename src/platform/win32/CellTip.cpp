#include "platform/win32/CellTip.h"

#include <utility>

void CellTip::create() {
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, list_, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

TTTOOLINFOW CellTip::tool() const {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = list_;
    tool.uId = 1;
    return tool;
}

void CellTip::show(const RECT& cell, std::wstring text) {
    if (isShown_ && EqualRect(&cell, &cell_) != 0 && text == text_) {
        return;
    }
    if (tip_ == nullptr) {
        create();
    }
    hide();
    cell_ = cell;
    text_ = std::move(text);
    TTTOOLINFOW added = tool();
    added.rect = cell_;
    added.lpszText = text_.data();
    isShown_ = SendMessageW(tip_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&added)) != 0;
}

void CellTip::hide() {
    if (std::exchange(isShown_, false)) {
        TTTOOLINFOW removed = tool();
        SendMessageW(tip_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&removed));
    }
}

void CellTip::relay(UINT message, WPARAM w, LPARAM l) const {
    if (tip_ == nullptr) {
        return;
    }
    MSG relayed{};
    relayed.hwnd = list_;
    relayed.message = message;
    relayed.wParam = w;
    relayed.lParam = l;
    SendMessageW(tip_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}
