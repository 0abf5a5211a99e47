#include "desk/balance_display.h"

#include "desk/captions.h"
#include "text/format.h"

namespace karvel {

BalanceDisplay::BalanceDisplay(Screen& screen) : screen_(screen) {
  Element& figure = screen.Label5;
  figure.SetFontName("Agency FB");
  connections_ += figure.changed.Connect([&figure] { figure.SetCaption(Format(figure.Caption(), "Standard")); });
}

void BalanceDisplay::Show(double amount) {
  ShowText(PlainNumber(amount));
}

void BalanceDisplay::ShowText(const std::string& text) {
  screen_.Label5.SetCaption(text);
}

void BalanceDisplay::ShowSided(const CardBalance& balance) {
  screen_.Label5.SetColor(balance.side == kCreditSide ? color::kRed : color::kBlack);
  Show(balance.amount);
}

void BalanceDisplay::NameBalance() {
  screen_.Label1(7).SetCaption(caption::kBalance);
}

bool BalanceDisplay::NamesBalance() const {
  return screen_.Label1(7).Caption() == caption::kBalance;
}

void BalanceDisplay::NameSlipTotal() {
  screen_.Label1(7).SetCaption(caption::kSlipTotal);
  screen_.Label5.SetColor(color::kRed);
}

void BalanceDisplay::ColorForSale() {
  screen_.Label5.SetColor(color::kGreen);
}

void BalanceDisplay::ColorForRest() {
  screen_.Label5.SetColor(color::kWhite);
}

void BalanceDisplay::SetShown(bool shown) {
  screen_.Label5.SetVisible(shown);
  screen_.Label1(7).SetVisible(shown);
}

}  // namespace karvel
