#include "exchange/spreadsheet/date_looks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace karvel {
namespace {

// The formats that every spreadsheet knows by number and that show dates or times, the first and the last of each span.
constexpr std::array<std::pair<int, int>, 4> kKnownDates{{{14, 22}, {27, 36}, {45, 47}, {50, 58}}};

int NumberOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

bool IsOneOf(char sign, std::string_view signs) {
  return signs.find(sign) != std::string_view::npos;
}

// "[h]" counts hours beyond a day; other brackets hold colours, currencies and conditions.
bool CountsTime(std::string_view bracket) {
  return !bracket.empty() && std::ranges::all_of(bracket, [](char sign) { return IsOneOf(sign, "hmsHMS"); });
}

}  // namespace

bool ShowsDate(std::string_view code) {
  for (std::size_t at = 0; at < code.size(); ++at) {
    if (code[at] == '\\' || code[at] == '_' || code[at] == '*') {
      ++at;  // the sign behind is shown as it is, or as room or filling
    } else if (code[at] == '"') {
      at = std::min(code.find('"', at + 1), code.size());
    } else if (code[at] == '[') {
      const std::size_t end = std::min(code.find(']', at), code.size());
      if (CountsTime(code.substr(at + 1, end - at - 1))) return true;
      at = end;
    } else if (IsOneOf(code[at], "dmyhsDMYHS")) {
      return true;
    }
  }
  return false;
}

void DateLooks::Started(std::string_view name, const XmlAttributes& attributes) {
  if (name == "numFmt") told_.emplace(NumberOf(attributes.Get("numFmtId")), ShowsDate(attributes.Get("formatCode")));
  if (name == "cellXfs") inLooks_ = true;
  if (name == "xf" && inLooks_) looks_.push_back(IsDateFormat(NumberOf(attributes.Get("numFmtId"))));
}

void DateLooks::Ended(std::string_view name) {
  if (name == "cellXfs") inLooks_ = false;
}

bool DateLooks::IsDate(int look) const {
  return look >= 0 && static_cast<std::size_t>(look) < looks_.size() && looks_[static_cast<std::size_t>(look)];
}

bool DateLooks::IsDateFormat(int format) const {
  if (const auto told = told_.find(format); told != told_.end()) return told->second;
  return std::ranges::any_of(kKnownDates, [&](const auto& span) { return format >= span.first && format <= span.second; });
}

}  // namespace karvel
