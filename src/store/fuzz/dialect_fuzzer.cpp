// Feeds any bytes to the dialect as a record source of every file and as a criterion on every table. Whatever is understood must
// print back the same, must become SQL that holds nothing but what the printer may write, and must run on an engine.
#include <fmt/format.h>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "store/catalogue.h"
#include "store/dialect/dialect.h"
#include "support/plain_sqlite_target.h"

namespace karvel::dialect {
namespace {

void Require(bool holds, std::string_view what, std::string_view text) {
  if (holds) return;
  fmt::print(stderr, "{}: {}\n", what, text);
  std::abort();
}

// Every piece under a name that the check below knows.
class NamingTarget : public SqlTarget {
 public:
  std::string ColumnName(std::string_view column) const override { return fmt::format("\"{}\"", column); }
  std::string Parameter(std::size_t n) const override { return fmt::format("?{}", n); }
  std::string IndexedKey(std::string_view sql) const override { return fmt::format("INDEXED({})", sql); }
  std::string ComputedKey(std::string_view sql) const override { return fmt::format("COMPUTED({})", sql); }
  std::string Fits(std::string_view text, std::string_view pattern) const override { return fmt::format("FITS({}, {})", text, pattern); }
  std::string LeftOf(std::string_view text, int count) const override { return fmt::format("LEFT({}, {})", text, count); }
};

// Takes the SQL apart: words of the printer, columns of the table, parameters, whole numbers and signs. A typed text would show as
// anything else.
void CheckSql(const std::string& sql, const Table& table, std::size_t parameterCount) {
  static const std::set<std::string_view> words{"AND", "OR", "NOT", "ASC", "DESC", "INDEXED", "COMPUTED", "FITS", "LEFT"};
  std::set<std::size_t> parameters;
  for (std::size_t at = 0; at < sql.size();) {
    const char c = sql[at];
    std::size_t end = at + 1;
    if (c == '"') {
      end = sql.find('"', at + 1);
      Require(end != std::string::npos, "an open name", sql);
      const std::string_view name = std::string_view(sql).substr(at + 1, end - at - 1);
      const int position = table.Position(name);
      Require(position >= 0 && table.columns[static_cast<std::size_t>(position)].name == name, "a foreign name", sql);
      ++end;
    } else if (c >= 'A' && c <= 'Z') {
      while (end < sql.size() && sql[end] >= 'A' && sql[end] <= 'Z') ++end;
      Require(words.contains(std::string_view(sql).substr(at, end - at)), "a foreign word", sql);
    } else if (c == '?' || (c >= '0' && c <= '9')) {
      while (end < sql.size() && sql[end] >= '0' && sql[end] <= '9') ++end;
      if (c == '?') parameters.insert(std::stoul(sql.substr(at + 1, end - at - 1)));
    } else {
      Require(std::string_view(" ()<>=,").find(c) != std::string_view::npos, "a foreign sign", sql);
    }
    at = end;
  }
  Require(parameters.size() == parameterCount, "parameters that are not used", sql);
  Require(parameters.empty() || *parameters.rbegin() == parameterCount - 1, "a parameter that is not given", sql);
}

// One engine a file, each table with a few rows.
support::PlainSqlite& StoreOf(const DatabaseFile& file) {
  static std::vector<std::pair<const DatabaseFile*, std::unique_ptr<support::PlainSqlite>>> stores;
  for (const auto& [known, store] : stores) {
    if (known == &file) return *store;
  }
  auto store = std::make_unique<support::PlainSqlite>();
  for (const Table& table : file.tables) {
    store->MakeTable(table);
    for (int i = 0; i < 3; ++i) {
      Row row;
      for (const Column& column : table.columns) {
        switch (column.type) {
          case ColumnType::Text:
            row.emplace_back(std::string(i == 0 ? "" : i == 1 ? "Şeker 1 kg" : "ılık\xff"));
            break;
          case ColumnType::Number:
            row.emplace_back(i * 1.5);
            break;
          case ColumnType::Date:
            row.emplace_back(DateTime{2026, 3, static_cast<std::int8_t>(i + 1), 10, 0, 0});
            break;
          case ColumnType::Boolean:
            row.emplace_back(i == 1);
            break;
        }
        if (i == 2 && row.size() % 4 == 0) row.back() = Value();
      }
      store->Insert(table, row);
    }
  }
  stores.emplace_back(&file, std::move(store));
  return *stores.back().second;
}

// Nesting that no engine takes is the one thing that may fail there.
bool TooDeep(std::string_view message) {
  return message.starts_with("parser stack overflow") || message.starts_with("Expression tree is too large");
}

void CheckRuns(const DatabaseFile& file, const Table& table, const Expr* where, const std::vector<OrderTerm>& order) {
  std::vector<Value> parameters;
  std::string check = where != nullptr ? PrintSql(*where, table, NamingTarget(), parameters) : "";
  check += ' ' + PrintSqlOrder(order, table, NamingTarget());
  CheckSql(check, table, parameters.size());

  parameters.clear();
  const support::PlainSqliteTarget target;
  std::string sql = fmt::format("SELECT 1 FROM \"{}\"", table.name);
  if (where != nullptr) sql += " WHERE " + PrintSql(*where, table, target, parameters);
  if (!order.empty()) sql += " ORDER BY " + PrintSqlOrder(order, table, target);
  try {
    StoreOf(file).Numbers(sql, parameters);
  } catch (const std::runtime_error& error) {
    Require(TooDeep(error.what()), "the engine refuses", error.what());
  }
}

void CheckStatement(std::string_view text, const DatabaseFile& file) {
  Statement statement;
  if (!ParseStatement(text, file, statement)) return;
  const std::string printed = Print(statement);
  Statement again;
  const Status status = ParseStatement(printed, file, again);
  Require(status.Ok(), status.Message(), printed);
  Require(Print(again) == printed, "printed differently", printed);
  Require(statement.table == again.table && statement.kind == again.kind, "another statement", printed);
  CheckRuns(file, *statement.table, statement.where.get(), statement.order);
}

void CheckCriteria(std::string_view text, const DatabaseFile& file, const Table& table) {
  ExprPtr expr;
  if (!ParseCriteria(text, file, table, expr)) return;
  const std::string printed = Print(*expr, table);
  ExprPtr again;
  const Status status = ParseCriteria(printed, file, table, again);
  Require(status.Ok(), status.Message(), printed);
  Require(Print(*again, table) == printed, "printed differently", printed);
  CheckRuns(file, table, expr.get(), {});
}

}  // namespace
}  // namespace karvel::dialect

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  for (const karvel::DatabaseFile& file : karvel::Catalogue::Files()) {
    karvel::dialect::CheckStatement(text, file);
    for (const karvel::Table& table : file.tables) karvel::dialect::CheckCriteria(text, file, table);
  }
  return 0;
}
