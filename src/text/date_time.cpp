#include "text/date_time.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <optional>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::int64_t kMinuteSeconds = 60;
constexpr std::int64_t kHourSeconds = 60 * kMinuteSeconds;
constexpr std::int64_t kDaySeconds = 24 * kHourSeconds;
// 0001-01-01 and 9999-12-31, the first and last day whose year has four digits at most.
constexpr std::int64_t kFirstDay = -719162;
constexpr std::int64_t kLastDay = 2932896;

// Takes the text apart piece by piece; every reader says whether it found its piece.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}
  // A number of at least `low` and at most `high` digits.
  bool Number(std::size_t low, std::size_t high, int& number) {
    std::size_t digits = 0;
    number = 0;
    while (digits < high && digits < text_.size() && text_[digits] >= '0' && text_[digits] <= '9') {
      number = number * 10 + (text_[digits++] - '0');
    }
    text_.remove_prefix(digits);
    return digits >= low;
  }
  bool Sign(char sign) {
    if (!text_.starts_with(sign)) return false;
    text_.remove_prefix(1);
    return true;
  }
  [[nodiscard]] bool AtEnd() const { return text_.empty(); }

 private:
  std::string_view text_;
};

std::optional<DateTime> Checked(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (year < 1 || !date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
  return DateTime{static_cast<std::int16_t>(year), static_cast<std::int8_t>(month),  static_cast<std::int8_t>(day),
                  static_cast<std::int8_t>(hour),  static_cast<std::int8_t>(minute), static_cast<std::int8_t>(second)};
}

// "" or a separator and "hh:mm[:ss]", to the end of the text.
bool ReadTime(Scanner& scanner, std::string_view separators, int& hour, int& minute, int& second) {
  if (scanner.AtEnd()) return true;
  if (std::none_of(separators.begin(), separators.end(), [&](char sign) { return scanner.Sign(sign); })) return false;
  if (!scanner.Number(1, 2, hour) || !scanner.Sign(':') || !scanner.Number(2, 2, minute)) return false;
  if (!scanner.AtEnd() && (!scanner.Sign(':') || !scanner.Number(2, 2, second))) return false;
  return scanner.AtEnd();
}

DateTime FromDayAndSecond(std::int64_t day, std::int64_t second) {
  const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(std::clamp(day, kFirstDay, kLastDay)))};
  return {static_cast<std::int16_t>(static_cast<int>(date.year())),
          static_cast<std::int8_t>(static_cast<unsigned>(date.month())),
          static_cast<std::int8_t>(static_cast<unsigned>(date.day())),
          static_cast<std::int8_t>(second / 3600),
          static_cast<std::int8_t>(second / 60 % 60),
          static_cast<std::int8_t>(second % 60)};
}

}  // namespace

int DateTime::Weekday() const {
  return static_cast<int>(std::chrono::weekday(std::chrono::sys_days(std::chrono::days(DayNumber()))).iso_encoding());
}

std::int64_t DateTime::DayNumber() const {
  if (IsEmpty()) return 0;
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  return std::chrono::sys_days(date).time_since_epoch().count();
}

std::int64_t DateTime::SecondNumber() const {
  return DayNumber() * kDaySeconds + hour * kHourSeconds + minute * kMinuteSeconds + second;
}

DateTime DateTime::PlusDays(std::int64_t days) const {
  if (IsEmpty()) return *this;
  constexpr std::int64_t kSpan = kLastDay - kFirstDay;
  return FromDayAndSecond(DayNumber() + std::clamp(days, -kSpan, kSpan), hour * kHourSeconds + minute * kMinuteSeconds + second);
}

DateTime DateTime::PlusSeconds(std::int64_t seconds) const {
  if (IsEmpty()) return *this;
  constexpr std::int64_t kSpan = (kLastDay - kFirstDay + 1) * kDaySeconds;
  return FromSecondNumber(SecondNumber() + std::clamp(seconds, -kSpan, kSpan));
}

std::string DateTime::ToIso() const {
  if (IsEmpty()) return {};
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", year, month, day, hour, minute, second);
}

DateTime DateTime::FromIso(std::string_view text) {
  Scanner scanner(text);
  int y = 0, m = 0, d = 0, h = 0, n = 0, s = 0;
  if (!scanner.Number(4, 4, y) || !scanner.Sign('-') || !scanner.Number(2, 2, m) || !scanner.Sign('-') || !scanner.Number(2, 2, d))
    return {};
  if (!ReadTime(scanner, " T", h, n, s)) return {};
  return Checked(y, m, d, h, n, s).value_or(DateTime{});
}

DateTime DateTime::FromText(std::string_view text) {
  const std::string trimmed = Trim(text);
  if (const DateTime iso = FromIso(trimmed); !iso.IsEmpty()) return iso;
  Scanner scanner(trimmed);
  int y = 0, m = 0, d = 0, h = 0, n = 0, s = 0;
  if (!scanner.Number(1, 2, d)) return {};
  const char separator = scanner.Sign('/') ? '/' : scanner.Sign('.') ? '.' : '\0';
  if (separator == '\0' || !scanner.Number(1, 2, m) || !scanner.Sign(separator) || !scanner.Number(4, 4, y)) return {};
  if (!ReadTime(scanner, " ", h, n, s)) return {};
  return Checked(y, m, d, h, n, s).value_or(DateTime{});
}

DateTime DateTime::FromSecondNumber(std::int64_t seconds) {
  const std::int64_t first = kFirstDay * kDaySeconds;
  const std::int64_t last = kLastDay * kDaySeconds + kDaySeconds - 1;
  const std::int64_t fromFirst = std::clamp(seconds, first, last) - first;
  return FromDayAndSecond(kFirstDay + fromFirst / kDaySeconds, fromFirst % kDaySeconds);
}

}  // namespace karvel
