// A finger that is drawn over the lines of an invoice turns the list by nearly a page: down to what stands before, up to what follows. No
// line is ticked by it.
#pragma once

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

class InvoiceDrag {
 public:
  explicit InvoiceDrag(const DeskParts& parts);

 private:
  void Released();
  [[nodiscard]] int RowUnder(int y) const;
  // Ends at the first or last line.
  void MoveBack(int rows);
  void MoveOn(int rows);

  Screen& screen_;
  FormState& form_;
  Cursor& lines_;
  const World& world_;
  bool down_ = false;
  int pressedAt_ = 0, movedTo_ = 0;  // pixels from the top of the grid
  Connections connections_;
};

}  // namespace karvel
