#include "books/invoice_lines.h"

#include <string>
#include <vector>

#include "tests/support/invoice_shop.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

class InvoiceLinesBook : public InvoiceShop {
 protected:
  void PutThree() {
    for (int i = 1; i <= 3; ++i)
      Put({.id = fmt::format("L{}", i), .time = fmt::format("2026-03-01 09:0{}:00", 4 - i), .tick = i == 1 ? "X" : ""});
  }
  RowKey Line(const std::string& id) { return DayKey(id); }
  std::string Missing(const std::string& id) { return Day(id)["Eksik"]; }
};

TEST_F(InvoiceLinesBook, the_sources_name_customer_day_and_state) {
  EXPECT_EQ(LinesOf(Today()),
            "Select * From Datam Where Aciklama='' And CariKod='C001' And Durum='Satış' And Tarih>=#03/01/2026 00:00:00# And "
            "Tarih<=#03/01/2026 23:59:59# Order By Tarih Asc");
  EXPECT_EQ(LinesOf({"C'1", clock.now, true}),
            "Select * From Datam Where CariKod='C''1' And Durum='Satış' And Tarih>=#03/01/2026 00:00:00# And Tarih<=#03/01/2026 "
            "23:59:59# Order By Tarih Asc");
  EXPECT_TRUE(TickedLinesOf(Today()).starts_with("Select * From Datam Where Sec='X' And Aciklama=''"));
}

TEST_F(InvoiceLinesBook, the_earliest_are_ticked_and_the_others_lose_their_ticks) {
  PutThree();
  EXPECT_TRUE(TickFirstLines(shop, Today(), 2).Ok());
  EXPECT_EQ(Ticks(), (Texts{"L1", "L2X", "L3X"}));
  EXPECT_TRUE(TickFirstLines(shop, Today(), 0).Ok());
  EXPECT_EQ(Ticks(), (Texts{"L1", "L2", "L3"}));
  EXPECT_TRUE(TickFirstLines(shop, Today(), 15).Ok());
  EXPECT_EQ(Ticks(), (Texts{"L1X", "L2X", "L3X"}));
}

TEST_F(InvoiceLinesBook, lines_of_others_and_those_on_an_invoice_keep_their_ticks) {
  Put({.id = "L1", .customer = "C002"});
  Put({.id = "L2", .time = "2026-02-28 10:00:00"});
  Put({.id = "L3", .description = "FatNo S000001"});
  EXPECT_TRUE(TickFirstLines(shop, Today(), 0).Ok());
  EXPECT_EQ(Ticks(), (Texts{"L1X", "L2X", "L3X"}));
}

TEST_F(InvoiceLinesBook, what_the_stock_lacks_is_told_on_the_ticked_lines) {
  Sql("Fatura.mdb", "INSERT INTO GirenCikan VALUES('1001', 10, 9.5),('1002', 10, 1)");
  Put({.id = "L1", .time = "2026-03-01 09:00:00", .tick = ""});
  Put({.id = "L2", .item = "1002", .time = "2026-03-01 09:01:00", .tick = ""});
  Put({.id = "L3", .item = "1003", .time = "2026-03-01 09:02:00", .tick = ""});
  Put({.id = "L4", .time = "2026-03-01 09:03:00", .tick = ""});
  EXPECT_TRUE(TickFirstLines(shop, Today(), 3).Ok());
  EXPECT_EQ(Missing("L1"), "1.5");
  EXPECT_EQ(Missing("L2"), "-7.0");
  EXPECT_EQ(Missing("L3"), "2.0");
  EXPECT_EQ(Missing("L4"), "0.0");
}

TEST_F(InvoiceLinesBook, a_tick_turns_and_one_taken_off_by_hand_is_marked) {
  PutThree();
  EXPECT_TRUE(TurnTick(shop, Line("L1"), false).Ok());
  EXPECT_TRUE(TurnTick(shop, Line("L2"), true).Ok());
  EXPECT_EQ(Ticks(), (Texts{"L1", "L2X", "L3"}));
  EXPECT_EQ(Day("L1")["Secc"], "");
  EXPECT_EQ(Day("L2")["Secc"], "");
  EXPECT_TRUE(TurnTick(shop, Line("L2"), true).Ok());
  EXPECT_EQ(Day("L2")["Sec"], "");
  EXPECT_EQ(Day("L2")["Secc"], "X");
}

TEST_F(InvoiceLinesBook, all_ticks_follow_the_first_line) {
  PutThree();  // the first by time is L3, which has none
  EXPECT_TRUE(TurnAllTicks(shop, Today()).Ok());
  EXPECT_EQ(Ticks(), (Texts{"L1X", "L2X", "L3X"}));
  EXPECT_TRUE(TurnAllTicks(shop, Today()).Ok());
  EXPECT_EQ(Ticks(), (Texts{"L1", "L2", "L3"}));
}

TEST_F(InvoiceLinesBook, ticks_are_counted_on_the_day_alone) {
  PutThree();
  Put({.id = "L4", .time = "2026-02-28 10:00:00"});
  EXPECT_EQ(CountTicked(shop, Today()).value_or(-1), 1);
  EXPECT_TRUE(TurnAllTicks(shop, Today()).Ok());
  EXPECT_EQ(CountTicked(shop, Today()).value_or(-1), 3);
}

TEST_F(InvoiceLinesBook, a_line_that_is_gone_has_no_tick_to_turn) {
  PutThree();
  const RowKey gone = Line("L2");
  Sql("Karvel.mdb", "DELETE FROM Datam WHERE DigerId='L2'");
  EXPECT_EQ(TurnTick(shop, gone, false).Kind(), ErrorKind::NoRecord);
  EXPECT_FALSE(stores.InAction());
}

TEST_F(InvoiceLinesBook, a_fault_of_the_stores_turns_all_ticks_or_none) {
  PutThree();
  FailsWholeOrWorks([&] { return TickFirstLines(shop, Today(), 2); });
  FailsWholeOrWorks([&] { return TurnTick(shop, Line("L1"), false); });
  FailsWholeOrWorks([&] { return TurnAllTicks(shop, Today()); });
}

TEST_F(InvoiceLinesBook, ticks_that_cannot_be_read_are_not_none) {
  PutThree();
  EXPECT_EQ(CountTicked(shop, Today()).value_or(-1), 1);
  engine.readFault = {ErrorKind::Busy, "kept"};
  EXPECT_EQ(CountTicked(shop, Today()).value_or(-1), -1);
  engine.readFault = {};
}

}  // namespace
}  // namespace karvel
