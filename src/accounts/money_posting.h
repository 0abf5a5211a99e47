// Money between a customer and one of the shop's money accounts: a collection (" Tahsilat") or a payment (" Ödeme"), in cash, by card,
// by cheque or by note. Double entry, bound by one DigerId:
//
//                 money account: row, card     customer: row, card
//   " Tahsilat"   Borc   = amount, +=          Alacak = amount, +=
//   " Ödeme"      Alacak = amount, +=          Borc   = amount, +=
//
// and one row of the day book, whose Tahsilat is positive for both. Then the customer's due dates are consumed, earliest first.
// The money accounts are ordinary cards whose code begins with "="; they are read here, never created.
#pragma once

#include <string>

#include "desk/parts.h"
#include "desk/running_numbers.h"
#include "platform/status.h"

namespace karvel {

class MainButton;

class MoneyPosting {
 public:
  // Serves the main button while the customer list is in front.
  MoneyPosting(const DeskParts& parts, RunningNumbers& numbers, MainButton& button);

  // Posts the amount in Text2(2) for the current customer, by the instrument in Label3 and the direction in Label1(5). No amount is
  // refused. When the stores refuse it, nothing of it is in them, the amount stays for another try, and the outcome says why.
  Status PostMoneyMovement();

 private:
  struct Movement;  // the working values of one posting
  void BookAccount(const Movement& movement);
  void OpenCustomerRow(const Movement& movement);
  void BookDay(const Movement& movement);
  void MoveBalance(const Movement& movement, bool debit);
  void ConsumeDueDates(const Movement& movement);
  void ShowCustomer(const Movement& movement);

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  RunningNumbers& numbers_;
};

}  // namespace karvel
