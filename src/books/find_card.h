// The cards that a booked line names, found by their code among all cards, whatever a list shows.
#pragma once

#include <string>

#include "books/sources.h"
#include "store/cursor.h"

namespace karvel {

// The customers' cards in the order in which they were made.
inline const std::string kCustomerCards = "CariKartlar";
// The stock cards as the stock list shows them, the hidden ones behind: of two cards with one code (that of a receipt is cut, and long
// names begin alike) the one is meant that the clerk finds first.
inline const std::string kItemCards = "Select * From StokKartlar Order By StokGizle Asc, StokAdi Asc";

// Of a cursor over kCustomerCards or kItemCards. NoRecord, and the cursor stands where it stood, when no card has the code.
inline Status FindCustomer(Cursor& cards, const std::string& code) {
  return cards.FindFirst("CariKod=" + sources::Quoted(code));
}
inline Status FindItem(Cursor& cards, const std::string& code) {
  return cards.FindFirst("StokKod=" + sources::Quoted(code));
}

}  // namespace karvel
