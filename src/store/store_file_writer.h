// A store file that is made whole from rows that come from elsewhere: its tables, its rows, its indexes behind them.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "platform/status.h"
#include "store/catalogue.h"
#include "store/row.h"

namespace karvel {

class StoreFileWriter {
 public:
  virtual ~StoreFileWriter() = default;
  // A row of one of the file's tables, its values in the order of the columns.
  virtual Status Add(std::size_t table, const Row& row) = 0;
  // What was added is on the disk when this returns. A file that isn't finished is thrown away.
  virtual Status Finish() = 0;
};

// Begins a new file with these tables at a path of this machine. The tables may have more columns than the catalogue's; what they are made
// of must live as long as the writer.
using StoreFileMaker = std::function<Status(const DatabaseFile&, const std::string&, std::unique_ptr<StoreFileWriter>&)>;

}  // namespace karvel
