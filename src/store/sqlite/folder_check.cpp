#include "store/sqlite/folder_check.h"

#include <fmt/format.h>

#include <memory>

#include "platform/patience.h"
#include "store/catalogue.h"
#include "store/sqlite/data_folder.h"
#include "store/sqlite/errors.h"

namespace karvel {
namespace {

Status CheckFile(sqlite::Connection& connection, const DatabaseFile& file) {
  const std::string schema = sqlite::SchemaOf(file);
  std::string found;
  Status read = sqlite::Run(&connection.Database(), "check", [&] { found = connection.AskText("PRAGMA " + schema + ".quick_check(1)"); });
  if (read.Ok() && found != "ok") read = {ErrorKind::Damaged, fmt::format("{}: {}", file.name, found)};
  return read.At(connection.PathOf(schema));
}

Status Open(const std::string& folder, std::unique_ptr<sqlite::Connection>& connection) {
  Patience patience(std::chrono::seconds(2));
  return sqlite::OpenAnew(folder, SqliteOptions{}, patience, connection);
}

}  // namespace

Status CheckStores(const std::string& folder) {
  std::unique_ptr<sqlite::Connection> connection;
  if (Status opened = Open(folder, connection); !opened.Ok()) return opened;
  for (const DatabaseFile& file : Catalogue::Files()) {
    if (!sqlite::InDataFolder(file)) continue;
    if (Status checked = CheckFile(*connection, file); !checked.Ok()) return checked;
  }
  return {};
}

Status RecoverStores(const std::string& folder) {
  std::unique_ptr<sqlite::Connection> connection;
  return Open(folder, connection);
}

}  // namespace karvel
