#include "exchange/access/access_databases.h"

#include <fmt/format.h>
#include <mdbtools.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "exchange/access/library_words.h"

namespace karvel {
namespace {

// Longer notes are cut, which is told.
constexpr std::size_t kLongestText = 1U << 16U;
constexpr std::string_view kMark{"\0\1\0\0Standard Jet DB", 19}, kLaterMark{"\0\1\0\0Standard ACE DB", 19};
constexpr std::uintmax_t kPage = 4096;
constexpr std::size_t kVersionAt = 20;  // 0 for Access 97, 1 for 2000 to 2003

struct Close {
  void operator()(MdbHandle* handle) const { mdb_close(handle); }
};
struct FreeTable {
  void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using TablePtr = std::unique_ptr<MdbTableDef, FreeTable>;

MdbColumn& ColumnAt(const MdbTableDef& table, unsigned int at) {
  return *static_cast<MdbColumn*>(g_ptr_array_index(table.columns, at));
}

ColumnType TypeOf(const MdbColumn& column) {
  switch (column.col_type) {
    case MDB_BOOL:
      return ColumnType::Boolean;
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_NUMERIC:
      return ColumnType::Number;
    case MDB_DATETIME:
      return ColumnType::Date;
    default:
      return ColumnType::Text;
  }
}

std::string Hexadecimal(const unsigned char* bytes, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += fmt::format("{:02X}", bytes[i]);
  return text;
}

// Numbers, money and texts as libmdb writes them: "." before the fraction.
double NumberOf(const std::string& text) {
  return std::strtod(text.c_str(), nullptr);
}

class AccessDatabase final : public OldDatabase {
 public:
  explicit AccessDatabase(MdbHandle* handle) : handle_(handle) { mdb_set_bind_size(handle_.get(), kLongestText); }

  Status ReadTables(std::vector<OldTable>& tables) override {
    const LibraryWords words;
    if (mdb_read_catalog(handle_.get(), MDB_TABLE) == nullptr) return {ErrorKind::Damaged, "no catalogue in the old file"};
    for (unsigned int i = 0; i < handle_->num_catalog; ++i) {
      auto* const entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(handle_->catalog, i));
      if (mdb_is_user_table(entry) == 0 || std::string_view(entry->object_name).starts_with("MSys")) continue;
      const TablePtr table = ReadTable(*entry);
      if (!table) return {ErrorKind::Damaged, fmt::format("{}: no table can be read at its place", entry->object_name)};
      OldTable& old = tables.emplace_back(OldTable{entry->object_name, {}, table->num_rows});
      for (unsigned int at = 0; at < table->num_cols; ++at)
        old.columns.push_back({ColumnAt(*table, at).name, TypeOf(ColumnAt(*table, at))});
    }
    return {};
  }

  Status ReadRows(const OldTable& old, const Take& take) override {
    const LibraryWords words;
    MdbCatalogEntry* const entry = mdb_get_catalogentry_by_name(handle_.get(), old.name.c_str());
    const TablePtr table = entry == nullptr ? nullptr : ReadTable(*entry);
    if (!table) return {ErrorKind::Damaged, fmt::format("{}: no table can be read at its place", old.name)};
    mdb_rewind_table(table.get());
    while (mdb_fetch_row(table.get()) != 0) {
      std::vector<std::string> faults;
      Row row;
      for (unsigned int at = 0; at < table->num_cols; ++at) row.push_back(ReadField(ColumnAt(*table, at), faults));
      if (Status taken = take(row, faults); !taken.Ok()) return taken;
    }
    return {};
  }

 private:
  static TablePtr ReadTable(MdbCatalogEntry& entry) {
    TablePtr table(mdb_read_table(&entry));
    if (table && mdb_read_columns(table.get()) == nullptr) table.reset();
    return table;
  }

