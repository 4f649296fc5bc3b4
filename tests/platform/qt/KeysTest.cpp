#include <gtest/gtest.h>

#include <QKeyEvent>
#include <tuple>

#include "platform/qt/Keys.h"

namespace {

QKeyEvent press(int key, Qt::KeyboardModifiers held, quint32 scanCode, const QString& text = {}) {
    return {QEvent::KeyPress, key, held, scanCode, 0, 0, text};
}

}  // namespace

TEST(KeysTest, LettersOfAnotherScriptFollowThePhysicalKey) {
    // The keys that a Russian and a Greek layout report for D, E and N.
    for (const auto& [scanCode, russian, greek, letter] :
         {std::tuple(40, 0x412, 0x394, 'D'), {26, 0x423, 0x395, 'E'}, {57, 0x422, 0x39D, 'N'}}) {
        const auto code = static_cast<quint32>(scanCode);
        EXPECT_EQ(classicKey(press(russian, Qt::ControlModifier, code)), letter);
        EXPECT_EQ(classicKey(press(greek, Qt::ControlModifier, code)), letter);
    }
}

TEST(KeysTest, LatinLettersFollowTheLayout) {
    // A French keyboard has A where an English one has Q.
    EXPECT_EQ(classicKey(press(Qt::Key_A, Qt::ControlModifier, 24)), 'A');
    EXPECT_EQ(classicKey(press(Qt::Key_Odiaeresis, Qt::ControlModifier, 47)), 0);
}

TEST(KeysTest, AnExtraLetterKeyOfAnotherScriptHasNoCode) {
    EXPECT_EQ(classicKey(press(0x425, Qt::ControlModifier, 34)),
              0);  // the Russian layout has a letter on the key to the right of P
    EXPECT_EQ(classicKey(press(Qt::Key_F5, Qt::ControlModifier, 71)), 0);
}

TEST(KeysTest, CtrlWithALetterIsNeitherEnterNorEscape) {
    EXPECT_EQ(characterCode(press(Qt::Key_M, Qt::ControlModifier, 58, "\r")), 0);
    EXPECT_EQ(characterCode(press(Qt::Key_BracketLeft, Qt::ControlModifier, 34, "\x1b")), 0);
    EXPECT_EQ(characterCode(press(Qt::Key_C, Qt::ControlModifier, 54, "\x03")), 3);
    EXPECT_EQ(characterCode(press(Qt::Key_Return, Qt::ControlModifier, 36, "\r")), 10) << "as on Windows";
    EXPECT_EQ(characterCode(press(Qt::Key_Return, Qt::NoModifier, 36, "\r")), 13);
    EXPECT_EQ(characterCode(press(Qt::Key_Escape, Qt::NoModifier, 9, "\x1b")), 27);
}

TEST(KeysTest, ALetterWithAltIsAMnemonic) {
    EXPECT_TRUE(isMnemonic(press(Qt::Key_A, Qt::AltModifier, 38, "a")));
    EXPECT_FALSE(isMnemonic(press(Qt::Key_A, Qt::NoModifier, 38, "a")));
    EXPECT_FALSE(isMnemonic(press(Qt::Key_Down, Qt::AltModifier, 116)));
    EXPECT_FALSE(isMnemonic(press(Qt::Key_Backspace, Qt::AltModifier, 22, "\b")));
}
