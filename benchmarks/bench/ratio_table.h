// Gathers the runs and prints what they come to: one line a pair, medians, both sides from the same run.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace karvel::bench {

// A line of the table: two measurements by name, and how many times the second the first may be.
struct Pair {
  std::string name;
  std::string ours;
  std::string rival;
  double limit = 0;
};

// A line that is held against a fixed limit, below 0 when it could not be measured.
struct Figure {
  std::string name;
  double value = 0;
  double limit = 0;
  std::string unit;
};

// A line of two medians that were measured in turn, in seconds.
struct Measured {
  std::string name;
  double ours = 0, rival = 0;
  double limit = 0;
};

// A line of two counts, and how many times the second the first may be.
struct Counts {
  std::string name;
  long ours = 0, rival = 0;
  double limit = 0;
};

class RatioTable : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& context) override;
  void ReportRuns(const std::vector<Run>& runs) override;

  void Add(Pair pair) { pairs_.push_back(std::move(pair)); }
  void Add(Measured measured) { measured_.push_back(std::move(measured)); }
  void Add(Figure figure) { figures_.push_back(std::move(figure)); }
  void Add(Counts counts) { counts_.push_back(std::move(counts)); }
  // The whole table; false when a line is over its limit or was not measured.
  [[nodiscard]] bool Print() const;

 private:
  [[nodiscard]] double Median(const std::string& name) const;  // seconds; below 0 when it never ran
  std::map<std::string, std::vector<double>> seconds_;
  std::vector<Pair> pairs_;
  std::vector<Measured> measured_;
  std::vector<Figure> figures_;
  std::vector<Counts> counts_;
};

}  // namespace karvel::bench
