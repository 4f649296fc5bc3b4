#include "platform/win32/Win32GridView.h"

#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"

namespace {

constexpr DWORD kStyle =
    WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS;
constexpr DWORD kExtendedStyle = WS_EX_CLIENTEDGE;

}  // namespace

void Win32GridView::setParent(HWND parent, std::u16string_view name) {
    parent_ = parent;
    name_ = toWide(name);
}

void Win32GridView::createWindow() {
    if (window_ != nullptr) {
        return;
    }
    window_ = CreateWindowExW(kExtendedStyle, WC_LISTVIEWW, name_.c_str(), kStyle, bounds_.left, bounds_.top,
                              bounds_.right - bounds_.left, bounds_.bottom - bounds_.top, parent_, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    const DWORD extended = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, extended, static_cast<LPARAM>(extended));
    headerWindow_ = reinterpret_cast<HWND>(send(LVM_GETHEADER));
    SetWindowLongPtrW(headerWindow_, GWL_STYLE,
                      GetWindowLongPtrW(headerWindow_, GWL_STYLE) & ~static_cast<LONG_PTR>(HDS_BUTTONS));
    tip_.setList(window_);
    setFont(font_);
    list_.install(window_, listProcedure, this);
    header_.install(headerWindow_, headerProcedure, this);
    fill();
}

void Win32GridView::show() {
    createWindow();
    SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void Win32GridView::setFont(HFONT font) {
    font_ = font;
    if (window_ != nullptr) {
        send(WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
    }
}

void Win32GridView::place(const RECT& bounds, POINT corner) {
    corner_ = corner;
    const SIZE before{bounds_.right - bounds_.left, bounds_.bottom - bounds_.top};
    const SIZE size{bounds.right - bounds.left, bounds.bottom - bounds.top};
    bounds_ = bounds;
    if (window_ != nullptr) {
        MoveWindow(window_, bounds.left, bounds.top, size.cx, size.cy, TRUE);
    } else if (listener_ != nullptr && (size.cx != before.cx || size.cy != before.cy)) {
        listener_->resized();
    }
}

int Win32GridView::border() const {
    RECT edge{};
    AdjustWindowRectExForDpi(&edge, kStyle, FALSE, kExtendedStyle, static_cast<UINT>(Scale(parent_).dpi()));
    return static_cast<int>(-edge.top);
}

void Win32GridView::attach(Grid& grid, GridListener& listener) {
    grid_ = &grid;
    listener_ = &listener;
    fill();
}

void Win32GridView::fill() {
    if (window_ == nullptr || grid_ == nullptr) {
        return;
    }
    const Quiet quiet(quiet_);
    for (int column = 1; column <= static_cast<int>(grid_->columns().size()); ++column) {
        insertColumn(column);
    }
    afterReset();
    measureRows();
}

void Win32GridView::measureRows() const {
    HDC nothing = CreateCompatibleDC(nullptr);
    send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(nothing), PRF_CLIENT);
    DeleteDC(nothing);
}

int Win32GridView::columnCount() const { return static_cast<int>(SendMessageW(headerWindow_, HDM_GETITEMCOUNT, 0, 0)); }

void Win32GridView::columnAdded(int column) { insertColumn(column); }

void Win32GridView::insertColumn(int column) {
    const Quiet quiet(quiet_);
    const GridColumn& added = grid_->columns()[static_cast<std::size_t>(column - 1)];
    std::wstring caption = toWide(added.caption);
    LVCOLUMNW item{};
    item.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    item.pszText = caption.data();
    item.cx = Scale(window_).pixels(added.width);
    item.iSubItem = column - 1;
    send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column - 1), reinterpret_cast<LPARAM>(&item));
}

double Win32GridView::showColumnWidth(int column, double widthTwips) {
    const Quiet quiet(quiet_);
    const Scale scale(parent_);
    if (window_ == nullptr) {
        return scale.twips(scale.pixels(widthTwips));
    }
    const auto index = static_cast<WPARAM>(column - 1);
    send(LVM_SETCOLUMNWIDTH, index, scale.pixels(widthTwips));
    return scale.twips(static_cast<int>(send(LVM_GETCOLUMNWIDTH, index)));
}

void Win32GridView::showWidthsAgain() {
    const int shown = columnCount();
    for (int column = 1; grid_ != nullptr && column <= shown; ++column) {
        showColumnWidth(column, grid_->columns()[static_cast<std::size_t>(column - 1)].width);
    }
}

void Win32GridView::showRowCount(DWORD flags) {
    const Quiet quiet(quiet_);
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(grid_->rowCount()), static_cast<LPARAM>(flags));
}

void Win32GridView::afterAppend(int) { showRowCount(LVSICF_NOSCROLL | LVSICF_NOINVALIDATEALL); }

void Win32GridView::afterReset() {
    if (window_ == nullptr) {
        return;
    }
    showRowCount(LVSICF_NOSCROLL);
    showSelection();
    InvalidateRect(window_, nullptr, FALSE);
}

void Win32GridView::showSelection() {
    const Quiet quiet(quiet_);
    setRowState(-1, 0, LVIS_SELECTED);
    for (int row = 1; row <= grid_->rowCount(); ++row) {
        if (grid_->isSelected(row)) {
            setRowState(row - 1, LVIS_SELECTED, LVIS_SELECTED);
        }
    }
}

void Win32GridView::selectionChanged(int focusedRow) {
    createWindow();
    showSelection();
    setRowState(focusedRow - 1, LVIS_FOCUSED, LVIS_FOCUSED);
    send(LVM_SETSELECTIONMARK, 0, focusedRow - 1);
}

void Win32GridView::cellChanged(int row, int) {
    send(LVM_REDRAWITEMS, static_cast<WPARAM>(row - 1), static_cast<LPARAM>(row - 1));
}

void Win32GridView::setRowState(int index, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    send(LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

RECT Win32GridView::rowBounds(int index) const {
    RECT bounds{};
    bounds.left = LVIR_BOUNDS;
    send(LVM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&bounds));
    return bounds;
}

GridGeometry Win32GridView::geometry(int row) {
    if (row > 0) {
        createWindow();
    }
    const Scale scale(parent_);
    GridGeometry result;
    result.left = scale.twips(bounds_.left - corner_.x);
    result.top = scale.twips(bounds_.top - corner_.y);
    result.width = scale.twips(bounds_.right - bounds_.left);
    result.height = scale.twips(bounds_.bottom - bounds_.top);
    if (window_ == nullptr) {
        return result;
    }
    RECT header{};
    GetWindowRect(headerWindow_, &header);
    MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&header), 2);
    result.rowLeft = scale.twips(header.left);  // it scrolls with the rows
    if (grid_ != nullptr && row >= 1 && row <= grid_->rowCount()) {
        const Quiet quiet(quiet_);
        send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row - 1), FALSE);
        const RECT bounds = rowBounds(row - 1);
        result.rowTop = scale.twips(bounds.top);
        result.rowHeight = scale.twips(bounds.bottom - bounds.top);
    }
    return result;
}

void Win32GridView::takeFocus() {
    createWindow();
    SetFocus(window_);
}
