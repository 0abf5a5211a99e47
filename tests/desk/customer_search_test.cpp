#include "desk/customer_search.h"

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class CustomerSearchTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    AddCustomer("C001", "İbrahim Usta", "KartNo='9001'");
    AddCustomer("C002", "Işık Ticaret", "KartNo='9002'");
    AddCustomer("C003", "9001 Numara", "KartNo='9003'");
    ASSERT_TRUE(Start());
  }
  // The code of whom the text finds, "" for nobody.
  std::string Found(const std::string& text) {
    Cursor& list = desk->cursors.CariData;
    EXPECT_TRUE(list.FindFirst("CariKod='Muhtelif Müşteri'").Ok());
    const bool found = FindCustomerByText(list, text).Ok();
    EXPECT_EQ(found, !list.NoMatch());
    return found ? list.Text("CariKod") : "";
  }
};

TEST_F(CustomerSearchTest, any_kind_of_an_i_finds_the_name) {
  for (const char* const typed : {"ibrahim", "İBRAHİM", "IBRAHIM", "ıbrahım", "İbrahim U"}) EXPECT_EQ(Found(typed), "C001") << typed;
  for (const char* const typed : {"IŞIK", "işik", "İşİk t", "Işık"}) EXPECT_EQ(Found(typed), "C002") << typed;
}

TEST_F(CustomerSearchTest, a_name_comes_before_a_card_number) {
  EXPECT_EQ(Found("9001"), "C003");
  EXPECT_EQ(Found("9002"), "C002");
}

TEST_F(CustomerSearchTest, a_name_with_a_quote_is_found) {
  AddCustomer("C004", "O''Hara Market");
  EXPECT_EQ(Found("o'h"), "C004");
  EXPECT_EQ(Found("'"), "");
}

TEST_F(CustomerSearchTest, nobody_leaves_the_list_where_it_stood) {
  EXPECT_EQ(Found("Zeki"), "");
  EXPECT_EQ(desk->cursors.CariData.Text("CariKod"), "Muhtelif Müşteri");
  EXPECT_EQ(Found("b?rahim"), "");
}

}  // namespace
}  // namespace karvel
