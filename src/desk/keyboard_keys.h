// What the keys of the on-screen keyboard write into its own box. It knows no field of the desk: whoever opens the keyboard takes the text
// from the box and says by which rule a letter passes.
//
// What stays true: a key is told once for each press; what is written stands at the end of the text, and the caret behind it.
#pragma once

#include <functional>

#include "desk/keyboard_screen.h"
#include "platform/signal.h"
#include "settings/settings.h"

namespace karvel {

class KeyboardKeys {
 public:
  KeyboardKeys(KeyboardScreen& keyboard, Settings& settings);

  // The letter that may stand behind the text in its place; 0: none may. Empty: every letter as it is.
  std::function<char32_t(char32_t)> passes;
  // Shows the keys in the case that was kept.
  void ReadCase();

 private:
  void Press(int index);
  void Highlight(Element& key);
  void Write(const std::string& letter);
  void CutLast();
  void Clear();
  void TurnCase();
  void ShowCase();
  void ToggleBlock();
  void SetText(const std::string& text);

  KeyboardScreen& keyboard_;
  Settings& settings_;
  bool capsAçık_ = false;
  Element* seçiliTuş_ = nullptr;  // the key under the finger, or the last that was
  Connections connections_;
};

}  // namespace karvel
