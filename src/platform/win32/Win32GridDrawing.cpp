// The drawing that the list view does not do: lines between the cells, and tooltips of truncated cells.
#include <algorithm>
#include <utility>

#include "platform/GridLineColor.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32GridView.h"

namespace {

constexpr int kCellPadding = 12;  // pixels, left and right of the text in total

Rgb systemColor(int index) {
    const COLORREF color = GetSysColor(index);
    return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

}  // namespace

// The control's own lines have a fixed colour, which ignores dark and high-contrast themes.
void Win32GridView::drawLines(HDC dc) const {
    const auto first = static_cast<int>(send(LVM_GETTOPINDEX));
    const int last = std::min(first + static_cast<int>(send(LVM_GETCOUNTPERPAGE)), grid_->rowCount() - 1);
    if (last < first) {
        return;
    }
    const Rgb color = gridLineColor(systemColor(COLOR_WINDOW), systemColor(COLOR_WINDOWTEXT));
    HPEN pen = CreatePen(PS_SOLID, 1, RGB(color.red, color.green, color.blue));
    HGDIOBJ former = SelectObject(dc, pen);
    const RECT top = rowBounds(first);
    for (int row = first; row <= last; ++row) {
        const RECT bounds = rowBounds(row);
        MoveToEx(dc, bounds.left, bounds.bottom - 1, nullptr);
        LineTo(dc, bounds.right, bounds.bottom - 1);
    }
    const int bottom = rowBounds(last).bottom;
    int right = top.left;
    for (int column = 0; column < columnCount(); ++column) {
        right += static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
        MoveToEx(dc, right - 1, top.top, nullptr);
        LineTo(dc, right - 1, bottom);
    }
    SelectObject(dc, former);
    DeleteObject(pen);
}

LRESULT Win32GridView::customDraw(const NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYPOSTPAINT;
    }
    if (draw.nmcd.dwDrawStage == CDDS_POSTPAINT) {
        drawLines(draw.nmcd.hdc);
    }
    return CDRF_DODEFAULT;
}

void Win32GridView::tipAt(POINT point) {
    LVHITTESTINFO hit{};
    hit.pt = point;
    if (send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0) {
        tip_.hide();
        return;
    }
    RECT cell = rowBounds(hit.iItem);
    for (int column = 0; column < hit.iSubItem; ++column) {
        cell.left += static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
    }
    cell.right = cell.left + static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(hit.iSubItem)));
    RECT shown{};
    GetClientRect(window_, &shown);
    IntersectRect(&shown, &shown, &cell);
    std::wstring text = toWide(grid_->text(hit.iItem + 1, hit.iSubItem + 1));
    const auto width = static_cast<int>(send(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.c_str())));
    if (width + kCellPadding > shown.right - shown.left) {
        tip_.show(shown, std::move(text));
    } else {
        tip_.hide();
    }
}
