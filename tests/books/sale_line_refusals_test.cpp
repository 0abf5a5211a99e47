// What a line that can't be booked leaves: nothing.
#include <string>
#include <vector>

#include "tests/support/sale_lines.h"

namespace karvel {
namespace {

// Goes forward with each look at it, as a clock does.
class RunningClock final : public Clock {
 public:
  [[nodiscard]] DateTime Now() const override { return DateTime{2026, 12, 31, 23, 59, 59}.PlusSeconds(looks++); }
  mutable int looks = 0;
};

class SaleLineRefusalsTest : public SaleLineFixture {
 protected:
  // A line that writes into every table: a new customer, a typed price, a new day, serials.
  SaleLine FullLine() {
    SaleLine line = LineOf(LineMode::Purchase, "1001", 2, 45);
    line.customerCode = "C099";
    line.customerName = "Yeni Müşteri";
    line.serials = {"SN-1", "SN-2"};
    return line;
  }
  ErrorKind Refusal(const SaleLine& line) {
    const auto booked = BookSaleLine(shop, line);
    EXPECT_FALSE(booked);
    EXPECT_FALSE(stores.InAction());
    return booked ? ErrorKind::None : booked.error().Kind();
  }
};

TEST_F(SaleLineRefusalsTest, an_item_whose_card_is_gone_is_told_and_nothing_is_written) {
  const SaleLine line = FullLine();
  Sql("Stok.mdb", "DELETE FROM StokKartlar WHERE StokKod='1001'");
  const auto before = AllRows();
  EXPECT_EQ(Refusal(line), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(SaleLineRefusalsTest, no_item_in_front_is_told_and_nothing_is_written) {
  const auto before = AllRows();
  SaleLine line = FullLine();
  line.itemInFront = 0;
  EXPECT_EQ(Refusal(line), ErrorKind::NoRecord);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(SaleLineRefusalsTest, an_item_that_cant_be_read_is_not_gone) {
  const SaleLine line = FullLine();
  engine.readFault = {ErrorKind::Damaged, "a bad sector"};
  EXPECT_EQ(Refusal(line), ErrorKind::Damaged);
}

TEST_F(SaleLineRefusalsTest, a_customer_who_cant_be_read_is_not_made_anew) {
  const SaleLine line = Line("1001", 1, 50);
  const auto before = AllRows();
  engine.readsBeforeFault = 1;  // the item
  engine.readFault = {ErrorKind::Busy, "another program"};
  EXPECT_EQ(Refusal(line), ErrorKind::Busy);
  EXPECT_EQ(AllRows(), before);
}

TEST_F(SaleLineRefusalsTest, a_store_that_fails_at_any_read_leaves_nothing_and_says_why) {
  const SaleLine line = FullLine();
  const auto before = AllRows();
  engine.readFault = {ErrorKind::Other, "the disk is silent"};
  int reads = 0;
  for (;; ++reads) {
    engine.readsBeforeFault = reads;
    const auto booked = BookSaleLine(shop, line);
    if (booked) break;
    EXPECT_EQ(booked.error().Kind(), ErrorKind::Other) << reads;
    ASSERT_EQ(AllRows(), before) << reads;
  }
  EXPECT_GE(reads, 8);
  EXPECT_EQ(Day("10000000261")["CariKod"], "Yeni Müşteri");
}

TEST_F(SaleLineRefusalsTest, a_store_that_fails_at_any_write_leaves_nothing_and_says_why) {
  const SaleLine line = FullLine();
  const auto before = AllRows();
  engine.writeFault = {ErrorKind::DiskFull, "no room"};
  int writes = 0;
  for (;; ++writes) {
    engine.writesBeforeFault = writes;
    const auto booked = BookSaleLine(shop, line);
    if (booked) break;
    EXPECT_EQ(booked.error().Kind(), ErrorKind::DiskFull) << writes;
    ASSERT_EQ(AllRows(), before) << writes;
  }
  // Customer, price, due date, year, counters, day book, movement, two serials, stock card, ledger, balance.
  EXPECT_EQ(writes, 12);
  EXPECT_EQ(One("SeriNo.mdb", "SELECT count(*) FROM SeriNo"), "2");
}

TEST_F(SaleLineRefusalsTest, a_store_that_fails_at_the_commit_leaves_nothing_and_the_next_try_is_whole) {
  const SaleLine line = FullLine();
  const auto before = AllRows();
  engine.commitFault = {ErrorKind::NoRights, "read only"};
  EXPECT_EQ(Refusal(line), ErrorKind::NoRights);
  EXPECT_EQ(AllRows(), before);
  engine.commitFault = {};
  EXPECT_EQ(Book(line), "10000000261");
  EXPECT_EQ(Balance("Yeni Müşteri"), "0.0|90.0|90.0|Alacak");
}

TEST_F(SaleLineRefusalsTest, closed_stores_are_told) {
  const SaleLine line = FullLine();
  stores.Close();
  EXPECT_EQ(Refusal(line), ErrorKind::NotOpen);
}

TEST_F(SaleLineRefusalsTest, a_line_joins_an_action_that_is_open_already) {
  const auto before = AllRows();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Action action(stores, "slip");
  EXPECT_TRUE(BookSaleLine(shop, Line("1001", 1, 50)));
  EXPECT_TRUE(BookSaleLine(shop, Line("1002", 1, 20)));
  EXPECT_EQ(engine.commits, 0);
  EXPECT_FALSE(action.Finish().Ok());
  EXPECT_EQ(AllRows(), before);
}

TEST_F(SaleLineRefusalsTest, one_commit_and_one_moment_make_a_line) {
  const RunningClock running;
  const auto booked = BookSaleLine({stores, running, terminalNo}, FullLine());
  ASSERT_TRUE(booked);
  EXPECT_EQ(engine.commits, 1);
  EXPECT_EQ(running.looks, 1);
  EXPECT_EQ(booked->id, "10000000261");
  EXPECT_EQ(Day(booked->id)["Tarih"], "2026-12-31 23:59:59");
  EXPECT_EQ(Movement(booked->id)["Tarih"], "2026-12-31 00:00:00");
  EXPECT_EQ(LedgerRow(booked->id)["Tarih"], "2026-12-31 23:59:59");
  EXPECT_EQ(One("Cari.mdb", "SELECT VadeTarih FROM \"VadeGün\""), "2026-12-31 00:00:00");
}

TEST_F(SaleLineRefusalsTest, a_line_at_the_cards_price_reads_few_rows) {
  Book(Line("1001", 1, 50));
  engine.selects = engine.reads = engine.writes = 0;
  const SaleLine line = Line("1001", 1, 50);
  Book(line);
  EXPECT_LE(engine.AllReads(), 8);  // item, customer, due date, year, counters, and one look at each book that it adds to
  EXPECT_EQ(engine.writes, 7);
}

}  // namespace
}  // namespace karvel
