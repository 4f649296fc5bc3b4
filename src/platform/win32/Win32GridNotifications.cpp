// What the list view asks for and reports: texts, drawing, type-ahead and the selection.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32GridView.h"

LRESULT Win32GridView::notified(const NMHDR& header) {
    if (grid_ == nullptr) {
        return 0;
    }
    switch (header.code) {
        case LVN_GETDISPINFOW:
            fillCell(*reinterpret_cast<NMLVDISPINFOW*>(const_cast<NMHDR*>(&header)));
            return 0;
        case NM_CUSTOMDRAW:
            return customDraw(reinterpret_cast<const NMLVCUSTOMDRAW&>(header));
        case LVN_ODFINDITEMW:
            return findRow(reinterpret_cast<const NMLVFINDITEMW&>(header));
        case LVN_ITEMCHANGED: {
            const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
            if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0) {
                const int last = change.iItem < 0 ? grid_->rowCount() - 1 : change.iItem;
                reportSelection(std::max(change.iItem, 0), last, (change.uNewState & LVIS_SELECTED) != 0);
            }
            return 0;
        }
        case LVN_ODSTATECHANGED: {
            const auto& change = reinterpret_cast<const NMLVODSTATECHANGE&>(header);
            reportSelection(change.iFrom, change.iTo, (change.uNewState & LVIS_SELECTED) != 0);
            return 0;
        }
        default:
            return 0;
    }
}

void Win32GridView::reportSelection(int first, int last, bool selected) {
    for (int index = first; quiet_ == 0 && index <= last; ++index) {
        grid_->setSelected(index + 1, selected);
    }
}

void Win32GridView::fillCell(NMLVDISPINFOW& wanted) const {
    if ((wanted.item.mask & LVIF_TEXT) == 0 || wanted.item.pszText == nullptr || wanted.item.cchTextMax <= 0) {
        return;
    }
    const std::u16string_view text = grid_->text(wanted.item.iItem + 1, wanted.item.iSubItem + 1);
    const auto length = std::min(text.size(), static_cast<std::size_t>(wanted.item.cchTextMax - 1));
    std::copy_n(text.begin(), length, wanted.item.pszText);
    wanted.item.pszText[length] = L'\0';
}

// Type-ahead: the first row from the start row, wrapping around, whose programme begins with the typed text.
int Win32GridView::findRow(const NMLVFINDITEMW& wanted) const {
    const int count = grid_->rowCount();
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || wanted.lvfi.psz == nullptr || count == 0) {
        return -1;
    }
    const std::wstring typed = wanted.lvfi.psz;
    const int start = std::clamp(wanted.iStart, 0, count - 1);
    for (int i = 0; i < count; ++i) {
        const int index = (start + i) % count;
        const std::wstring beginning = toWide(grid_->text(index + 1, 1).substr(0, typed.size()));
        if (CompareStringOrdinal(beginning.c_str(), -1, typed.c_str(), -1, TRUE) == CSTR_EQUAL) {
            return index;
        }
    }
    return -1;
}
