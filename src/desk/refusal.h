// The one box that tells the clerk that the stores refused what was posted. Nothing of the posting is in them then; of one whose outcome is
// unknown the box says so.
#pragma once

#include "desk/screen.h"
#include "desk/world.h"
#include "platform/status.h"

namespace karvel {

// Shows nothing for an outcome that is well. No action may be open. The quiet line goes on saying it when the box is gone.
void ShowRefusal(Screen& screen, const World& world, const Status& outcome);

}  // namespace karvel
