#include "store/sqlite/unknown_fields.h"

#include <fmt/format.h>

#include <memory>

#include "platform/patience.h"
#include "store/catalogue.h"
#include "store/sqlite/data_folder.h"
#include "store/sqlite/errors.h"
#include "store/sqlite/sqlite_engine.h"

namespace karvel {
namespace {

std::vector<std::string> Ask(sqlite::Connection& connection, const std::string& sql) {
  SQLite::Statement statement(connection.Database(), sql);
  std::vector<std::string> names;
  while (statement.executeStep()) names.push_back(statement.getColumn(0).getString());
  return names;
}

void FindIn(sqlite::Connection& connection, const DatabaseFile& file, std::vector<std::string>& names) {
  const std::string schema = sqlite::SchemaOf(file);
  for (const std::string& name :
       Ask(connection, fmt::format("SELECT name FROM {}.sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite%'", schema))) {
    const Table* const table = file.Find(name);
    if (table == nullptr) {
      names.push_back(fmt::format("{}/{}", file.name, name));
      continue;
    }
    std::string fields;
    for (const std::string& field : Ask(connection, fmt::format("SELECT name FROM pragma_table_info('{}', '{}')", table->name, schema)))
      if (table->Position(field) < 0) fields += (fields.empty() ? "" : ", ") + field;
    if (!fields.empty()) names.push_back(fmt::format("{}/{}: {}", file.name, table->name, fields));
  }
}

}  // namespace

Status FindUnknownFields(const std::string& folder, std::vector<std::string>& names) {
  Patience patience(std::chrono::seconds(2));
  std::unique_ptr<sqlite::Connection> connection;
  if (Status opened = sqlite::OpenAnew(folder, SqliteOptions{}, patience, connection); !opened.Ok()) return opened;
  return sqlite::Run(&connection->Database(), "fields", [&] {
    for (const DatabaseFile& file : Catalogue::Files())
      if (sqlite::InDataFolder(file)) FindIn(*connection, file, names);
  });
}

}  // namespace karvel
