// The window's keys as the desk's events know them.
#pragma once

#include "desk/element.h"

class QKeyEvent;
class QMouseEvent;

namespace karvel {

// The virtual key; 0 for a key that the events have no code for.
int VirtualKey(const QKeyEvent& event);
KeyEvent ToKeyEvent(const QKeyEvent& event);
// The letter that the key stands for: Enter 13, Backspace 8; 0 for a key without one (arrows, Ctrl+C).
char32_t CharacterOf(const QKeyEvent& event);
MouseEvent ToMouseEvent(const QMouseEvent& event);
[[nodiscard]] bool IsModifier(int qtKey);

}  // namespace karvel
