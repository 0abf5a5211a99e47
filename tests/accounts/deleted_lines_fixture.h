// A desk whose day book holds a line and two cancelled ones, and the passwords that are kept in its settings.
#pragma once

#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"

namespace karvel {

class DeletedLinesFixture : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz", "Bakiye=30, Borc=30, Hesap='Borç'");
    AddCustomer("C002", "Bora Çetin");
    AddStock("1001", "Pirinç");
    Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod, Borc) VALUES('C001', 30)");
    Sql("Karvel.mdb",
        "INSERT INTO Datam(CariKod, CariAd, StokAd, Tarih, Durum) VALUES"
        "('C001','Ayşe Yılmaz','Pirinç','2026-02-01 10:00:00','Satış'),"
        "('C001','Ayşe Yılmaz','Eski','2026-02-01 11:00:00','Iptal'),"
        "('C002','Bora Çetin','Yeni','2026-02-02 11:00:00','Iptal')");
    ASSERT_TRUE(Start());
    connections += desk->screen.popUp.Connect([this](Element& menu) { popUps.push_back(menu.Name()); });
    ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());
  }
  void Keep(const std::string& key, const std::string& password) { settings.Save("Velmora Karvel1", "Size", key, password).Ignore(); }
  std::string Kept(const std::string& key) { return settings.Get("Velmora Karvel1", "Size", key, ""); }
  void RightPress() { desk->screen.CariGrid.mouseDown(MouseEvent{.button = 2}); }
  void Tick(bool on = true) { At("SilinenChk").SetChecked(on); }
  std::vector<std::string> Lines() {
    std::vector<std::string> names;
    for (const GridRow& row : desk->cursors.HareketData.RowsFromStart(100)) names.push_back(AsText(row.values[3]));
    return names;
  }
  std::vector<std::string> popUps;
};

}  // namespace karvel
