#include "store/postgres/server_copy.h"

#include <fmt/format.h>

#include <deque>
#include <filesystem>
#include <utility>
#include <vector>

#include "platform/system_error.h"
#include "store/postgres/connection.h"
#include "store/postgres/postgres_sql.h"

namespace karvel::postgres {
namespace {

using namespace std::chrono_literals;
constexpr auto kSlice = 10ms;
constexpr auto kSilence = 30s;
constexpr int kRows = 1000;  // of one answer

class ServerCopy final : public StoresCopy {
 public:
  ServerCopy(const Address& address, StoreFileMaker makeFile, std::string folder)
      : connection_(address, ""), firm_(address.firm), makeFile_(std::move(makeFile)), folder_(std::move(folder)) {
    for (const DatabaseFile& file : Catalogue::Files()) {
      if (!IsOnServer(file)) continue;
      files_.push_back(&file);
      for (std::size_t table = 0; table < file.tables.size(); ++table) tables_.push_back({&file, table, 0});
    }
  }

  Status Begin() {
    std::error_code error;
    if (!std::filesystem::is_directory(folder_, error)) return Status(ErrorKind::Missing, folder_ + ": no such folder").At(folder_);
    if (Status connected = connection_.Connect(patience_); !connected.Ok()) return connected;
    Result lock;
    const std::vector<Value> number{std::to_string(LockOf(firm_, "copy"))};
    Status asked = connection_.Run("SELECT pg_try_advisory_lock($1::bigint)", number, lock, patience_);
    if (!asked.Ok()) return asked;
    if (lock.Text(0, 0) != "t") return {ErrorKind::Busy, "another terminal makes a copy"};
    connection_.DeferOnce("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY");
    for (CopiedTable& table : tables_) {
      Result size;
      const std::vector<Value> name{NamesOf(*table.file, table.file->tables[table.number], firm_).table};
      Status sized = connection_.Run("SELECT pg_relation_size($1::regclass)", name, size, patience_);
      if (!sized.Ok()) return sized;
      table.size = size.Integer(0, 0);
      size_ += table.size;
    }
    return {};
  }

  Status Advance() override {
    const auto end = std::chrono::steady_clock::now() + kSlice;
    patience_.Renew();
    while (!done_ && std::chrono::steady_clock::now() < end)
      if (Status advanced = Step(); !advanced.Ok()) return advanced;
    return {};
  }

  [[nodiscard]] bool IsDone() const override { return done_; }
  [[nodiscard]] std::int64_t Size() const override { return size_; }
  [[nodiscard]] std::int64_t Copied() const override { return copied_; }

 private:
  struct CopiedTable {
    const DatabaseFile* file;
    std::size_t number;
    std::int64_t size;  // in bytes, on the server
  };

  // One answer's rows, or the beginning or end of a file.
  Status Step() {
    if (files_.empty()) {
      connection_.Drop();
      done_ = true;
      return {};
    }
    const DatabaseFile& file = *files_.front();
    if (writer_ == nullptr) return makeFile_(file, folder_ + "/" + std::string(file.name), writer_).At(folder_);
    if (!tables_.empty() && tables_.front().file == &file) return CopyRows(tables_.front());
    files_.pop_front();
    return std::exchange(writer_, nullptr)->Finish().At(folder_);
  }

  Status CopyRows(const CopiedTable& copied) {
    const Table& table = copied.file->tables[copied.number];
    if (!open_) {
      std::string columns = QuotedName(kRowKey);
      for (const Column& column : table.columns) columns += ", " + QuotedName(column.name);
      connection_.DeferOnce(fmt::format("DECLARE copied NO SCROLL CURSOR FOR SELECT {} FROM {} ORDER BY {}", columns,
                                        NamesOf(*copied.file, table, firm_).table, QuotedName(kRowKey)));
      open_ = true;
    }
    Result rows;
    if (Status read = connection_.Run(fmt::format("FETCH {} FROM copied", kRows), {}, rows, patience_); !read.Ok()) return read;
    for (int row = 0; row < rows.Rows(); ++row)
      if (Status added = writer_->Add(copied.number, rows.ReadRow(row, table).values); !added.Ok()) return added.At(folder_);
    if (rows.Rows() == kRows) return {};
    connection_.DeferOnce("CLOSE copied");
    open_ = false;
    copied_ += copied.size;
    tables_.pop_front();
    return {};
  }

  Connection connection_;
  const std::string firm_;
  const StoreFileMaker makeFile_;
  const std::string folder_;
  Patience patience_{kSilence};
  std::deque<const DatabaseFile*> files_;  // that are still to be written, the first of them begun where there is a writer
  std::deque<CopiedTable> tables_;         // that are still to be copied, in the order of their files
  std::unique_ptr<StoreFileWriter> writer_;
  std::int64_t size_ = 0, copied_ = 0;
  bool open_ = false, done_ = false;
};

}  // namespace

Status BeginServerCopy(const Address& address, const StoreFileMaker& makeFile, const std::string& folder,
                       std::unique_ptr<StoresCopy>& copy) {
  auto begun = std::make_unique<ServerCopy>(address, makeFile, folder);
  Status outcome = begun->Begin();
  if (outcome.Ok()) copy = std::move(begun);
  return outcome;
}

}  // namespace karvel::postgres
