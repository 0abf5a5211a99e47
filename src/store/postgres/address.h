// Where a firm's stores lie on a main machine: what a terminal's data folder reads as under network work.
//
// `\\ADDRESS\MuhasebeData\FIRM`, ADDRESS as platform/share.h reads it; of several machines the one counts that takes writes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/connection.h"
#include "platform/status.h"

namespace karvel::postgres {

struct Address {
  std::vector<ServerPlace> machines;  // at least one
  std::string database;               // "MuhasebeData"
  std::string firm;                   // "01"
};

// BadText where it is none, or names no machine or no firm.
Status ReadAddress(std::string_view folder, Address& address);

}  // namespace karvel::postgres
