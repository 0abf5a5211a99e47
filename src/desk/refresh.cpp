#include "desk/refresh.h"

#include "platform/event_loop.h"
#include "store/cursor.h"

namespace karvel {

Status VeriTazele(Cursor& cursor, EventLoop& loop) {
  Status refreshed = cursor.Refresh();
  // Taps keep waiting: the caller is not done.
  loop.RunPendingButInput();
  return refreshed;
}

}  // namespace karvel
