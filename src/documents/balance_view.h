// CariFrame: the customer's ledger from a date on with the balance that runs through it. It is built in a scratch table, one for each
// terminal, whenever the print choice prints; CariHesCmd shows it.
#pragma once

#include <expected>
#include <string>
#include <vector>

#include "desk/parts.h"
#include "platform/signal.h"

namespace karvel {

struct BalanceLine {
  DateTime date;
  std::string text;  // at most 50 letters
  double debit = 0, credit = 0;
  double balance = 0;  // behind this line, never negative
  std::string side;    // "Borç" where more was credited than debited so far, else "Alacak"
};

// Lets the balance run through the lines, on from what was credited and debited before them.
void RunBalance(std::vector<BalanceLine>& lines, double creditedBefore, double debitedBefore);

class BalanceView {
 public:
  explicit BalanceView(const DeskParts& parts);

  // Fills the scratch table anew with the customer's debits from this day on. What fails is noted, and told when the view is shown.
  void Rebuild(const std::string& customerCode, const DateTime& from);
  // Shows the view where CariHesCmd was tapped for it, and takes its tap back. False where it wasn't.
  bool ShowIfAsked();

 private:
  [[nodiscard]] std::expected<std::vector<BalanceLine>, Status> ReadLines(const std::string& customerCode, const DateTime& from) const;
  Status Write(const std::vector<BalanceLine>& lines);
  void PrintAll();  // CariCmd

  Screen& screen_;
  FormState& form_;
  Cursors& cursors_;
  const World& world_;
  Status built_;
  Connections connections_;
};

}  // namespace karvel
