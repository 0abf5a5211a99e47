// A desk whose customer bought some things today, with a printer and paper for invoices.
#pragma once

#include <fmt/format.h>

#include <fstream>
#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"
#include "tests/support/invoice_paper.h"

namespace karvel {

class InvoiceDesk : public AccountsFixture {
 protected:
  using Texts = std::vector<std::string>;

  void SetUp() override {
    AccountsFixture::SetUp();
    Sql("Stok.mdb", "UPDATE StokKartlar SET Kdv=18 WHERE StokKod='1001'");
    Sql("Stok.mdb", "UPDATE StokKartlar SET Kdv=8 WHERE StokKod='1002'");
    Sql("Cari.mdb",
        "UPDATE CariKartlar SET Adres1='Çınar Sokak 5', Adres2='Eskişehir', VergiDa='Tepebaşı', VergiNo='1234567890', "
        "Email='ayse@ornek.tr' WHERE CariKod='C001'");
    printer.devices.push_back({"Fatura Yazıcısı", "", ""});
    Save(Setting::InvoicePrinter, "Fatura Yazıcısı");
    WriteLayout(TestLayout().Bytes());
    ASSERT_TRUE(Start());
  }
  void Save(Setting setting, const std::string& value) { desk->Parts().settings.Save(setting, value); }
  std::string Saved(Setting setting) { return desk->Parts().settings.Get(setting); }
  [[nodiscard]] std::string LayoutPath() const { return DataFolder() + "/FatSatir.Dat"; }
  void WriteLayout(const std::string& bytes) const { std::ofstream(LayoutPath(), std::ios::binary) << bytes; }

  void Put(const std::string& id, const std::string& item = "1001", const std::string& time = "2026-03-01 09:00:00",
           const std::string& more = "C001|") {
    const std::string customer = more.substr(0, more.find('|')), tick = more.substr(more.find('|') + 1);
    Sql("Karvel.mdb", fmt::format("INSERT INTO Datam(CariKod, StokKod, StokAd, Fiyat, Miktar, Tutar, Tarih, DigerId, Durum, Sec) "
                                  "VALUES('{}','{}','Ürün {}',50,2,100,'{}','{}','Satış','{}')",
                                  customer, item, id, time, id, tick));
  }
  void PutMany(int count) {
    for (int i = 1; i <= count; ++i) Put(fmt::format("L{:02}", i), i % 2 == 0 ? "1002" : "1001", fmt::format("2026-03-01 09:{:02}:00", i));
  }
  void Open(const std::string& customer = "C001") {
    Front(customer);
    Click("Command4");
  }
  Cursor& Lines() { return desk->cursors.HareketData; }
  Texts Listed() {
    Texts ids;
    for (const GridRow& row : Lines().RowsFromStart(100))
      ids.push_back(AsText(row.values[static_cast<std::size_t>(Lines().SourceTable()->Position("DigerId"))]));
    return ids;
  }
  void TapRow(const std::string& id) {
    ASSERT_TRUE(Lines().FindFirst("DigerId='" + id + "'").Ok());
    desk->screen.FatGrid.TapCell(0);
  }
  Texts Ticked() { return Rows("Karvel.mdb", "SELECT DigerId FROM Datam WHERE Sec='X' ORDER BY DigerId"); }
  std::string Count(const std::string& file, const std::string& table) { return One(file, "SELECT count(*) FROM " + table); }
  Texts Printed() {
    Texts lines;
    if (printer.jobs.empty()) return lines;
    for (const std::string& line : printer.jobs.back().Lines())
      if (line != " ") lines.push_back(line);
    return lines;
  }
  std::string Told() { return At("Durum").Caption(); }
};

}  // namespace karvel
