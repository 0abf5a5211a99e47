// The on-screen keyboard over the desk: which taps open it, on which field, and what becomes of the text when it goes.
//
// What stays true:
// - Its own box and the field hold the same text at any moment, whoever types where; a letter passes the field's own rule in both.
// - While it is open the desk sees the field as the one with the focus, also when the finger stands in the keyboard's box.
// - It opens by a tap, never by the focus alone, and closes when the desk's focus goes elsewhere than to another field of letters.
// - What the field does when it is left is done before the keyboard is gone, and the keyboard itself writes nothing when it goes.
#pragma once

#include <set>
#include <string>

#include "desk/keyboard_keys.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class OnScreenKeyboard {
 public:
  explicit OnScreenKeyboard(const DeskParts& parts);

 private:
  void ConnectField(Element& field);
  void ConnectOwnBox();
  void Answer(KeyboardWish& wish);
  // Whether a tap on the field opens it now, by the clerk's choice and by what he has typed on.
  [[nodiscard]] bool OpensOn(const Element& field) const;
  void OpenOn(Element& field);
  void Serve(Element& field);
  void Tap(Element& field);
  void Unload();
  // The key that closes.
  void Leave();
  void Follow(Element* focused);
  void Mirror();
  void ShowFieldsText();
  [[nodiscard]] char32_t Passed(char32_t letter);
  void KeyInOwnBox(KeyEvent& event);

  Screen& screen_;
  FormState& form_;
  const World& world_;
  KeyboardScreen& keyboard_;
  KeyboardKeys keys_;
  Element* field_ = nullptr;        // the one that it is open on
  std::set<const Element*> typed_;  // those in which a real keyboard was used
  std::string kept_;                // place and size as they were kept last
  bool ready_ = false, mirroring_ = false;
  Connections connections_;
};

}  // namespace karvel
