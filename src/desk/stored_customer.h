// The customer in front as the files hold it now. The list read it a while ago: another terminal may have taken its debt, or deleted it.
#pragma once

#include "desk/sources.h"
#include "store/cursor.h"

namespace karvel {

// Opens `card` on the card of the customer in front; false when it is gone, or can't be read. One look-up on an index.
inline bool OpenStoredCustomer(Cursor& card, const Cursor& customers) {
  card.SetDatabaseName(customers.DatabaseName());
  return card.Open("Select * From CariKartlar Where CariKod=" + sources::Quoted(customers.Text("CariKod"))).Ok() && card.HasRows();
}

}  // namespace karvel
