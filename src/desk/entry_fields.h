// Which fields fingers fill in by letters and which by figures, and how the clerk wants the on-screen keyboard.
#pragma once

#include "desk/screen.h"

namespace karvel {

// A number: the pad's. Prices, quantities, payments and discounts; the figures of a delivery, of a new item and of an invoice.
[[nodiscard]] bool HoldsFigures(const Screen& screen, const Element& field);
// Any other text box that a clerk can fill in: the keyboard's.
[[nodiscard]] bool HoldsLetters(const Screen& screen, const Element& field);

// The entries of "Ekran Klavyesi".
enum class KeyboardChoice { Automatic, Always, Never };
[[nodiscard]] KeyboardChoice ChosenKeyboard(const Screen& screen);

}  // namespace karvel
