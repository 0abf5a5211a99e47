#include "exchange/purge.h"

#include "desk/steps.h"
#include "platform/clock.h"
#include "text/format.h"

namespace karvel {
namespace {
constexpr int kDays = 30;
const Steps step("Purge");
}  // namespace

Purge::Purge(const DeskParts& parts, Signal<>& opening) : parts_(parts) {
  opening.Connect([this] {
    if (parts_.screen.AySil.Checked() && IsDue(parts_.world.clock.Now())) Run();
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
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string filter = Filter(world.clock.Now());
  Action action(world.stores, "Purge");
  if (action.Begun().Ok()) {
    step("ledger", world.stores.Execute(cursors.CariHarData.DatabaseName(), "DELETE FROM CariHareket Where " + filter));
    step("movements", world.stores.Execute(cursors.StokHarData.DatabaseName(), "DELETE FROM StokHareket Where " + filter));
    step("day book", world.stores.Execute(cursors.HareketData.DatabaseName(), "DELETE FROM Datam Where " + filter));
  }
  step("commit", action.Finish());
  for (Cursor* const cursor : {&cursors.CariHarData, &cursors.StokHarData, &cursors.HareketData}) step(cursor->Name(), cursor->Refresh());
}

}  // namespace karvel
