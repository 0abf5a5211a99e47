#include "books/terminal_group.h"

#include "books/steps.h"
#include "store/cursor.h"

namespace karvel {

Status KeepTerminalGroup(const Shop& shop) {
  const Steps step("KeepTerminalGroup");
  Action action(shop.stores, "KeepTerminalGroup");
  if (!action.Begun().Ok()) return action.Finish();
  Cursor groups(shop.stores, "terminal groups");
  groups.SetDatabaseName("Stok.Mdb");
  step("terminal groups", groups.Open("Gurup"));
  // Added only where it is known to be missing: what can't be read may be there.
  if (groups.FindFirst("Gurup='WinKarvel1'").Kind() == ErrorKind::NoRecord) {
    step("add terminal group", groups.AddNew());
    groups.Set("Gurup", "WinKarvel1");
    step("update terminal group", groups.Update());
  }
  return action.Finish();
}

}  // namespace karvel
