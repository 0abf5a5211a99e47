// The cards in front as the files hold them now. The lists read them a while ago: another terminal may have taken a debt, or deleted a
// card.
#pragma once

#include <string>

#include "books/sources.h"
#include "store/cursor.h"

namespace karvel {

// Opens `card` on the row with the key of the one in front; false when it is gone, or can't be read. One look-up on an index.
inline bool OpenStored(Cursor& card, const Cursor& list, const std::string& table, const std::string& key) {
  card.SetDatabaseName(list.DatabaseName());
  return card.Open("Select * From " + table + " Where " + key + "=" + sources::Quoted(list.Text(key))).Ok() && card.HasRows();
}
inline bool OpenStoredCustomer(Cursor& card, const Cursor& customers) {
  return OpenStored(card, customers, "CariKartlar", "CariKod");
}
inline bool OpenStoredItem(Cursor& card, const Cursor& items) {
  return OpenStored(card, items, "StokKartlar", "StokKod");
}

// The balance of the customer in front; as the list has it where the files can't be read.
inline double StoredBalance(Stores& stores, const Cursor& customers) {
  Cursor card(stores, "balance");
  return (OpenStoredCustomer(card, customers) ? card : customers).Number("Bakiye");
}

}  // namespace karvel
