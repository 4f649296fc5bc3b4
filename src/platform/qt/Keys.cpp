#include "platform/qt/Keys.h"

#include <QKeyEvent>
#include <array>
#include <string_view>
#include <utility>

#include "platform/GridView.h"

namespace {

// The letters of a Latin keyboard by position: X and Wayland key codes, from the first of each row. Layouts of other
// scripts have their own letters there.
struct LetterRow {
    quint32 firstCode;
    std::string_view letters;
};
constexpr std::array<LetterRow, 3> kLetterRows{{{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}}};

int letterAt(quint32 code) {
    for (const LetterRow& row : kLetterRows) {
        if (code >= row.firstCode && code - row.firstCode < row.letters.size()) {
            return row.letters[code - row.firstCode];
        }
    }
    return 0;
}

constexpr int kBackspace = 8;
constexpr int kLineFeed = 10;
constexpr int kEnter = 13;
constexpr int kEscape = 27;

bool isOfAnotherScript(int key) {
    constexpr int kFirstBeyondLatin = 0x250;  // Qt's key code of a character is its code point
    return key >= kFirstBeyondLatin && key < Qt::Key_Escape;
}

}  // namespace

int classicKey(const QKeyEvent& event) {
    static constexpr std::array<std::pair<int, int>, 14> kNamed{{{Qt::Key_Return, Key::Enter},
                                                                 {Qt::Key_Enter, Key::Enter},
                                                                 {Qt::Key_Left, Key::Left},
                                                                 {Qt::Key_Right, Key::Right},
                                                                 {Qt::Key_Delete, Key::Delete},
                                                                 {Qt::Key_Backspace, 8},
                                                                 {Qt::Key_Escape, 27},
                                                                 {Qt::Key_Space, 32},
                                                                 {Qt::Key_PageUp, 33},
                                                                 {Qt::Key_PageDown, 34},
                                                                 {Qt::Key_End, 35},
                                                                 {Qt::Key_Home, 36},
                                                                 {Qt::Key_Up, 38},
                                                                 {Qt::Key_Down, 40}}};
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        return key;
    }
    if (isOfAnotherScript(key)) {
        return letterAt(event.nativeScanCode());
    }
    for (const auto& [qtKey, code] : kNamed) {
        if (key == qtKey) {
            return code;
        }
    }
    return 0;
}

int classicShift(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    int shift = Shift::None;
    shift |= held.testFlag(Qt::ShiftModifier) ? Shift::ShiftKey : 0;
    shift |= held.testFlag(Qt::ControlModifier) ? Shift::Ctrl : 0;
    shift |= held.testFlag(Qt::AltModifier) || held.testFlag(Qt::GroupSwitchModifier) ? Shift::Alt : 0;
    return shift;
}

bool isMnemonic(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::AltModifier) && !event.text().isEmpty() && event.text().at(0).isPrint();
}

int characterCode(const QKeyEvent& event) {
    const int key = event.key();
    // Qt gives these three keys a text although they type no character.
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Delete ||
        event.modifiers().testFlag(Qt::AltModifier)) {
        return 0;
    }
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return event.modifiers().testFlag(Qt::ControlModifier) ? kLineFeed : kEnter;
        case Qt::Key_Escape:
            return kEscape;
        case Qt::Key_Backspace:
            return kBackspace;
        default:
            break;
    }
    const int code = event.text().isEmpty() ? 0 : event.text().at(0).unicode();
    return code == kEnter || code == kEscape ? 0 : code;  // Ctrl+M or Ctrl+[
}
