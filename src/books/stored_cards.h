// The cards in front as the files hold them now. The lists read them a while ago: another terminal may have taken a debt, or deleted a
// card.
#pragma once

#include <string>

#include "books/sources.h"
#include "store/cursor.h"

namespace karvel {

// What a look into the files found. What can't be read is not known to be gone.
enum class Stored { There, Gone, Unreadable };

// Opens `card` on the row with the key of the one in front in `list`. One look-up on an index.
inline Stored OpenStored(Cursor& card, const Cursor& list, const std::string& table, const std::string& key) {
  card.SetDatabaseName(list.DatabaseName());
  if (!card.Open(table).Ok()) return Stored::Unreadable;
  const Status found = card.FindFirst(key + "=" + sources::Quoted(list.Text(key)));
  return found.Ok() ? Stored::There : found.Kind() == ErrorKind::NoRecord ? Stored::Gone : Stored::Unreadable;
}
inline Stored OpenStoredCustomer(Cursor& card, const Cursor& customers) {
  return OpenStored(card, customers, "CariKartlar", "CariKod");
}
inline Stored OpenStoredItem(Cursor& card, const Cursor& items) {
  return OpenStored(card, items, "StokKartlar", "StokKod");
}

// The balance of the customer in front; as the list has it where the files can't be read.
inline double StoredBalance(Stores& stores, const Cursor& customers) {
  Cursor card(stores, "balance");
  return (OpenStoredCustomer(card, customers) == Stored::There ? card : customers).Number("Bakiye");
}

}  // namespace karvel
