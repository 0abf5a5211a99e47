// What a posting does to a card: it adds to the totals, and the balance is worked out of them anew. What is taken back is added with a
// minus.
#pragma once

#include <string>

#include "books/steps.h"
#include "store/cursor.h"

namespace karvel {

// The two sides of a card (Hesap): who owes.
inline constexpr const char *kDebitSide = "Borç", *kCreditSide = "Alacak";

struct CardBalance {
  double amount = 0;  // never negative, 2 places
  std::string side;   // kCreditSide where credit is the greater, else kDebitSide, equality included
};

CardBalance BalanceOf(double debit, double credit);
// A sum or difference as it is kept: twelve times 0,07 is 0,84, where binary numbers leave a hair more, and what was paid in full is 0.
// Money has 2 places; goods and their cost, in fractions of a unit, up to 6, which is as many as the stock's arithmetic keeps.
double WithoutDust(double sum);
// Writes Bakiye and Hesap of an open CariKartlar row from its Borc and Alacak.
CardBalance ApplyBalance(Cursor& card);
// Edits the CariKartlar row in front: adds to its Borc and Alacak, and to what they leave.
CardBalance AddToBalance(Cursor& card, const Steps& step, double debit, double credit);
// Writes KalanA and KalanB of an open StokKartlar row from CikanMik and GirenMik: oversold or on hand, the other 0, 3 places.
void ApplyStockBalance(Cursor& card);

// The sides of a stock card: CikanMik and CikanTutar, GirenMik and GirenTutar.
enum class GoodsSide { Out, In };
// Adds to one side of an open StokKartlar row. Which of the rules then tells what is left is the posting's own.
void AddGoods(Cursor& card, GoodsSide side, double quantity, double amount);

}  // namespace karvel
