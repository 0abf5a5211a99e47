#include "books/purge.h"

#include "books/steps.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr int kDays = 30;
const Steps step("PurgeOldRows");
}  // namespace

bool IsPurgeDue(const DateTime& day) {
  const DateTime newYear{day.year, 1, 1, 0, 0, 0};
  return (day.DayNumber() - newYear.DayNumber()) % kDays == 0;
}

DateTime NextPurge(const DateTime& day) {
  DateTime next = day.PlusDays(1);
  while (!IsPurgeDue(next)) next = next.PlusDays(1);
  return next;
}

DateTime LastPurgedDay(const DateTime& day) {
  return day.PlusDays(-kDays);
}

std::string PurgeCriteria(const DateTime& day) {
  return "Tarih<=#" + Format(LastPurgedDay(day), "mm/dd/yyyy") + " 23:59:59#";
}

Status PurgeOldRows(const Shop& shop) {
  Action action(shop.stores, "PurgeOldRows");
  if (!action.Begun().Ok()) return action.Finish();
  const std::string old = " Where " + PurgeCriteria(shop.clock.Now());
  step("ledger", shop.stores.Execute("Cari.Mdb", "DELETE FROM CariHareket" + old));
  step("movements", shop.stores.Execute("Stok.Mdb", "DELETE FROM StokHareket" + old));
  step("day book", shop.stores.Execute("Karvel.Mdb", "DELETE FROM Datam" + old));
  return action.Finish();
}

}  // namespace karvel
