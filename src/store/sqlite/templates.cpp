#include "store/sqlite/templates.h"

#include <filesystem>
#include <system_error>

#include "platform/system_error.h"
#include "store/sqlite/errors.h"
#include "store/sqlite/sqlite_sql.h"

namespace karvel {

Status WriteTemplate(const DatabaseFile& file, const std::string& realPath) {
  namespace fs = std::filesystem;
  std::error_code failed;
  const std::string unfinished = realPath + ".new";
  fs::remove(unfinished, failed);
  Status written = sqlite::Run(nullptr, file.name, [&] {
    SQLite::Database database(unfinished, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    database.exec("BEGIN IMMEDIATE");
    for (const Table& table : file.tables) {
      database.exec(sqlite::CreateTableSql(table));
      for (const Index& index : table.indexes) database.exec(sqlite::CreateIndexSql(table, index));
    }
    // Without a table nothing would be written, and an empty file is no database to other programs.
    database.exec("PRAGMA user_version=1");
    database.exec("COMMIT");
  });
  if (!written.Ok()) return written;
  fs::rename(unfinished, realPath, failed);
  if (failed) return {KindOfSystemError(failed.value(), ErrorKind::NoRights), realPath + ": " + failed.message()};
  return {};
}

}  // namespace karvel
