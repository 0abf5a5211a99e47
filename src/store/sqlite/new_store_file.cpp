#include "store/sqlite/new_store_file.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

#include "store/sqlite/connection.h"
#include "store/sqlite/errors.h"
#include "store/sqlite/sqlite_sql.h"
#include "store/table_sql.h"

namespace karvel {
namespace sqlite {
namespace {

class NewStoreFile final : public StoreFileWriter {
 public:
  NewStoreFile(const DatabaseFile& file, std::string path) : file_(file), path_(std::move(path)) {
    const SqliteWords words;
    for (const Table& table : file_.tables) inserts_.push_back(TableSql(table, words, NamesOf(table, "main")).Insert());
  }
  ~NewStoreFile() override {
    connection_.reset();
    std::error_code ignored;
    if (!finished_) std::filesystem::remove(path_, ignored);
  }

  Status Begin() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
    return Run(nullptr, path_, [&] {
      {
        const SQLite::Database made(path_, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
      }
      std::filesystem::permissions(path_, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write, ignored);
      connection_ = std::make_unique<Connection>(path_, "");
      connection_->Execute("PRAGMA synchronous=FULL");
      connection_->Execute("BEGIN IMMEDIATE");
      for (const Table& table : file_.tables) connection_->Database().exec(CreateTableSql(table));
      // Without a table nothing would be written, and an empty file is no database to other programs.
      connection_->Database().exec("PRAGMA user_version=1");
    });
  }

  Status Add(std::size_t table, const Row& row) override {
    return Run(&connection_->Database(), path_, [&] { connection_->Prepare(inserts_[table], row).Execute(); });
  }

  Status Finish() override {
    Status done = Run(&connection_->Database(), path_, [&] {
      for (const Table& table : file_.tables)
        for (const Index& index : table.indexes) connection_->Database().exec(CreateIndexSql(table, index));
      connection_->Execute("COMMIT");
    });
    finished_ = done.Ok();
    connection_.reset();
    return done;
  }

 private:
  const DatabaseFile& file_;
  const std::string path_;
  std::vector<std::string> inserts_;
  std::unique_ptr<Connection> connection_;
  bool finished_ = false;
};

}  // namespace
}  // namespace sqlite

Status MakeSqliteStoreFile(const DatabaseFile& file, const std::string& realPath, std::unique_ptr<StoreFileWriter>& writer) {
  auto made = std::make_unique<sqlite::NewStoreFile>(file, realPath);
  Status begun = made->Begin();
  if (begun.Ok()) writer = std::move(made);
  return begun;
}

}  // namespace karvel
