// A desk with a list of customers of every kind: standard ones, a group, a hidden card, wholesaler, salesman, money account and central
// site.
#pragma once

#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"

namespace karvel {

class CustomerListFixture : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ahmet Işık", "Bakiye=75.5, Borc=75.5, Hesap='Borç', KartNo='9001'");
    AddCustomer("C002", "Çetin Öz", "Gurup='Bayi', Bakiye=30, Alacak=30, Hesap='Alacak'");
    AddCustomer("C003", "İsmail Şahin", "Gurup='Bayi'");
    AddCustomer("C004", "Gizli Kart", "HesKullan=1");
    AddCustomer("T001", "Toptancı Bey", "Gurup='Toptan'");
    AddCustomer("P001", "Plasiyer Can", "Gurup='PLASiYER'");
    AddCustomer("=100", "Nakit Kasa");
    AddCustomer("Merkez", "Merkez Depo");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1),('Müşteri',1),('Toptan',1),('Fatura',1)");
    Sql("Karvel.mdb", "INSERT INTO Datam(CariKod, CariAd, Tutar, Tarih, Durum) VALUES('C002','Çetin Öz',5,'2026-03-01 09:00:00','Satış')");
    ASSERT_TRUE(Start());
  }
  // The names of the list, in its order.
  std::vector<std::string> Shown() {
    std::vector<std::string> names;
    for (const GridRow& row : desk->cursors.CariData.RowsFromStart(100)) names.push_back(AsText(row.values[1]));
    return names;
  }
  // The list stands on the card with this name, as after a tap on its row.
  void Choose(const std::string& name) { ASSERT_TRUE(desk->cursors.CariData.FindFirst("Unvan='" + name + "'").Ok()); }
};

}  // namespace karvel
