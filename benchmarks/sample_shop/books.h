// The sample shop's books while they are being written: every posting lands in the day book, the stock movements and the ledger under
// one DigerId, as the desk posts it, and its sums are kept for the cards, which are written last.
// Money in kuruş, quantities in thousandths.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "sample_shop/card.h"
#include "sample_shop/customer.h"
#include "sample_shop/table_writer.h"
#include "text/date_time.h"

namespace karvel::sample {

enum class Mode { Sale, Return, Purchase };
enum class Instrument { Cash, CreditCard, Note, Cheque };

struct Line {
  Mode mode = Mode::Sale;
  DateTime at;
  int terminal = 1;
  std::string_view slip;  // six digits
  std::size_t customer = 0, card = 0;
  std::int64_t price = 0;     // of one of the units sold
  std::int64_t quantity = 0;  // of the units sold
  bool byPack = false;        // the second unit and its price ("2.Fiyat")
};

struct AccountSums {
  std::int64_t debit = 0, credit = 0;
};

struct CardSums {
  std::int64_t quantityIn = 0, amountIn = 0, quantityOut = 0, amountOut = 0, profit = 0;
};

class Books {
 public:
  Books(FileWriter& cari, FileWriter& stok, FileWriter& karvel, const Customers& customers, const Cards& cards);

  // Returns the amount.
  std::int64_t PostLine(const Line& line);
  // A collection from a buyer, or a payment to a supplier.
  void PostMoney(std::size_t customer, Instrument instrument, std::int64_t amount, const DateTime& at, int terminal);

  // The walk-in customer stands behind all others.
  [[nodiscard]] std::size_t WalkIn() const { return customers_.Count(); }
  // What the customer owes; below 0 what the shop owes him.
  [[nodiscard]] std::int64_t Balance(std::size_t customer) const { return accounts_[customer].debit - accounts_[customer].credit; }
  [[nodiscard]] std::size_t DayBookRows() const { return dayBookRows_; }

  // What the movements come to: special prices, due dates, customers with the money accounts, cards, groups.
  void WriteCustomerFile();
  void WriteStockFile();
  // The running numbers used up, year by year.
  [[nodiscard]] const std::vector<std::pair<int, int>>& YearNumbers() const { return yearNumbers_; }

 private:
  struct Due {
    std::int64_t day;
    std::int64_t amount;
  };
  std::string NextLineId(const DateTime& at, int terminal);
  [[nodiscard]] Customer Find(std::size_t customer) const;
  void RememberPrice(const Line& line, const Card& card);
  void PayDues(std::size_t customer, std::int64_t amount);
  void WriteSpecialPrices();
  void WriteDueDates();
  void WriteAccounts();

  FileWriter &cari_, &stok_;
  const Customers& customers_;
  const Cards& cards_;
  TableWriter ledger_, movements_, dayBook_, collections_;
  std::vector<AccountSums> accounts_;
  std::array<AccountSums, 4> money_;  // by Instrument
  std::vector<CardSums> cardSums_;
  std::vector<std::vector<Due>> dues_;
  std::unordered_map<std::uint64_t, std::array<std::int64_t, 2>> specialPrices_;  // customer and card to 0Fiyat and 1Fiyat
  std::vector<std::pair<int, int>> yearNumbers_;
  std::size_t dayBookRows_ = 0;
};

}  // namespace karvel::sample
