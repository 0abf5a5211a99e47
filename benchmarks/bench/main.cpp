// karvel-bench: the desk beside the bare engine, both sides in turn in one run, as one table of ratios.
//   karvel-bench <folder for the sample shops> [path of karvel-robot [path of karvel-window-bench]]
#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <vector>

#include "bench/desk_start.h"
#include "bench/documents.h"
#include "bench/finds.h"
#include "bench/lists.h"
#include "bench/postings.h"
#include "bench/window_waits.h"

namespace {

using namespace karvel::bench;

void AddStart(Shops& shops, RatioTable& table, const std::string& robot) {
  const std::string home = shops.Copy(Size::Busy);
  StartDesk(robot, home);  // the files come into the machine's memory, as they are on any day but the first
  std::vector<DeskStart> starts;
  for (int i = 0; i < 5; ++i) starts.push_back(StartDesk(robot, home));
  const auto median = [&](double DeskStart::* field) {
    std::ranges::sort(starts, {}, field);
    return starts[starts.size() / 2].*field;
  };
  table.Add(Figure{"start with 100,000 cards and 1,000,000 rows, work", median(&DeskStart::workSeconds), 1, "s"});
  table.Add(Figure{"start with 100,000 cards and 1,000,000 rows, wall clock", median(&DeskStart::clockSeconds), 1, "s"});
  table.Add(Figure{"start with 100,000 cards and 1,000,000 rows, memory", median(&DeskStart::peakMegabytes), 200, "MB"});
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    fmt::print(stderr, "karvel-bench <folder for the sample shops> [path of karvel-robot [path of karvel-window-bench]]\n");
    return 2;
  }
  try {
    Shops shops(words[1]);
    RatioTable table;
    AddFinds(shops, table);
    AddLists(shops, table);
    AddPostings(shops, table);
    AddDocuments(shops, table);
    if (count > 2) AddStart(shops, table, words[2]);
    if (count > 3) AddWindowWaits(shops, table, words[3]);

    std::vector<std::string> options{words[0], "--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true",
                                     "--benchmark_min_time=0.1"};
    std::vector<char*> pointers;
    for (std::string& option : options) pointers.push_back(option.data());
    int number = static_cast<int>(pointers.size());
    benchmark::Initialize(&number, pointers.data());
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::ClearRegisteredBenchmarks();
    return table.Print() ? 0 : 1;
  } catch (const std::exception& failure) {
    fmt::print(stderr, "karvel-bench: {}\n", failure.what());
    return 1;
  }
}
