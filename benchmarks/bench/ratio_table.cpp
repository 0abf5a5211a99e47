#include "bench/ratio_table.h"

#include <fmt/format.h>

#include <algorithm>

namespace karvel::bench {

namespace {

constexpr const char* kLine = "{:<58} {:>12} {:>12} {:>7} {:>7}  {}\n";

std::string Time(double seconds) {
  if (seconds < 0) return "-";
  if (seconds < 1e-3) return fmt::format("{:.2f} µs", seconds * 1e6);
  return fmt::format("{:.2f} ms", seconds * 1e3);
}

}  // namespace

bool RatioTable::ReportContext(const Context&) {
  return true;
}

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration) continue;
    if (run.error_occurred) {
      fmt::print(stderr, "{}: {}\n", run.benchmark_name(), run.error_message);
      continue;
    }
    seconds_[run.run_name.function_name].push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
  }
}

double RatioTable::Median(const std::string& name) const {
  const auto found = seconds_.find(name);
  if (found == seconds_.end()) return -1;
  std::vector<double> sorted = found->second;
  std::ranges::sort(sorted);
  return sorted[sorted.size() / 2];
}

bool RatioTable::Print() const {
  bool good = true;
  fmt::print(kLine, "", "ours", "rival", "ratio", "limit", "");
  const auto printRatio = [&good](const std::string& name, double ours, double rival, double limit) {
    const bool measured = ours > 0 && rival > 0;
    const double ratio = measured ? ours / rival : 0;
    const bool ok = measured && ratio <= limit;
    good = good && ok;
    fmt::print(kLine, name, Time(ours), Time(rival), measured ? fmt::format("{:.2f}", ratio) : "-", fmt::format("{:.2f}", limit),
               ok ? "ok" : (measured ? "OVER" : "NOT MEASURED"));
  };
  for (const Pair& pair : pairs_) printRatio(pair.name, Median(pair.ours), Median(pair.rival), pair.limit);
  for (const Measured& measured : measured_) printRatio(measured.name, measured.ours, measured.rival, measured.limit);
  for (const Counts& counts : counts_) {
    const double ratio = static_cast<double>(counts.ours) / static_cast<double>(counts.rival);
    const bool ok = counts.rival > 0 && ratio <= counts.limit;
    good = good && ok;
    fmt::print(kLine, counts.name, counts.ours, counts.rival, fmt::format("{:.2f}", ratio), fmt::format("{:.2f}", counts.limit),
               ok ? "ok" : "OVER");
  }
  for (const Figure& figure : figures_) {
    const bool ok = figure.value >= 0 && figure.value <= figure.limit;
    good = good && ok;
    fmt::print(kLine, figure.name, figure.value < 0 ? "-" : fmt::format("{:.2f} {}", figure.value, figure.unit), "", "",
               fmt::format("{:g}", figure.limit), ok ? "ok" : (figure.value < 0 ? "NOT MEASURED" : "OVER"));
  }
  return good;
}

}  // namespace karvel::bench
