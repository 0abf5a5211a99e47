// The pad's keys: the number that they build in its box, and "Tamam", which is there while the box holds an answer.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class PadNumber {
 public:
  explicit PadNumber(const DeskParts& parts);

  // As the keys of the pad do, for keys that are struck elsewhere.
  void Digit(const std::string& digit);
  void Comma();
  void TakeBack();

 private:
  void Write(const std::string& number);
  void Changed();
  void Character(CharacterEvent& event);

  Screen& screen_;
  FormState& form_;
  PadScreen& pad_;
  Connections connections_;
};

}  // namespace karvel
