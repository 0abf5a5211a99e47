#include "exchange/store_move.h"

#include <fmt/format.h>

#include <cmath>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <utility>

#include "store/table_rows.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kAtOnce = 1000;
constexpr std::size_t kMostMisfitsNamed = 20;
constexpr std::size_t kLettersShown = 40;
// The engines add up in another order than the rows are compared in.
constexpr double kSumRounding = 1e-9;

// The scratch file is each terminal's own.
bool IsOfTheShop(const DatabaseFile& file) {
  return file.schema != "datatemp";
}

std::string NameOf(const DatabaseFile& file, const Table& table) {
  return fmt::format("{}/{}", file.name, table.name);
}

std::string ColumnNameOf(const Table& table, std::size_t column) {
  return std::string(table.columns[column].name);
}

// A table's rows one after another, in their order.
class RowWalk {
 public:
  explicit RowWalk(TableRows& rows) : rows_(rows) {}

  // Null behind the last one, and where reading failed.
  const GridRow* Next() {
    if (next_ < batch_.size()) return &batch_[next_++];
    if (!more_ || !outcome_.Ok()) return nullptr;
    if (!batch_.empty()) last_ = std::move(batch_.back());
    outcome_ = rows_.Next(begun_ ? &last_ : nullptr, kAtOnce, batch_);
    begun_ = true;
    more_ = batch_.size() == kAtOnce;
    next_ = 0;
    if (!outcome_.Ok() || batch_.empty()) return nullptr;
    return &batch_[next_++];
  }
  [[nodiscard]] const Status& Outcome() const { return outcome_; }

 private:
  TableRows& rows_;
  std::vector<GridRow> batch_;
  GridRow last_;
  std::size_t next_ = 0;
  bool begun_ = false, more_ = true;
  Status outcome_;
};

// Reads a row now and then while nobody else uses the stores, so that they stay open in the middle of their action.
class KeptAwake {
 public:
  KeptAwake(TableRows& rows, std::chrono::milliseconds silence)
      : thread_([&rows, silence](const std::stop_token& ends) {
          std::mutex mutex;
          std::unique_lock lock(mutex);
          std::vector<GridRow> row;
          // A failure shows at the next read.
          for (std::condition_variable_any wake; !wake.wait_for(lock, ends, silence, [&] { return ends.stop_requested(); });)
            rows.Next(nullptr, 1, row).Ignore();
        }) {}

 private:
  std::jthread thread_;  // ends with this object
};

// Files know one zero only.
bool IsSame(const Value& a, const Value& b) {
  const auto* x = std::get_if<double>(&a);
  const auto* y = std::get_if<double>(&b);
  if (x == nullptr || y == nullptr) return a == b;
  return *x == *y || (std::isnan(*x) && std::isnan(*y));
}

// What the numbers of a column add up to, and how great they are together, whatever their sign.
struct ColumnSum {
  double sum = 0;
  double size = 0;
};

class Move {
 public:
  explicit Move(const MoveOrder& order) : order_(order) {
    for (const DatabaseFile& file : Catalogue::Files()) {
      if (!IsOfTheShop(file)) continue;
      for (const Table& table : file.tables) tables_.push_back({file, table});
    }
  }

  StoreMove Run() {
    Carry();
    return move_;
  }

 private:
  struct Part {
    const DatabaseFile& file;
    const Table& table;
    std::int64_t rows = 0;
  };

  bool Carry() {
    const Action source(order_.source, "move from here");
    if (!source.Begun().Ok()) return Fails(MoveEnd::SourceFailed, source.Begun());
    if (!LookForRows() || !Check()) return false;
    Action target(order_.target, "move to here");
    if (!target.Begun().Ok()) return Fails(MoveEnd::TargetFailed, target.Begun());
    // Somebody may have begun to work there meanwhile.
    if (!LookForRows()) return false;
    for (const Part& part : tables_)
      if (!Write(part) || !Compare(part)) return false;
    return Finish(target);
  }

  // Both are false, for what ends with them.
  bool Fails(MoveEnd end, const Status& status) {
    move_.end = end;
    move_.status = status;
    return false;
  }
  bool Ends(MoveEnd end, std::string where = "") {
    move_.end = end;
    move_.where = std::move(where);
    return false;
  }
  static TableRows RowsIn(Stores& stores, const Part& part) { return {stores, std::string(part.file.name), std::string(part.table.name)}; }
  void Tell(MoveStage stage, const Part& part, std::int64_t rows, bool done = false) const {
    order_.progress({stage, part.file, part.table, rows, done});
  }
  // Whether it is to go on.
  bool GoesOn(MoveStage stage, const Part& part, std::int64_t rows) {
    if (rows % kAtOnce != 0) return true;
    Tell(stage, part, rows);
    return !order_.stops() || Ends(MoveEnd::Stopped);
  }

  bool LookForRows() {
    for (const Part& part : tables_) {
      TableRows target = RowsIn(order_.target, part);
      std::vector<GridRow> rows;
      if (const Status read = target.Next(nullptr, 1, rows); !read.Ok()) return Fails(MoveEnd::TargetFailed, read);
      if (!rows.empty()) return Ends(MoveEnd::TargetHoldsRows, NameOf(part.file, part.table));
    }
    return true;
  }

