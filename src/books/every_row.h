// A walk over the rows of a source in which each of them may be deleted.
#pragma once

#include "books/steps.h"
#include "store/cursor.h"

namespace karvel {

// From the current row to the last. Ends where the next row can't be read: a walk that stood still there would never end.
template <typename Work>
void ForEveryRow(Cursor& rows, const Steps& step, const Work& work) {
  while (rows.HasCurrent()) {
    work();
    const Status moved = rows.MoveNext();
    step("next row", moved);
    if (!moved.Ok()) return;
  }
}

}  // namespace karvel
