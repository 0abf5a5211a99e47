#include "books/walk_in_customer.h"

#include <string>
#include <vector>

#include "tests/support/failing_books.h"

namespace karvel {
namespace {

class WalkInCustomerBook : public FailingBooks {
 protected:
  std::string Count() { return One("Cari.mdb", "SELECT count(*) FROM CariKartlar"); }
};

TEST_F(WalkInCustomerBook, the_walk_in_customer_is_added_where_there_is_none) {
  ASSERT_TRUE(KeepWalkInCustomer(shop).Ok());
  Fields card = Customer("Muhtelif Müşteri");
  EXPECT_EQ(card["Unvan"], "Muhtelif Müşteri");
  EXPECT_EQ(card["Gurup"], "Müşteri");
  EXPECT_EQ(card["yeni"], "1.0");
  for (const char* const field : {"Hes", "Hesap", "Adres1"}) EXPECT_EQ(card[field], "") << field;
  for (const char* const field : {"Borc", "Alacak", "Bakiye"}) EXPECT_EQ(card[field], "0.0") << field;
}

TEST_F(WalkInCustomerBook, the_walk_in_customer_exists_once_however_many_starts) {
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(KeepWalkInCustomer(shop).Ok());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE Unvan='Muhtelif Müşteri'"), "1");
}

TEST_F(WalkInCustomerBook, the_walk_in_customer_is_known_by_his_name_whatever_his_code_and_list) {
  AddCustomer("M1", "Muhtelif Müşteri", "HesKullan=1");
  const std::string before = Count();
  ASSERT_TRUE(KeepWalkInCustomer(shop).Ok());
  EXPECT_EQ(Count(), before);
}

TEST_F(WalkInCustomerBook, cards_that_cant_be_read_get_no_second_walk_in_customer) {
  ASSERT_TRUE(KeepWalkInCustomer(shop).Ok());
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  EXPECT_EQ(KeepWalkInCustomer(shop).Kind(), ErrorKind::Other);
  engine.readFault = {};
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE Unvan='Muhtelif Müşteri'"), "1");
}

TEST_F(WalkInCustomerBook, a_fault_of_the_stores_adds_no_walk_in_customer_and_says_what_it_was) {
  FailsWholeOrWorks([this] { return KeepWalkInCustomer(shop); });
}

}  // namespace
}  // namespace karvel
