#include "store/postgres/errors.h"

#include <fmt/format.h>

#include "text/turkish.h"

namespace karvel::postgres {
namespace {

ErrorKind KindOf(std::string_view state) {
  if (state.empty() || EndsConnection(state)) return ErrorKind::Unreachable;
  const std::string_view kind = state.substr(0, 2);
  if (state == "53100") return ErrorKind::DiskFull;
  if (state == "58030" || state == "58P01" || state == "58P02") return ErrorKind::DiskFailed;
  if (state == "42501" || kind == "28") return ErrorKind::NoRights;
  if (state == "3D000") return ErrorKind::Missing;
  if (state == "42P01" || state == "42703" || state == "3F000" || kind == "XX") return ErrorKind::Damaged;
  // Waited for too long, locked out with another program, or too many at once.
  if (kind == "40" || state == "55P03" || state == "57014" || kind == "53") return ErrorKind::Busy;
  if (kind == "22" || kind == "23") return ErrorKind::BadText;
  return ErrorKind::Other;
}

}  // namespace

Status StatusOf(std::string_view state, std::string_view message, std::string_view what) {
  return {KindOf(state), fmt::format("{}: {} ({})", what, Trim(ReplaceAll(std::string(message), "\n", " ")), state)};
}

bool EndsConnection(std::string_view state) {
  // 57P01 to 57P05: shut down, crashed, starting up, idle for too long. 25006: it has become a standby. 25P03: a transaction left open.
  return state.starts_with("08") || state.starts_with("57P") || state == "25006" || state == "25P03";
}

}  // namespace karvel::postgres
