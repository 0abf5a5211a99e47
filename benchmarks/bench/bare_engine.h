// The rival: SQLite itself, with statements prepared once, for the same rows in the same files at the same durability.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace karvel::bench {

// A statement with its parameters. A failure is thrown as std::runtime_error.
class BareStatement {
 public:
  BareStatement(sqlite3* connection, const std::string& sql);
  // Sets the parameters in their order and starts anew. Texts must stay until the last step.
  template <typename... Values>
  BareStatement& With(const Values&... values) {
    sqlite3_reset(statement_.get());
    int place = 0;
    (Bind(++place, values), ...);
    return *this;
  }
  // True on a row.
  bool Step();
  // Steps once and puts the statement to rest.
  bool Run();
  void Rest() { sqlite3_reset(statement_.get()); }
  [[nodiscard]] double Number(int column) const { return sqlite3_column_double(statement_.get(), column); }
  [[nodiscard]] std::string Text(int column) const;

 private:
  void Bind(int place, std::string_view text) {
    sqlite3_bind_text(statement_.get(), place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  void Bind(int place, const std::string& text) { Bind(place, std::string_view(text)); }
  void Bind(int place, const char* text) { Bind(place, std::string_view(text)); }
  void Bind(int place, double number) { sqlite3_bind_double(statement_.get(), place, number); }
  void Bind(int place, int number) { sqlite3_bind_double(statement_.get(), place, number); }

  struct Finalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  sqlite3* connection_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

// The four files that a line is written to, on one connection: rollback journals, full syncs, as the desk has them.
class BareShop {
 public:
  explicit BareShop(const std::string& home);
  [[nodiscard]] sqlite3* Connection() const { return connection_.get(); }
  void Execute(const char* sql);
  // All texts of one column, up to a limit, spread over the table.
  std::vector<std::string> Sample(const std::string& table, const std::string& column, const std::string& where, int limit);

 private:
  struct Close {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
  };
  std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace karvel::bench
