#include "books/due_dates.h"

#include <functional>
#include <string>
#include <vector>

#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

using Lines = std::vector<std::string>;

class DueDatesTest : public BooksFixture {
 protected:
  void Put(const std::string& rows) { Sql("Cari.mdb", "INSERT INTO \"VadeGün\" VALUES" + rows); }
  // As a posting does it.
  Status Posting(const std::function<void()>& change) {
    Action action(stores, "posting");
    change();
    return action.Finish();
  }
  void Add(const DateTime& moment, double amount) {
    EXPECT_TRUE(Posting([&] { AddDue(stores, "C001", moment, amount); }).Ok());
  }
  void Consume(double amount, bool balanceIsNothing = false) {
    EXPECT_TRUE(Posting([&] { ConsumeDue(stores, "C001", amount, balanceIsNothing); }).Ok());
  }
  void Shrink(double amount) {
    EXPECT_TRUE(Posting([&] { ShrinkEarliestDue(stores, "C001", amount); }).Ok());
  }
  Lines All() { return Rows("Cari.mdb", "SELECT * FROM \"VadeGün\" ORDER BY CariKod, VadeTarih"); }
};

TEST_F(DueDatesTest, a_day_gathers_its_amounts_whatever_the_time) {
  Add({2026, 3, 1, 9, 0, 0}, 50);
  Add({2026, 3, 1, 18, 30, 5}, 40.5);
  Add({2026, 3, 2, 0, 0, 0}, 20);
  EXPECT_EQ(All(), (Lines{"C001|2026-03-01 00:00:00|90.5", "C001|2026-03-02 00:00:00|20.0"}));
}

TEST_F(DueDatesTest, a_due_date_is_kept_without_binary_dust_and_goes_when_it_is_paid) {
  for (int i = 0; i < 12; ++i) Add({2026, 3, 1, 9, 0, 0}, 0.07);
  EXPECT_EQ(Due("C001"), Lines{"0.84"});
  for (int i = 0; i < 11; ++i) Consume(0.07);
  EXPECT_EQ(Due("C001"), Lines{"0.07"});
  Shrink(0.07);
  EXPECT_TRUE(Due("C001").empty());
}

TEST_F(DueDatesTest, what_a_payment_has_left_goes_off_the_second_day_without_dust) {
  Put("('C001','2026-01-05 00:00:00',0.1),('C001','2026-02-05 00:00:00',0.2)");
  Consume(0.3);
  EXPECT_TRUE(Due("C001").empty());
}

TEST_F(DueDatesTest, the_third_of_december_is_not_the_twelfth_of_march) {
  Add({2026, 12, 3, 9, 0, 0}, 50);
  Add({2026, 3, 12, 9, 0, 0}, 20);
  EXPECT_EQ(All(), (Lines{"C001|2026-03-12 00:00:00|20.0", "C001|2026-12-03 00:00:00|50.0"}));
}

TEST_F(DueDatesTest, a_days_amount_is_the_customers_own) {
  Put("('C002','2026-03-01 00:00:00',7)");
  Add({2026, 3, 1, 9, 0, 0}, 50);
  EXPECT_EQ(All(), (Lines{"C001|2026-03-01 00:00:00|50.0", "C002|2026-03-01 00:00:00|7.0"}));
}

TEST_F(DueDatesTest, a_partial_payment_lowers_the_earliest) {
  Put("('C001','2026-02-05 00:00:00',200),('C001','2026-01-05 00:00:00',100)");
  Consume(30);
  EXPECT_EQ(Due("C001"), (Lines{"70.0", "200.0"}));
}

TEST_F(DueDatesTest, a_payment_of_exactly_one_day_clears_that_day_alone) {
  Put("('C001','2026-01-05 00:00:00',100),('C001','2026-02-05 00:00:00',200)");
  Consume(100);
  EXPECT_EQ(Due("C001"), Lines{"200.0"});
}

TEST_F(DueDatesTest, a_payment_over_two_days_clears_the_first_and_lowers_the_second) {
  Put("('C001','2026-01-05 00:00:00',100),('C001','2026-02-05 00:00:00',200)");
  Consume(150);
  EXPECT_EQ(Due("C001"), Lines{"150.0"});
}

TEST_F(DueDatesTest, a_payment_of_exactly_two_days_clears_both) {
  Put("('C001','2026-01-05 00:00:00',100),('C001','2026-02-05 00:00:00',200),('C001','2026-03-05 00:00:00',1)");
  Consume(300);
  EXPECT_EQ(Due("C001"), Lines{"1.0"});
}

TEST_F(DueDatesTest, a_payment_over_three_days_leaves_the_second_below_zero) {
  Put("('C001','2026-01-05 00:00:00',50),('C001','2026-02-05 00:00:00',100),('C001','2026-02-15 00:00:00',150)");
  Consume(200);
  EXPECT_EQ(Due("C001"), (Lines{"-50.0", "150.0"}));
}

TEST_F(DueDatesTest, a_payment_over_the_only_day_clears_it) {
  Put("('C001','2026-01-05 00:00:00',50),('C002','2026-01-05 00:00:00',60)");
  Consume(80);
  EXPECT_EQ(All(), Lines{"C002|2026-01-05 00:00:00|60.0"});
}

