#include "exchange/purge.h"

#include "books/steps.h"
#include "platform/clock.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr int kDays = 30;
const Steps step("Purge");
}  // namespace

Purge::Purge(const DeskParts& parts, Signal<>& opening) : screen_(parts.screen), cursors_(parts.cursors), world_(parts.world) {
  connections_ += opening.Connect([this] {
    if (screen_.AySil.Checked() && IsDue(world_.clock.Now())) Run();
  });
}

bool Purge::IsDue(const DateTime& day) {
  const DateTime newYear{day.year, 1, 1, 0, 0, 0};
  return (day.DayNumber() - newYear.DayNumber()) % kDays == 0;
}

std::string Purge::Filter(const DateTime& day) {
  return "Tarih<=#" + Format(day.PlusDays(-kDays), "mm/dd/yyyy") + " 23:59:59#";
}

void Purge::Run() {
  const std::string filter = Filter(world_.clock.Now());
  Action action(world_.stores, "Purge");
  if (action.Begun().Ok()) {
    step("ledger", world_.stores.Execute(cursors_.CariHarData.DatabaseName(), "DELETE FROM CariHareket Where " + filter));
    step("movements", world_.stores.Execute(cursors_.StokHarData.DatabaseName(), "DELETE FROM StokHareket Where " + filter));
    step("day book", world_.stores.Execute(cursors_.HareketData.DatabaseName(), "DELETE FROM Datam Where " + filter));
  }
  step("commit", action.Finish());
  for (Cursor* const cursor : {&cursors_.CariHarData, &cursors_.StokHarData, &cursors_.HareketData})
    step(cursor->Name(), cursor->Refresh());
}

}  // namespace karvel
