// The rules of the shop's books once more, as plainly as they can be told, without a store: what the cards, ledgers, day book and due dates
// must read after each action. The random days of the desk are compared with it.
#pragma once

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace karvel::books {

// Prices are kuruş, quantities thousandths: both are typed with a comma, and their product is exact.
inline std::string Typed(std::int64_t value, int decimals) {
  std::int64_t unit = 1;
  for (int i = 0; i < decimals; ++i) unit *= 10;
  std::string text = fmt::format("{},{:0{}}", value / unit, value % unit, decimals);
  while (text.back() == '0') text.pop_back();
  if (text.back() == ',') text.pop_back();
  return text;
}
inline double Decimal(std::int64_t value, int decimals) {
  std::string text = Typed(value, decimals);
  std::replace(text.begin(), text.end(), ',', '.');
  return std::strtod(text.c_str(), nullptr);
}
// Price times quantity as the clerk sees it: to the kuruş, halves up.
inline double Amount(std::int64_t price, std::int64_t quantity) {
  return Decimal((price * quantity + 500) / 1000, 2);
}

inline double Rounded(double value, int decimals) {
  return std::strtod(fmt::format("{:.{}f}", value, decimals).c_str(), nullptr);
}
// A sum as it is kept: its nearest decimal.
inline void Add(double& sum, double value) {
  sum = Rounded(sum + value, 6);
}
// A number to its last digit: a sum that differs from its decimal by a hair shows it.
inline std::string Digits(double value) {
  return fmt::format("{}", value + 0.0);
}
inline std::string Digits(const std::string& text) {
  return Digits(std::strtod(text.c_str(), nullptr));
}

struct Account {
  double debit = 0, credit = 0, balance = 0;
  std::string side;

  void Balance() {
    const bool over = Rounded(credit - debit, 2) > 0;
    balance = Rounded(over ? credit - debit : debit - credit, 2);
    side = over ? "Alacak" : "Borç";
  }
};

struct Item {
  std::string name;
  std::int64_t price = 0, secondPrice = 0, cost = 0;  // kuruş
  double pieces = 0;                                  // of the second unit
  bool countsProfit = false;                          // Maliyet
  int tax = 0;                                        // percent
  double in = 0, inTotal = 0, out = 0, outTotal = 0, over = 0, left = 0, profit = 0;

  void Balance() {
    over = out > in ? Rounded(out - in, 3) : 0;
    left = out > in ? 0 : Rounded(in - out, 3);
  }
};

struct LedgerRow {
  std::string account, text;
  double debit = 0, credit = 0;
};

struct Line {
  std::string customer, item, state;
  double price = 0, quantity = 0, total = 0, collected = 0, profit = 0;
  std::string date{};     // of a line of goods
  std::string invoice{};  // its number, where one bears the line
};

struct Invoice {
  std::string customer;
  double amount = 0, tax = 0, total = 0, profit = 0;
  std::size_t lines = 0;
};

struct Movement {
  double quantity = 0, total = 0, cost = 0, profit = 0;
};

class Books {
 public:
  std::map<std::string, Account> accounts;
  std::map<std::string, Item> items;
  std::map<std::string, std::vector<LedgerRow>> ledger;  // by line id
  std::map<std::string, Line> day;
  std::map<std::string, Movement> movements;
  std::map<std::string, std::map<std::string, double>> due;    // by customer, by date
  std::map<std::string, std::array<double, 2>> specialPrices;  // by "item|customer": 0Fiyat, 1Fiyat
  std::map<std::string, Invoice> invoices;                     // by number
  int numbers = 0;

  std::string NextId() { return "1" + fmt::format("{:0>10}", "26" + std::to_string(++numbers)); }

  void PostLine(const std::string& customer, const std::string& code, const std::string& mode, bool secondUnit, std::int64_t price,
                std::int64_t quantity, const std::string& today) {
    Item& item = items.at(code);
    const double total = Amount(price, quantity);
    const bool sale = mode == "Satış";
    Line line{customer, code, mode, Decimal(price, 2), Decimal(quantity, 3), total, 0, 0, today};
    if (secondUnit && item.pieces != 0) line.quantity = Rounded(line.quantity * item.pieces, 6);
    if (mode != "İade") {
      const std::int64_t listed = secondUnit ? item.secondPrice : item.price;
      if (price != listed) specialPrices[code + "|" + customer][secondUnit ? 1 : 0] = line.price;
      Add(due[customer][today], total);
      if (item.countsProfit) line.profit = Profit(total, line.quantity, Decimal(item.cost, 2));
    }
    const std::string id = NextId();
    movements[id] = {line.quantity, total, Decimal(item.cost, 2), line.profit};
    day[id] = line;
    double& count = sale ? item.out : item.in;
    double& sum = sale ? item.outTotal : item.inTotal;
    count = Rounded(line.quantity + count, 6);
    sum = Rounded(sum + total, 6);
    if (sale) item.profit = Rounded(item.profit + line.profit, 6);
    item.Balance();
    ledger[id].push_back({customer, item.name + " " + mode, sale ? total : 0, sale ? 0 : total});
    Account& account = accounts.at(customer);
    Add(sale ? account.debit : account.credit, total);
    account.Balance();
  }

  void PostMoney(const std::string& customer, const std::string& title, const std::string& instrument, bool paysOut, double amount) {
    static const std::map<std::string, std::string> codes{{"Kredi Kartı", "=150"}, {"Senet", "=500"}, {"Çek", "=600"}, {"Nakit", "=100"}};
    const std::string& cash = codes.at(instrument);
    const std::string direction = paysOut ? " Ödeme" : " Tahsilat";
    const std::string id = NextId();
    ledger[id].push_back({cash, instrument + direction, paysOut ? 0 : amount, paysOut ? amount : 0});
    ledger[id].push_back({customer, title + direction + " İle", paysOut ? amount : 0, paysOut ? 0 : amount});
    Add(paysOut ? accounts.at(cash).credit : accounts.at(cash).debit, amount);
    accounts.at(cash).Balance();
    Account& account = accounts.at(customer);
    Add(paysOut ? account.debit : account.credit, amount);
    account.Balance();
    day[id] = {customer, "", instrument == "Kredi Kartı" ? "K.Kartı" : instrument, 0, 0, 0, amount, 0};
    Consume(due[customer], account.balance, amount);
  }

  void Receive(const std::string& supplier, const std::string& code, const std::string& name, std::int64_t rowPrice,
               std::int64_t totalPrice, std::int64_t quantity) {
    Item& item = items[code];
    item.name = name;
    item.price = totalPrice;
    item.cost = rowPrice;
    const double total = Amount(totalPrice, quantity);
    const double count = Decimal(quantity, 3);
    Add(item.in, count);
    Add(item.inTotal, total);
    (item.out > item.in ? item.over : item.left) = Rounded(item.out > item.in ? item.out - item.in : item.in - item.out, 6);
    Account& account = accounts.at(supplier);
    Add(account.credit, total);
    account.Balance();
    const std::string id = NextId();
    movements[id] = {count, total, 0, 0};
    ledger[id].push_back({supplier, name + " Alış", 0, total});
    day[id] = {supplier, code, "Alış", Decimal(rowPrice, 2), count, total, 0, 0};
  }

  // Whatever the line was, it is put right as a sale.
  void Correct(const std::string& id, std::int64_t price, std::int64_t quantity) {
    Line& line = day.at(id);
    Movement& movement = movements.at(id);
    Item& item = items.at(line.item);
    const Movement old = movement;
    line.price = Decimal(price, 2);
    line.quantity = movement.quantity = Decimal(quantity, 3);
    line.total = movement.total = Amount(price, quantity);
    const double profit = item.countsProfit ? Profit(old.total, line.quantity, movement.cost) : 0;
    movement.profit = HalfUp(profit);
    Add(item.out, line.quantity - old.quantity);
    Add(item.outTotal, line.total - old.total);
    Add(item.profit, profit - old.profit);
    item.Balance();
    LedgerRow& row = ledger.at(id).front();
    Account& account = accounts.at(row.account);
    Add(account.debit, line.total - row.debit);
    account.Balance();
    row.debit = line.total;
  }

  void Cancel(const std::string& id) {
    const Line line = day.at(id);
    for (const LedgerRow& row : ledger[id]) {
      Account& account = accounts.at(row.account);
      if (row.text.find("Satış") != std::string::npos) {
        Add(account.debit, -row.debit);
        Add(account.credit, -row.credit);
      } else {
        Add(account.debit, row.credit);
        Add(account.credit, row.debit);
      }
      account.Balance();
    }
    ledger.erase(id);
    if (movements.erase(id) == 0) {
      day.erase(id);
    } else {
      Item& item = items.at(line.item);
      Add(line.state == "Satış" ? item.out : item.in, -line.quantity);
      Add(line.state == "Satış" ? item.outTotal : item.inTotal, -line.total);
      item.Balance();
      day.at(id).state = "Iptal";
    }
    auto& rows = due[line.customer];
    if (line.total == 0 || rows.empty()) return;
    Add(rows.begin()->second, -line.total);
    if (rows.begin()->second == 0) rows.erase(rows.begin());
  }

  // A customer's sales of a day that stand on no invoice yet.
  [[nodiscard]] std::vector<std::string> Uninvoiced(const std::string& customer, const std::string& today) const {
    std::vector<std::string> ids;
    for (const auto& [id, line] : day)
      if (line.customer == customer && line.state == "Satış" && line.date == today && line.invoice.empty()) ids.push_back(id);
    return ids;
  }

  // The tax is taken out of the amounts, or comes on top of them; it alone goes on the account of the invoices.
  void PostInvoice(const std::string& number, const std::vector<std::string>& lines, bool included) {
    Invoice& invoice = invoices[number];
    for (const std::string& id : lines) {
      Line& line = day.at(id);
      const Item& item = items.at(line.item);
      const double factor = (item.tax + 100) / 100.0;
      const double tax = HalfUp(Rounded(included ? line.total - line.total / factor : line.total * factor - line.total, 6));
      invoice.customer = line.customer;
      Add(invoice.amount, line.total);
      Add(invoice.tax, tax);
      Add(invoice.total, included ? line.total : line.total + tax);
      Add(invoice.profit, Rounded(line.quantity * (line.price - (item.countsProfit ? 1 : 0)), 6));
      line.invoice = "FatNo " + number;
    }
    invoice.lines = lines.size();
    ledger[NextId()].push_back({"=110", number + " Fatura ile", invoice.tax, 0});
    Add(accounts.at("=110").debit, invoice.tax);
    accounts.at("=110").Balance();
  }

  // A customer's history goes: his ledger, his day book and his sales. What he brought back or delivered, what went over the money accounts
  // and what is due stay as they are.
  void Wipe(const std::string& customer) {
    for (auto row = ledger.begin(); row != ledger.end();) {
      std::erase_if(row->second, [&](const LedgerRow& one) { return one.account == customer; });
      row = row->second.empty() ? ledger.erase(row) : std::next(row);
    }
    for (auto line = day.begin(); line != day.end();) {
      if (line->second.customer != customer) {
        ++line;
        continue;
      }
      if (line->second.state == "Satış") movements.erase(line->first);
      line = day.erase(line);
    }
    accounts.at(customer) = {};
    accounts.at(customer).Balance();
  }

 private:
  static double Profit(double total, double quantity, double cost) {
    return std::max(0.0, Rounded(total - Rounded(quantity * cost, 6), 6));
  }
  static double HalfUp(double value) { return Decimal((static_cast<std::int64_t>(value * 1e6 + 0.5) + 5000) / 10000, 2); }

  // At most two due dates, the earliest first.
  static void Consume(std::map<std::string, double>& rows, double balance, double amount) {
    if (balance == 0) {
      rows.clear();
      return;
    }
    if (!rows.empty() && amount > rows.begin()->second) {
      Add(amount, -rows.begin()->second);
      rows.erase(rows.begin());
    }
    if (rows.empty()) return;
    Add(rows.begin()->second, -amount);
    if (rows.begin()->second == 0) rows.erase(rows.begin());
  }
};

}  // namespace karvel::books
