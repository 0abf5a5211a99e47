// The data folder of a shop, for the programs beside the desk.
#pragma once

#include <string>

#include "app/disk_files.h"
#include "app/log_file.h"
#include "exchange/access/access_databases.h"
#include "exchange/old_files.h"
#include "platform/status.h"
#include "store/stores.h"

namespace karvel {

// The folder that a program lies in, by the word it was started with.
std::string FolderOfProgram(const std::string& program);

class ShopFolder {
 public:
  // The program as it was started. Its log lies beside the desks', under its own name.
  ShopFolder(const std::string& program, const std::string& name);

  [[nodiscard]] DiskFiles& Disk() { return files_; }
  // The path of the desk for a folder of this machine, "" for the desk's own.
  [[nodiscard]] std::string PathOf(const std::string& folder) const;
  // Makes a folder of this machine, "" for the desk's own, where there is none. Missing where the shop's data lies beside it instead.
  Status MakeFolder(const std::string& folder);
  // Opens the stores of a folder of this machine, "" for the desk's own. Files that a shop lacks when it begins are laid first.
  Status Open(const std::string& folder);
  [[nodiscard]] Stores& TheStores() { return stores_; }
  // What was turned from older files on the way.
  [[nodiscard]] const OldFiles& TurnedFiles() const { return oldFiles_; }

 private:
  DiskFiles files_;
  LogFile log_;
  AccessDatabases oldDatabases_;
  OldFiles oldFiles_;
  Stores stores_;
};

}  // namespace karvel
