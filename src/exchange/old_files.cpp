#include "exchange/old_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/folders.h"
#include "platform/log.h"
#include "platform/system_error.h"
#include "platform/unfinished_files.h"
#include "store/open_copy.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostFaultsShown = 10;

// How a table of the old file becomes one of the new.
struct TablePlan {
  const OldTable* old = nullptr;  // null: there is none, and the new one is empty
  std::vector<int> oldColumns;    // of each new column; -1 for none
};

int Find(const OldTable& table, std::string_view column) {
  const auto found = std::ranges::find_if(table.columns, [&](const OldColumn& candidate) { return EqualText(candidate.name, column); });
  return found == table.columns.end() ? -1 : static_cast<int>(found - table.columns.begin());
}

// The due dates' amount has had other names: it is the third column.
bool IsReadByPlace(const Table& table) {
  return table.name == "VadeGün";
}

// The columns that the catalogue knows, and behind them those that it doesn't.
TablePlan PlanTable(const OldTable& old, Table& table) {
  TablePlan plan{&old, {}};
  std::vector<bool> taken(old.columns.size(), false);
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    int at = Find(old, table.columns[i].name);
    if (at < 0 && IsReadByPlace(table) && i < old.columns.size() && table.Position(old.columns[i].name) < 0) at = static_cast<int>(i);
    if (at >= 0) taken[static_cast<std::size_t>(at)] = true;
    plan.oldColumns.push_back(at);
  }
  for (std::size_t i = 0; i < old.columns.size(); ++i) {
    if (taken[i]) continue;
    table.columns.push_back({old.columns[i].name, old.columns[i].type});
    plan.oldColumns.push_back(static_cast<int>(i));
  }
  return plan;
}

class Conversion {
 public:
  Conversion(const std::vector<OldTable>& old, const DatabaseFile& file, ConvertedFile& converted) : new_(file), converted_(converted) {
    std::vector<bool> taken(old.size(), false);
    for (Table& table : new_.tables) {
      const auto found = std::ranges::find_if(old, [&](const OldTable& candidate) { return EqualText(candidate.name, table.name); });
      if (found == old.end()) {
        plans_.push_back({});
        converted_.faults.push_back(fmt::format("{} tablosu eski dosyada yok; boş açıldı.", table.name));
        continue;
      }
      taken[static_cast<std::size_t>(found - old.begin())] = true;
      plans_.push_back(PlanTable(*found, table));
    }
    for (std::size_t i = 0; i < old.size(); ++i) {
      if (taken[i]) continue;
      new_.tables.push_back({old[i].name, {}, {}});
      plans_.push_back(PlanTable(old[i], new_.tables.back()));
    }
  }

  [[nodiscard]] const DatabaseFile& NewFile() const { return new_; }

  Status Copy(OldDatabase& database, StoreFileWriter& writer) {
    for (std::size_t i = 0; i < plans_.size(); ++i) {
      if (plans_[i].old == nullptr) continue;
      if (Status copied = CopyTable(database, i, writer); !copied.Ok()) return copied;
    }
    return {};
  }

 private:
  Status CopyTable(OldDatabase& database, std::size_t number, StoreFileWriter& writer) {
    const OldTable& old = *plans_[number].old;
    std::int64_t rows = 0;
    const Status read = database.ReadRows(old, [&](Row& row, const std::vector<std::string>& faults) {
      ++rows;
      for (const std::string& fault : faults) Name(number, rows, fault);
      return writer.Add(number, NewRow(number, rows, row));
    });
    converted_.rows += rows;
    // A file that was not closed well tells 0.
    if (rows < old.rows)
      converted_.faults.push_back(fmt::format("{}: {} satırdan {} tanesi okunamadı.", old.name, old.rows, old.rows - rows));
    return read;
  }

  Row NewRow(std::size_t number, std::int64_t line, const Row& row) {
    const Table& table = new_.tables[number];
    Row values;
    values.reserve(table.columns.size());
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const int at = plans_[number].oldColumns[i];
      const Value& value = at < 0 ? Value() : row[static_cast<std::size_t>(at)];
      std::optional<Value> fits = ConvertTo(table.columns[i].type, value);
      if (!fits) Name(number, line, fmt::format("{} alanına uymuyor: {}", table.columns[i].name, AsText(value)));
      values.push_back(fits ? std::move(*fits) : DefaultOf(table.columns[i].type));
    }
    return values;
  }

  void Name(std::size_t number, std::int64_t line, const std::string& what) {
    converted_.faults.push_back(fmt::format("{}, {}. satır: {}", new_.tables[number].name, line, what));
  }

  DatabaseFile new_;
  std::vector<TablePlan> plans_;
  ConvertedFile& converted_;
};

// "Cari.eski.mdb", or the first like it that is free.
std::string KeptName(const std::string& folder, const std::string& name) {
  const fs::path path(name);
  for (int number = 1;; ++number) {
    const std::string mark = number == 1 ? ".eski" : ".eski" + std::to_string(number);
    std::string kept = path.stem().string() + mark + path.extension().string();
    if (!fs::exists(fs::path(folder) / kept)) return kept;
  }
}

// The file of the folder with this name, ignoring case; "" for none.
std::string NameIn(const std::string& folder, std::string_view name) {
  std::error_code failed;
  for (const auto& entry : fs::directory_iterator(folder, failed))
    if (EqualText(entry.path().filename().string(), name)) return entry.path().filename().string();
  return {};
}

