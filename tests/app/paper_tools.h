// What stands on printed paper, as other programs read it.
#pragma once

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace karvel::testing {

struct CloseOutput {
  void operator()(std::FILE* output) const { pclose(output); }
};

// Runs a command of the shell and returns what it wrote.
inline std::string OutputOf(const std::string& command) {
  const std::unique_ptr<std::FILE, CloseOutput> output(popen((command + " 2>/dev/null").c_str(), "r"));
  std::string all;
  std::array<char, 4096> piece{};
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), output.get())) all.append(piece.data(), count);
  return all;
}

inline std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream all(text);
  for (std::string line; std::getline(all, line);) {
    while (!line.empty() && (line.back() == '\f' || line.back() == ' ')) line.pop_back();
    if (line.starts_with('\f')) line.erase(0, 1);
    if (!line.empty()) lines.push_back(line);
  }
  return lines;
}

// The texts of a PDF, in the order in which they stand in it.
inline std::vector<std::string> TextsOf(const std::string& pdf) {
  return LinesOf(OutputOf("pdftotext -raw -enc UTF-8 '" + pdf + "' -"));
}

// "210 x 297": millimetres of a page, from 1.
inline std::string SizeOf(const std::string& pdf, int page = 1) {
  double width = 0, height = 0;
  const std::string number = std::to_string(page);
  for (const std::string& line : LinesOf(OutputOf("pdfinfo -f " + number + " -l " + number + " '" + pdf + "'"))) {
    const std::size_t size = line.find("size:");
    if (line.starts_with("Page") && size != std::string::npos) std::sscanf(line.c_str() + size, "size: %lf x %lf", &width, &height);
  }
  std::array<char, 40> told{};
  std::snprintf(told.data(), told.size(), "%.0f x %.0f", width / 72 * 25.4, height / 72 * 25.4);
  return told.data();
}

// What a scanner reads off the paper at a printer's resolution.
inline std::string ScannedFrom(const std::string& pdf, int dotsPerInch) {
  const std::string picture = pdf + "-" + std::to_string(dotsPerInch);
  OutputOf("pdftoppm -r " + std::to_string(dotsPerInch) + " -png -singlefile -aa no -aaVector no '" + pdf + "' '" + picture + "'");
  const auto codes = LinesOf(OutputOf("zbarimg -q --raw '" + picture + ".png'"));
  return codes.empty() ? "" : codes.front();
}

}  // namespace karvel::testing
