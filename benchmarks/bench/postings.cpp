#include "bench/postings.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "bench/bare_posting.h"
#include "bench/syncs.h"
#include "bench/till.h"

namespace karvel::bench {

namespace {

constexpr int kItems = 50;
constexpr int kWarmUp = 30;
constexpr int kSlowSyncMs = 5;
const std::string kCustomer = "M00003";

// One side at work in a copy of a shop: posts one line after another, each of another item.
struct Side {
  std::function<void(const std::string& item)> pick;  // not measured
  std::function<void(const std::string& item)> post;
  std::vector<std::string> items;
  std::size_t next = 0;

  // Seconds of one posting.
  double One() {
    const std::string& item = items[next++ % items.size()];
    pick(item);
    const auto begin = std::chrono::steady_clock::now();
    post(item);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  }
};

std::vector<std::string> ItemsOf(const std::string& home) {
  BareShop shop(home);
  return shop.Sample("stok.StokKartlar", "StokKod", "StokGizle=0", kItems);
}

std::shared_ptr<Side> DeskSide(const std::string& home) {
  auto items = ItemsOf(home);
  const auto till = std::make_shared<Till>(home);
  till->EnterSale(kCustomer);
  return std::make_shared<Side>(
      Side{[till](const std::string& item) { till->PickItem(item, 2); }, [till](const std::string&) { till->Post(); }, std::move(items)});
}

std::shared_ptr<Side> BareSide(const std::string& home) {
  auto items = ItemsOf(home);
  const auto shop = std::make_shared<BareShop>(home);
  const auto posting = std::make_shared<BarePosting>(*shop);
  return std::make_shared<Side>(
      Side{[](const std::string&) {}, [shop, posting](const std::string& item) { posting->Post(kCustomer, item, 2); }, std::move(items)});
}

// Two sides in turn, line by line: what else the machine does falls on both alike.
void MeasureInTurn(const std::string& name, const std::shared_ptr<Side>& ours, const std::shared_ptr<Side>& rival, double limit,
                   int leastMs, RatioTable& table) {
  struct Times {
    std::vector<double> ours, rival;
  };
  const auto times = std::make_shared<Times>();
  const auto measure = [=](benchmark::State& state, bool isOurs) {
    const DiskPace pace(leastMs);
    auto& own = isOurs ? times->ours : times->rival;
    for (auto unused : state) {
      // The other side's figure of this turn is kept for its own measurement.
      if (own.empty()) {
        times->ours.push_back(ours->One());
        times->rival.push_back(rival->One());
      }
      state.SetIterationTime(own.back());
      own.pop_back();
    }
  };
  const int iterations = leastMs > 0 ? 5 : leastMs == DiskPace::kNone ? 200 : 30;
  for (const bool isOurs : {true, false}) {
    const std::string full = name + (isOurs ? ", ours" : ", rival");
    benchmark::RegisterBenchmark(full.c_str(), [=](benchmark::State& state) { measure(state, isOurs); })
        ->UseManualTime()
        ->Iterations(iterations);
  }
  table.Add(Pair{name, name + ", ours", name + ", rival", limit});
}

struct Waits {
  long syncs, rounds;
};

Waits WaitsOfOne(Side& side) {
  const DiskPace pace(kSlowSyncMs);
  side.One();  // shows that the disk is slow now
  const Waits before{Syncs::Count(), Syncs::Rounds()};
  side.One();
  return {Syncs::Count() - before.syncs, Syncs::Rounds() - before.rounds};
}

double MillisecondsOnSlowDisk(Side& side) {
  const DiskPace pace(kSlowSyncMs);
  std::vector<double> times(15);
  for (double& time : times) time = side.One() * 1000;
  std::ranges::nth_element(times, times.begin() + 7);
  return times[7];
}

void WarmUp(Side& side) {
  for (int i = 0; i < kWarmUp; ++i) side.One();
}

}  // namespace

void AddPostings(Shops& shops, RatioTable& table) {
  const auto small = DeskSide(shops.Copy(Size::Small));
  const auto smallBare = BareSide(shops.Copy(Size::Small));
  const auto busy = DeskSide(shops.Copy(Size::Busy));
  const auto busyBare = BareSide(shops.Copy(Size::Busy));
  for (const auto& side : {small, smallBare, busy, busyBare}) WarmUp(*side);

  const Waits ours = WaitsOfOne(*small), bare = WaitsOfOne(*smallBare);
  table.Add(Counts{"syncs of a posted line, desk beside bare", ours.syncs, bare.syncs, 1});
  table.Add(Counts{"rounds of syncs of a posted line, desk beside bare", ours.rounds, bare.rounds, 0.25});
  table.Add(Figure{fmt::format("line posted on a disk that needs {} ms a sync", kSlowSyncMs), MillisecondsOnSlowDisk(*small), 25, "ms"});
  MeasureInTurn("line posted, desk beside bare, 1,000 rows", small, smallBare, 1.25, 0, table);
  MeasureInTurn("line posted, desk beside bare, 1,000,000 rows", busy, busyBare, 1.25, 0, table);
  MeasureInTurn("line posted, 1,000,000 rows beside 1,000", busy, small, 1.15, 0, table);
  MeasureInTurn("line posted, work without syncs, desk beside bare", small, smallBare, 1.75, DiskPace::kNone, table);
  MeasureInTurn("line posted, work without syncs, 1,000,000 beside 1,000", busy, small, 1.25, DiskPace::kNone, table);
  MeasureInTurn(fmt::format("line posted, {} ms a sync, desk beside bare", kSlowSyncMs), small, smallBare, 0.4, kSlowSyncMs, table);
}

}  // namespace karvel::bench
