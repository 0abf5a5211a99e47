// The two balance rules that every posting shares.
#pragma once

#include <string>

#include "store/cursor.h"

namespace karvel {

struct CardBalance {
  double amount = 0;  // never negative, 2 places
  std::string side;   // "Alacak" where credit is the greater, else "Borç", equality included
};

CardBalance BalanceOf(double debit, double credit);
// An amount that is 0 but for the hair by which sums of kuruş differ.
inline bool IsNothing(double amount) {
  return amount > -1e-6 && amount < 1e-6;
}
// Writes Bakiye and Hesap of an open CariKartlar row from its Borc and Alacak.
CardBalance ApplyBalance(Cursor& card);
// Writes KalanA and KalanB of an open StokKartlar row from CikanMik and GirenMik: oversold or on hand, the other 0, 3 places.
void ApplyStockBalance(Cursor& card);

}  // namespace karvel
