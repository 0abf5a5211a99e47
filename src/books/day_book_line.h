// A line of the day book as the files hold it now. The list showed it a while ago: another terminal may have cancelled it, or its row may
// be gone.
#pragma once

#include "books/line_mode.h"
#include "store/cursor.h"
#include "store/row.h"

namespace karvel {

inline bool IsCancelled(const Cursor& day) {
  return day.Text("Durum") == kCancelledName;
}

// Handed on to the central site. The small letter of the day file is another mark.
inline bool IsTransferred(const Cursor& day) {
  return day.Text("Sube") == "X";
}

// Stands on the row. NoRecord when it is gone, or was cancelled since the list showed it: what was to be done with the line is void, for it
// would be taken back twice.
inline Status StandOnLine(Cursor& day, RowKey row, bool listedAsCancelled) {
  if (Status there = day.MoveTo(row); !there.Ok()) return there;
  if (!listedAsCancelled && IsCancelled(day)) return {ErrorKind::NoRecord, "the line was cancelled meanwhile"};
  return {};
}

}  // namespace karvel
