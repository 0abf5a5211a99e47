#include "sample_shop/books.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace karvel::sample {

namespace {

constexpr std::string_view kModeWords[] = {"Satış", "İade", "Alış"};

struct MoneyAccount {
  std::string_view code, name, caption, state;
};
constexpr MoneyAccount kMoneyAccounts[] = {{"=100", "Nakit Kasa", "Nakit", "Nakit"},
                                           {"=150", "Kredi Kartı", "Kredi Kartı", "K.Kartı"},
                                           {"=500", "Senet", "Senet", "Senet"},
                                           {"=600", "Çek", "Çek", "Çek"}};

double Lira(std::int64_t kurus) {
  return static_cast<double>(kurus) / 100;
}
double Units(std::int64_t thousandths) {
  return static_cast<double>(thousandths) / 1000;
}
std::int64_t Times(std::int64_t kurus, std::int64_t thousandths) {
  return static_cast<std::int64_t>(std::llround(static_cast<double>(kurus) * static_cast<double>(thousandths) / 1000));
}
// The day book counts terminals from 0, the stock movements carry the two digits.
std::string BookTag(int terminal) {
  return fmt::format("WinKarvel{}", terminal - 1);
}
std::string StockTag(int terminal) {
  return fmt::format("WinKarvel{:02}", terminal);
}

}  // namespace

Books::Books(FileWriter& cari, FileWriter& stok, FileWriter& karvel, const Customers& customers, const Cards& cards)
    : cari_(cari),
      stok_(stok),
      customers_(customers),
      cards_(cards),
      ledger_(cari, "CariHareket",
              {"cariharkod", "Tarih", "Aciklama", "Bilgi1", "Bilgi2", "Birim", "Borc", "Alacak", "Carisi", "Unvan", "DigerId", "Nerde",
               "Miktar", "Fiyat", "yeni", "Gurup"}),
      movements_(stok, "StokHareket",
                 {"StokHarKod", "Tarih",  "Aciklama", "Tutar",  "Birim",   "Miktar", "Fiyat", "GirisCikis", "Carisi", "DigerId", "Nerde",
                  "SatTar",     "StokAd", "Unvan",    "Barkod", "Maliyet", "Gurup",  "yeni",  "Plasiyer",   "tGurup", "Kar"}),
      dayBook_(karvel, "Datam",
               {"CariKod", "StokKod", "CariAd", "StokAd", "Fiyat", "Miktar", "Tutar", "Tarih", "DigerId", "Birim", "yeni", "Durum", "Gurup",
                "Plasiyer", "tGurup", "SeriNo", "Kar"}),
      collections_(karvel, "Datam", {"CariKod", "CariAd", "StokAd", "Tarih", "DigerId", "Tahsilat", "Durum", "yeni", "Plasiyer", "Gurup"}),
      accounts_(customers.Count() + 1),
      cardSums_(cards.Count()),
      dues_(customers.Count() + 1) {
  for (std::size_t i = 0; i < cards.Count(); ++i) {
    const Card card = cards.Make(i);
    cardSums_[i] = {card.openingIn, Times(card.cost, card.openingIn), card.openingOut, Times(card.price, card.openingOut), 0};
  }
}

Customer Books::Find(std::size_t customer) const {
  if (customer < customers_.Count()) return customers_.MakeBrief(customer);
  Customer walkIn;
  walkIn.code = walkIn.name = "Muhtelif Müşteri";
  walkIn.group = "Müşteri";
  return walkIn;
}

std::string Books::NextLineId(const DateTime& at, int terminal) {
  if (yearNumbers_.empty() || yearNumbers_.back().first != at.year) yearNumbers_.emplace_back(at.year, 0);
  const std::string number = fmt::format("{:02}{}", at.year % 100, ++yearNumbers_.back().second);
  return fmt::format("{}{:0>10}", terminal, number);
}

void Books::RememberPrice(const Line& line, const Card& card) {
  // Only a price that differs from the card's is kept for the customer.
  if (line.price == (line.byPack ? card.price2 : card.price)) return;
  specialPrices_[line.customer << 32 | line.card][line.byPack ? 1 : 0] = line.price;
}

