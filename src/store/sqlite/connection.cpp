#include "store/sqlite/connection.h"

#include <sqlite3.h>

#include <memory>
#include <type_traits>

#include "text/like_pattern.h"
#include "text/turkish.h"

namespace karvel::sqlite {
namespace {

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr ? std::string_view() : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// karvel_fold(text): the compare key of a text that no index holds.
void Fold(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return sqlite3_result_null(context);
  const std::string key = FoldKey(TextOf(arguments[0]));
  sqlite3_result_text(context, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
}

// karvel_like(text, pattern)
void Fits(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return sqlite3_result_null(context);
  // The pattern is read once a statement, not once a row.
  auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 1));
  if (pattern == nullptr) {
    pattern = new LikePattern(TextOf(arguments[1]));
    sqlite3_set_auxdata(context, 1, pattern, [](void* kept) { delete static_cast<LikePattern*>(kept); });
    // Where memory is short, it has been deleted instead of kept.
    pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 1));
    if (pattern == nullptr) return sqlite3_result_error_nomem(context);
  }
  sqlite3_result_int(context, pattern->Matches(TextOf(arguments[0])) ? 1 : 0);
}

void Bind(SQLite::Statement& statement, int at, const Value& value) {
  std::visit(
      [&](const auto& content) {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, double>) {
          statement.bind(at, content);
        } else if constexpr (std::is_same_v<Content, std::string>) {
          statement.bindNoCopy(at, content);
        } else if constexpr (std::is_same_v<Content, bool>) {
          statement.bind(at, content ? 1 : 0);
        } else if constexpr (std::is_same_v<Content, DateTime>) {
          statement.bind(at, content.ToIso());
        } else {
          statement.bind(at);
        }
      },
      value);
}

// A date in the store's own form; other forms stay texts, for they order as texts.
bool IsOwnForm(std::string_view text) {
  return text.empty() || (text.size() == 19 && text[10] == ' ');
}

}  // namespace

RunningStatement::RunningStatement(SQLite::Statement& statement, const std::vector<Value>& parameters) : statement_(statement) {
  for (std::size_t i = 0; i < parameters.size(); ++i) Bind(statement_, static_cast<int>(i) + 1, parameters[i]);
}

Value RunningStatement::Read(int column, ColumnType type) const {
  const SQLite::Column field = statement_.getColumn(column);
  const int stored = field.getType();
  if (stored == SQLITE_NULL) return {};
  const auto text = [&] {
    const char* bytes = field.getText();
    return std::string(bytes, static_cast<std::size_t>(field.getBytes()));
  };
  const bool number = stored == SQLITE_INTEGER || stored == SQLITE_FLOAT;
  switch (type) {
    case ColumnType::Text:
      break;
    case ColumnType::Number:
      if (number) return field.getDouble();
      break;
    case ColumnType::Boolean:
      if (stored == SQLITE_INTEGER && (field.getInt64() == 0 || field.getInt64() == 1)) return field.getInt64() == 1;
      if (number) return field.getDouble();
      break;
    case ColumnType::Date: {
      const char* bytes = field.getText();
      const std::string_view stamp(bytes, static_cast<std::size_t>(field.getBytes()));
      const DateTime date = DateTime::FromIso(stamp);
      if (IsOwnForm(stamp) && (stamp.empty() || !date.IsEmpty())) return date;
      break;
    }
  }
  return text();
}

Row RunningStatement::ReadRow(const Table& table) const {
  Row row;
  row.reserve(table.columns.size());
  for (const Column& column : table.columns) row.push_back(Read(static_cast<int>(row.size()) + 1, column.type));
  return row;
}

Connection::Connection(const std::string& path, const std::string& vfs)
    : database_(path, SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW, 0, vfs) {
  AddFunctions();
  // The files come from elsewhere too: nothing in a file's own schema may reach beyond it.
  Execute("PRAGMA trusted_schema=OFF");
  Execute("PRAGMA temp_store=MEMORY");
}

void Connection::AddFunctions() {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
  sqlite3* handle = database_.getHandle();
  if (sqlite3_create_function_v2(handle, "karvel_fold", 1, kFlags, nullptr, Fold, nullptr, nullptr, nullptr) != SQLITE_OK ||
      sqlite3_create_function_v2(handle, "karvel_like", 2, kFlags, nullptr, Fits, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw SQLite::Exception(handle);
  }
}

RunningStatement Connection::Prepare(const std::string& sql, const std::vector<Value>& parameters) {
  const auto found = byText_.find(sql);
  if (found != byText_.end()) {
    statements_.splice(statements_.begin(), statements_, found->second);
  } else {
    if (statements_.size() >= kMostKept) {
      byText_.erase(statements_.back().first);
      statements_.pop_back();
    }
    statements_.emplace_front(sql, SQLite::Statement(database_, sql));
    byText_.emplace(statements_.front().first, statements_.begin());
  }
  return {statements_.front().second, parameters};
}

void Connection::Execute(const std::string& sql) {
  static const std::vector<Value> none;
  RunningStatement running = Prepare(sql, none);
  while (running.Step()) {
  }
}

std::string Connection::AskText(const std::string& sql) {
  SQLite::Statement statement(database_, sql);
  return statement.executeStep() ? statement.getColumn(0).getString() : std::string();
}

std::string Connection::PathOf(const std::string& schema) const {
  const char* const path = sqlite3_db_filename(database_.getHandle(), schema.c_str());
  return path != nullptr ? path : "";
}

bool Connection::InTransaction() const {
  return sqlite3_get_autocommit(database_.getHandle()) == 0;
}

}  // namespace karvel::sqlite
