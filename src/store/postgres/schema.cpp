#include "store/postgres/schema.h"

#include <fmt/format.h>

#include <set>
#include <utility>

#include "platform/log.h"
#include "store/postgres/postgres_sql.h"

namespace karvel::postgres {
namespace {

constexpr const char* kColumnsSql =
    "SELECT n.nspname, c.relname, a.attname FROM pg_namespace n "
    "LEFT JOIN pg_class c ON c.relnamespace = n.oid AND c.relkind IN ('r', 'p') "
    "LEFT JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped "
    "WHERE n.nspname = ANY (string_to_array($1, '/'))";

std::string SchemaNames(const std::string& firm) {
  std::string names;
  for (const DatabaseFile& file : Catalogue::Files())
    if (IsOnServer(file)) names += (names.empty() ? "" : "/") + SchemaOf(file, firm);
  return names;
}

// What stands on the server: "schema", "schema/table", "schema/table/column".
Status ReadNames(Connection& connection, const std::string& firm, Patience& patience, std::set<std::string>& there) {
  Result result;
  const std::vector<Value> parameters{SchemaNames(firm)};
  if (Status read = connection.Run(kColumnsSql, parameters, result, patience); !read.Ok()) return read;
  for (int row = 0; row < result.Rows(); ++row) {
    std::string name;
    for (int column = 0; column < 3 && !result.Text(row, column).empty(); ++column) {
      name += (column == 0 ? "" : "/") + std::string(result.Text(row, column));
      there.insert(name);
    }
  }
  return {};
}

Status Check(const std::set<std::string>& there, const std::string& firm) {
  const auto missing = [](const std::string& name) { return Status(ErrorKind::Damaged, name + " is missing on the server").At(name); };
  for (const DatabaseFile& file : Catalogue::Files()) {
    if (!IsOnServer(file)) continue;
    const std::string schema = SchemaOf(file, firm);
    if (!there.contains(schema)) return missing(schema);
    for (const Table& table : file.tables) {
      const std::string name = schema + "/" + std::string(table.name);
      if (!there.contains(name)) return missing(name);
      if (!there.contains(name + "/" + std::string(kRowKey))) return missing(name + "/" + std::string(kRowKey));
      for (const Column& column : table.columns)
        if (!there.contains(name + "/" + std::string(column.name))) return missing(name + "/" + std::string(column.name));
    }
  }
  return {};
}

Status Make(Connection& connection, const std::string& firm, Patience& patience, Patience& answers, bool& made) {
  connection.Defer("BEGIN");
  Result ignored;
  const std::vector<Value> lock{std::to_string(LockOf(firm, "actions"))};
  if (Status locked = connection.RunWaiting("SELECT pg_advisory_xact_lock($1::bigint)", lock, ignored, patience); !locked.Ok()) {
    connection.Defer("ROLLBACK");
    connection.Settle(answers).Ignore();
    return locked;
  }
  // Another terminal may have made them meanwhile.
  std::set<std::string> there;
  Status outcome = ReadNames(connection, firm, answers, there);
  const bool empty = there.empty();
  if (outcome.Ok() && empty) {
    Log(fmt::format("firm {}: its tables are made on the main machine", firm));
    for (const DatabaseFile& file : Catalogue::Files()) {
      if (!IsOnServer(file)) continue;
      for (const std::string& statement : CreateSchemaSql(file, firm)) connection.DeferOnce(statement);
    }
  }
  if (outcome.Ok()) connection.Defer("COMMIT");
  Status settled = connection.Settle(answers);
  if (outcome.Ok()) outcome = settled;
  if (!outcome.Ok() && connection.IsUp()) {
    connection.Defer("ROLLBACK");
    connection.Settle(answers).Ignore();
  }
  made = outcome.Ok() && empty;
  return outcome;
}

}  // namespace

Status PrepareFirm(Connection& connection, const std::string& firm, bool mayMake, Patience& patience, Patience& answers, bool& made) {
  made = false;
  std::set<std::string> there;
  if (Status read = ReadNames(connection, firm, answers, there); !read.Ok()) return read;
  if (there.empty()) {
    if (!mayMake) return {ErrorKind::Missing, fmt::format("there is no firm {}", firm)};
    if (Status begun = Make(connection, firm, patience, answers, made); !begun.Ok()) return begun;
    if (Status read = ReadNames(connection, firm, answers, there); !read.Ok()) return read;
  }
  return Check(there, firm);
}

}  // namespace karvel::postgres
