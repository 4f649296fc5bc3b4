// Qt's key events as the classic key codes and shift states.
#pragma once

class QKeyEvent;

// 0: a key without a classic code that matters to a grid.
int classicKey(const QKeyEvent& event);
int classicShift(const QKeyEvent& event);
// A letter, digit or sign with Alt: it may lead to a control but is never typed. Qt's line edits would type it.
bool isMnemonic(const QKeyEvent& event);
// The code of the character that the key types, control characters included; 0 for a key that types none.
int characterCode(const QKeyEvent& event);
