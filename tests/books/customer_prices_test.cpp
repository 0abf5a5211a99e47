#include "books/customer_prices.h"

#include <string>
#include <vector>

#include "tests/support/books_fixture.h"
#include "tests/support/logged_lines.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

TEST(PriceNames, each_name_is_found_and_anything_else_is_special) {
  EXPECT_EQ(PriceNamed("1.Fiyat"), PriceName::First);
  EXPECT_EQ(PriceNamed("2.Fiyat"), PriceName::Second);
  EXPECT_EQ(PriceNamed("3.Fiyat"), PriceName::Third);
  EXPECT_EQ(PriceNamed("Özel"), PriceName::Special);
  EXPECT_EQ(PriceNamed(" 2.Fiyat "), PriceName::Second);
  EXPECT_EQ(PriceNamed(""), PriceName::Special);
  EXPECT_EQ(PriceNamed("4.Fiyat"), PriceName::Special);
  EXPECT_EQ(NameOf(PriceName::Third), "3.Fiyat");
}

class SpecialPricesTest : public BooksFixture {
 protected:
  void SetUp() override { Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat3=1000 WHERE StokKod='1001'"); }
  void Put(const std::string& rows) { Sql("Cari.mdb", "INSERT INTO Cari VALUES" + rows); }
  Lines Kept() { return Rows("Cari.mdb", "SELECT * FROM Cari ORDER BY rowid"); }
  Status Remember(PriceName name, double price, const std::string& customer = "C001", const std::string& item = "1001") {
    Action action(stores, "posting");
    Cursor card(stores, "item");
    card.SetDatabaseName("Stok.Mdb");
    EXPECT_TRUE(card.Open("StokKartlar").Ok());
    EXPECT_TRUE(card.MoveTo(Item(item)).Ok());
    RememberPrice(stores, card, customer, {name, price, "Standard"});
    return action.Finish();
  }
};

TEST_F(SpecialPricesTest, a_price_is_remembered_under_its_name) {
  ASSERT_TRUE(Remember(PriceName::First, 45).Ok());
  EXPECT_EQ(Kept(), Lines{"1001|C001|45.0|0.0|0.0"});
  ASSERT_TRUE(Remember(PriceName::Second, 500).Ok());
  ASSERT_TRUE(Remember(PriceName::Third, 900.5).Ok());
  EXPECT_EQ(Kept(), Lines{"1001|C001|45.0|500.0|900.5"});
}

TEST_F(SpecialPricesTest, the_special_price_is_the_customers_first) {
  Put("('1001','C001',45,500,900)");
  ASSERT_TRUE(Remember(PriceName::Special, 44).Ok());
  EXPECT_EQ(Kept(), Lines{"1001|C001|44.0|500.0|900.0"});
}

TEST_F(SpecialPricesTest, the_cards_price_of_a_name_leaves_the_table_as_it_was) {
  for (const bool kept : {false, true}) {
    if (kept) Put("('1001','C001',45,500,900)");
    const Lines before = Kept();
    ASSERT_TRUE(Remember(PriceName::First, 50).Ok());
    ASSERT_TRUE(Remember(PriceName::Second, 540).Ok());
    ASSERT_TRUE(Remember(PriceName::Third, 1000).Ok());
    ASSERT_TRUE(Remember(PriceName::Special, 50).Ok());
    EXPECT_EQ(Kept(), before);
  }
}

TEST_F(SpecialPricesTest, a_price_that_is_shown_rounded_is_still_the_cards) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET Fiyat=1.234, Fiyat2=99.999 WHERE StokKod='1001'");
  ASSERT_TRUE(Remember(PriceName::First, 1.23).Ok());
  ASSERT_TRUE(Remember(PriceName::First, 1.234).Ok());
  ASSERT_TRUE(Remember(PriceName::Second, 100).Ok());
  EXPECT_TRUE(Kept().empty());
  ASSERT_TRUE(Remember(PriceName::First, 1.24).Ok());
  EXPECT_EQ(Kept(), Lines{"1001|C001|1.24|0.0|0.0"});
}

TEST_F(SpecialPricesTest, a_customers_own_price_that_is_shown_rounded_stays_as_it_is) {
  Put("('1001','C001',45.678,0,0)");
  ASSERT_TRUE(Remember(PriceName::Special, 45.68).Ok());
  EXPECT_EQ(Kept(), Lines{"1001|C001|45.678|0.0|0.0"});
}

