// An engine around another: counts what is asked of it, and fails on request.
#pragma once

#include <memory>
#include <utility>

#include "store/engine.h"

namespace karvel::testing {

struct EngineWatch {
  int selects = 0;
  int reads = 0;
  int counts = 0;
  int writes = 0;
  int commits = 0;
  Status readFault;    // answered to every read while it is set
  Status writeFault;   // to every write
  Status commitFault;  // to every commit, which rolls back

  [[nodiscard]] int AllReads() const { return selects + reads + counts; }
};

class WatchedEngine final : public Engine {
 public:
  WatchedEngine(std::unique_ptr<Engine> inner, EngineWatch& watch) : inner_(std::move(inner)), watch_(watch) {}

  Status Open(const std::string& folder) override { return inner_->Open(folder); }
  void Close() override { inner_->Close(); }
  [[nodiscard]] bool IsOpen() const override { return inner_->IsOpen(); }

  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    ++watch_.selects;
    return watch_.readFault.Ok() ? inner_->Select(query, range, rows) : watch_.readFault;
  }
  Status Count(const RowQuery& query, std::int64_t& count) override {
    ++watch_.counts;
    return watch_.readFault.Ok() ? inner_->Count(query, count) : watch_.readFault;
  }
  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    ++watch_.counts;
    return watch_.readFault.Ok() ? inner_->CountBefore(query, row, count) : watch_.readFault;
  }
  Status Sum(const RowQuery& query, int position, Value& sum) override {
    return watch_.readFault.Ok() ? inner_->Sum(query, position, sum) : watch_.readFault;
  }
  Status Read(const DatabaseFile& file, const Table& table, RowKey key, bool forEdit, GridRow& row) override {
    ++watch_.reads;
    return watch_.readFault.Ok() ? inner_->Read(file, table, key, forEdit, row) : watch_.readFault;
  }
  Status Insert(const DatabaseFile& file, const Table& table, const Row& values, RowKey& key) override {
    ++watch_.writes;
    return watch_.writeFault.Ok() ? inner_->Insert(file, table, values, key) : watch_.writeFault;
  }
  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    ++watch_.writes;
    return watch_.writeFault.Ok() ? inner_->Change(file, table, key, fields) : watch_.writeFault;
  }
  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override {
    ++watch_.writes;
    return watch_.writeFault.Ok() ? inner_->Delete(file, table, key) : watch_.writeFault;
  }
  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override {
    ++watch_.writes;
    return watch_.writeFault.Ok() ? inner_->DeleteWhere(query, count) : watch_.writeFault;
  }
  Status Begin() override { return inner_->Begin(); }
  Status Commit() override {
    ++watch_.commits;
    if (watch_.commitFault.Ok()) return inner_->Commit();
    inner_->Rollback();
    return watch_.commitFault;
  }
  void Rollback() override { inner_->Rollback(); }
  [[nodiscard]] bool InTransaction() const override { return inner_->InTransaction(); }
  [[nodiscard]] bool ReadsHold() const override { return inner_->ReadsHold(); }

 private:
  std::unique_ptr<Engine> inner_;
  EngineWatch& watch_;
};

}  // namespace karvel::testing
