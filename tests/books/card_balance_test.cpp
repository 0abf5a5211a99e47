#include "books/card_balance.h"

#include <string>

#include "books/book_cursor.h"
#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

TEST(CardBalance, the_greater_side_names_the_balance_which_is_never_negative) {
  EXPECT_EQ(BalanceOf(100, 60).amount, 40);
  EXPECT_EQ(BalanceOf(100, 60).side, "Borç");
  EXPECT_EQ(BalanceOf(60, 100).amount, 40);
  EXPECT_EQ(BalanceOf(60, 100).side, "Alacak");
  EXPECT_EQ(BalanceOf(-50, 0).amount, 50);
  EXPECT_EQ(BalanceOf(-50, 0).side, "Alacak");
}

TEST(CardBalance, as_much_on_both_sides_reads_debit) {
  EXPECT_EQ(BalanceOf(0, 0).amount, 0);
  EXPECT_EQ(BalanceOf(0, 0).side, "Borç");
  EXPECT_EQ(BalanceOf(75.5, 75.5).side, "Borç");
}

TEST(CardBalance, it_is_in_kurus_halves_to_even) {
  EXPECT_EQ(BalanceOf(2.675, 0).amount, 2.68);
  EXPECT_EQ(BalanceOf(2.665, 0).amount, 2.66);
  EXPECT_EQ(BalanceOf(0, 2.665).amount, 2.66);
}

TEST(CardBalance, a_hair_by_which_sums_differ_is_nobodys_credit) {
  EXPECT_EQ(BalanceOf(0.3, 0.1 + 0.2).amount, 0);
  EXPECT_EQ(BalanceOf(0.3, 0.1 + 0.2).side, "Borç");
}

TEST(CardBalance, a_sum_is_its_nearest_decimal) {
  double sum = 0;
  for (int i = 0; i < 12; ++i) sum = WithoutDust(sum + 0.07);
  EXPECT_EQ(sum, 0.84);
  EXPECT_EQ(WithoutDust(0.1 + 0.2 - 0.3), 0);
  EXPECT_EQ(WithoutDust(-9e-8), 0);
  EXPECT_EQ(WithoutDust(1.234567), 1.234567);
  EXPECT_EQ(WithoutDust(-0.01), -0.01);
  EXPECT_EQ(WithoutDust(999'999'999.99 + 0.01), 1e9);
}

class CardBalanceBook : public BooksFixture {
 protected:
  const Steps step{"test"};
  BookCursor customers{stores, "customers", "Cari.Mdb", "CariKartlar"};
  BookCursor items{stores, "items", "Stok.Mdb", "StokKartlar"};
  std::string Stock() {
    return One("Stok.mdb", "SELECT CikanMik, CikanTutar, GirenMik, GirenTutar, KalanA, KalanB FROM StokKartlar WHERE StokKod='1001'");
  }
};

TEST_F(CardBalanceBook, adding_to_a_card_writes_its_totals_and_what_they_leave) {
  ASSERT_TRUE(customers.FindFirst("CariKod='C001'").Ok());
  const CardBalance balance = AddToBalance(customers, step, 100, 30.5);
  EXPECT_EQ(balance.amount, 69.5);
  EXPECT_EQ(balance.side, "Borç");
  EXPECT_EQ(Balance("C001"), "100.0|30.5|69.5|Borç");
}

TEST_F(CardBalanceBook, totals_are_kept_without_binary_dust) {
  ASSERT_TRUE(customers.FindFirst("CariKod='C001'").Ok());
  ASSERT_TRUE(items.FindFirst("StokKod='1001'").Ok());
  for (int i = 0; i < 12; ++i) {
    AddToBalance(customers, step, 0.07, 0.7);
    ASSERT_TRUE(items.Edit().Ok());
    AddGoods(items, GoodsSide::In, 0.1, 0.07);
    ApplyStockBalance(items);
    ASSERT_TRUE(items.Update().Ok());
  }
  EXPECT_EQ(Balance("C001"), "0.84|8.4|7.56|Alacak");
  EXPECT_EQ(Stock(), "0.0|0.0|1.2|0.84|0.0|1.2");
}

TEST_F(CardBalanceBook, what_is_taken_back_goes_off_the_totals) {
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=100, Alacak=30, Bakiye=70, Hesap='Borç' WHERE CariKod='C001'");
  ASSERT_TRUE(customers.FindFirst("CariKod='C001'").Ok());
  AddToBalance(customers, step, -100, -20);
  EXPECT_EQ(Balance("C001"), "0.0|10.0|10.0|Alacak");
}

TEST_F(CardBalanceBook, another_terminals_posting_is_added_to) {
  ASSERT_TRUE(customers.FindFirst("CariKod='C001'").Ok());
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=40 WHERE CariKod='C001'");
  AddToBalance(customers, step, 5, 0);
  EXPECT_EQ(Balance("C001"), "45.0|0.0|45.0|Borç");
}

TEST_F(CardBalanceBook, goods_move_one_side_of_the_card) {
  ASSERT_TRUE(items.FindFirst("StokKod='1001'").Ok());
  for (const GoodsSide side : {GoodsSide::Out, GoodsSide::In}) {
    ASSERT_TRUE(items.Edit().Ok());
    AddGoods(items, side, side == GoodsSide::Out ? 5 : 2, 30);
    ApplyStockBalance(items);
    ASSERT_TRUE(items.Update().Ok());
  }
  EXPECT_EQ(Stock(), "5.0|30.0|2.0|30.0|3.0|0.0");
  ASSERT_TRUE(items.Edit().Ok());
  AddGoods(items, GoodsSide::Out, -4, -24);
  ApplyStockBalance(items);
  ASSERT_TRUE(items.Update().Ok());
  EXPECT_EQ(Stock(), "1.0|6.0|2.0|30.0|0.0|1.0");
}

TEST_F(CardBalanceBook, stock_is_oversold_or_on_hand_to_three_places) {
  const auto left = [this](const std::string& out, const std::string& in) {
    Sql("Stok.mdb", "UPDATE StokKartlar SET KalanA=7, KalanB=7, CikanMik=" + out + ", GirenMik=" + in + " WHERE StokKod='1001'");
    EXPECT_TRUE(items.FindFirst("StokKod='1001'").Ok());
    EXPECT_TRUE(items.Edit().Ok());
    ApplyStockBalance(items);
    EXPECT_TRUE(items.Update().Ok());
    return One("Stok.mdb", "SELECT KalanA, KalanB FROM StokKartlar WHERE StokKod='1001'");
  };
  EXPECT_EQ(left("10.0006", "8"), "2.001|0.0");
  EXPECT_EQ(left("8", "10.0006"), "0.0|2.001");
  EXPECT_EQ(left("10", "10"), "0.0|0.0");
}

}  // namespace
}  // namespace karvel
