// The cards in front as the files hold them now. The lists read them a while ago: another terminal may have taken a debt, or deleted a card.
#pragma once

#include <string>

#include "desk/sources.h"
#include "store/cursor.h"

namespace karvel {

// Opens `card` on the card of the customer in front; false when it is gone, or can't be read. One look-up on an index.
inline bool OpenStoredCustomer(Cursor& card, const Cursor& customers) {
  card.SetDatabaseName(customers.DatabaseName());
  return card.Open("Select * From CariKartlar Where CariKod=" + sources::Quoted(customers.Text("CariKod"))).Ok() && card.HasRows();
}

// The same for the item in front.
inline bool OpenStoredItem(Cursor& card, const Cursor& items) {
  card.SetDatabaseName(items.DatabaseName());
  return card.Open("Select * From StokKartlar Where StokKod=" + sources::Quoted(items.Text("StokKod"))).Ok() && card.HasRows();
}

// The balance of the customer in front; as the list has it where the files can't be read.
inline double StoredBalance(Stores& stores, const Cursor& customers) {
  Cursor card(stores, "balance");
  return (OpenStoredCustomer(card, customers) ? card : customers).Number("Bakiye");
}

}  // namespace karvel
