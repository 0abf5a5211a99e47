#include "platform/share.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "text/letters.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr std::string_view kBeginning = "\\\\";
constexpr const char* kDatabase = "MuhasebeData";
constexpr int kUsualPort = 5432, kLastPort = 65535;

// "host", "host:port" or "[host]:port"; several colons without brackets are an address of the newer kind, which tells no port.
std::optional<ServerPlace> ReadPlace(std::string_view text) {
  const std::size_t bracket = text.rfind(']');
  const std::size_t colon = text.rfind(':');
  const bool plain = bracket == std::string_view::npos;
  const bool told = colon != std::string_view::npos && (plain ? text.find(':') == colon : colon > bracket);
  ServerPlace place{std::string(told ? text.substr(0, colon) : text), kUsualPort};
  std::erase_if(place.host, [](char letter) { return letter == '[' || letter == ']'; });
  if (place.host.empty()) return {};
  if (told) {
    const char* const end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data() + colon + 1, end, place.port);
    if (error != std::errc() || read != end || place.port <= 0 || place.port > kLastPort) return {};
  }
  return place;
}

}  // namespace

bool IsShare(std::string_view dataFolder) {
  return dataFolder.starts_with(kBeginning);
}

std::string ShareFolder(const std::string& address, const std::string& firm) {
  return std::string(kBeginning) + address + "\\" + kDatabase + "\\" + firm;
}

std::string TidyAddress(std::string_view typed) {
  return Trim(ReplaceAll(ReplaceAll(std::string(typed), "\\", ""), ",", "."));
}

bool IsFirmNumber(std::string_view text) {
  constexpr std::size_t kLongest = 40;  // the server cuts longer names, and two firms could become one
  return !text.empty() && text.size() <= kLongest && std::ranges::all_of(text, [](char letter) {
    return (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
  });
}

std::vector<ServerPlace> MainMachines(std::string_view address) {
  std::vector<ServerPlace> machines;
  if (IsShare(address)) {
    address.remove_prefix(kBeginning.size());
    address = address.substr(0, address.find('\\'));
  }
  while (!address.empty()) {
    const std::size_t end = std::min(address.find(';'), address.size());
    if (const std::string one = Trim(std::string(address.substr(0, end))); !one.empty()) {
      const std::optional<ServerPlace> place = ReadPlace(one);
      if (!place) return {};
      machines.push_back(*place);
    }
    address.remove_prefix(std::min(end + 1, address.size()));
  }
  return machines;
}

}  // namespace karvel
