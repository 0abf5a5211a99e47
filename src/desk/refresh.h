// The full refresh of a list, as every feature that points a cursor elsewhere does it.
#pragma once

#include "platform/status.h"

namespace karvel {

class Cursor;
class EventLoop;

// Re-runs the cursor's source, lets the window paint, and leaves the cursor on the first record. The count is exact afterwards, as it
// always is: nothing is read for it, so a list of a million rows costs as much as one of ten.
Status VeriTazele(Cursor& cursor, EventLoop& loop);

}  // namespace karvel