// A file whose list of tables is cut off or blank reads as one with few or none: the shop would open without its customers.
Status CheckMainTable(const std::vector<OldTable>& tables, const DatabaseFile& file) {
  if (file.tables.empty()) return {};
  const std::string_view main = file.tables.front().name;
  if (std::ranges::any_of(tables, [&](const OldTable& table) { return EqualText(table.name, main); })) return {};
  return {ErrorKind::Damaged, fmt::format("no table {} in the old file", main)};
}

// A second name for a file; on a disk that knows none, a copy of it.
Status KeepUnder(const std::string& path, const std::string& kept) {
  std::error_code failed;
  fs::create_hard_link(path, kept, failed);
  if (failed == std::errc::operation_not_permitted || failed == std::errc::operation_not_supported || failed == std::errc::too_many_links) {
    const std::string copy = UnfinishedIn(FolderOf(kept));
    failed.clear();
    fs::copy_file(path, copy, failed);
    int error = failed ? failed.value() : SyncFile(copy);
    if (error == 0) error = MoveToFreeName(copy, kept);
    if (error != 0) fs::remove(copy, failed);
    return StatusOfSystemError(error, kept);
  }
  return StatusOfSystemError(failed.value(), kept);
}

}  // namespace

Status ConvertOldFile(OldDatabases& databases, const StoreFileMaker& make, const std::string& oldPath, const DatabaseFile& file,
                      const std::string& newPath, ConvertedFile& converted) {
  converted.name = file.name;
  std::unique_ptr<OldDatabase> database;
  if (Status opened = databases.Open(oldPath, database); !opened.Ok()) return opened.At(oldPath);
  std::vector<OldTable> tables;
  if (Status read = database->ReadTables(tables); !read.Ok()) return read.At(oldPath);
  if (Status whole = CheckMainTable(tables, file); !whole.Ok()) return whole.At(oldPath);
  Conversion conversion(tables, file, converted);
  std::unique_ptr<StoreFileWriter> writer;
  if (Status made = make(conversion.NewFile(), newPath, writer); !made.Ok()) return made.At(newPath);
  if (Status copied = conversion.Copy(*database, *writer); !copied.Ok()) return copied.At(oldPath);
  return writer->Finish().At(newPath);
}

bool OldFiles::IsNeeded(const std::string& folder) const {
  for (const DatabaseFile& file : Catalogue::Files()) {
    const std::string name = NameIn(folder, file.name);
    if (!name.empty() && databases_.IsOld(folder + "/" + name)) return true;
  }
  return false;
}

Status OldFiles::Prepare(const std::string& folder) {
  for (const DatabaseFile& file : Catalogue::Files()) {
    const std::string name = NameIn(folder, file.name);
    if (name.empty() || !databases_.IsOld(folder + "/" + name)) continue;
    if (Status converted = Convert(folder, name, file); !converted.Ok()) return converted;
  }
  return {};
}

Status OldFiles::Convert(const std::string& folder, const std::string& name, const DatabaseFile& file) {
  const std::string path = folder + "/" + name;
  // The older program keeps such a file while it is at work: what it writes from here on would be lost.
  if (const std::string lock = NameIn(folder, fs::path(name).stem().string() + ".ldb"); !lock.empty())
    return Status(ErrorKind::Busy, path + ": the older program has it open").At(folder + "/" + lock);
  const std::string unfinished = path + ".yeni";
  ConvertedFile converted;
  if (Status made = ConvertOldFile(databases_, make_, path, file, unfinished, converted); !made.Ok()) return made;
  converted.keptAs = KeptName(folder, name);
  const std::string kept = folder + "/" + converted.keptAs;
  // Two names first, so that the old file is there whatever happens between the steps.
  if (Status twice = KeepUnder(path, kept); !twice.Ok()) return twice;
  std::error_code failed;
  if (const int error = SyncFolder(folder); error != 0) return StatusOfSystemError(error, folder);
  fs::rename(unfinished, path, failed);
  if (failed) return StatusOfSystemError(failed.value(), path);
  if (const int error = SyncFolder(folder); error != 0) return StatusOfSystemError(error, folder);
  Log(fmt::format("{}: turned from the older form, {} rows; the old file is {}", path, converted.rows, converted.keptAs));
  for (const std::string& fault : converted.faults) Log(fmt::format("{}: {}", path, fault));
  converted_.push_back(std::move(converted));
  return {};
}

std::string OldFiles::Report() const {
  if (converted_.empty()) return {};
  std::string text = "Eski programın veri dosyaları yeni biçime çevrildi:\n";
  std::vector<std::string> faults;
  for (const ConvertedFile& file : converted_) {
    text +=
        fmt::format("{}: {} kayıt. Eskisi {} adıyla duruyor.\n", file.name, Format(static_cast<double>(file.rows), "#,##0"), file.keptAs);
    for (const std::string& fault : file.faults) faults.push_back(file.name + ", " + fault);
  }
  if (!faults.empty()) text += "\nOkunamayanlar:\n";
  for (std::size_t i = 0; i < std::min(faults.size(), kMostFaultsShown); ++i) text += faults[i] + "\n";
  if (faults.size() > kMostFaultsShown)
    text += fmt::format("ve {} tane daha; hepsi ayrıntılı kayıtta.\n", faults.size() - kMostFaultsShown);
  return text;
}

}  // namespace karvel
