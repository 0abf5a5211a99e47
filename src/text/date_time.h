// A moment on the shop's wall clock, to the second: local time, no time zone, as the stores keep it.
// The zero value (IsEmpty) stands for "no date"; an empty or damaged date field reads as that.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace karvel {

struct DateTime {
  std::int16_t year = 0;
  std::int8_t month = 0;  // 1 to 12
  std::int8_t day = 0;    // 1 to 31
  std::int8_t hour = 0;
  std::int8_t minute = 0;
  std::int8_t second = 0;

  [[nodiscard]] bool IsEmpty() const { return year == 0 && month == 0 && day == 0; }
  // The same day at 00:00:00.
  [[nodiscard]] DateTime Date() const { return {year, month, day, 0, 0, 0}; }
  // 1 Monday to 7 Sunday.
  [[nodiscard]] int Weekday() const;
  // Whole days since 1970-01-01; negative before it.
  [[nodiscard]] std::int64_t DayNumber() const;
  // Seconds since 1970-01-01 00:00:00 of the same wall clock.
  [[nodiscard]] std::int64_t SecondNumber() const;
  [[nodiscard]] DateTime PlusDays(std::int64_t days) const;
  [[nodiscard]] DateTime PlusSeconds(std::int64_t seconds) const;

  // "YYYY-MM-DD HH:MM:SS", the form in the stores; "" for the empty date.
  [[nodiscard]] std::string ToIso() const;
  // Reads "YYYY-MM-DD", "YYYY-MM-DD HH:MM:SS" or the same with a "T"; anything else gives the empty date.
  static DateTime FromIso(std::string_view text);
  // Reads what a clerk or a handler writes, day first: "dd.mm.yyyy", "dd/mm/yyyy", with or without " hh:mm[:ss]",
  // and the store's form. Anything else gives the empty date.
  static DateTime FromText(std::string_view text);
  static DateTime FromSecondNumber(std::int64_t seconds);

  auto operator<=>(const DateTime&) const = default;
};

}  // namespace karvel
