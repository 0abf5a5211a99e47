#include "bench/window_waits.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>
#include <sstream>

namespace karvel::bench {

namespace {

// Milliseconds that the slowest of a hundred may take.
double LimitOf(const std::string& name, bool wide) {
  if (name.ends_with("completed field")) return 5;
  if (name.ends_with("painted grid")) return 16;
  if (name.ends_with("afterwards")) return 50;
  return wide ? 30 : 50;
}

void AddFigures(const std::string& home, bool wide, RatioTable& table, const std::string& program) {
  const char* const size = wide ? "wide" : "busy";
  const std::string command = fmt::format("KARVEL_HOME='{}' '{}' {} 2>/dev/null", home, program, size);
  const auto close = [](FILE* pipe) { pclose(pipe); };
  const std::unique_ptr<FILE, decltype(close)> pipe(popen(command.c_str(), "r"), close);
  std::string output;
  std::array<char, 4096> piece{};
  for (std::size_t got = 0; pipe && (got = std::fread(piece.data(), 1, piece.size(), pipe.get())) > 0;) output.append(piece.data(), got);
  std::istringstream lines(output);
  int read = 0;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    std::string name, median, worst;
    if (!std::getline(fields, name, '\t') || !std::getline(fields, median, '\t') || !std::getline(fields, worst)) continue;
    ++read;
    const double limit = LimitOf(name, wide);
    table.Add(Figure{fmt::format("{}: {} (median {} ms)", size, name, median), std::stod(worst), limit, "ms"});
  }
  if (read == 0) table.Add(Figure{fmt::format("{}: the window", size), -1, 0, "ms"});
}

}  // namespace

void AddWindowWaits(Shops& shops, RatioTable& table, const std::string& program) {
  for (const bool wide : {true, false}) {
    const std::string home = shops.Copy(wide ? Size::Wide : Size::Busy);
    AddFigures(home, wide, table, program);
  }
}

}  // namespace karvel::bench
