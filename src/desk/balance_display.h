// The figure beside the customer, Label5, with its name above it, Label1(7): his balance at rest, and in a sale what he bought. The one
// place that writes the two.
//
// What stays true: the figure reads as "Standard" whatever was written into it; its colour tells where the desk stands: white at rest,
// green in a sale, after a posting black for what the customer owes and red for what the shop owes, red for the total of a slip.
#pragma once

#include <string>

#include "books/card_balance.h"
#include "desk/screen.h"
#include "platform/signal.h"

namespace karvel {

class BalanceDisplay {
 public:
  explicit BalanceDisplay(Screen& screen);

  // A figure under the name that stands above it.
  void Show(double amount);
  // A text that is formatted already, or stands for no number.
  void ShowText(const std::string& text);
  // A balance after a posting, in the colour of its side.
  void ShowSided(const CardBalance& balance);
  // Nobody is in front.
  void ShowNobody() { ShowText("0"); }

  void NameBalance();
  void NameSlipTotal();  // with its colour
  void ColorForSale();
  void ColorForRest();
  // Neither name nor figure while the list shows stock.
  void SetShown(bool shown);

  [[nodiscard]] const std::string& Text() const { return screen_.Label5.Caption(); }

 private:
  Screen& screen_;
  Connections connections_;
};

}  // namespace karvel
