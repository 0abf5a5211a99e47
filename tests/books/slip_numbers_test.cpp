#include "books/slip_numbers.h"

#include "tests/support/books_fixture.h"
#include "tests/support/memory_settings.h"

namespace karvel {
namespace {

class SlipNumbersTest : public BooksFixture {
 protected:
  void AddSlips(const std::string& numbers) { Sql("Karvel.mdb", "INSERT INTO Datam(SeriNo) VALUES" + numbers); }
  MemorySettings store;
  Settings settings{store, "Velmora Karvel1"};
};

TEST_F(SlipNumbersTest, the_highest_is_that_of_the_numbers_alone) {
  EXPECT_EQ(HighestSlipNumber(shop), 0);
  AddSlips("(''),('F-12'),('12'),(NULL),('x000900')");
  EXPECT_EQ(HighestSlipNumber(shop), 0);
  AddSlips("('000017'),('000123'),('000099'),('zz')");
  EXPECT_EQ(HighestSlipNumber(shop), 123);
}

TEST_F(SlipNumbersTest, a_longer_number_is_higher) {
  AddSlips("('999999'),('1000000'),('1000002'),('1000001')");
  EXPECT_EQ(HighestSlipNumber(shop), 1000002);
  AddSlips("('9999999x')");
  EXPECT_EQ(HighestSlipNumber(shop), 1000002);
}

TEST_F(SlipNumbersTest, the_whole_day_book_is_asked_where_the_settings_do_not_know) {
  AddSlips("('000500')");
  for (int i = 0; i < 300; ++i) AddSlips("('000007')");
  store.Save("Velmora Karvel", "Size", "DökNo", "000008").Ignore();
  EXPECT_EQ(TakeSlipNumber(shop, settings), "000009");
  for (const char* const lost : {"000004?", "", "000000", "abc"}) {
    store.Save("Velmora Karvel", "Size", "DökNo", lost).Ignore();
    EXPECT_EQ(TakeSlipNumber(shop, settings), "000501") << lost;
    EXPECT_EQ(TakeSlipNumber(shop, settings), "000502") << lost;
  }
}

TEST_F(SlipNumbersTest, settings_that_lag_behind_the_newest_lines_go_on_from_those) {
  AddSlips("('000014'),('F-99'),('12')");
  store.Save("Velmora Karvel", "Size", "DökNo", "000001").Ignore();
  EXPECT_EQ(TakeSlipNumber(shop, settings), "000015");
  EXPECT_EQ(TakeSlipNumber(shop, settings), "000016");
}

TEST_F(SlipNumbersTest, a_day_book_that_can_not_be_read_gives_no_number) {
  store.Save("Velmora Karvel", "Size", "DökNo", "?").Ignore();
  engine.readFault = Status(ErrorKind::Other, "disk");
  const auto number = TakeSlipNumber(shop, settings);
  ASSERT_FALSE(number);
  EXPECT_EQ(number.error().Kind(), ErrorKind::Other);
  EXPECT_EQ(store.Get("Velmora Karvel", "Size", "DökNo", ""), "?");
}

TEST_F(SlipNumbersTest, at_no_read_that_fails_is_a_number_given_that_the_book_bears) {
  AddSlips("('000014')");
  store.Save("Velmora Karvel", "Size", "DökNo", "000001").Ignore();
  engine.readFault = Status(ErrorKind::Other, "disk");
  int reads = 0;
  while (engine.readsBeforeFault = reads, !TakeSlipNumber(shop, settings) && reads < 20) {
    ++reads;
    EXPECT_EQ(store.Get("Velmora Karvel", "Size", "DökNo", ""), "000001");
  }
  EXPECT_GE(reads, 1);
  EXPECT_EQ(store.Get("Velmora Karvel", "Size", "DökNo", ""), "000015") << "when all could be read";
}

}  // namespace
}  // namespace karvel
