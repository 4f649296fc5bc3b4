// The controls of the Add List dialog and their places.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <string>

#include "platform/win32/Scale.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32AddForm.h"

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
constexpr int kRows = 5;

// Marks the first letter that no earlier caption of the dialog uses.
std::wstring withMnemonic(std::u16string_view caption, std::wstring& used) {
    std::wstring marked = toWide(caption);
    for (std::size_t i = 0; i < marked.size(); ++i) {
        const auto letter = static_cast<wchar_t>(marked[i] | 0x20);
        if (letter >= L'a' && letter <= L'z' && used.find(letter) == std::wstring::npos) {
            used += letter;
            return marked.insert(i, 1, L'&');
        }
    }
    return marked;
}

}  // namespace

HWND Win32AddForm::createChild(const wchar_t* className, const wchar_t* text, DWORD style, DWORD extended, int id) {
    return CreateWindowExW(extended, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
}

void Win32AddForm::createLabel(AddControl label, const AddCaptions& captions) {
    const auto index = static_cast<std::size_t>(label);
    const std::wstring caption =
        captions[index].ends_with(u':') ? withMnemonic(captions[index], mnemonics_) : toWide(captions[index]);
    controls_[index] = createChild(WC_STATICW, caption.c_str(), SS_CENTERIMAGE, 0, -1);
}

// A screen reader takes the label before a field for its name, seen or not. What stands between hours and minutes
// would be a poor one.
void Win32AddForm::createHiddenLabel(AddControl label, const AddCaptions& captions) {
    const std::wstring caption = toWide(captions[static_cast<std::size_t>(label)]);
    ShowWindow(createChild(WC_STATICW, caption.c_str(), SS_NOPREFIX, 0, -1), SW_HIDE);
}

void Win32AddForm::createEdit(AddField edit) {
    HWND window = createChild(WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, 0);
    fields_[static_cast<std::size_t>(edit)] = window;
    SetWindowSubclass(window, fieldProcedure, static_cast<UINT_PTR>(edit), reinterpret_cast<DWORD_PTR>(this));
}

void Win32AddForm::createCombo(AddField combo) {
    HWND window = createChild(WC_COMBOBOXW, L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0, 0);
    fields_[static_cast<std::size_t>(combo)] = window;
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (GetComboBoxInfo(window, &info) != 0) {
        SetWindowSubclass(info.hwndItem, fieldProcedure, static_cast<UINT_PTR>(combo),
                          reinterpret_cast<DWORD_PTR>(this));
    }
}

void Win32AddForm::createButton(AddControl button, const AddCaptions& captions, int id, DWORD kind) {
    const auto index = static_cast<std::size_t>(button);
    controls_[index] =
        createChild(WC_BUTTONW, withMnemonic(captions[index], mnemonics_).c_str(), WS_TABSTOP | kind, 0, id);
}

// In tab order; a label stands before its field, so that its mnemonic and its name lead there.
void Win32AddForm::createControls(const AddCaptions& captions) {
    mnemonics_.clear();
    createButton(AddControl::saveCmd, captions, IDOK, BS_DEFPUSHBUTTON);
    createButton(AddControl::cancelCmd, captions, IDCANCEL, BS_PUSHBUTTON);
    createLabel(AddControl::Label1, captions);
    createEdit(AddField::txtLabel);
    createLabel(AddControl::Label2, captions);
    createEdit(AddField::txtFreq);
    createLabel(AddControl::LaFreq, captions);
    createLabel(AddControl::Label3, captions);
    createCombo(AddField::sHourComb);
    createLabel(AddControl::Label4, captions);
    createHiddenLabel(AddControl::Label3, captions);
    createCombo(AddField::sMinComb);
    createLabel(AddControl::Label5, captions);
    createCombo(AddField::eHourComb);
    createLabel(AddControl::Label6, captions);
    createHiddenLabel(AddControl::Label5, captions);
    createCombo(AddField::eMinComb);
    createLabel(AddControl::Label7, captions);
    createEdit(AddField::txtTarget);
    // The buttons chose their letters first but come last in the tab order.
    SetWindowPos(control(AddControl::saveCmd), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SetWindowPos(control(AddControl::cancelCmd), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SendMessageW(window_, DM_SETDEFID, IDOK, 0);
}

void Win32AddForm::layOut() {
    const Scale scale(window_);
    font_.create(scale.dpi());
    int labelWidth = 0;
    for (HWND child : controls_) {
        wchar_t caption[64]{};
        const int length = GetWindowTextW(child, caption, 64);
        labelWidth = std::max(labelWidth, static_cast<int>(font_.extent(caption, length).cx));
        font_.applyTo(child);
    }
    for (HWND child : fields_) {
        font_.applyTo(child);
    }
    const int fieldHeight = scale.pixels(kFieldHeight);
    const int gap = scale.pixels(kGap);
    const int fieldLeft = scale.pixels(kMargin) + labelWidth + gap;
    const auto rowTop = [&scale](int row) { return scale.pixels(kMargin + row * kRowPitch); };
    const auto place = [fieldHeight](HWND child, int left, int top, int width, int dropHeight = 0) {
        MoveWindow(child, left, top, width, fieldHeight + dropHeight, TRUE);
        return left + width;
    };
    const auto placeTimes = [&](int row, AddField hour, AddControl separator, AddField minute) {
        const int width = scale.pixels(kComboWidth);
        int x = place(field(hour), fieldLeft, rowTop(row), width, scale.pixels(kDropHeight));
        x = place(control(separator), x + gap, rowTop(row), 2 * gap);
        place(field(minute), x + gap, rowTop(row), width, scale.pixels(kDropHeight));
    };
    constexpr AddControl kRowLabels[kRows] = {AddControl::Label1, AddControl::Label2, AddControl::Label3,
                                              AddControl::Label5, AddControl::Label7};
    for (int row = 0; row < kRows; ++row) {
        place(control(kRowLabels[row]), scale.pixels(kMargin), rowTop(row), labelWidth);
    }
    const int fieldWidth = scale.pixels(kFieldWidth);
    place(field(AddField::txtLabel), fieldLeft, rowTop(0), fieldWidth);
    const int unitLeft = place(field(AddField::txtFreq), fieldLeft, rowTop(1), fieldWidth) + gap;
    const int right = place(control(AddControl::LaFreq), unitLeft, rowTop(1), scale.pixels(kUnitWidth));
    placeTimes(2, AddField::sHourComb, AddControl::Label4, AddField::sMinComb);
    placeTimes(3, AddField::eHourComb, AddControl::Label6, AddField::eMinComb);
    place(field(AddField::txtTarget), fieldLeft, rowTop(4), fieldWidth);
    const int buttonTop = rowTop(kRows) + gap;
    const int buttonWidth = scale.pixels(kButtonWidth);
    const int buttonHeight = scale.pixels(kButtonHeight);
    MoveWindow(control(AddControl::saveCmd), right - 2 * buttonWidth - gap, buttonTop, buttonWidth, buttonHeight, TRUE);
    MoveWindow(control(AddControl::cancelCmd), right - buttonWidth, buttonTop, buttonWidth, buttonHeight, TRUE);
    RECT area{0, 0, right + scale.pixels(kMargin), buttonTop + buttonHeight + scale.pixels(kMargin)};
    AdjustWindowRectExForDpi(&area, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)),
                             static_cast<UINT>(scale.dpi()));
    SetWindowPos(window_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}
