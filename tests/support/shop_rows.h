// The rows of a shop's files as a test puts them there and reads them back: by a plain SQLite connection, as any other program would.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace karvel {

// The empty files of a shop, made once a run.
const std::string& TemplateFolder();

class ShopRows {
 protected:
  using Fields = std::map<std::string, std::string>;

  ~ShopRows() = default;
  // The folder of the eight files, this machine's own path, without a slash at the end.
  [[nodiscard]] virtual std::string DataFolder() const = 0;

  // A row reads as its values joined with "|"; Null reads as "NULL".
  void Sql(const std::string& file, const std::string& sql);
  std::vector<std::string> Rows(const std::string& file, const std::string& sql);
  std::string One(const std::string& file, const std::string& sql);
  // The one row of a table that a condition picks, by column name. Fails when there are several or none.
  Fields RowOf(const std::string& file, const std::string& table, const std::string& where = "1");

  void AddCustomer(const std::string& code, const std::string& name, const std::string& more = "");
  void AddStock(const std::string& code, const std::string& name, const std::string& more = "");
};

}  // namespace karvel
