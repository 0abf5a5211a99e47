#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class StockCardPanelTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "Ayşe Yılmaz");
    for (const char* const code : {"1", "2", "3", "4"}) AddStock(code, std::string("Ürün ") + code);
    ASSERT_TRUE(Start());
  }
};

TEST_F(StockCardPanelTest, saving_opens_with_code_and_name_and_does_nothing) {
  At("StokGiris").SetVisible(true);
  EXPECT_FALSE(At("StokNewCmd(1)").Enabled());
  At("StokNew(1)").SetText("Yeni");
  EXPECT_FALSE(At("StokNewCmd(1)").Enabled());
  At("StokNew(0)").SetText("9");
  EXPECT_TRUE(At("StokNewCmd(1)").Enabled());
  Click("StokNewCmd(1)");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM StokKartlar"), "4");
  EXPECT_TRUE(At("StokGiris").Visible());
  At("StokNew(1)").SetText("");
  EXPECT_FALSE(At("StokNewCmd(1)").Enabled());
}

TEST_F(StockCardPanelTest, leaving_hides_it_and_goes_back_to_the_product) {
  EnterSale("Ayşe Yılmaz");
  At("StokGiris").SetVisible(true);
  Click("StokNewCmd(0)");
  EXPECT_FALSE(At("StokGiris").Visible());
  EXPECT_TRUE(At("Text1(1)").HasFocus());
}

TEST_F(StockCardPanelTest, a_field_that_is_entered_selects_its_text_and_is_the_active_one) {
  At("StokGiris").SetVisible(true);
  At("StokNew(5)").SetText("12,50");
  At("StokNew(5)").SetFocus();
  EXPECT_EQ(At("StokNew(5)").SelectionLength(), 5);
  EXPECT_EQ(desk->form.ActiveFieldCode, 5);
}

}  // namespace
}  // namespace karvel