  bool Check() {
    for (Part& part : tables_) {
      TableRows source = RowsIn(order_.source, part);
      RowWalk walk(source);
      while (const GridRow* const row = walk.Next()) {
        ++part.rows;
        for (const Misfit& misfit : order_.misfits(part.table, row->values)) Name(part, row->values, misfit);
        if (!GoesOn(MoveStage::Check, part, part.rows)) return false;
      }
      if (!walk.Outcome().Ok()) return Fails(MoveEnd::SourceFailed, walk.Outcome());
      move_.rows += part.rows;
      Tell(MoveStage::Check, part, part.rows, true);
    }
    return move_.misfits == 0 || Ends(MoveEnd::Misfits);
  }

  // The row by its number and by what stands in its first column, which is how the shop knows it.
  void Name(const Part& part, const Row& row, const Misfit& misfit) {
    if (++move_.misfits > static_cast<std::int64_t>(kMostMisfitsNamed)) return;
    move_.firstMisfits.push_back(fmt::format("{}, {}. satır ({} {}), {}: {}", NameOf(part.file, part.table), part.rows,
                                             ColumnNameOf(part.table, 0), LeftLetters(AsText(row[0]), kLettersShown),
                                             ColumnNameOf(part.table, misfit.column), misfit.why));
  }

  bool Write(const Part& part) {
    TableRows source = RowsIn(order_.source, part);
    TableRows target = RowsIn(order_.target, part);
    RowWalk walk(source);
    bool goesOn = true;
    std::int64_t written = 0;
    std::optional<KeptAwake> awake;
    // What is filled after an end is undone with all the rest.
    const Status added = target.Add(part.rows, [&](std::int64_t number, Row& to) {
      if (!goesOn) return;
      const GridRow* const row = walk.Next();
      if (row == nullptr) {
        goesOn = false;
        return;
      }
      to = row->values;
      written = number + 1;
      goesOn = GoesOn(MoveStage::Write, part, written);
      // The indexes of many rows take their time.
      if (written == part.rows) awake.emplace(source, order_.longestSilence);
    });
    awake.reset();
    if (move_.end == MoveEnd::Stopped) return false;
    if (!walk.Outcome().Ok()) return Fails(MoveEnd::SourceFailed, walk.Outcome());
    if (!added.Ok()) return Fails(MoveEnd::TargetFailed, added);
    Tell(MoveStage::Write, part, written, true);
    return true;
  }

  bool Compare(const Part& part) {
    TableRows source = RowsIn(order_.source, part);
    TableRows target = RowsIn(order_.target, part);
    RowWalk there(source), here(target);
    std::vector<ColumnSum> sums(part.table.columns.size());
    std::int64_t compared = 0;
    for (;;) {
      const GridRow* const before = there.Next();
      const GridRow* const after = here.Next();
      if (!there.Outcome().Ok()) return Fails(MoveEnd::SourceFailed, there.Outcome());
      if (!here.Outcome().Ok()) return Fails(MoveEnd::TargetFailed, here.Outcome());
      if (before == nullptr && after == nullptr) break;
      ++compared;
      if (before == nullptr || after == nullptr) return Differs(part, compared, "");
      for (std::size_t i = 0; i < sums.size(); ++i) {
        if (!IsSame(before->values[i], after->values[i])) return Differs(part, compared, ColumnNameOf(part.table, i));
        AddTo(sums[i], before->values[i]);
      }
      if (!GoesOn(MoveStage::Compare, part, compared)) return false;
    }
    if (!CompareSums(part, sums)) return false;
    Tell(MoveStage::Compare, part, compared, true);
    return true;
  }

  bool Differs(const Part& part, std::int64_t row, const std::string& column) {
    return Ends(MoveEnd::NotAlike,
                fmt::format("{}, {}. satır{}{}", NameOf(part.file, part.table), row, column.empty() ? "" : ", ", column));
  }

  static void AddTo(ColumnSum& to, const Value& value) {
    const auto* const number = std::get_if<double>(&value);
    if (number == nullptr) return;
    to.sum += *number;
    to.size += std::abs(*number);
  }

  bool CompareSums(const Part& part, const std::vector<ColumnSum>& sums) {
    const RowQuery all{&part.file, &part.table, {}, {}};
    for (std::size_t i = 0; i < sums.size(); ++i) {
      // A sum that is too great for a number can't be told.
      if (part.table.columns[i].type != ColumnType::Number || !std::isfinite(sums[i].size)) continue;
      Value sum;
      if (const Status asked = order_.target.Driver().Sum(all, static_cast<int>(i), sum); !asked.Ok())
        return Fails(MoveEnd::TargetFailed, asked);
      if (std::abs(AsNumber(sum) - sums[i].sum) > sums[i].size * kSumRounding)
        return Ends(MoveEnd::NotAlike, fmt::format("{}, {} toplamı", NameOf(part.file, part.table), ColumnNameOf(part.table, i)));
    }
    return true;
  }

  bool Finish(Action& target) {
    Status outcome = target.Finish();
    while (outcome.Kind() == ErrorKind::Unknown) {
      if (!order_.looksAgain()) return Fails(MoveEnd::OutcomeUnknown, outcome);
      outcome = order_.target.AskOutcome();
    }
    return outcome.Ok() || Fails(MoveEnd::TargetFailed, outcome);
  }

  const MoveOrder& order_;
  std::vector<Part> tables_;
  StoreMove move_;
};

}  // namespace

StoreMove MoveStores(const MoveOrder& order) {
  return Move(order).Run();
}

}  // namespace karvel