std::int64_t Books::PostLine(const Line& line) {
  const Customer customer = Find(line.customer);
  const Card card = cards_.Make(line.card);
  const std::string_view word = kModeWords[static_cast<int>(line.mode)];
  const bool isSale = line.mode == Mode::Sale;
  const std::int64_t amount = Times(line.price, line.quantity);
  const std::int64_t pieces = line.byPack && card.packed > 0 ? line.quantity * card.packed : line.quantity;
  const std::string_view unit = line.byPack ? card.packUnit : card.unit;
  const std::string id = NextLineId(line.at, line.terminal);
  const std::string now = line.at.ToIso(), day = line.at.Date().ToIso();

  std::int64_t profit = 0;
  if (line.mode != Mode::Return) {
    RememberPrice(line, card);
    if (card.tracksProfit) profit = std::max<std::int64_t>(0, amount - Times(card.cost, pieces));
    auto& dues = dues_[line.customer];
    if (dues.empty() || dues.back().day != line.at.DayNumber()) dues.push_back({line.at.DayNumber(), 0});
    dues.back().amount += amount;
  }

  movements_.Add(card.code, day, fmt::format("{} {} İle", card.name, word), Lira(amount), unit, Units(pieces), Lira(line.price), word,
                 customer.code, id, "C", day, card.name, customer.name, card.barcode, Lira(card.cost), card.group, 1,
                 StockTag(line.terminal), StockTag(line.terminal), Lira(profit));
  dayBook_.Add(customer.code, card.code, customer.name, card.name, Lira(line.price), Units(pieces), Lira(amount), now, id, unit, 1, word,
               card.group, BookTag(line.terminal), BookTag(line.terminal), line.slip, Lira(profit));
  ++dayBookRows_;
  ledger_.Add(customer.code, now, fmt::format("{} {}", card.name, word), card.code, card.name, card.unit, Lira(isSale ? amount : 0),
              Lira(isSale ? 0 : amount), card.code, card.name, id, "S", Units(pieces), Lira(line.price), 1, "");

  CardSums& sums = cardSums_[line.card];
  (isSale ? sums.quantityOut : sums.quantityIn) += pieces;
  (isSale ? sums.amountOut : sums.amountIn) += amount;
  if (isSale) sums.profit += profit;
  (isSale ? accounts_[line.customer].debit : accounts_[line.customer].credit) += amount;
  return amount;
}

void Books::PostMoney(std::size_t number, Instrument instrument, std::int64_t amount, const DateTime& at, int terminal) {
  const Customer customer = Find(number);
  const MoneyAccount& account = kMoneyAccounts[static_cast<int>(instrument)];
  const bool isPayment = customer.role == CustomerRole::Supplier;
  const std::string_view direction = isPayment ? " Ödeme" : " Tahsilat";
  const std::string text = fmt::format("{}{}", account.caption, direction);
  const std::string id = NextLineId(at, terminal), now = at.ToIso();
  const double debit = Lira(isPayment ? 0 : amount), credit = Lira(isPayment ? amount : 0);

  ledger_.Add(account.code, now, text, "", "", "", debit, credit, account.code, customer.name, id, "C", 0, 0, 1, "");
  collections_.Add(customer.code, customer.name, text, now, id, Lira(amount), account.state, 1, BookTag(terminal), customer.group);
  ++dayBookRows_;
  ledger_.Add(customer.code, now, fmt::format("{}{} İle", customer.name, direction), "", "", "", credit, debit, customer.code,
              customer.name, id, "C", 0, 0, 1, "");

  AccountSums& cash = money_[static_cast<std::size_t>(instrument)];
  (isPayment ? cash.credit : cash.debit) += amount;
  (isPayment ? accounts_[number].debit : accounts_[number].credit) += amount;
  PayDues(number, amount);
}

// A balance of nothing clears all due dates; else the money goes to the earliest two.
void Books::PayDues(std::size_t customer, std::int64_t amount) {
  auto& dues = dues_[customer];
  if (Balance(customer) == 0) {
    dues.clear();
    return;
  }
  if (!dues.empty() && amount > dues.front().amount) {
    amount -= dues.front().amount;
    dues.erase(dues.begin());
  }
  if (dues.empty()) return;
  dues.front().amount -= amount;
  if (dues.front().amount == 0) dues.erase(dues.begin());
}

void Books::WriteSpecialPrices() {
  TableWriter prices(cari_, "Cari", {"StokKod", "CariKod", "0Fiyat", "1Fiyat"});
  // In the order of customers and cards, whatever the order of the hash.
  const std::map<std::uint64_t, std::array<std::int64_t, 2>> ordered(specialPrices_.begin(), specialPrices_.end());
  for (const auto& [pair, price] : ordered)
    prices.Add(cards_.Make(pair & 0xffffffffu).code, Find(pair >> 32).code, Lira(price[0]), Lira(price[1]));
}

