#include "store/value.h"

#include <cmath>
#include <type_traits>

#include "text/format.h"

namespace karvel {
namespace {

// A date as a number counts days from 1899-12-30, the time of day as their fraction, as spreadsheets do.
constexpr double kDaySeconds = 24.0 * 60 * 60;
const DateTime kDayZero{1899, 12, 30, 0, 0, 0};

DateTime DateOfNumber(double number) {
  constexpr double kLastDay = 2958465;  // 9999-12-31
  if (!(number >= 1 && number < kLastDay + 1)) return {};
  return kDayZero.PlusSeconds(std::llround(number * kDaySeconds));
}

}  // namespace

bool IsNumberOrNothing(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) return std::isfinite(*number);
  if (const auto* text = std::get_if<std::string>(&value)) return text->empty() || IsNumeric(*text);
  return true;
}

double AsNumber(const Value& value) {
  return std::visit(
      [](const auto& content) -> double {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, double>) return content;
        if constexpr (std::is_same_v<Content, std::string>) return NumberOrZero(content);
        if constexpr (std::is_same_v<Content, bool>) return content ? 1 : 0;
        if constexpr (std::is_same_v<Content, DateTime>) {
          return content.IsEmpty() ? 0 : static_cast<double>(content.SecondNumber() - kDayZero.SecondNumber()) / kDaySeconds;
        }
        return 0;
      },
      value);
}

std::string AsText(const Value& value) {
  return std::visit(
      [](const auto& content) -> std::string {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, double>) return PlainNumber(content);
        if constexpr (std::is_same_v<Content, std::string>) return content;
        if constexpr (std::is_same_v<Content, bool>) return content ? "True" : "False";
        if constexpr (std::is_same_v<Content, DateTime>) {
          return Format(content, content == content.Date() ? "dd.mm.yyyy" : "dd.mm.yyyy hh:nn:ss");
        }
        return {};
      },
      value);
}

bool AsBoolean(const Value& value) {
  return std::visit(
      [](const auto& content) -> bool {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, double>) return content != 0;
        if constexpr (std::is_same_v<Content, std::string>) return ReadBoolean(content);
        if constexpr (std::is_same_v<Content, bool>) return content;
        if constexpr (std::is_same_v<Content, DateTime>) return !content.IsEmpty();
        return false;
      },
      value);
}

DateTime AsDate(const Value& value) {
  return std::visit(
      [](const auto& content) -> DateTime {
        using Content = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<Content, double>) return DateOfNumber(content);
        if constexpr (std::is_same_v<Content, std::string>) return DateTime::FromText(content);
        if constexpr (std::is_same_v<Content, DateTime>) return content;
        return {};
      },
      value);
}

}  // namespace karvel
