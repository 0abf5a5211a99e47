// The server of a main machine as a desk without a network sees it: each share's stores lie as files in a folder of this machine. It can be
// away, and can tell of what others wrote.
#pragma once

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "store/engine.h"
#include "text/turkish.h"

namespace karvel::testing {

struct ServerWatch {
  bool away = false;              // nobody answers
  int asksBeforeAway = -1;        // after so many more questions nobody answers; below 0: that doesn't happen
  Status shut;                    // why nothing can be opened; well: it can
  int asked = 0;                  // how often it was asked anything
  std::set<std::string> foreign;  // the tables that others wrote: "cari/CariKartlar"
};

class ShareEngine final : public Engine {
 public:
  // The shares lie in `net` by their names; a firm's stores are made of the templates in `program`.
  ShareEngine(std::unique_ptr<Engine> inner, ServerWatch& watch, std::string net, std::string program)
      : inner_(std::move(inner)), watch_(watch), net_(std::move(net)), program_(std::move(program)) {}

  Status Open(const std::string& share) override {
    Count();
    Close();
    if (watch_.away) return Unreachable();
    if (!watch_.shut.Ok()) return watch_.shut;
    const std::string folder = net_ + "/" + ReplaceAll(share.substr(2), "\\", "/");
    std::filesystem::create_directories(folder);
    begunAnew_ = false;
    for (const DatabaseFile& file : Catalogue::Files())
      begunAnew_ |= std::filesystem::copy_file(program_ + "/" + std::string(file.name), folder + "/" + std::string(file.name),
                                               std::filesystem::copy_options::skip_existing);
    return inner_->Open(folder);
  }
  void Close() override { inner_->Close(); }
  [[nodiscard]] bool IsOpen() const override { return inner_->IsOpen(); }
  [[nodiscard]] bool BegunAnew() const override { return begunAnew_; }
  void SetPatient(bool patient) override { inner_->SetPatient(patient); }
  void SetWaitListener(WaitListener* listener) override { inner_->SetWaitListener(listener); }

  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    return Asked([&] { return inner_->Select(query, range, rows); });
  }
  Status Count(const RowQuery& query, std::int64_t& count) override {
    return Asked([&] { return inner_->Count(query, count); });
  }
  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    return Asked([&] { return inner_->CountBefore(query, row, count); });
  }
  Status Sum(const RowQuery& query, int position, Value& sum) override {
    return Asked([&] { return inner_->Sum(query, position, sum); });
  }
  Status SumBy(const RowQuery& query, int position, int by, std::vector<TextSum>& sums) override {
    return Asked([&] { return inner_->SumBy(query, position, by, sums); });
  }
  Status Read(const DatabaseFile& file, const Table& table, RowKey key, GridRow& row) override {
    return Asked([&] { return inner_->Read(file, table, key, row); });
  }
  Status Insert(const DatabaseFile& file, const Table& table, const Row& values) override {
    return Asked([&] { return inner_->Insert(file, table, values); });
  }
  Status InsertMany(const DatabaseFile& file, const Table& table, std::int64_t count,
                    const std::function<void(std::int64_t, Row&)>& fill) override {
    return Asked([&] { return inner_->InsertMany(file, table, count, fill); });
  }
  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    return Asked([&] { return inner_->Change(file, table, key, fields); });
  }
  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override {
    return Asked([&] { return inner_->Delete(file, table, key); });
  }
  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override {
    return Asked([&] { return inner_->DeleteWhere(query, count); });
  }
  Status Begin() override {
    return Asked([&] { return inner_->Begin(); });
  }
  Status Commit() override {
    if (watch_.away) inner_->Rollback();
    return Asked([&] { return inner_->Commit(); });
  }
  Status LookAgain() override {
    return Asked([&] { return inner_->LookAgain(); });
  }
  void Rollback() override { inner_->Rollback(); }
  [[nodiscard]] bool InTransaction() const override { return inner_->InTransaction(); }
  [[nodiscard]] bool ReadsHold() const override { return inner_->ReadsHold(); }
  [[nodiscard]] bool HoldsRow(const Table& table, RowKey key) const override { return inner_->HoldsRow(table, key); }
  void TakeForeignChanges(std::set<std::string>& tables) override { tables.merge(watch_.foreign); }
  Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) override {
    return Asked([&] { return inner_->Copy(folder, copy); });
  }

 private:
  static Status Unreachable() { return {ErrorKind::Unreachable, "nobody answers"}; }
  void Count() {
    ++watch_.asked;
    if (watch_.asksBeforeAway > 0 && --watch_.asksBeforeAway == 0) watch_.away = true;
  }
  template <typename Work>
  Status Asked(const Work& work) {
    Count();
    return watch_.away ? Unreachable() : work();
  }

  std::unique_ptr<Engine> inner_;
  ServerWatch& watch_;
  bool begunAnew_ = false;
  const std::string net_, program_;
};

}  // namespace karvel::testing
