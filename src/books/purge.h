// The purge of old movements: on every thirtieth day of the year, 1 January among them, the ledger, stock and day-book rows that are thirty
// days old or older go. The cards keep their sums, and the three books lose the same days, whole, or none does.
#pragma once

#include <string>

#include "books/shop.h"
#include "text/date_time.h"

namespace karvel {

[[nodiscard]] bool IsPurgeDue(const DateTime& day);
// The first day behind this one on which a purge is due.
[[nodiscard]] DateTime NextPurge(const DateTime& day);
// The last day whose rows go in a purge on that day.
[[nodiscard]] DateTime LastPurgedDay(const DateTime& day);
// "Tarih<=#mm/dd/yyyy 23:59:59#": the rows that go on that day. A row without a date stays.
[[nodiscard]] std::string PurgeCriteria(const DateTime& day);
// Deletes the rows that go today, whether or not a purge is due.
Status PurgeOldRows(const Shop& shop);

}  // namespace karvel
