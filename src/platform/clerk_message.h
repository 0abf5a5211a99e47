// The words for the clerk.
#pragma once

#include <string>

#include "platform/status.h"

namespace karvel {

// What the clerk reads about a failure: one plain Turkish sentence, with what he can do.
std::string ClerkMessage(const Status& status);

}  // namespace karvel
