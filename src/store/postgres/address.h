// Where a firm's stores lie on a main machine: what a terminal's data folder reads as under network work.
//
// `\\ADDRESS\MuhasebeData\FIRM`; ADDRESS is a name or number with or without ":PORT", or several of them with ";" between, of which the one
// counts that takes writes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace karvel::postgres {

struct Host {
  std::string name;
  std::string port;  // "" for the usual one
};

struct Address {
  std::vector<Host> hosts;  // at least one
  std::string database;     // "MuhasebeData"
  std::string firm;         // "01"
};

// BadText where it is none, or names no machine or no firm.
Status ReadAddress(std::string_view folder, Address& address);

}  // namespace karvel::postgres
