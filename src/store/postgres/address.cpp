#include "store/postgres/address.h"

#include <fmt/format.h>

#include "platform/share.h"
#include "text/turkish.h"

namespace karvel::postgres {
namespace {

// The server cuts longer names, and two firms could become one.
constexpr std::size_t kLongestFirm = 40;

std::string_view NextPiece(std::string_view& text, char end) {
  const std::size_t at = text.find(end);
  const std::string_view piece = text.substr(0, at);
  text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
  return piece;
}

}  // namespace

Status ReadAddress(std::string_view folder, Address& address) {
  const Status bad(ErrorKind::BadText, fmt::format("{}: not the data folder of a main machine", folder));
  if (!IsShare(folder)) return bad;
  std::string_view rest = folder.substr(2);
  std::string_view machines = NextPiece(rest, '\\');
  Address read;
  while (!machines.empty()) {
    const std::string machine = Trim(NextPiece(machines, ';'));
    if (machine.empty()) continue;
    // A number of the newer kind has colons of its own, and stands in brackets where a port follows.
    const std::size_t close = machine.find(']');
    const std::size_t colon = machine.find(':', close == std::string::npos ? 0 : close);
    const bool bare = close == std::string::npos && colon != std::string::npos && machine.find(':', colon + 1) != std::string::npos;
    Host host{machine, ""};
    if (colon != std::string::npos && !bare) host = {machine.substr(0, colon), machine.substr(colon + 1)};
    if (host.name.starts_with('[') && host.name.ends_with(']')) host.name = host.name.substr(1, host.name.size() - 2);
    if (host.name.empty() || host.port.find_first_not_of("0123456789") != std::string::npos) return bad;
    read.hosts.push_back(std::move(host));
  }
  read.database = NextPiece(rest, '\\');
  read.firm = Trim(NextPiece(rest, '\\'));
  if (read.hosts.empty() || read.database.empty() || read.firm.empty() || read.firm.size() > kLongestFirm) return bad;
  address = std::move(read);
  return {};
}

}  // namespace karvel::postgres
