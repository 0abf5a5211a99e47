#include "books/terminal_group.h"

#include "books/steps.h"
#include "store/cursor.h"

namespace karvel {

namespace {
constexpr const char* kCriteria = "Gurup='WinKarvel1'";
const Steps step("KeepTerminalGroup");
}  // namespace

Status KeepTerminalGroup(const Shop& shop) {
  Cursor groups(shop.stores, "terminal groups");
  groups.SetDatabaseName("Stok.Mdb");
  step("terminal groups", groups.Open("Gurup"));
  // Where it is there already, a start needn't wait for whoever writes now.
  if (groups.FindFirst(kCriteria).Ok()) return {};
  Action action(shop.stores, "KeepTerminalGroup");
  if (!action.Begun().Ok()) return action.Finish();
  step("refresh terminal groups", groups.Refresh());
  // Added only where it is known to be missing: what can't be read may be there.
  if (groups.FindFirst(kCriteria).Kind() == ErrorKind::NoRecord) {
    step("add terminal group", groups.AddNew());
    groups.Set("Gurup", "WinKarvel1");
    step("update terminal group", groups.Update());
  }
  return action.Finish();
}

}  // namespace karvel
