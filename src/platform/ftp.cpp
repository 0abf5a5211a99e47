#include "platform/ftp.h"

#include <algorithm>
#include <charconv>

#include "text/turkish.h"

namespace karvel {
namespace {

constexpr int kLastPort = 65535;

bool IsBlankOrControl(char letter) {
  return static_cast<unsigned char>(letter) <= ' ';
}

// Takes "ftp://" or "ftps://" off the text; false for any other scheme.
bool TakeScheme(std::string_view& text, FtpAddress& address) {
  const std::size_t end = text.find("://");
  if (end == std::string_view::npos) return true;
  const std::string_view scheme = text.substr(0, end);
  address.encrypted = EqualText(scheme, "ftps");
  text.remove_prefix(end + 3);
  return address.encrypted || EqualText(scheme, "ftp");
}

// Takes ":2121" off the end of the text.
bool TakePort(std::string_view& text, FtpAddress& address) {
  const std::size_t colon = text.rfind(':');
  const std::size_t bracket = text.rfind(']');
  if (colon == std::string_view::npos || (bracket != std::string_view::npos && colon < bracket)) return true;
  const std::string_view port = text.substr(colon + 1);
  text = text.substr(0, colon);
  if (port.empty()) return true;
  const auto [end, error] = std::from_chars(port.data(), port.data() + port.size(), address.port);
  return error == std::errc() && end == port.data() + port.size() && address.port > 0 && address.port <= kLastPort;
}

// An address of the newer kind, with colons of its own, stands in brackets.
bool IsHost(std::string_view text) {
  if (text.starts_with('[')) return text.size() > 2 && text.ends_with(']');
  return !text.empty() && text.find_first_of("[]:@?#%\\\"") == std::string_view::npos;
}

std::string_view WithoutSlashes(std::string_view text) {
  while (text.starts_with('/')) text.remove_prefix(1);
  while (text.ends_with('/')) text.remove_suffix(1);
  return text;
}

}  // namespace

std::optional<FtpAddress> ReadFtpAddress(std::string_view url) {
  const std::string trimmed = Trim(url);
  std::string_view text = trimmed;
  FtpAddress address;
  if (std::ranges::any_of(text, IsBlankOrControl) || !TakeScheme(text, address)) return std::nullopt;
  if (const std::size_t slash = text.find('/'); slash != std::string_view::npos) {
    address.folder = WithoutSlashes(text.substr(slash));
    text = text.substr(0, slash);
  }
  if (const std::size_t user = text.rfind('@'); user != std::string_view::npos) text.remove_prefix(user + 1);
  if (!TakePort(text, address) || !IsHost(text)) return std::nullopt;
  address.host = text;
  return address;
}

std::string WithoutPassword(const std::string& url) {
  const std::size_t scheme = url.find("://");
  const std::size_t begin = scheme == std::string::npos ? 0 : scheme + 3;
  // In an address that can't be read a slash may be one of the password's signs.
  const std::size_t end = ReadFtpAddress(url) ? std::min(url.find('/', begin), url.size()) : url.size();
  const std::size_t at = url.substr(0, end).rfind('@');
  const std::size_t colon = url.find(':', begin);
  if (at == std::string::npos || at < begin || colon > at) return url;
  return url.substr(0, colon) + url.substr(at);
}

std::optional<FtpCommand> ReadFtpCommand(std::string_view text) {
  if (text == "DIR") return FtpCommand{};
  if (text.starts_with("CD ")) return FtpCommand{FtpCommand::Kind::ChangeFolder, std::string(text.substr(3)), ""};
  if (!text.starts_with("PUT \"")) return std::nullopt;
  text.remove_prefix(5);
  const std::size_t quote = text.find("\" ");
  if (quote == std::string_view::npos || quote == 0 || quote + 2 == text.size()) return std::nullopt;
  return FtpCommand{FtpCommand::Kind::Put, std::string(text.substr(quote + 2)), std::string(text.substr(0, quote))};
}

}  // namespace karvel
