#include "books/customer_prices.h"

#include "books/book_cursor.h"
#include "books/sources.h"
#include "books/steps.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("special prices");

// Where a price is remembered, and which of the card's it is compared with. What a customer pays as "Özel" is his own first price.
struct PriceFields {
  const char* ofCard;
  const char* ofCustomer;
};
constexpr std::array<PriceFields, kPriceNames.size()> kPriceFields{{
    {"Fiyat", "0Fiyat"},
    {"Fiyat2", "1Fiyat"},
    {"Fiyat3", "2Fiyat"},
    {"Fiyat", "0Fiyat"},
}};

class PriceTable : public BookCursor {
 public:
  explicit PriceTable(Stores& stores) : BookCursor(stores, "special prices", "Cari.Mdb", "Cari") {}
  Status FindPair(const std::string& itemCode, const std::string& customerCode) {
    return FindFirst("StokKod=" + sources::Quoted(itemCode) + " And CariKod=" + sources::Quoted(customerCode));
  }
};

// Whether the listed price is the one that was sold, as it stands or as the desk shows it.
bool IsOffered(const SoldPrice& price, double listed) {
  return price.amount == listed || price.amount == NumberOrZero(Format(listed, price.format));
}

}  // namespace

PriceName PriceNamed(std::string_view text) {
  const std::string name = Trim(text);
  for (std::size_t i = 0; i < kPriceNames.size(); ++i)
    if (kPriceNames[i] == name) return static_cast<PriceName>(i);
  return PriceName::Special;
}

SpecialPrices FindSpecialPrices(Stores& stores, const std::string& itemCode, const std::string& customerCode) {
  PriceTable table(stores);
  if (!table.FindPair(itemCode, customerCode).Ok()) return {};
  return {table.Number("0Fiyat"), table.Number("1Fiyat"), table.Number("2Fiyat"), true};
}

void RememberPrice(Stores& stores, const Cursor& itemCard, const std::string& customerCode, const SoldPrice& price) {
  const PriceFields& fields = kPriceFields[static_cast<std::size_t>(price.name)];
  if (IsOffered(price, itemCard.Number(fields.ofCard))) return;
  const std::string itemCode = itemCard.Text("StokKod");
  PriceTable table(stores);
  if (const Status found = table.FindPair(itemCode, customerCode); found.Ok()) {
    if (IsOffered(price, table.Number(fields.ofCustomer))) return;
    step("edit special price", table.Edit());
  } else if (found.Kind() == ErrorKind::NoRecord) {
    step("add special price", table.AddNew());
    table.Set("StokKod", itemCode);
    table.Set("CariKod", customerCode);
  } else {
    return;  // the action has failed
  }
  table.Set(fields.ofCustomer, price.amount);
  step("update special price", table.Update());
}

}  // namespace karvel
