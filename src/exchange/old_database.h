// A database file as the shop's older program left it: tables of rows, whatever the form of the file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/status.h"
#include "store/catalogue.h"
#include "store/row.h"

namespace karvel {

struct OldColumn {
  std::string name;
  ColumnType type = ColumnType::Text;
};

struct OldTable {
  std::string name;
  std::vector<OldColumn> columns;
  std::int64_t rows = 0;  // as the file itself tells
};

class OldDatabase {
 public:
  // A row, its values in the order of the columns, Null where the file has none; and what of it could not be read, in plain Turkish.
  using Take = std::function<Status(Row& row, const std::vector<std::string>& faults)>;

  virtual ~OldDatabase() = default;
  // The shop's own tables.
  virtual Status ReadTables(std::vector<OldTable>& tables) = 0;
  // All rows that can be read, until one is refused.
  virtual Status ReadRows(const OldTable& table, const Take& take) = 0;
};

class OldDatabases {
 public:
  virtual ~OldDatabases() = default;
  // Whether the file, a path of this machine, is such a database.
  [[nodiscard]] virtual bool IsOld(const std::string& realPath) const = 0;
  virtual Status Open(const std::string& realPath, std::unique_ptr<OldDatabase>& database) = 0;
};

}  // namespace karvel
