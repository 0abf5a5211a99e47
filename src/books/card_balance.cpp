#include "books/card_balance.h"

#include "text/format.h"

namespace karvel {

CardBalance BalanceOf(double debit, double credit) {
  // By the rounded difference: sums of kuruş differ by a hair, and a balance of nothing is nobody's credit.
  const double over = RoundTo(credit - debit, 2);
  if (over > 0) return {over, "Alacak"};
  return {RoundTo(debit - credit, 2), "Borç"};
}

CardBalance ApplyBalance(Cursor& card) {
  CardBalance balance = BalanceOf(card.Number("Borc"), card.Number("Alacak"));
  card.Set("Bakiye", balance.amount);
  card.Set("Hesap", balance.side);
  return balance;
}

void ApplyStockBalance(Cursor& card) {
  const double out = card.Number("CikanMik");
  const double in = card.Number("GirenMik");
  card.Set("KalanA", out > in ? RoundTo(out - in, 3) : 0.0);
  card.Set("KalanB", out > in ? 0.0 : RoundTo(in - out, 3));
}

}  // namespace karvel
