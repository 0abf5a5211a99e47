// Which fields open the pad: a tap on an amount of the sale, the receipt, a new item or an invoice, and a digit over the stock list, which
// is the quantity of the item tapped there. It closes with the panel of its field.
#pragma once

#include <string>

#include "desk/pad_number.h"
#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class PadOpening {
 public:
  PadOpening(const DeskParts& parts, PadNumber& number);

 private:
  void Follow();
  void FollowItem();
  // Place and size come back when it opens first, and are kept when it closes.
  void KeepPlace();
  void Tap(Element& field);
  void Open(Element& field);
  // What the clerk reads before the field.
  [[nodiscard]] std::string NameOf(const Element& field) const;
  void TypeQuantity(CharacterEvent& event);
  void Key(KeyEvent& event);
  // Enter gives the number where the clerk is at the pad, Escape closes; F8 goes from quantity to price and back.
  [[nodiscard]] bool TakesKey(const KeyEvent& event);
  // Whether the clerk is at the pad: in its box, in the field that it serves, or over the list whose digits it takes.
  [[nodiscard]] bool HasFocus() const;
  bool SwitchField();
  [[nodiscard]] bool SomethingToSell() const;

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  PadNumber& number_;
  RowKey item_ = 0;   // in front when it was opened
  std::string kept_;  // place and size as they were kept last
  bool shown_ = false, ready_ = false;
  Connections connections_;
};

}  // namespace karvel
