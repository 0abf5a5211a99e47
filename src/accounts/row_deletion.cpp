#include "accounts/row_deletion.h"

#include "books/steps.h"
#include "desk/refusal.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "store/cursor.h"

namespace karvel {

void DeleteRowOnKey(Screen& screen, const World& world, Cursor& cursor, KeyEvent& event) {
  static const Steps step("DeleteRowOnKey");
  if (event.code != key::kDelete) return;
  event.dropped = true;
  if (!screen.Silme.Checked() || !cursor.HasRows()) return;
  const Status deleted = cursor.Delete();
  if (!deleted.Ok()) {
    step("delete row", deleted);
    if (deleted.Kind() != ErrorKind::NoRecord) ShowRefusal(screen, world, deleted);
    return;
  }
  step("next row", cursor.MoveNext());
  if (cursor.Eof() && cursor.HasRows()) step("last row", cursor.MoveLast());
  world.shell.PlaySound(world.files.ProgramFolder() + "/Recycle.wav");
}

}  // namespace karvel
