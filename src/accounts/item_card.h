// The stock card that a booked line belongs to. The stock list may be narrowed to others at that moment; a line is taken back from its own
// card all the same.
#pragma once

#include <string>

#include "desk/parts.h"

namespace karvel {

class ItemCard {
 public:
  explicit ItemCard(const DeskParts& parts);
  // Stands on the card of this code: in the stock list, which then has it in front, or beside the list. A code that no card has leaves the
  // list as it stands, and its current row is given. The cursor is good until the next call.
  Cursor& Find(const std::string& code);

 private:
  Cursors& cursors_;
  Cursor beside_;
};

}  // namespace karvel
