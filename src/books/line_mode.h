// What a line of goods is: sold, taken back, or bought. Its name stands in the rows (Durum, GirisCikis) and on the screen.
#pragma once

#include <string_view>

namespace karvel {

enum class LineMode { Sale, Return, Purchase };

inline constexpr std::string_view kSaleName = "Satış", kReturnName = "İade", kPurchaseName = "Alış";
// The state of a line that was cancelled: it stands in the day book, and nothing else of it is left.
inline constexpr std::string_view kCancelledName = "Iptal";

constexpr std::string_view NameOf(LineMode mode) {
  switch (mode) {
    case LineMode::Return:
      return kReturnName;
    case LineMode::Purchase:
      return kPurchaseName;
    case LineMode::Sale:
      break;
  }
  return kSaleName;
}
// A sale for any other text.
constexpr LineMode LineModeNamed(std::string_view name) {
  return name == kReturnName ? LineMode::Return : name == kPurchaseName ? LineMode::Purchase : LineMode::Sale;
}

}  // namespace karvel
