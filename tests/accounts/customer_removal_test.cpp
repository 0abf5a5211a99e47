#include <string>
#include <vector>

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

class CustomerRemovalTest : public AccountsFixture {
 protected:
  void Remove(const std::string& customer) {
    LeaveSale();
    Set("Text1(0)", customer);
    Click("CarSil");
  }
  std::string Count(const std::string& file, const std::string& from) { return One(file, "SELECT count(*) FROM " + from); }
};

TEST_F(CustomerRemovalTest, a_clean_card_is_asked_for_and_deleted) {
  messages.answers.push_back("Yes");
  Remove("Ayşe Yılmaz");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Cari Kart Silinecek Emimisiniz..?");
  EXPECT_EQ(messages.shown[0].icon, MessageIcon::Stop);
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='C001'"), "0");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "C002");
}

TEST_F(CustomerRemovalTest, no_keeps_the_card) {
  messages.answers.push_back("No");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='C001'"), "1");
}

TEST_F(CustomerRemovalTest, after_the_last_card_the_one_before_it_is_in_front) {
  AddCustomer("Z001", "Zeki Son");
  LeaveSale();
  ASSERT_TRUE(Start());
  messages.answers.push_back("Yes");
  Remove("Zeki Son");
  EXPECT_EQ(desk->cursors.CariData.Text("Unvan"), "Muhtelif Müşteri");
}

TEST_F(CustomerRemovalTest, a_history_goes_without_a_question_and_the_card_stays_at_zero) {
  Sell("Ayşe Yılmaz", "1001", "3");
  Pay("Ayşe Yılmaz", "60");
  Sell("Burak Demir", "1001", "1");
  Sql("Cari.mdb", "UPDATE CariKartlar SET dBorc=1, eBorc=2, dBakiye=3, eBakiye=4 WHERE CariKod='C001'");
  Remove("Ayşe Yılmaz");
  EXPECT_TRUE(messages.shown.empty());
  Fields card = Customer("C001");
  for (const char* const field : {"Borc", "Alacak", "dBorc", "eBorc", "Bakiye", "dBakiye", "eBakiye"})
    EXPECT_EQ(card[field], "0.0") << field;
  EXPECT_EQ(card["Hesap"], "Borç");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket WHERE cariharkod='C001'"), "0");
  EXPECT_EQ(Count("Karvel.mdb", "Datam WHERE CariKod='C001'"), "0");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket WHERE Carisi='C001'"), "0");
  // The others keep theirs.
  EXPECT_EQ(Count("Cari.mdb", "CariHareket WHERE cariharkod='C002'"), "1");
  EXPECT_EQ(Count("Karvel.mdb", "Datam WHERE CariKod='C002'"), "1");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket WHERE Carisi='C002'"), "1");
  EXPECT_EQ(desk->cursors.StokHarData.RecordSource(), "StokHareket");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_TRUE(desk->screen.CariGrid.Marker());
}

TEST_F(CustomerRemovalTest, due_dates_and_the_money_accounts_stay_as_they_were) {
  Sell("Ayşe Yılmaz", "1001", "3");
  Pay("Ayşe Yılmaz", "60");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Due("C001"), std::vector<std::string>{"90.0"});
  EXPECT_EQ(Balance("=100"), "60.0|0.0|60.0|Borç");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket WHERE cariharkod='=100'"), "1");
}

TEST_F(CustomerRemovalTest, a_second_use_asks_and_deletes_the_card) {
  Sell("Ayşe Yılmaz", "1001", "3");
  Remove("Ayşe Yılmaz");
  messages.answers.push_back("Yes");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='C001'"), "0");
}

TEST_F(CustomerRemovalTest, the_stock_is_not_taken_back_for_the_customers_code_is_no_items_code) {
  Sell("Ayşe Yılmaz", "1001", "3");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Card("1001")["CikanMik"], "3.0");
  EXPECT_EQ(Card("1002")["CikanMik"], "0.0");
}

TEST_F(CustomerRemovalTest, an_item_with_the_customers_code_is_taken_back_unrounded) {
  AddStock("C001", "Aynı Kod", "CikanMik=10.0625, CikanTutar=900, GirenMik=9, KalanA=1.063");
  Sell("Ayşe Yılmaz", "1001", "3");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Card("C001")["CikanMik"], "7.0625");
  EXPECT_EQ(Card("C001")["CikanTutar"], "750.0");
  EXPECT_EQ(Card("C001")["KalanB"], "1.9375");
  EXPECT_EQ(Card("C001")["KalanA"], "0.0");
}

TEST_F(CustomerRemovalTest, rows_that_were_no_sale_are_skipped_and_the_rest_goes_on) {
  Sell("Ayşe Yılmaz", "1001", "3");
  PickItem("1001");
  DoubleTap("Label4");
  Post("1");
  PickItem("1001");
  Post("1");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT GirisCikis FROM StokHareket"), std::vector<std::string>{"İade"});
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
}

TEST_F(CustomerRemovalTest, cancelled_lines_go_with_the_others) {
  Sell("Ayşe Yılmaz", "1001", "3");
  const std::string id = LastId();
  PickItem("1001");
  Post("1");
  Cancel(id);
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
}

