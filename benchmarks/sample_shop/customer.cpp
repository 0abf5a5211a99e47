#include "sample_shop/customer.h"

#include <fmt/format.h>

#include <algorithm>

#include "sample_shop/dice.h"
#include "sample_shop/words.h"

namespace karvel::sample {

namespace {

constexpr std::string_view kBuyerGroups[] = {"Müşteri", "Fatura", "Bayi", "Market", "Lokanta"};
constexpr std::size_t kShopsInTen = 4;  // of ten buyers, the others are people

std::string Plain(std::string_view name) {
  static constexpr std::pair<std::string_view, char> kLetters[] = {{"ç", 'c'}, {"ğ", 'g'}, {"ı", 'i'}, {"ö", 'o'}, {"ş", 's'}, {"ü", 'u'},
                                                                   {"Ç", 'c'}, {"Ğ", 'g'}, {"İ", 'i'}, {"Ö", 'o'}, {"Ş", 's'}, {"Ü", 'u'}};
  std::string result;
  for (std::size_t i = 0; i < name.size();) {
    const auto letter = std::ranges::find_if(kLetters, [&](const auto& pair) { return name.substr(i).starts_with(pair.first); });
    if (letter != std::end(kLetters)) {
      result += letter->second;
      i += letter->first.size();
      continue;
    }
    const char c = name[i++];
    if (c >= 'A' && c <= 'Z') result += static_cast<char>(c + ('a' - 'A'));
    if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) result += c;
  }
  return result;
}

}  // namespace

Customers::Customers(std::uint64_t seed, std::size_t count)
    : seed_(seed),
      count_(count),
      suppliers_(std::min(count, std::clamp<std::size_t>(count / 50, 2, 200))),
      salesmen_(std::min(count - suppliers_, std::clamp<std::size_t>(count / 100, 1, 20))) {}

std::string Customers::PersonName(std::size_t rank) const {
  const std::size_t first = FirstNames().size(), second = SecondNames().size(), last = Surnames().size();
  // People with one first name come first; when all of those are out, a second name keeps them apart.
  if (rank < first * last) {
    const std::size_t place = Scatter(rank, first * last, seed_);
    return fmt::format("{} {}", FirstNames()[place % first], Surnames()[place / first]);
  }
  const std::size_t place = Scatter(rank - first * last, first * second * last, seed_ + 1);
  const std::string name =
      fmt::format("{} {} {}", FirstNames()[place % first], SecondNames()[place / first % second], Surnames()[place / first / second]);
  const std::size_t round = (rank - first * last) / (first * second * last);
  return round == 0 ? name : fmt::format("{} {}", name, round + 1);
}

std::string Customers::ShopName(std::size_t rank) const {
  const std::size_t names = ShopNames().size(), kinds = ShopKinds().size(), places = Places().size();
  if (rank < names * kinds) {
    const std::size_t place = Scatter(rank, names * kinds, seed_ + 2);
    return fmt::format("{} {}", ShopNames()[place % names], ShopKinds()[place / names]);
  }
  const std::size_t place = Scatter(rank - names * kinds, names * kinds * places, seed_ + 3);
  const std::string name =
      fmt::format("{} {} {}", ShopNames()[place % names], ShopKinds()[place / names % kinds], Places()[place / names / kinds]);
  const std::size_t round = (rank - names * kinds) / (names * kinds * places);
  return round == 0 ? name : fmt::format("{} {}", name, round + 1);
}

Customer Customers::MakeBrief(std::size_t number) const {
  Customer made;
  if (number < suppliers_) {
    const std::size_t kinds = WholesaleKinds().size(), all = kinds * ShopNames().size();
    const std::size_t place = Scatter(number, all, seed_ + 4);
    made.role = CustomerRole::Supplier;
    made.code = fmt::format("T{:04}", number + 1);
    made.name = fmt::format("{} {}", ShopNames()[place / kinds], WholesaleKinds()[place % kinds]);
    made.group = "Toptan";
    return made;
  }
  if (number < FirstBuyer()) {
    const std::size_t rank = number - suppliers_;
    made.role = CustomerRole::Salesman;
    made.code = fmt::format("P{:02}", rank + 1);
    made.name = fmt::format("{} (Plasiyer {})", FirstNames()[Scatter(rank, FirstNames().size(), seed_ + 5)], rank + 1);
    made.group = "plasiyer";
    return made;
  }
  const std::size_t rank = number - FirstBuyer();
  const bool isShop = rank % 10 < kShopsInTen;
  made.code = fmt::format("M{:05}", rank + 1);
  made.name = isShop ? ShopName(rank / 10 * kShopsInTen + rank % 10) : PersonName(rank / 10 * (10 - kShopsInTen) + rank % 10 - kShopsInTen);
  Dice dice(seed_, 20, number);
  made.group = isShop ? kBuyerGroups[1 + dice.Below(std::size(kBuyerGroups) - 1)] : kBuyerGroups[dice.Chance(85) ? 0 : 1];
  return made;
}

Customer Customers::Make(std::size_t number) const {
  Customer made = MakeBrief(number);
  Dice dice(seed_, 21, number);
  made.address = fmt::format("{} No:{}", dice.Pick(Streets()), dice.Between(1, 140));
  const std::string_view place = dice.Pick(Places());
  made.city = fmt::format("{} / {}", place, dice.Pick(Cities()));
  made.mobile =
      fmt::format("05{:02} {:03} {:02} {:02}", dice.Between(30, 59), dice.Between(100, 999), dice.Between(0, 99), dice.Between(0, 99));
  const bool isBusiness = made.group != "Müşteri" && made.role != CustomerRole::Salesman;
  if (isBusiness) {
    made.phone =
        fmt::format("0{} {:03} {:02} {:02}", dice.Between(212, 488), dice.Between(200, 999), dice.Between(0, 99), dice.Between(0, 99));
    made.taxOffice = dice.Pick(TaxOffices());
    made.taxNumber = fmt::format("{:010}", dice.Next() % 9000000000u + 1000000000u);
    made.email = fmt::format("{}@ornek.invalid", Plain(made.name));
  }
  // Loyalty cards are with the buyers; the number itself keeps them apart.
  if (made.role == CustomerRole::Buyer && dice.Chance(70)) made.cardNumber = fmt::format("70{:08}", Scatter(number, 99999989, seed_ + 6));
  made.hidden = made.role == CustomerRole::Buyer && number > FirstBuyer() && dice.Chance(2);
  return made;
}

}  // namespace karvel::sample
