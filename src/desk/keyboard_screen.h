// The elements of the on-screen keyboard, Form2: the keys by their index, the number block, and its own box.
#pragma once

#include <vector>

#include "desk/element_table.h"
#include "desk/floating_frame.h"

namespace karvel {

class KeyboardScreen : public ElementTable {
 public:
  // Hidden while the keyboard isn't open.
  Element& Form2 = Hidden("Form2", Kind::Form, "Ekran Klavyesi", nullptr);
  Element& Frame1 = One("Frame1", Kind::Panel, "", &Form2);  // the number block
  Element& Text1 = One("Text1", Kind::TextBox, "", &Form2);
  // 0 to 28 the letters of the alphabet in their order, 29 to 31 and 32, 45, 48 signs and foreign letters, 35 to 44 the digits.
  ElementArray Label1 = Keys();
  Element& Command1 = One("Command1", Kind::Button, "Kapat", &Form2);
  // Which field it was opened on: its ActiveFieldCode and one; kHeldOff since it was closed; 0: it never was, or that was taken note of.
  float code = 0;
  static constexpr float kHeldOff = 999;
  // Where it stands inside Form1.
  FloatingFrame frame{kKeyboardSizes};

  static constexpr int kLetters = 29, kCased = 32, kDotlessI = 10, kDottedI = 11, kQ = 32, kW = 45, kX = 48, kBack = 33, kSpace = 34,
                       kFirstDigit = 35, kLastDigit = 44, kClear = 46, kCase = 47, kBlock = 49;

 private:
  ElementArray Keys();
};

}  // namespace karvel
