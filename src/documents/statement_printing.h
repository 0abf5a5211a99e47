// Command5 on the print choice: the slip of the sale that closes, the reprint of a slip, a customer's day, and his statement from a date
// on.
//
// What stays true: no line is marked and no number changes, however often something is printed. DökNoYaz is visible again when the writer
// has ended, in whatever way, and the customer's whole day book is in the list.
#pragma once

#include <expected>
#include <optional>
#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "documents/balance_view.h"
#include "documents/slip.h"
#include "documents/slip_selection.h"
#include "exchange/printed_day.h"
#include "platform/signal.h"

namespace karvel {

class StatementPrinting {
 public:
  StatementPrinting(const DeskParts& parts, CustomerInFront& customer, BalanceView& balances);

  // SendDayFile: a slip or day has been handed to the printer, and SlipNo is still its number.
  Signal<const PrintedDay&> dayPrinted;

 private:
  // What to print: the lines of a source, which lie in a span of days.
  struct Order {
    bool untilToday = false;
    std::string dates;     // condition on Tarih
    std::string criteria;  // of the lines, with that on Tarih where it counts
  };

  void Pressed(int index);
  void AskForStart();  // Command5(2) at first
  [[nodiscard]] Order StatementOrder();
  // NoRecord where there is nothing to print.
  [[nodiscard]] std::expected<Order, Status> DayOrder(const DateTime& day);
  void Print(const Order& order);
  bool PrintLines(const Order& order, const std::string& source, Slip& slip);
  // What of the slip stands on the customer's card and in his ledger.
  Status ReadBalance(const Order& order, Slip& slip) const;
  [[nodiscard]] std::expected<double, Status> TaxOf(const std::string& customerCode, const std::string& dates) const;
  [[nodiscard]] std::optional<Picture> BarcodeOf(const std::string& slipNo) const;
  void TellUnprinted(const Status& why);
  void End();

  const DeskParts& parts_;
  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  CustomerInFront& customer_;
  BalanceView& balances_;
  Connections connections_;
};

}  // namespace karvel
