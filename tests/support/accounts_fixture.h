// A desk with a small shop: two customers, a wholesaler, two items, and the money accounts; and the readers of the rows that one line
// leaves.
#pragma once

#include <string>

#include "tests/support/desk_fixture.h"

namespace karvel {

class AccountsFixture : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    for (const char* const code : {"=100", "=110", "=150", "=500", "=600"}) AddCustomer(code, std::string("Hesap ") + code, "Gurup='Kasa'");
    AddCustomer("C001", "Ayşe Yılmaz");
    AddCustomer("C002", "Burak Demir");
    AddCustomer("T001", "Toptan Gıda", "Gurup='Toptan'");
    AddStock("1001", "Pirinç", "Fiyat=50, gFiyat=40");
    AddStock("1002", "Şeker", "Maliyet=1, Fiyat=20, gFiyat=12");
    Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Toptan',1)");
    ASSERT_TRUE(Start());  // the lists are read anew
  }

  // Cards with a quote in code, name and group: a customer "O'1", a wholesaler "T'1" and an item "S'1".
  void AddQuotedCards() {
    AddCustomer("O''1", "O''Neil");
    AddCustomer("T''1", "Toptan''cı", "Gurup='Toptan'");
    AddStock("S''1", "Taze ''Kaşar''", "Gurup='Süt''lük', Fiyat=50, gFiyat=40");
    ASSERT_TRUE(Start());
  }
  // The customer list stands on this card.
  void Front(const std::string& code) {
    LeaveSale();
    ASSERT_TRUE(desk->cursors.CariData.FindFirst("CariKod='" + ReplaceAll(code, "'", "''") + "'").Ok()) << code;
  }
  void PayInFront(const std::string& amount) {
    Set("Text2(2)", amount);
    Click("Command2");
  }
  void SellInFront(const std::string& item, const std::string& quantity) {
    DoubleTap("Label1(0)");
    ASSERT_FALSE(desk->screen.CariGrid.Visible());
    PickItem(ReplaceAll(item, "'", "''"));
    Post(quantity);
  }

  Fields Day(const std::string& id) { return RowOf("Karvel.mdb", "Datam", "DigerId='" + id + "'"); }
  Fields Movement(const std::string& id) { return RowOf("Stok.mdb", "StokHareket", "DigerId='" + id + "'"); }
  // The row of the ledger that stands under this card.
  Fields Ledger(const std::string& id, const std::string& card) {
    return RowOf("Cari.mdb", "CariHareket", "DigerId='" + id + "' AND cariharkod='" + card + "'");
  }
  Fields Card(const std::string& code) { return RowOf("Stok.mdb", "StokKartlar", "StokKod='" + code + "'"); }
  Fields Customer(const std::string& code) { return RowOf("Cari.mdb", "CariKartlar", "CariKod='" + code + "'"); }
  // "Borc|Alacak|Bakiye|Hesap".
  std::string Balance(const std::string& code) {
    return One("Cari.mdb", "SELECT Borc, Alacak, Bakiye, Hesap FROM CariKartlar WHERE CariKod='" + code + "'");
  }
  // The amounts due of a customer, the earliest first.
  std::vector<std::string> Due(const std::string& code) {
    return Rows("Cari.mdb", "SELECT Tutar FROM \"VadeGün\" WHERE CariKod='" + code + "' ORDER BY VadeTarih");
  }
  std::string LastId() { return desk->form.CurrentLineId; }

  void LeaveSale() {
    if (!desk->screen.CariGrid.Visible()) DoubleTap("Label1(0)");
  }
  // A payment typed at rest, with the customer list in front.
  void Pay(const std::string& customer, const std::string& amount) {
    LeaveSale();
    Set("Text1(0)", customer);
    Set("Text2(2)", amount);
    Click("Command2");
  }
  // Stands on a line of the day book as a tap on its row does: down, the move, up, click.
  void TapLine(const std::string& id) {
    Cursor& day = desk->cursors.HareketData;
    ASSERT_TRUE(day.FindFirst("DigerId='" + id + "'").Ok()) << id;
    desk->screen.HareketGrid.mouseUp(MouseEvent{});
    desk->screen.HareketGrid.TapCell(2);
  }
  void Cancel(const std::string& id) {
    TapLine(id);
    messages.answers.push_back("Yes");
    Click("Command2");
  }
  // New price and quantity for a line of the open sale.
  void Correct(const std::string& id, const std::string& price, const std::string& quantity) {
    TapLine(id);
    desk->screen.HareketGrid.DoubleTapCell(2);
    ASSERT_EQ(At("Command3").Caption(), "Düzeltme");
    Click("Command3");
    Set("Text2(0)", price);
    Set("Text2(1)", quantity);
    Click("Command2");
  }
};

}  // namespace karvel
