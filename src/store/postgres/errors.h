// The server's failures as Status kinds.
#pragma once

#include <string_view>

#include "platform/status.h"

namespace karvel::postgres {

// `state` is the five letters of the SQL standard (SQLSTATE), "" where the server did not answer at all.
Status StatusOf(std::string_view state, std::string_view message, std::string_view what);
// Whether a failure means that this connection is of no more use: the server went away, or takes no writes any more.
bool EndsConnection(std::string_view state);

}  // namespace karvel::postgres