TEST_F(CustomerRemovalTest, it_is_this_customers_history_also_when_the_last_sale_was_left_in_purchase_mode) {
  Sell("Ayşe Yılmaz", "1001", "3");
  DoubleTap("Label4");
  DoubleTap("Label4");
  messages.answers.push_back("No");
  Remove("Burak Demir");
  EXPECT_EQ(Count("Karvel.mdb", "Datam WHERE CariKod='C001'"), "1");
  EXPECT_EQ(Balance("C001"), "150.0|0.0|150.0|Borç");
}

TEST_F(CustomerRemovalTest, a_store_that_refuses_wipes_nothing) {
  Sell("Ayşe Yılmaz", "1001", "3");
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Remove("Ayşe Yılmaz");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_TRUE(ContainsText(messages.shown[0].text, "Yer: ")) << "the clerk must know where there is no room";
  EXPECT_EQ(Balance("C001"), "150.0|0.0|150.0|Borç");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "1");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "1");
  EXPECT_EQ(desk->cursors.StokHarData.RecordSource(), "StokHareket");
}

TEST_F(CustomerRemovalTest, a_customer_with_a_quote_in_his_code_is_wiped_and_then_deleted) {
  AddQuotedCards();
  Front("O'1");
  SellInFront("S'1", "2");
  LeaveSale();
  Click("CarSil");
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(Balance("O''1"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(Count("Cari.mdb", "CariHareket"), "0");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Count("Stok.mdb", "StokHareket"), "0");
  messages.answers.push_back("Yes");
  Click("CarSil");
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='O''1'"), "0");
}

TEST_F(CustomerRemovalTest, an_item_with_the_customers_code_that_stays_oversold_counts_so_unrounded) {
  AddStock("C001", "Aynı Kod", "CikanMik=10.0625, GirenMik=2, KalanA=8.063, KalanB=4");
  Sell("Ayşe Yılmaz", "1001", "3");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Card("C001")["CikanMik"], "7.0625");
  EXPECT_EQ(Card("C001")["KalanA"], "5.0625");
  EXPECT_EQ(Card("C001")["KalanB"], "0.0");
}

TEST_F(CustomerRemovalTest, as_much_in_as_out_leaves_both_sides_at_zero) {
  AddStock("C001", "Aynı Kod", "CikanMik=10, GirenMik=7, KalanA=3, KalanB=4");
  Sell("Ayşe Yılmaz", "1001", "3");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Card("C001")["KalanA"], "0.0");
  EXPECT_EQ(Card("C001")["KalanB"], "0.0");
}

TEST_F(CustomerRemovalTest, purchases_stay_in_the_stock_with_what_they_brought) {
  EnterSale("Ayşe Yılmaz");
  PickItem("1001");
  DoubleTap("Label4");
  DoubleTap("Label4");
  Post("4");
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(Rows("Stok.mdb", "SELECT GirisCikis, Miktar FROM StokHareket"), std::vector<std::string>{"Alış|4.0"});
  EXPECT_EQ(Card("1001")["GirenMik"], "4.0");
  EXPECT_EQ(Count("Karvel.mdb", "Datam"), "0");
  EXPECT_EQ(Balance("C001"), "0.0|0.0|0.0|Borç");
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(CustomerRemovalTest, afterwards_the_screen_shows_nothing_owed_and_no_notice) {
  Sell("Ayşe Yılmaz", "1001", "3");
  clock.now = clock.now.PlusDays(5);
  LeaveSale();
  Front("C001");
  ASSERT_EQ(At("Label5").Caption(), "150,00");
  ASSERT_TRUE(At("Vadefrm").Visible());
  Click("CarSil");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
  EXPECT_FALSE(At("Vadefrm").Visible());
  EXPECT_FALSE(desk->cursors.HareketData.HasRows());
  EXPECT_EQ(At("Text1(0)").Text(), "Ayşe Yılmaz");
}

TEST_F(CustomerRemovalTest, after_a_store_that_refuses_the_screen_shows_what_is_owed) {
  Sell("Ayşe Yılmaz", "1001", "3");
  clock.now = clock.now.PlusDays(5);
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Remove("Ayşe Yılmaz");
  EXPECT_EQ(At("Label5").Caption(), "150,00");
  EXPECT_TRUE(At("Vadefrm").Visible());
  EXPECT_EQ(desk->cursors.HareketData.RecordCount(), 1);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
  EXPECT_FALSE(desk->screen.Busy());
}

TEST_F(CustomerRemovalTest, after_a_wipe_the_row_in_front_is_marked_again) {
  Sell("Ayşe Yılmaz", "1001", "3");
  desk->screen.CariGrid.SetMarker(false);
  Remove("Ayşe Yılmaz");
  EXPECT_TRUE(desk->screen.CariGrid.Marker());
}

TEST_F(CustomerRemovalTest, after_the_only_card_of_a_list_nobody_is_in_front) {
  Sql("Cari.mdb", "INSERT INTO Gurup(Gurup, Grp) VALUES('Tek',1)");
  AddCustomer("B001", "Tek Kişi", "Gurup='Tek'");
  ASSERT_TRUE(Start());
  At("GurupCombo").ChooseText("Tek");
  messages.answers.push_back("Yes");
  Click("CarSil");
  EXPECT_FALSE(desk->cursors.CariData.HasRows());
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='B001'"), "0");
  EXPECT_EQ(At("Text1(0)").Text(), "");
  EXPECT_EQ(At("Label5").Caption(), "0,00");
  Click("CarSil");  // asks in vain
  EXPECT_EQ(Count("Cari.mdb", "CariKartlar WHERE CariKod='C001'"), "1");
}

}  // namespace
}  // namespace karvel
