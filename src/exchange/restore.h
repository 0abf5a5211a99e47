// A backup put back as a data folder. It is unpacked beside the folder and looked over there first: where it isn't whole, the folder is as
// it was. The folder that was there before is kept beside it under another name.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/archive.h"
#include "platform/status.h"
#include "text/date_time.h"

namespace karvel {

// Paths of this machine, without a slash at the end.
struct RestoreOrder {
  std::string archive;
  std::string folder;
  bool replace = false;  // a folder with something in it gives way
  DateTime now;
};

// How the stores of a folder are looked over, and put right before it is renamed.
struct RestoreChecks {
  std::function<Status(const std::string& folder)> check;
  std::function<Status(const std::string& folder)> recover;
};

struct Restored {
  Status status;
  bool refused = false;            // the folder has something in it, and nothing was to be replaced
  std::string keptAs;              // where the old folder lies now; "" where there was none
  std::vector<std::string> names;  // of the backup
};

Restored Restore(Archives& archives, const RestoreOrder& order, const RestoreChecks& checks);

}  // namespace karvel
