// The small windows over the desk: the on-screen keyboard and the number pad, with their keys in their places.
#pragma once

#include "app/floating_panel.h"

namespace karvel {

// Lays the keys of a keyboard on a card.
void FillKeyboard(DeskUi& ui, KeyCard& card, KeyboardScreen& keyboard);
FloatingPanel* BuildKeyboard(DeskUi& ui, QWidget* window);
FloatingPanel* BuildPad(DeskUi& ui, QWidget* window);

}  // namespace karvel
