#include <string>
#include <vector>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class SerialCaptureTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz");
    AddStock("1001", "Telefon");
    AddStock("1002", "Tablet");
    Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode, BarCode1) VALUES('S-OLD','S-OLD-B')");
    ASSERT_TRUE(Start());
    desk->form.SerialEntryOn = true;
    EnterSale("Ayşe Yılmaz");
    PickItem("1001");
    DoubleTap("Label4");
    DoubleTap("Label4");
    ASSERT_EQ(At("Label4").Caption(), "Alış");
    Set("Text2(1)", "2");
    At("StokGrid").SetFocus();  // leaving the quantity opens the panel
    ASSERT_TRUE(At("Frame4").Visible());
  }
  void Scan(const std::string& serial) {
    Type("Text4", serial);
    Key("Text4", key::kEnter);
  }
  Texts Taken() { return At("List1").Items(); }
};

TEST_F(SerialCaptureTest, one_scan_a_piece_and_the_entry_is_complete) {
  EXPECT_TRUE(At("Text4").HasFocus());
  Scan("S1");
  EXPECT_EQ(Taken(), Texts{"S1"});
  EXPECT_EQ(At("Text4").Text(), "");
  EXPECT_TRUE(At("Text4").HasFocus());
  EXPECT_TRUE(messages.shown.empty());
  Scan("S2");
  EXPECT_EQ(Taken(), (Texts{"S1", "S2"}));
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Seri Numarası Girişi Tamamlandı.");
  EXPECT_EQ(messages.shown[0].title, "Giriş Tamam");
  EXPECT_FALSE(At("Frame4").Visible());
  EXPECT_TRUE(At("Command2").HasFocus());
}

TEST_F(SerialCaptureTest, the_line_takes_its_serials_along) {
  Scan("S1");
  Scan("S2");
  Click("Command2");
  EXPECT_EQ(Rows("SeriNo.mdb", "SELECT StokKod, barcode, alsat, DigerId FROM SeriNo WHERE yeni=1"),
            (Texts{"1001|S1|Alış|10000000261", "1001|S2|Alış|10000000261"}));
  EXPECT_EQ(Taken(), Texts{});
}

