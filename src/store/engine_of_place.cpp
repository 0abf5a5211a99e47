#include "store/engine_of_place.h"

#include <array>
#include <utility>

#include "platform/log.h"
#include "platform/share.h"

namespace karvel {
namespace {

constexpr std::string_view kScratchSchema = "datatemp";

class EngineOfPlace final : public Engine {
 public:
  EngineOfPlace(std::unique_ptr<Engine> files, std::unique_ptr<Engine> server, std::unique_ptr<Engine> scratch)
      : files_(std::move(files)), server_(std::move(server)), scratch_(std::move(scratch)) {}

  Status Open(const std::string& folder) override {
    Close();
    chosen_ = IsShare(folder) ? server_.get() : files_.get();
    Status opened = chosen_->Open(folder);
    if (opened.Ok() && OnServer()) opened = scratch_->Open(folder);
    if (!opened.Ok()) Close();
    return opened;
  }
  void Close() override {
    for (Engine* const engine : All()) engine->Close();
  }
  [[nodiscard]] bool IsOpen() const override { return chosen_->IsOpen(); }
  [[nodiscard]] bool BegunAnew() const override { return chosen_->BegunAnew(); }

  void SetWaitListener(WaitListener* listener) override {
    for (Engine* const engine : All()) engine->SetWaitListener(listener);
  }
  void SetPatient(bool patient) override {
    for (Engine* const engine : All()) engine->SetPatient(patient);
  }

  Status Select(const RowQuery& query, const RowRange& range, std::vector<GridRow>& rows) override {
    return Of(*query.file).Select(query, range, rows);
  }
  Status Count(const RowQuery& query, std::int64_t& count) override { return Of(*query.file).Count(query, count); }
  Status CountBefore(const RowQuery& query, const GridRow& row, std::int64_t& count) override {
    return Of(*query.file).CountBefore(query, row, count);
  }
  Status Sum(const RowQuery& query, int position, Value& sum) override { return Of(*query.file).Sum(query, position, sum); }
  Status SumBy(const RowQuery& query, int position, int by, std::vector<TextSum>& sums) override {
    return Of(*query.file).SumBy(query, position, by, sums);
  }
  Status Read(const DatabaseFile& file, const Table& table, RowKey key, GridRow& row) override {
    return Of(file).Read(file, table, key, row);
  }

  Status Insert(const DatabaseFile& file, const Table& table, const Row& values) override {
    return ToWrite(file, [&](Engine& engine) { return engine.Insert(file, table, values); });
  }
  Status InsertMany(const DatabaseFile& file, const Table& table, std::int64_t count,
                    const std::function<void(std::int64_t, Row&)>& fill) override {
    return ToWrite(file, [&](Engine& engine) { return engine.InsertMany(file, table, count, fill); });
  }
  Status Change(const DatabaseFile& file, const Table& table, RowKey key, std::span<const FieldValue> fields) override {
    return ToWrite(file, [&](Engine& engine) { return engine.Change(file, table, key, fields); });
  }
  Status Delete(const DatabaseFile& file, const Table& table, RowKey key) override {
    return ToWrite(file, [&](Engine& engine) { return engine.Delete(file, table, key); });
  }
  Status DeleteWhere(const RowQuery& query, std::int64_t& count) override {
    return ToWrite(*query.file, [&](Engine& engine) { return engine.DeleteWhere(query, count); });
  }

  Status Begin() override { return chosen_->Begin(); }
  Status Commit() override {
    EndScratch(true);
    return chosen_->Commit();
  }
  Status LookAgain() override { return chosen_->LookAgain(); }
  void Rollback() override {
    EndScratch(false);
    chosen_->Rollback();
  }
  [[nodiscard]] bool InTransaction() const override { return chosen_->InTransaction(); }
  [[nodiscard]] bool ReadsHold() const override { return chosen_->ReadsHold(); }
  [[nodiscard]] bool HoldsRow(const Table& table, RowKey key) const override { return chosen_->HoldsRow(table, key); }
  void TakeForeignChanges(std::set<std::string>& tables) override { chosen_->TakeForeignChanges(tables); }

  Status Copy(const std::string& folder, std::unique_ptr<StoresCopy>& copy) override { return chosen_->Copy(folder, copy); }

 private:
  [[nodiscard]] std::array<Engine*, 3> All() const { return {files_.get(), server_.get(), scratch_.get()}; }
  [[nodiscard]] bool OnServer() const { return chosen_ == server_.get(); }
  Engine& Of(const DatabaseFile& file) { return OnServer() && file.schema == kScratchSchema ? *scratch_ : *chosen_; }

  // What is written into the scratch file within a transaction is kept or undone with it, and waits for no disk row by row.
  template <typename Write>
  Status ToWrite(const DatabaseFile& file, const Write& write) {
    Engine& engine = Of(file);
    if (&engine == scratch_.get() && chosen_->InTransaction() && !engine.InTransaction()) {
      if (Status begun = engine.Begin(); !begun.Ok()) return begun;
    }
    return write(engine);
  }
  // Where the scratch file fails nobody is hindered.
  void EndScratch(bool keeps) {
    if (!scratch_->InTransaction()) return;
    if (!keeps) return scratch_->Rollback();
    if (const Status kept = scratch_->Commit(); !kept.Ok()) Log(kept.Message());
  }

  const std::unique_ptr<Engine> files_, server_, scratch_;
  Engine* chosen_ = files_.get();
};

}  // namespace

std::unique_ptr<Engine> MakeEngineOfPlace(std::unique_ptr<Engine> files, std::unique_ptr<Engine> server, std::unique_ptr<Engine> scratch) {
  return std::make_unique<EngineOfPlace>(std::move(files), std::move(server), std::move(scratch));
}

}  // namespace karvel
