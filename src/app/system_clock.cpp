#include "app/system_clock.h"

#include <cstdint>
#include <ctime>

namespace karvel {

DateTime SystemClock::Now() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return {static_cast<std::int16_t>(local.tm_year + 1900), static_cast<std::int8_t>(local.tm_mon + 1),
          static_cast<std::int8_t>(local.tm_mday),         static_cast<std::int8_t>(local.tm_hour),
          static_cast<std::int8_t>(local.tm_min),          static_cast<std::int8_t>(local.tm_sec)};
}

}  // namespace karvel
