// The dialect's SQL on a bare in-memory SQLite, without the engine of the desk: for tests and fuzzers of the printers.
// Keys are computed by the built-in expression where an index would serve, by the desk's own function elsewhere, so both are compared.
#pragma once

#include <fmt/format.h>
#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "store/catalogue.h"
#include "store/dialect/dialect.h"
#include "text/turkish.h"

namespace karvel::support {

class PlainSqliteTarget : public dialect::SqlTarget {
 public:
  [[nodiscard]] std::string ColumnName(std::string_view column) const override { return fmt::format("\"{}\"", column); }
  [[nodiscard]] std::string Parameter(std::size_t n) const override { return fmt::format("?{}", n + 1); }
  [[nodiscard]] std::string IndexedKey(std::string_view columnSql) const override { return FoldKeySql(columnSql); }
  [[nodiscard]] std::string ComputedKey(std::string_view textSql) const override { return fmt::format("karvel_key({})", textSql); }
  [[nodiscard]] std::string Fits(std::string_view textSql, std::string_view patternSql) const override {
    return fmt::format("karvel_like({}, {})", textSql, patternSql);
  }
  [[nodiscard]] std::string LeftOf(std::string_view textSql, int count) const override {
    return fmt::format("substr({}, 1, {})", textSql, count);
  }
};

// A database of its own in memory, with tables made from the catalogue. Broken SQL throws std::runtime_error with the engine's words.
class PlainSqlite {
 public:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  using Prepared = std::unique_ptr<sqlite3_stmt, Closer>;

  PlainSqlite() {
    sqlite3* handle = nullptr;
    sqlite3_open(":memory:", &handle);
    handle_.reset(handle);
    AddFunction("karvel_like", 2, [](sqlite3_context* context, int, sqlite3_value** values) {
      if (IsNull(values[0]) || IsNull(values[1])) return sqlite3_result_null(context);
      sqlite3_result_int(context, Like(TextOf(values[0]), TextOf(values[1])) ? 1 : 0);
    });
    AddFunction("karvel_key", 1, [](sqlite3_context* context, int, sqlite3_value** values) {
      if (IsNull(values[0])) return sqlite3_result_null(context);
      const std::string key = FoldKey(TextOf(values[0]));
      sqlite3_result_text(context, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
    });
  }

  void MakeTable(const Table& table) {
    std::string columns;
    for (const Column& column : table.columns) {
      const bool isText = column.type == ColumnType::Text || column.type == ColumnType::Date;
      columns += fmt::format("{}\"{}\" {}", columns.empty() ? "" : ", ", column.name, isText ? "TEXT" : "REAL");
    }
    Run(fmt::format("CREATE TABLE \"{}\" ({})", table.name, columns));
  }

  void Insert(const Table& table, const Row& row) {
    std::string places;
    for (std::size_t i = 0; i < row.size(); ++i) places += fmt::format("{}?{}", i == 0 ? "" : ", ", i + 1);
    Run(fmt::format("INSERT INTO \"{}\" VALUES ({})", table.name, places), row);
  }

  Prepared Prepare(const std::string& sql, const std::vector<Value>& parameters) {
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(handle_.get(), sql.data(), static_cast<int>(sql.size()), &raw, nullptr) != SQLITE_OK) Throw(sql);
    Prepared statement(raw);
    for (std::size_t i = 0; i < parameters.size(); ++i) Bind(raw, static_cast<int>(i + 1), parameters[i]);
    return statement;
  }

  // The first column of every row, as whole numbers.
  std::vector<std::int64_t> Numbers(const std::string& sql, const std::vector<Value>& parameters) {
    std::vector<std::int64_t> numbers;
    const Prepared statement = Prepare(sql, parameters);
    int step = 0;
    while ((step = sqlite3_step(statement.get())) == SQLITE_ROW) numbers.push_back(sqlite3_column_int64(statement.get(), 0));
    if (step != SQLITE_DONE) Throw(sql);
    return numbers;
  }

  void Run(const std::string& sql, const std::vector<Value>& parameters = {}) { Numbers(sql, parameters); }

 private:
  using Function = void (*)(sqlite3_context*, int, sqlite3_value**);

  void AddFunction(const char* name, int arguments, Function function) {
    sqlite3_create_function(handle_.get(), name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, function, nullptr, nullptr);
  }
  static bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }
  static std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
  }
  static void Bind(sqlite3_stmt* statement, int place, const Value& value) {
    std::visit(
        [&](const auto& content) {
          using Content = std::decay_t<decltype(content)>;
          if constexpr (std::is_same_v<Content, double>) sqlite3_bind_double(statement, place, content);
          if constexpr (std::is_same_v<Content, bool>) sqlite3_bind_int(statement, place, content ? 1 : 0);
          if constexpr (std::is_same_v<Content, DateTime>) BindText(statement, place, content.ToIso());
          if constexpr (std::is_same_v<Content, std::string>) BindText(statement, place, content);
        },
        value);
  }
  static void BindText(sqlite3_stmt* statement, int place, const std::string& text) {
    sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  }
  [[noreturn]] void Throw(const std::string& sql) const {
    throw std::runtime_error(fmt::format("{} in: {}", sqlite3_errmsg(handle_.get()), sql));
  }

  std::unique_ptr<sqlite3, Closer> handle_;
};

}  // namespace karvel::support
