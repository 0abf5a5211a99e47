// The sample shop's customers, suppliers and salesmen: each is worked out from the seed and its number alone, so nothing needs to be kept.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace karvel::sample {

enum class CustomerRole { Buyer, Supplier, Salesman };

struct Customer {
  CustomerRole role = CustomerRole::Buyer;
  std::string code;  // CariKod
  std::string name;  // Unvan; no two alike
  std::string address, city, email, taxOffice, taxNumber, phone, mobile, cardNumber;
  std::string_view group;
  bool hidden = false;
};

class Customers {
 public:
  Customers(std::uint64_t seed, std::size_t count);
  [[nodiscard]] std::size_t Count() const { return count_; }
  // The first ones are the suppliers, then come the salesmen, then the buyers.
  [[nodiscard]] std::size_t Suppliers() const { return suppliers_; }
  [[nodiscard]] std::size_t FirstBuyer() const { return suppliers_ + salesmen_; }
  [[nodiscard]] Customer Make(std::size_t number) const;
  // Code, name and group only, as the movements need them.
  [[nodiscard]] Customer MakeBrief(std::size_t number) const;

 private:
  [[nodiscard]] std::string PersonName(std::size_t rank) const;
  [[nodiscard]] std::string ShopName(std::size_t rank) const;
  const std::uint64_t seed_;
  const std::size_t count_, suppliers_, salesmen_;
};

}  // namespace karvel::sample
