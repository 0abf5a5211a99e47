// An engine around another: counts what is asked of it, and fails on request.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "store/engine.h"

namespace karvel::testing {

struct EngineWatch {
  int selects = 0;
  int reads = 0;
  int counts = 0;
  int writes = 0;
  std::vector<std::string> written;  // the tables of these writes, in their order
  int commits = 0;
  Status readFault;    // answered to every read while it is set
  Status writeFault;   // to every write
  Status commitFault;  // to every commit, which rolls back
  // So many reads or writes still work before the fault.
  int readsBeforeFault = 0;
  int writesBeforeFault = 0;

  [[nodiscard]] int AllReads() const { return selects + reads + counts; }
};

class WatchedEngine final : public Engine {
 public:
  WatchedEngine(std::unique_ptr<Engine> inner, EngineWatch& watch) : inner_(std::move(inner)), watch_(watch) {}

  Status Open(const std::string& folder) override { return inner_->Open(folder); }
  void Close() override { inner_->Close(); }
  [[nodiscard]] bool IsOpen() const override { return inner_->IsOpen(); }
  [[nodiscard]] bool BegunAnew() const override { return inner_->BegunAnew(); }
  void SetPatient(bool patient) override { inner_->SetPatient(patient); }
  void SetWaitListener(WaitListener* listener) override { inner_->SetWaitListener(listener); }

  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    ++watch_.selects;
    const Status fault = ReadFault();
    return fault.Ok() ? inner_->Select(query, range, rows) : fault;
  }
  Status Count(const RowQuery& query, std::int64_t& count) override {
    ++watch_.counts;
    const Status fault = ReadFault();
    return fault.Ok() ? inner_->Count(query, count) : fault;
  }
  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    ++watch_.counts;
    const Status fault = ReadFault();
    return fault.Ok() ? inner_->CountBefore(query, row, count) : fault;
  }
  Status Sum(const RowQuery& query, int position, Value& sum) override {
    const Status fault = ReadFault();
    return fault.Ok() ? inner_->Sum(query, position, sum) : fault;
  }
  Status SumBy(const RowQuery& query, int position, int by, std::vector<TextSum>& sums) override {
    const Status fault = ReadFault();
    return fault.Ok() ? inner_->SumBy(query, position, by, sums) : fault;
  }
  Status Read(const DatabaseFile& file, const Table& table, RowKey key, GridRow& row) override {
    ++watch_.reads;
    const Status fault = ReadFault();
    return fault.Ok() ? inner_->Read(file, table, key, row) : fault;
  }
  Status Insert(const DatabaseFile& file, const Table& table, const Row& values) override {
    const Status fault = WriteFault(table);
    return fault.Ok() ? inner_->Insert(file, table, values) : fault;
  }
  Status InsertMany(const DatabaseFile& file, const Table& table, std::int64_t count,
                    const std::function<void(std::int64_t, Row&)>& fill) override {
    const Status fault = WriteFault(table);
    return fault.Ok() ? inner_->InsertMany(file, table, count, fill) : fault;
  }
  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    const Status fault = WriteFault(table);
    return fault.Ok() ? inner_->Change(file, table, key, fields) : fault;
  }
  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override {
    const Status fault = WriteFault(table);
    return fault.Ok() ? inner_->Delete(file, table, key) : fault;
  }
  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override {
    const Status fault = WriteFault(*query.table);
    return fault.Ok() ? inner_->DeleteWhere(query, count) : fault;
  }
  Status Begin() override { return inner_->Begin(); }
  Status Commit() override {
    ++watch_.commits;
    if (watch_.commitFault.Ok()) return inner_->Commit();
    inner_->Rollback();
    return watch_.commitFault;
  }
  Status LookAgain() override { return inner_->LookAgain(); }
  void Rollback() override { inner_->Rollback(); }
  [[nodiscard]] bool InTransaction() const override { return inner_->InTransaction(); }
  [[nodiscard]] bool ReadsHold() const override { return inner_->ReadsHold(); }
  [[nodiscard]] bool HoldsRow(const Table& table, RowKey key) const override { return inner_->HoldsRow(table, key); }
  void TakeForeignChanges(std::set<std::string>& tables) override { inner_->TakeForeignChanges(tables); }
  Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) override { return inner_->Copy(folder, copy); }

 private:
  Status ReadFault() { return FaultNow(watch_.readFault, watch_.readsBeforeFault); }
  Status WriteFault(const Table& table) {
    ++watch_.writes;
    watch_.written.emplace_back(table.name);
    return FaultNow(watch_.writeFault, watch_.writesBeforeFault);
  }
  static Status FaultNow(const Status& fault, int& before) {
    if (fault.Ok() || before <= 0) return fault;
    --before;
    return {};
  }

  std::unique_ptr<Engine> inner_;
  EngineWatch& watch_;
};

}  // namespace karvel::testing
