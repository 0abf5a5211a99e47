#include "bench/documents.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bare_engine.h"
#include "bench/till.h"

namespace karvel::bench {
namespace {

constexpr int kRuns = 5;
constexpr const char* kLongCustomer = "M00003";
// Lines of the customer, one each minute of the last days.
constexpr const char* kLongDayBook =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<10000) "
    "INSERT INTO Datam(CariKod,StokKod,CariAd,StokAd,Fiyat,Miktar,Tutar,Tarih,Birim,Durum,Plasiyer,SeriNo,Tahsilat) "
    "SELECT 'M00003','1001','x','Pirinç Baldo 1 kg',12.5,2,25,datetime('2026-03-01 00:00:00', '-'||i||' "
    "minutes'),'Adet','Satış','WinKarvel1',"
    "'000001',0 FROM n";

double Seconds(const std::function<void()>& work) {
  std::vector<double> seconds;
  for (int i = 0; i < kRuns; ++i) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count());
  }
  std::ranges::sort(seconds);
  return seconds[kRuns / 2];
}

// All rows of a query, read as the desk does: every column.
void ReadAll(BareShop& shop, const std::string& sql, int columns) {
  BareStatement statement(shop.Connection(), sql);
  while (statement.Step())
    for (int i = 0; i < columns; ++i) benchmark::DoNotOptimize(statement.Text(i));
}

void Pressed(Till& till, Element& button) {
  const std::size_t before = till.Jobs().size();
  button.Press();
  if (till.Jobs().size() == before || till.Jobs().back().end != "EndDoc") throw std::runtime_error("nothing was printed");
}

void AddPair(RatioTable& table, const std::string& name, double desk, double most, double bare) {
  table.Add(Figure{name, desk, most, "s"});
  table.Add(Figure{name + ", bare queries", bare, most, "s"});
}

void AddStatement(Till& till, BareShop& bare, RatioTable& table) {
  bare.Execute(kLongDayBook);
  till.StandOn(kLongCustomer);
  Screen& screen = till.TheScreen();
  const double desk = Seconds([&] {
    screen.Command5(2).Press();
    screen.DTPicker1.SetDate({2020, 1, 1});
    Pressed(till, screen.Command5(2));
  });
  const double rival = Seconds([&] { ReadAll(bare, "SELECT * FROM Datam WHERE CariKod='M00003' ORDER BY Tarih", 23); });
  AddPair(table, "statement of 10,000 lines", desk, 2, rival);
}

void AddTurnover(Till& till, BareShop& bare, RatioTable& table) {
  Screen& screen = till.TheScreen();
  screen.CiroChk.SetChecked(true);
  screen.DTPicker2(0).SetDate({2000, 1, 1});
  const double desk = Seconds([&] { Pressed(till, screen.Command1); });
  const double rival = Seconds([&] {
    ReadAll(bare, "SELECT StokKod, sum(Miktar) FROM Datam WHERE Durum='Satış' GROUP BY StokKod", 2);
    ReadAll(bare, "SELECT * FROM stok.StokKartlar WHERE StokGizle=0 ORDER BY StokAdi", 26);
  });
  AddPair(table, "turnover over 100,000 cards and 1,000,000 lines", desk, 3, rival);
}

}  // namespace

void AddDocuments(Shops& shops, RatioTable& table) {
  const std::string home = shops.Copy(Size::Busy);
  BareShop bare(home);
  Till till(home);
  AddStatement(till, bare, table);
  AddTurnover(till, bare, table);
}

}  // namespace karvel::bench
