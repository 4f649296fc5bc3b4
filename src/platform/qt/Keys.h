// Converts Qt's key events to Windows virtual-key codes and shift states.
#pragma once

class QKeyEvent;

// 0 for a key that grids do not use.
int classicKey(const QKeyEvent& event);
int classicShift(const QKeyEvent& event);
// True for Alt with a letter, digit or sign: such a key may be a mnemonic but never types a character. Qt's line edits
// would insert it.
bool isMnemonic(const QKeyEvent& event);
// The code of the character that the key types, control characters included; 0 if it types none. Only the Enter and
// Escape keys give 13 and 27.
int characterCode(const QKeyEvent& event);
