#include <fmt/format.h>

#include <array>
#include <cctype>
#include <cstddef>

#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {"Ocak",   "Şubat",   "Mart",  "Nisan", "Mayıs", "Haziran",
                                                      "Temmuz", "Ağustos", "Eylül", "Ekim",  "Kasım", "Aralık"};
constexpr std::array<std::string_view, 7> kDays = {"Pazartesi", "Salı", "Çarşamba", "Perşembe", "Cuma", "Cumartesi", "Pazar"};
constexpr std::array<std::string_view, 7> kShortDays = {"Pzt", "Sal", "Çar", "Per", "Cum", "Cmt", "Paz"};

std::string Number(int value, std::size_t length) {
  return length == 1 ? fmt::format("{}", value) : fmt::format("{:02}", value);
}

std::string Month(int month, std::size_t length) {
  if (length < 3) return Number(month, length);
  const std::string_view name = kMonths[static_cast<std::size_t>(month - 1)];
  return length == 3 ? LeftLetters(name, 3) : std::string(name);
}

std::string Day(const DateTime& value, std::size_t length) {
  if (length < 3) return Number(value.day, length);
  const auto index = static_cast<std::size_t>(value.Weekday() - 1);
  return std::string(length == 3 ? kShortDays[index] : kDays[index]);
}

std::string Year(int year, std::size_t length) {
  return length < 3 ? fmt::format("{:02}", year % 100) : fmt::format("{:04}", year);
}

}  // namespace

std::string Format(const DateTime& value, std::string_view pattern) {
  if (value.IsEmpty()) return {};
  if (EqualText(pattern, "Short Date")) pattern = "dd.mm.yyyy";
  std::string result;
  char lastPlace = '\0';  // tells whether "mm" comes after hours
  for (std::size_t at = 0; at < pattern.size();) {
    const char sign = static_cast<char>(std::tolower(static_cast<unsigned char>(pattern[at])));
    std::size_t length = 1;
    while (at + length < pattern.size() && std::tolower(static_cast<unsigned char>(pattern[at + length])) == sign) ++length;
    switch (sign) {
      case 'd':
        result += Day(value, length);
        break;
      case 'm':
        result += lastPlace == 'h' && length < 3 ? Number(value.minute, length) : Month(value.month, length);
        break;
      case 'y':
        result += Year(value.year, length);
        break;
      case 'h':
        result += Number(value.hour, length);
        break;
      case 'n':
        result += Number(value.minute, length);
        break;
      case 's':
        result += Number(value.second, length);
        break;
      default:
        result += pattern.substr(at, length);
    }
    // Across a colon "mm" still belongs to the hours before it; any other sign ends that.
    if (sign != ':') lastPlace = sign;
    at += length;
  }
  return result;
}

}  // namespace karvel
