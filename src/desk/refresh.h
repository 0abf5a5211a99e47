// The full refresh of a list that was pointed elsewhere.
#pragma once

#include "platform/status.h"

namespace karvel {

class Cursor;
class EventLoop;

// Re-runs the cursor's source, lets the window paint, and leaves the cursor on the first record. Nothing is
// counted: a list of a million rows costs as much as one of ten.
Status VeriTazele(Cursor& cursor, EventLoop& loop);

}  // namespace karvel
