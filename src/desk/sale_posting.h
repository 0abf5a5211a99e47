// The heart of the desk: one confirmed line of the sale screen, written into the special prices, due dates, stock movements, day book,
// serial numbers, stock card, ledger and customer card, bound by one DigerId.
//
// What it reads: Text2(0) price, Text2(1) quantity, Label2 amount, Label1(2) price name, Label4 mode; the current records of StokData and
// CariData; CurrentCustomerCode, TerminalNo, SlipNo, ScannedSerial, and the serials in List1.
// What stays true: a line is in the stores whole or not at all, whatever is killed or full; a line that was reported done is there.
#pragma once

#include <string>

#include "desk/parts.h"
#include "desk/running_numbers.h"
#include "platform/status.h"

namespace karvel {

class SalePosting {
 public:
  SalePosting(const DeskParts& parts, RunningNumbers& numbers)
      : screen_(parts.screen), form_(parts.form), cursors_(parts.cursors), world_(parts.world), numbers_(numbers) {}

  // Posts the line on the screen and resets the fields for the next. When the stores refuse it, nothing of the line is in them,
  // the fields stay for another try, and the outcome says why.
  Status PostLine();

 private:
  struct Line;  // the working values of one posting
  void FindOrAddCustomer(Line& line);
  void RememberPrice(const Line& line);
  void BookDueDate(const Line& line);
  void OpenStockMovement(Line& line);
  void BookProfit(Line& line);
  void BookDay(const Line& line);
  void BookSerials(const Line& line);
  void MoveStock(const Line& line);
  void BookLedger(const Line& line);
  void MoveBalance(const Line& line);
  void ResetFields();

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  RunningNumbers& numbers_;
};

}  // namespace karvel