TEST_F(SerialCaptureTest, a_serial_scanned_twice_is_dropped_without_a_word) {
  Scan("S1");
  Scan("S1");
  EXPECT_EQ(Taken(), Texts{"S1"});
  EXPECT_EQ(At("Text4").Text(), "");
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(SerialCaptureTest, a_serial_of_the_stores_is_refused_by_either_column) {
  for (const char* const serial : {"S-OLD", "S-OLD-B"}) {
    messages.shown.clear();
    Scan(serial);
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_EQ(messages.shown[0].text, "Bu Seri Numarası\n\nDaha önce okutulmuş");
    EXPECT_EQ(messages.shown[0].title, "Dikkat");
    EXPECT_EQ(messages.shown[0].icon, MessageIcon::Stop);
    EXPECT_EQ(At("Text4").Text(), "");
    EXPECT_EQ(Taken(), Texts{});
  }
}

TEST_F(SerialCaptureTest, an_items_barcode_is_no_serial) {
  Scan("8691002");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Bu Seri Numarası Değil\n\nStok Barkodu");
  EXPECT_EQ(messages.shown[0].title, "Dikkat");
  EXPECT_EQ(messages.shown[0].icon, MessageIcon::Stop);
  EXPECT_EQ(Taken(), Texts{});
  EXPECT_EQ(At("Text4").Text(), "");
}

TEST_F(SerialCaptureTest, the_look_leaves_the_item_of_the_line_in_front) {
  Scan("S1");
  Scan("8691002");
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1001");
  EXPECT_EQ(At("Text1(1)").Text(), "Telefon");
  EXPECT_EQ(At("Text2(1)").Text(), "2");
  EXPECT_EQ(Taken(), Texts{"S1"}) << "the list is dropped with the item, and the item stays";
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(SerialCaptureTest, the_name_in_the_field_decides_which_item_the_line_has) {
  desk->form.RepositionGuard.Keep(Mute::Items);
  ASSERT_TRUE(desk->cursors.StokData.FindFirst("StokKod='1002'").Ok());
  desk->form.RepositionGuard.Keep(Mute::Nothing);
  Scan("S1");
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1001");
}

TEST_F(SerialCaptureTest, a_quote_is_a_letter_like_others) {
  Sql("SeriNo.mdb", "INSERT INTO SeriNo(barcode) VALUES('A''1')");
  Scan("A'1");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Bu Seri Numarası\n\nDaha önce okutulmuş");
  Scan("A'2");
  EXPECT_EQ(Taken(), Texts{"A'2"});
}

TEST_F(SerialCaptureTest, a_quantity_of_zero_finishes_at_once) {
  desk->form.RepositionGuard.Keep(Mute::Items);
  At("Text2(1)").SetText("0");
  desk->form.RepositionGuard.Keep(Mute::Nothing);
  Key("Text4", key::kEnter);
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Giriş Tamam");
  EXPECT_FALSE(At("Frame4").Visible());
}

TEST_F(SerialCaptureTest, a_refused_serial_still_completes_a_full_list) {
  Scan("S1");
  Scan("S2");
  messages.shown.clear();
  At("Frame4").SetVisible(true);
  Scan("S-OLD");
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[1].title, "Giriş Tamam");
}

TEST_F(SerialCaptureTest, an_empty_entry_with_pieces_still_missing_does_nothing) {
  Scan("S1");
  Key("Text4", key::kEnter);
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_TRUE(At("Frame4").Visible());
  EXPECT_EQ(Taken(), Texts{"S1"});
}

TEST_F(SerialCaptureTest, a_serial_that_differs_by_case_is_the_same) {
  Scan("s-old");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Bu Seri Numarası\n\nDaha önce okutulmuş");
  Scan("ab1");
  Scan("AB1");
  EXPECT_EQ(Taken(), Texts{"ab1"});
}

TEST_F(SerialCaptureTest, the_items_own_barcode_is_refused_as_well) {
  Scan("8691001");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Bu Seri Numarası Değil\n\nStok Barkodu");
  EXPECT_EQ(Taken(), Texts{});
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1001");
}

TEST_F(SerialCaptureTest, the_item_is_found_again_also_with_a_quote_in_its_name) {
  AddStock("1003", "Ali''nin Saati");
  desk->form.RepositionGuard.Keep(Mute::Items);
  ASSERT_TRUE(desk->cursors.StokData.FindFirst("StokKod='1002'").Ok());
  desk->form.RepositionGuard.Keep(Mute::Nothing);
  At("Text1(1)").SetText("Ali'nin Saati");
  Type("Text4", "S1");
  Key("Text4", key::kEnter);
  EXPECT_EQ(desk->cursors.StokData.Text("StokKod"), "1003");
}

TEST_F(SerialCaptureTest, what_was_read_for_a_purchase_goes_with_no_sale) {
  Scan("S1");
  DoubleTap("Label4");
  ASSERT_EQ(At("Label4").Caption(), "Satış");
  EXPECT_FALSE(At("Frame4").Visible());
  EXPECT_EQ(Taken(), Texts{});
  Post("1");
  EXPECT_EQ(One("SeriNo.mdb", "SELECT count(*) FROM SeriNo WHERE yeni=1"), "0");
}

TEST_F(SerialCaptureTest, a_tap_on_another_item_closes_it_with_the_purchase) {
  PickItem("1002");
  ASSERT_EQ(At("Label4").Caption(), "Satış");
  EXPECT_FALSE(At("Frame4").Visible());
}

TEST_F(SerialCaptureTest, it_does_not_stay_over_the_customers_when_the_sale_is_left) {
  Scan("S1");
  DoubleTap("Label1(0)");
  ASSERT_TRUE(At("CariGrid").Visible());
  EXPECT_FALSE(At("Frame4").Visible());
  EnterSale("Ayşe Yılmaz");
  EXPECT_EQ(Taken(), Texts{});
}

TEST_F(SerialCaptureTest, fewer_pieces_than_serials_are_scanned_anew) {
  Scan("S1");
  Scan("S2");
  ASSERT_FALSE(At("Frame4").Visible());
  Set("Text2(1)", "1");
  At("StokGrid").SetFocus();
  EXPECT_TRUE(At("Frame4").Visible());
  EXPECT_EQ(Taken(), Texts{});
  Scan("S2");
  EXPECT_FALSE(At("Frame4").Visible());
  EXPECT_EQ(Taken(), Texts{"S2"});
}

}  // namespace
}  // namespace karvel
