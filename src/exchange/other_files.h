// The files of a data folder that are no stores: column layouts, the layout of invoice paper, whatever the shop keeps there.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/status.h"

namespace karvel {

// Whether a file belongs to the stores or lies beside them for their sake only: "Cari.mdb", "Cari.mdb-journal", "Cari.eski.mdb",
// "karvel.lock".
bool IsOfTheStores(const std::string& name);

struct OtherFiles {
  Status status;  // of the first that failed; the rest was tried all the same
  std::vector<std::string> copied;
  std::vector<std::string> kept;  // were there already, and stayed as they were
};

// Copies those of one folder into another, which is made where it is needed. Both are paths of the desk.
OtherFiles CopyOtherFiles(Files& files, const std::string& from, const std::string& to);

}  // namespace karvel
