// The one table of tables: every database file, its tables, their columns in order, and the look-ups that must be quick.
// The templates, the queries, the cursors and the tests all read it; no field list stands anywhere else.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace karvel {

enum class ColumnType { Text, Number, Date, Boolean };

struct Column {
  std::string_view name;
  ColumnType type;
};

// An index: its columns in order. A text column goes in by its compare key (FoldKeySql).
struct Index {
  std::vector<std::string_view> columns;
};

struct Table {
  std::string_view name;
  std::vector<Column> columns;
  std::vector<Index> indexes;

  // The position of a column, ignoring case; -1 when there is none.
  [[nodiscard]] int Position(std::string_view column) const;
};

struct DatabaseFile {
  std::string_view name;    // "Cari.mdb", as it lies in the folder
  std::string_view schema;  // the engine's name for it: "cari"
  std::vector<Table> tables;

  // The table of this name, ignoring case; null when there is none.
  [[nodiscard]] const Table* Find(std::string_view table) const;
};

class Catalogue {
 public:
  // The eight files of the data folder in the order in which a start copies them, then DataTemp.Mdb of the program folder.
  [[nodiscard]] static std::span<const DatabaseFile> Files();
  // The file of a path or name ("C:\KarvelData\Stok.Mdb", "stok.mdb"), ignoring case and folder; null when there is none.
  [[nodiscard]] static const DatabaseFile* File(std::string_view pathOrName);
};

}  // namespace karvel
