// Access 2000 files, read through libmdb: the only folder where its header is included.
#pragma once

#include <memory>
#include <string>

#include "exchange/old_database.h"

namespace karvel {

// What the beginning of a file tells of it. Only files of Access 2000 (to 2003) are read.
enum class AccessForm { None, Access97, Access2000, Later };
AccessForm AccessFormOf(const std::string& realPath);

class AccessDatabases final : public OldDatabases {
 public:
  [[nodiscard]] bool IsOld(const std::string& realPath) const override;
  // Damaged for a file that can't be read as one or was cut off, and for one that is older still (Access 97).
  Status Open(const std::string& realPath, std::unique_ptr<OldDatabase>& database) override;
};

}  // namespace karvel
