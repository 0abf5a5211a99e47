#include "store/postgres/address.h"

#include <fmt/format.h>

#include "platform/share.h"
#include "text/turkish.h"

namespace karvel::postgres {
namespace {

std::string_view NextPiece(std::string_view& text) {
  const std::size_t at = text.find('\\');
  const std::string_view piece = text.substr(0, at);
  text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
  return piece;
}

}  // namespace

Status ReadAddress(std::string_view folder, Address& address) {
  const Status bad(ErrorKind::BadText, fmt::format("{}: not the data folder of a main machine", folder));
  if (!IsShare(folder)) return bad;
  Address read{MainMachines(folder), "", ""};
  std::string_view rest = folder.substr(2);
  NextPiece(rest);
  read.database = NextPiece(rest);
  read.firm = Trim(std::string(NextPiece(rest)));
  if (read.machines.empty() || read.database.empty() || !IsFirmNumber(read.firm)) return bad;
  address = std::move(read);
  return {};
}

}  // namespace karvel::postgres
