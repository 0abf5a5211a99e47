// A customer's own prices (table Cari): a price that was typed over the card's is remembered for this customer and item.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/status.h"
#include "store/cursor.h"
#include "store/stores.h"

namespace karvel {

// In the order of the desk's price slots and of a tap on the price's name.
enum class PriceName { First, Second, Third, Special };
inline constexpr std::array<std::string_view, 4> kPriceNames{"1.Fiyat", "2.Fiyat", "3.Fiyat", "Özel"};

constexpr std::string_view NameOf(PriceName name) {
  return kPriceNames[static_cast<std::size_t>(name)];
}
// Special for any other text. Blanks around the name don't count.
PriceName PriceNamed(std::string_view text);

// The prices kept for one item and customer; 0 where none is.
struct SpecialPrices {
  double first = 0, second = 0, third = 0;  // 0Fiyat, 1Fiyat, 2Fiyat
  bool kept = false;                        // there is a row of the two
};
// One look-up on an index. A table that can't be read gives none, and the log says so.
SpecialPrices FindSpecialPrices(Stores& stores, const std::string& itemCode, const std::string& customerCode);

// A price as it was sold, and the format in which the desk shows prices: a card's 1,234 was offered as 1,23.
struct SoldPrice {
  PriceName name = PriceName::First;
  double amount = 0;
  std::string format;
};
// Within an action. Remembers the price under its name where it differs from the card's of that name; a line sold at the card's price, or
// at the customer's own, leaves the table as it was, also for a new pair. A price that the format shows rounded is still that price.
void RememberPrice(Stores& stores, const Cursor& itemCard, const std::string& customerCode, const SoldPrice& price);

}  // namespace karvel