void Books::WriteDueDates() {
  TableWriter rows(cari_, "VadeGün", {"CariKod", "VadeTarih", "Tutar"});
  for (std::size_t customer = 0; customer < dues_.size(); ++customer) {
    if (dues_[customer].empty()) continue;
    const std::string code = Find(customer).code;
    for (const Due& due : dues_[customer]) rows.Add(code, DateTime::FromSecondNumber(due.day * 86400).ToIso(), Lira(due.amount));
  }
}

void Books::WriteAccounts() {
  TableWriter rows(cari_, "CariKartlar",
                   {"CariKod", "Unvan", "Adres1", "Adres2", "Email", "VergiDa", "VergiNo", "Telefon", "Gsm", "KartNo", "Gurup", "Borc",
                    "Alacak", "Bakiye", "Hesap", "Hes", "HesKullan", "yeni"});
  const auto add = [&](const Customer& customer, const AccountSums& sums) {
    const bool isCredit = sums.credit > sums.debit;
    rows.Add(customer.code, customer.name, customer.address, customer.city, customer.email, customer.taxOffice, customer.taxNumber,
             customer.phone, customer.mobile, customer.cardNumber, customer.group, Lira(sums.debit), Lira(sums.credit),
             Lira(std::abs(sums.debit - sums.credit)), isCredit ? "Alacak" : "Borç", "C", customer.hidden, 1);
  };
  const auto addFixed = [&](std::string_view code, std::string_view name, const AccountSums& sums) {
    Customer fixed;
    fixed.code = code;
    fixed.name = name;
    add(fixed, sums);
  };
  for (std::size_t i = 0; i < money_.size(); ++i) addFixed(kMoneyAccounts[i].code, kMoneyAccounts[i].name, money_[i]);
  addFixed("=110", "Faturalar", {});
  addFixed("Merkez", "Merkez", {});
  add(Find(WalkIn()), accounts_[WalkIn()]);
  for (std::size_t i = 0; i < customers_.Count(); ++i) add(customers_.Make(i), accounts_[i]);
}

void Books::WriteCustomerFile() {
  TableWriter groups(cari_, "Gurup", {"Gurup", "Grp"});
  for (const char* group : {"Müşteri", "Fatura", "Bayi", "Market", "Lokanta", "Toptan"}) groups.Add(group, true);
  groups.Add("plasiyer", false);
  WriteSpecialPrices();
  WriteDueDates();
  WriteAccounts();
}

void Books::WriteStockFile() {
  TableWriter rows(stok_, "StokKartlar", {"StokKod", "StokAdi",  "Kdv",        "Birim",     "Birim2",     "Adet2",  "Adet3",  "Gurup",
                                          "Kar",     "Maliyet",  "Yeri",       "StokGizle", "Barkod",     "Fiyat",  "Fiyat2", "Fiyat3",
                                          "gFiyat",  "GirenMik", "GirenTutar", "CikanMik",  "CikanTutar", "KalanA", "KalanB"});
  std::vector<std::string_view> groups;
  for (std::size_t i = 0; i < cards_.Count(); ++i) {
    const Card card = cards_.Make(i);
    const CardSums& sums = cardSums_[i];
    const std::int64_t left = sums.quantityIn - sums.quantityOut;
    rows.Add(card.code, card.name, card.tax, card.unit, card.packUnit, card.packed, card.thirdQuantity, card.group, Lira(sums.profit),
             card.tracksProfit ? Lira(card.cost) : 0.0, card.place, card.hidden, card.barcode, Lira(card.price), Lira(card.price2),
             Lira(card.price3), Lira(card.cost), Units(sums.quantityIn), Lira(sums.amountIn), Units(sums.quantityOut), Lira(sums.amountOut),
             Units(std::max<std::int64_t>(0, -left)), Units(std::max<std::int64_t>(0, left)));
    if (std::ranges::find(groups, card.group) == groups.end()) groups.push_back(card.group);
  }
  TableWriter rowsOfGroups(stok_, "Gurup", {"Gurup", "Grp"});
  rowsOfGroups.Add("WinKarvel1", false);
  for (const std::string_view group : groups) rowsOfGroups.Add(group, true);
}

}  // namespace karvel::sample
