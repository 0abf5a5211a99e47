#pragma once

#include <string>

namespace karvel {

// What has gone to the printer as a slip or day.
struct PrintedDay {
  std::string customerCode;
  std::string source;    // record source of its lines
  std::string lastSent;  // Sube of the last of them
};

}  // namespace karvel