TEST_F(SpecialPricesTest, a_price_is_compared_with_the_cards_of_its_own_name) {
  ASSERT_TRUE(Remember(PriceName::Second, 50).Ok());
  EXPECT_EQ(Kept(), Lines{"1001|C001|0.0|50.0|0.0"});
}

TEST_F(SpecialPricesTest, a_price_belongs_to_one_customer_and_one_item) {
  Put("('1001','C002',30,0,0),('1002','C001',15,0,0)");
  ASSERT_TRUE(Remember(PriceName::First, 45).Ok());
  EXPECT_EQ(Kept(), (Lines{"1001|C002|30.0|0.0|0.0", "1002|C001|15.0|0.0|0.0", "1001|C001|45.0|0.0|0.0"}));
  EXPECT_EQ(FindSpecialPrices(stores, "1001", "C001").first, 45);
  EXPECT_FALSE(FindSpecialPrices(stores, "1002", "C002").kept);
}

TEST_F(SpecialPricesTest, what_is_kept_is_found) {
  Put("('1001','C001',45,500,900)");
  const SpecialPrices prices = FindSpecialPrices(stores, "1001", "C001");
  EXPECT_TRUE(prices.kept);
  EXPECT_EQ(prices.first, 45);
  EXPECT_EQ(prices.second, 500);
  EXPECT_EQ(prices.third, 900);
}

TEST_F(SpecialPricesTest, a_pair_without_a_row_has_none) {
  const SpecialPrices prices = FindSpecialPrices(stores, "1001", "C001");
  EXPECT_FALSE(prices.kept);
  EXPECT_EQ(prices.first + prices.second + prices.third, 0);
}

TEST_F(SpecialPricesTest, a_row_of_noughts_is_kept_all_the_same) {
  Put("('1001','C001',0,0,0)");
  EXPECT_TRUE(FindSpecialPrices(stores, "1001", "C001").kept);
}

TEST_F(SpecialPricesTest, a_find_is_one_look_up) {
  engine.selects = engine.reads = 0;
  FindSpecialPrices(stores, "1001", "C001");
  EXPECT_EQ(engine.AllReads(), 1);
}

TEST_F(SpecialPricesTest, a_line_at_the_cards_price_looks_nothing_up) {
  Action action(stores, "posting");
  Cursor card(stores, "item");
  card.SetDatabaseName("Stok.Mdb");
  ASSERT_TRUE(card.Open("StokKartlar").Ok() && card.MoveTo(Item("1001")).Ok());
  engine.selects = engine.reads = 0;
  RememberPrice(stores, card, "C001", {PriceName::First, 50, "Standard"});
  EXPECT_EQ(engine.AllReads(), 0);
}

TEST_F(SpecialPricesTest, quotes_in_codes_change_nothing) {
  AddStock("S''1", "Kaşar", "Fiyat=50");
  ASSERT_TRUE(Remember(PriceName::First, 45, "O'1", "S''1").Ok());
  ASSERT_TRUE(Remember(PriceName::First, 44, "O'1", "S''1").Ok());
  EXPECT_EQ(Kept(), Lines{"S'1|O'1|44.0|0.0|0.0"});
  EXPECT_EQ(FindSpecialPrices(stores, "S'1", "O'1").first, 44);
}

TEST_F(SpecialPricesTest, a_table_that_cant_be_read_gives_none_and_is_noted) {
  Put("('1001','C001',45,500,900)");
  const testing::LoggedLines log;
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  EXPECT_FALSE(FindSpecialPrices(stores, "1001", "C001").kept);
  EXPECT_TRUE(log.Holds("the disk is silent"));
}

TEST_F(SpecialPricesTest, a_price_that_cant_be_kept_fails_the_posting) {
  Put("('1001','C001',45,500,900)");
  const Lines before = Kept();
  for (const std::string customer : {"C001", "C002"}) {
    engine.writeFault = {ErrorKind::DiskFull, "no room"};
    EXPECT_EQ(Remember(PriceName::First, 40, customer).Kind(), ErrorKind::DiskFull);
    engine.writeFault = {};
    engine.readsBeforeFault = 1;  // the item
    engine.readFault = {ErrorKind::Other, "the disk is silent"};
    EXPECT_EQ(Remember(PriceName::First, 40, customer).Kind(), ErrorKind::Other);
    engine.readFault = {};
  }
  EXPECT_EQ(Kept(), before);
}

}  // namespace
}  // namespace karvel
