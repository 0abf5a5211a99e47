// The one box that tells the clerk that the stores refused what was posted. Nothing of the posting is in them then.
#pragma once

#include "desk/world.h"
#include "platform/status.h"

namespace karvel {

// Shows nothing for an outcome that is well. No action may be open.
void ShowRefusal(const World& world, const Status& outcome);

}  // namespace karvel