TEST_F(DueDatesTest, a_payment_without_due_dates_leaves_the_others) {
  Put("('C002','2026-01-05 00:00:00',60)");
  Consume(80);
  EXPECT_EQ(All(), Lines{"C002|2026-01-05 00:00:00|60.0"});
}

TEST_F(DueDatesTest, money_given_back_raises_the_earliest) {
  Put("('C001','2026-01-05 00:00:00',50),('C001','2026-02-05 00:00:00',100)");
  Consume(-20);
  EXPECT_EQ(Due("C001"), (Lines{"70.0", "100.0"}));
}

TEST_F(DueDatesTest, a_settled_balance_clears_them_all_whatever_their_amounts) {
  Put("('C001','2026-01-05 00:00:00',999),('C001','2026-02-05 00:00:00',-3),('C001','2026-02-06 00:00:00',1),"
      "('C002','2026-02-05 00:00:00',7)");
  Consume(150, true);
  EXPECT_EQ(All(), Lines{"C002|2026-02-05 00:00:00|7.0"});
}

TEST_F(DueDatesTest, a_paid_day_goes_whatever_hair_of_rounding_is_left) {
  Put("('C001','2026-01-05 00:00:00',0.1+0.2),('C001','2026-02-05 00:00:00',5)");
  Consume(0.3);
  EXPECT_EQ(Due("C001"), Lines{"5.0"});
}

TEST_F(DueDatesTest, a_cancelled_line_shrinks_the_earliest_alone) {
  Put("('C001','2026-01-05 00:00:00',100),('C001','2026-02-05 00:00:00',200),('C002','2026-01-01 00:00:00',7)");
  Shrink(30);
  EXPECT_EQ(Due("C001"), (Lines{"70.0", "200.0"}));
  Shrink(90);
  EXPECT_EQ(Due("C001"), (Lines{"-20.0", "200.0"}));
  EXPECT_EQ(Due("C002"), Lines{"7.0"});
}

TEST_F(DueDatesTest, a_day_of_which_nothing_is_left_goes) {
  Put("('C001','2026-01-05 00:00:00',100),('C001','2026-02-05 00:00:00',200)");
  Shrink(100);
  EXPECT_EQ(Due("C001"), Lines{"200.0"});
}

TEST_F(DueDatesTest, shrinking_by_nothing_keeps_a_day_of_nothing) {
  Put("('C001','2026-01-05 00:00:00',0)");
  Shrink(0);
  EXPECT_EQ(Due("C001"), Lines{"0.0"});
  Shrink(5);
  Sql("Cari.mdb", "DELETE FROM \"VadeGün\"");
  Shrink(5);
  EXPECT_EQ(All(), Lines{});
}

TEST_F(DueDatesTest, a_quote_in_a_code_changes_nothing) {
  Put("('O''1','2026-01-05 00:00:00',100)");
  ASSERT_TRUE(Posting([&] { AddDue(stores, "O'1", clock.now, 5); }).Ok());
  ASSERT_TRUE(Posting([&] { AddDue(stores, "O'1", clock.now, 5); }).Ok());
  EXPECT_EQ(Due("O''1"), (Lines{"100.0", "10.0"}));
  ASSERT_TRUE(Posting([&] { ConsumeDue(stores, "O'1", 40, false); }).Ok());
  ASSERT_TRUE(Posting([&] { ShrinkEarliestDue(stores, "O'1", 10); }).Ok());
  EXPECT_EQ(Due("O''1"), (Lines{"50.0", "10.0"}));
  ASSERT_TRUE(Posting([&] { ConsumeDue(stores, "O'1", 60, true); }).Ok());
  EXPECT_EQ(Due("O''1"), Lines{});
}

TEST_F(DueDatesTest, what_cant_be_read_or_written_fails_the_posting) {
  Put("('C001','2026-01-05 00:00:00',50),('C001','2026-02-05 00:00:00',100)");
  const Lines before = All();
  const std::vector<std::function<void()>> changes{
      [this] { AddDue(stores, "C001", {2026, 1, 5, 9, 0, 0}, 5); },
      [this] { AddDue(stores, "C001", clock.now, 5); },
      [this] { ConsumeDue(stores, "C001", 70, false); },
      [this] { ConsumeDue(stores, "C001", 70, true); },
      [this] { ShrinkEarliestDue(stores, "C001", 50); },
      [this] { ShrinkEarliestDue(stores, "C001", 5); },
  };
  for (std::size_t i = 0; i < changes.size(); ++i) {
    engine.writeFault = {ErrorKind::DiskFull, "no room"};
    EXPECT_EQ(Posting(changes[i]).Kind(), ErrorKind::DiskFull) << i;
    engine.writeFault = {};
    if (i == 3) continue;  // clears the days without a look at them
    engine.readFault = {ErrorKind::Other, "the disk is silent"};
    EXPECT_EQ(Posting(changes[i]).Kind(), ErrorKind::Other) << i;
    engine.readFault = {};
  }
  EXPECT_EQ(All(), before);
}

}  // namespace
}  // namespace karvel
