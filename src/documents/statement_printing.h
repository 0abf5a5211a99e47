// Command5 on the print choice: the slip of the sale that closes, the reprint of a slip, a customer's day, and his statement from a date
// on.
//
// What stays true: no line is marked and no number changes, however often something is printed. DökNoYaz is visible again when the writer
// has ended, in whatever way, and the customer's whole day book is in the list.
#pragma once

#include <optional>
#include <string>

#include "desk/customer_in_front.h"
#include "desk/parts.h"
#include "documents/balance_view.h"
#include "documents/slip.h"
#include "documents/slip_selection.h"
#include "platform/signal.h"

namespace karvel {

// What has gone to the printer as a slip or day.
struct PrintedDay {
  std::string customerCode;
  std::string source;    // record source of its lines
  std::string lastSent;  // Sube of the last of them
};

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
  [[nodiscard]] std::optional<Order> StatementOrder();
  [[nodiscard]] std::optional<Order> DayOrder(const DateTime& day);
  void Print(const Order& order);
  bool PrintLines(const Order& order, const std::string& source, Slip& slip);
  [[nodiscard]] double TaxOf(const std::string& customerCode, const std::string& dates) const;
  [[nodiscard]] std::optional<Picture> BarcodeOf(const std::string& slipNo) const;
  void TellNothing();
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