  // Of the row that was fetched last.
  Value ReadField(MdbColumn& column, std::vector<std::string>& faults) {
    // A field that is Null is its own truth value.
    if (column.col_type == MDB_BOOL) return column.cur_value_len == 0;
    if (column.cur_value_len == 0) return {};
    unsigned char* const page = handle_->pg_buf;
    switch (column.col_type) {
      case MDB_FLOAT:
      case MDB_BYTE:
      case MDB_INT:
      case MDB_LONGINT:
      case MDB_MONEY:
        return NumberOf(TextOf(column, column.col_type));
      case MDB_DOUBLE:
        return mdb_get_double(page, column.cur_value_start);
      case MDB_NUMERIC: {
        const std::unique_ptr<char, decltype(&g_free)> text(
            mdb_numeric_to_string(handle_.get(), column.cur_value_start, column.col_scale, column.col_prec), g_free);
        return NumberOf(text.get());
      }
      case MDB_DATETIME:
        return ReadDate(column, mdb_get_double(page, column.cur_value_start), faults);
      case MDB_BINARY:
        return Hexadecimal(page + column.cur_value_start, static_cast<std::size_t>(column.cur_value_len));
      case MDB_OLE:
        return ReadObject(column);
      default:
        return ReadText(column, faults);
    }
  }

  std::string TextOf(const MdbColumn& column, int type) {
    const std::unique_ptr<char, decltype(&g_free)> text(
        mdb_col_to_string(handle_.get(), handle_->pg_buf, column.cur_value_start, type, column.cur_value_len), g_free);
    return text ? text.get() : "";
  }

  Value ReadText(const MdbColumn& column, std::vector<std::string>& faults) {
    std::string text = TextOf(column, column.col_type);
    if (text.size() + 1 >= kLongestText) faults.push_back(fmt::format("{} alanı çok uzun, sonu kesildi.", column.name));
    if (text.empty() && column.col_type == MDB_MEMO) faults.push_back(fmt::format("{} alanı okunamadı.", column.name));
    return text;
  }

  // Days since 1899-12-30; before it the time of day still counts forward.
  static Value ReadDate(const MdbColumn& column, double days, std::vector<std::string>& faults) {
    Value date = AsDate(Value(days));
    if (AsBoolean(date) || days == 0) return date;
    faults.push_back(fmt::format("{} alanındaki tarih okunamadı: {}", column.name, days));
    return {};
  }

  Value ReadObject(MdbColumn& column) {
    std::vector<char> bound(kLongestText);
    std::copy_n(handle_->pg_buf + column.cur_value_start, MDB_MEMO_OVERHEAD, bound.begin());
    column.bind_ptr = bound.data();
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&free)> bytes(mdb_ole_read_full(handle_.get(), &column, &size), free);
    column.bind_ptr = nullptr;
    return Hexadecimal(static_cast<const unsigned char*>(bytes.get()), size);
  }

  std::unique_ptr<MdbHandle, Close> handle_;
};

// What a broken copy leaves of a file may still be read here and there: what is behind the cut would be lost in silence.
bool IsOfWholePages(const std::string& realPath) {
  std::error_code failed;
  const std::uintmax_t size = std::filesystem::file_size(realPath, failed);
  return !failed && size % kPage == 0;
}

}  // namespace

AccessForm AccessFormOf(const std::string& realPath) {
  std::array<char, kVersionAt + 1> beginning{};
  std::ifstream file(realPath, std::ios::binary);
  file.read(beginning.data(), beginning.size());
  if (file.gcount() != static_cast<std::streamsize>(beginning.size())) return AccessForm::None;
  const std::string_view mark(beginning.data(), kMark.size());
  if (mark == kLaterMark) return AccessForm::Later;
  if (mark != kMark) return AccessForm::None;
  return beginning[kVersionAt] == 0 ? AccessForm::Access97 : beginning[kVersionAt] == 1 ? AccessForm::Access2000 : AccessForm::Later;
}

bool AccessDatabases::IsOld(const std::string& realPath) const {
  const AccessForm form = AccessFormOf(realPath);
  return form == AccessForm::Access97 || form == AccessForm::Access2000;
}

Status AccessDatabases::Open(const std::string& realPath, std::unique_ptr<OldDatabase>& database) {
  if (!IsOfWholePages(realPath)) return {ErrorKind::Damaged, realPath + ": cut off, no whole number of pages"};
  const LibraryWords words;
  MdbHandle* const handle = IsOld(realPath) ? mdb_open(realPath.c_str(), MDB_NOFLAGS) : nullptr;
  if (handle == nullptr) return {ErrorKind::Damaged, realPath + ": no Access 2000 file"};
  auto opened = std::make_unique<AccessDatabase>(handle);
  if (IS_JET3(handle)) return {ErrorKind::Damaged, realPath + ": an Access 97 file, which is older than what can be read"};
  database = std::move(opened);
  return {};
}

}  // namespace karvel
