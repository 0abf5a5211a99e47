#include "books/card_balance.h"

#include "text/format.h"

namespace karvel {

double WithoutDust(double sum) {
  constexpr int kPlaces = 6;
  return RoundTo(sum, kPlaces);
}

CardBalance BalanceOf(double debit, double credit) {
  // By the rounded difference: sums of kuruş differ by a hair, and a balance of nothing is nobody's credit.
  const double over = RoundTo(credit - debit, 2);
  if (over > 0) return {over, kCreditSide};
  return {RoundTo(debit - credit, 2), kDebitSide};
}

CardBalance ApplyBalance(Cursor& card) {
  CardBalance balance = BalanceOf(card.Number("Borc"), card.Number("Alacak"));
  card.Set("Bakiye", balance.amount);
  card.Set("Hesap", balance.side);
  return balance;
}

CardBalance AddToBalance(Cursor& card, const Steps& step, double debit, double credit) {
  step("edit card", card.Edit());
  card.Set("Borc", WithoutDust(card.Number("Borc") + debit));
  card.Set("Alacak", WithoutDust(card.Number("Alacak") + credit));
  CardBalance balance = ApplyBalance(card);
  step("update card", card.Update());
  return balance;
}

void ApplyStockBalance(Cursor& card) {
  const double out = card.Number("CikanMik");
  const double in = card.Number("GirenMik");
  card.Set("KalanA", out > in ? RoundTo(out - in, 3) : 0.0);
  card.Set("KalanB", out > in ? 0.0 : RoundTo(in - out, 3));
}

void AddGoods(Cursor& card, GoodsSide side, double quantity, double amount) {
  const char* const count = side == GoodsSide::Out ? "CikanMik" : "GirenMik";
  const char* const total = side == GoodsSide::Out ? "CikanTutar" : "GirenTutar";
  card.Set(count, WithoutDust(card.Number(count) + quantity));
  card.Set(total, WithoutDust(card.Number(total) + amount));
}

}  // namespace karvel
