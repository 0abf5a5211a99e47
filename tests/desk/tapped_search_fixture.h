// A small shop for the search by two taps, and what the on-screen keyboard does between them.
#pragma once

#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"

namespace karvel {

using Names = std::vector<std::string>;

class TappedSearchFixture : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ahmet Işık", "Bakiye=75.5, Borc=75.5, Hesap='Borç', KartNo='9001'");
    AddCustomer("C002", "Çetin Öz", "Gurup='Bayi', Bakiye=30, Alacak=30, Hesap='Alacak', KartNo='9002'");
    AddCustomer("T001", "Toptancı Bey", "Gurup='Toptan', Bakiye=12, Alacak=12, Hesap='Alacak'");
    AddCustomer("T002", "Toptancı Can", "Gurup='Toptan'");
    AddCustomer("P001", "Plasiyer Can", "Gurup='Plasiyer'");
    AddCustomer("C004", "Gizli Kart", "HesKullan=1");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Bayi',1),('Toptan',1)");
    AddStock("1001", "Pirinç Baldo", "Fiyat=50, Fiyat2=540");
    AddStock("1002", "Pirinç Osmancık", "Fiyat=40");
    AddStock("1003", "Şeker", "Fiyat=20");
    ASSERT_TRUE(Start());
    connections += desk->screen.keyboardWanted.Connect([this](KeyboardWish& wish) {
      wanted.push_back(wish.field.Name());
      wish.shown = hasKeyboard;
    });
    connections += desk->screen.keyboardDone.Connect([this] { ++done; });
  }
  Names Customers() { return FirstOf(desk->cursors.CariData, 1); }
  Names Items() { return FirstOf(desk->cursors.StokData, 1); }
  // A name that no card has: the panel of a new card opens, with the keyboard over its code.
  void OpenNewCard() {
    EnterSale("Ahmet Işık");
    Tap("Text1(1)");
    Write("Text1(1)", "Zeytin");
    Tap("Text1(1)");
    ASSERT_TRUE(At("StokGiris").Visible());
    ASSERT_TRUE(desk->form.KeyboardOpen);
  }
  static Names FirstOf(const Cursor& list, std::size_t column) {
    Names names;
    for (const GridRow& row : list.RowsFromStart(100)) names.push_back(AsText(row.values[column]));
    return names;
  }
  // What the on-screen keyboard writes between the two taps.
  void Write(const std::string& field, const std::string& text) { At(field).SetText(text); }
  void Search(const std::string& field, const std::string& text) {
    Tap(field);
    ASSERT_TRUE(desk->form.KeyboardOpen);
    Write(field, text);
    Tap(field);
    EXPECT_FALSE(desk->form.KeyboardOpen);
    EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  }
  void Special(const std::string& item, const std::string& price) {
    Sql("Cari.mdb", "INSERT INTO Cari(StokKod, CariKod, \"0Fiyat\") VALUES('" + item + "','C001'," + price + ")");
  }
  std::string Customer() { return desk->cursors.CariData.Text("CariKod"); }
  std::string Item() { return desk->cursors.StokData.Text("StokKod"); }

  bool hasKeyboard = true;  // an on-screen keyboard comes when it is wanted
  Names wanted;
  int done = 0;
};

}  // namespace karvel
