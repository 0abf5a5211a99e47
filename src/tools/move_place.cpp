#include "tools/move_place.h"

#include <algorithm>

#include "platform/share.h"

namespace karvel {
namespace {

constexpr std::string_view kDatabase = "MuhasebeData";
constexpr std::string_view kFirstFirm = "01";

std::string_view NextPiece(std::string_view& text) {
  const std::size_t at = std::min(text.find('/'), text.size());
  const std::string_view piece = text.substr(0, at);
  text.remove_prefix(std::min(at + 1, text.size()));
  return piece;
}

}  // namespace

std::optional<MovePlace> ReadMovePlace(const std::string& told) {
  const std::size_t scheme = told.find("://");
  if (scheme == std::string::npos) return MovePlace{told, false, told};
  const std::string kind = told.substr(0, scheme);
  if (kind != "postgres" && kind != "postgresql") return {};
  std::string_view rest = std::string_view(told).substr(scheme + 3);
  std::string machines(NextPiece(rest));
  std::ranges::replace(machines, ',', ';');
  std::string_view firm = NextPiece(rest);
  if (firm == kDatabase) firm = NextPiece(rest);
  if (firm.empty()) firm = kFirstFirm;
  const bool plain = machines.find_first_of("@\\?") == std::string::npos;
  if (machines.empty() || !plain || !IsFirmNumber(firm) || !rest.empty()) return {};
  return MovePlace{told, true, "\\\\" + machines + "\\" + std::string(kDatabase) + "\\" + std::string(firm)};
}

}  // namespace karvel
