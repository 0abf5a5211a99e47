#include "sample_shop/shop.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <future>
#include <map>
#include <memory>
#include <stdexcept>

#include "sample_shop/books.h"
#include "sample_shop/dice.h"

namespace karvel::sample {

namespace {

constexpr int kDays = 365;
constexpr int kOpens = 8 * 3600 + 1800, kOpenFor = 12 * 3600;
const DateTime kFirstDay{2025, 3, 1, 0, 0, 0};

// What happened in the shop, in the order of the clock.
class Year {
 public:
  Year(Books& books, const Customers& customers, const Cards& cards, const ShopSize& size)
      : books_(books), customers_(customers), cards_(cards), rows_(size.rows), dice_(size.seed, 30) {}

  void Run() {
    while (books_.DayBookRows() < rows_) {
      const int roll = dice_.Between(1, 100);
      if (roll <= 62) {
        SaleToWalkIn();
      } else if (roll <= 86) {
        SaleToCustomer();
      } else if (roll <= 90) {
        Return();
      } else if (roll <= 94) {
        Purchase();
      } else {
        Collection();
      }
    }
  }

 private:
  [[nodiscard]] bool Full() const { return books_.DayBookRows() >= rows_; }

  // The rows are spread evenly over the year, and inside a day over the opening hours.
  [[nodiscard]] DateTime Now() const {
    const double through = static_cast<double>(books_.DayBookRows()) / static_cast<double>(rows_) * kDays;
    const auto day = std::min(static_cast<std::int64_t>(through), static_cast<std::int64_t>(kDays - 1));
    const auto second = static_cast<std::int64_t>((through - static_cast<double>(day)) * kOpenFor);
    return kFirstDay.PlusDays(day).PlusSeconds(kOpens + second);
  }

  // Few customers come often, few goods sell often.
  std::size_t AnyBuyer() {
    const double part = dice_.Part();
    const std::size_t first = customers_.FirstBuyer();
    if (first == customers_.Count()) return books_.WalkIn();
    return first + static_cast<std::size_t>(part * part * static_cast<double>(customers_.Count() - first));
  }
  std::size_t AnyCard() {
    const double part = dice_.Part();
    return static_cast<std::size_t>(part * part * static_cast<double>(cards_.Count()));
  }

  Line NewLine(Mode mode, std::size_t customer) {
    Line line;
    line.mode = mode;
    line.at = slipStart_.PlusSeconds(5 * slipLines_++);
    line.terminal = terminal_;
    line.slip = slip_;
    line.customer = customer;
    line.card = AnyCard();
    const Card card = cards_.Make(line.card);
    line.price = card.price;
    line.quantity = card.weighed ? dice_.Between(1, 12) * 250 : dice_.Between(1, 4) * 1000;
    return line;
  }

  void StartSlip() {
    terminal_ = dice_.Chance(80) ? 1 : 2;
    slip_ = fmt::format("{:06}", ++slips_ % 1000000);
    slipStart_ = Now();
    slipLines_ = 0;
  }

  std::int64_t Sell(std::size_t customer, int lines) {
    StartSlip();
    std::int64_t total = 0;
    for (; lines > 0 && !Full(); --lines) {
      Line line = NewLine(Mode::Sale, customer);
      const Card card = cards_.Make(line.card);
      if (card.packed > 0 && customer != books_.WalkIn() && dice_.Chance(30)) {
        line.byPack = true;
        line.price = card.price2;
        line.quantity = dice_.Between(1, 3) * 1000;
      }
      if (customer != books_.WalkIn() && dice_.Chance(6)) line.price = (line.price * dice_.Between(88, 97) / 100 + 4) / 5 * 5;
      total += books_.PostLine(line);
    }
    return total;
  }

  void SaleToWalkIn() {
    const std::int64_t total = Sell(books_.WalkIn(), dice_.Between(1, 4));
    if (!Full() && total > 0)
      books_.PostMoney(books_.WalkIn(), dice_.Chance(60) ? Instrument::Cash : Instrument::CreditCard, total,
                       slipStart_.PlusSeconds(5 * slipLines_), terminal_);
  }

  void SaleToCustomer() { Sell(AnyBuyer(), dice_.Between(1, 8)); }

  void Return() {
    StartSlip();
    books_.PostLine(NewLine(Mode::Return, AnyBuyer()));
  }

  void Purchase() {
    if (customers_.Suppliers() == 0) return SaleToWalkIn();
    const std::size_t supplier = dice_.Below(customers_.Suppliers());
    StartSlip();
    for (int lines = dice_.Between(2, 10); lines > 0 && !Full(); --lines) {
      Line line = NewLine(Mode::Purchase, supplier);
      line.price = cards_.Make(line.card).cost;
      line.quantity = dice_.Between(2, 20) * 10000;
      books_.PostLine(line);
    }
    if (!Full() && dice_.Chance(50)) Settle(supplier, -books_.Balance(supplier));
  }

  void Collection() {
    const std::size_t customer = AnyBuyer();
    Settle(customer, books_.Balance(customer));
  }

  // Half of them pay all, the others a round part of it.
  void Settle(std::size_t customer, std::int64_t owed) {
    if (owed <= 0) return;
    const std::int64_t part = owed * dice_.Between(30, 80) / 100 / 1000 * 1000;
    const std::int64_t amount = dice_.Chance(50) || part == 0 ? owed : part;
    const int how = dice_.Between(1, 100);
    books_.PostMoney(customer,
                     how <= 60   ? Instrument::Cash
                     : how <= 88 ? Instrument::CreditCard
                     : how <= 95 ? Instrument::Cheque
                                 : Instrument::Note,
                     amount, Now(), terminal_);
  }

  Books& books_;
  const Customers& customers_;
  const Cards& cards_;
  const std::size_t rows_;
  Dice dice_;
  int terminal_ = 1;
  int slips_ = 0, slipLines_ = 0;
  std::string slip_;
  DateTime slipStart_;
};

void WriteRunningNumbers(FileWriter& file, const Books& books) {
  TableWriter years(file, "Tarih", {"Tarih"});
  TableWriter numbers(file, "Mdbindex", {"Tarih", "Serino", "Indexi"});
  for (const auto& [year, used] : books.YearNumbers()) {
    years.Add(std::to_string(year));
    numbers.Add(std::to_string(year), fmt::format("{:02}0", year % 100), fmt::format("{:02}{}", year % 100, used));
  }
}

}  // namespace

void MakeShop(const std::string& home, const ShopSize& size) {
  if (size.cards == 0) throw std::runtime_error("a shop has at least one card");
  const std::string folder = home + "/C/KarvelData";
  std::filesystem::create_directories(folder);
  if (!std::filesystem::is_empty(folder)) throw std::runtime_error(folder + ": there is a shop already");

  std::map<std::string_view, std::unique_ptr<FileWriter>> files;
  for (const DatabaseFile& file : Catalogue::Files().first(8)) files[file.schema] = std::make_unique<FileWriter>(file, folder);

  const Customers customers(size.seed, size.customers);
  const Cards cards(size.seed, size.cards);
  Books books(*files["cari"], *files["stok"], *files["karvel"], customers, cards);
  Year(books, customers, cards, size).Run();
  books.WriteCustomerFile();
  books.WriteStockFile();
  WriteRunningNumbers(*files["indeks"], books);
  // The indexes of the big files take the longest; each file has its own connection, so they are built side by side.
  std::vector<std::future<void>> finishing;
  for (auto& [schema, file] : files) finishing.push_back(std::async(std::launch::async, [&writer = *file] { writer.Finish(); }));
  for (auto& done : finishing) done.get();
}

}  // namespace karvel::sample
