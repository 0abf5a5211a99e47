// Label5, the figure beside the customer, and Label1(7), the name above it: his balance at rest, in a sale what he bought. No other file
// writes the two.
//
// What stays true: whatever is written into the figure, it reads in the format "Standard". Its colour tells where the desk stands: white at
// rest, green in a sale; after a posting black where the customer owes and red where the shop owes; red over the total of a slip.
#pragma once

#include <string>

#include "books/card_balance.h"
#include "desk/screen.h"
#include "platform/signal.h"

namespace karvel {

class BalanceDisplay {
 public:
  explicit BalanceDisplay(Screen& screen);

  // Changes the figure, and leaves its name and colour.
  void Show(double amount);
  // The same for a text that is formatted already, or is no number.
  void ShowText(const std::string& text);
  // The balance after a posting, in the colour of its side.
  void ShowSided(const CardBalance& balance);
  // For when nobody is in front.
  void ShowNobody() { ShowText("0"); }

  void NameBalance();
  [[nodiscard]] bool NamesBalance() const;
  void NameSlipTotal();  // in red
  void ColorForSale();
  void ColorForRest();
  // Both are hidden while the list shows stock.
  void SetShown(bool shown);

  [[nodiscard]] const std::string& Text() const { return screen_.Label5.Caption(); }

 private:
  Screen& screen_;
  Connections connections_;
};

}  // namespace karvel
