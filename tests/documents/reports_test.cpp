#include "documents/reports.h"

#include "documents/order_list.h"
#include "tests/support/accounts_fixture.h"
#include "tests/support/drawn_texts.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

// Letters of 16 by 32 on a page of 1600.
class ReportDrawingTest : public ::testing::Test {
 protected:
  ReportDrawingTest() {
    style.companyLines = {"Velmora", "", "", "8", "", "Mali Değeri Yoktur."};
    style.amountFormat = "Standard";
    style.quantityFormat = "General Number";
  }
  const PrintFont font{"Courier New Tur", 8};
  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Pixels};
  PrintStyle style;
};

DayLine Ordered(const std::string& customer, const std::string& item, double quantity, double price) {
  DayLine line;
  line.customerName = customer;
  line.itemName = item;
  line.quantity = quantity;
  line.price = price;
  line.amount = quantity * price;
  return line;
}

TEST_F(ReportDrawingTest, the_order_list_names_each_customer_over_his_lines) {
  const Drawing drawing = DrawOrderList(
      measures, font, {Ordered("Ali", "Pirinç", 2, 50), Ordered("Ali", "Şeker", 1, 20), Ordered("Veli", "Çay", 3, 10)}, {2026, 3, 1}, 130);
  EXPECT_EQ(WordsOf(drawing), (Words{"Sipariş Listesi", "01.03.2026", "Ürün",         "Miktar", "Fiyat", "Tutar", "Ali",  "Pirinç", "2,00",
                                     "50,00",           "100,00",     "Şeker",        "1,00",   "20,00", "20,00", "Veli", "Çay",    "3,00",
                                     "10,00",           "30,00",      "Toplam Tutar", "130,00"}));
  EXPECT_TRUE(TextIn(drawing, "Ali").font.underline);
  EXPECT_FALSE(TextIn(drawing, "Pirinç").font.underline);
  EXPECT_EQ(EndOf(TextIn(drawing, "2,00")), 1540 - 2 * 128);
  EXPECT_EQ(EndOf(TextIn(drawing, "50,00")), 1540 - 128);
  EXPECT_EQ(EndOf(TextIn(drawing, "100,00")), 1540);
  const auto rules = RulesOf(drawing);
  ASSERT_EQ(rules.size(), 4U);
  EXPECT_EQ(rules[2].y1, TextIn(drawing, "Şeker").y + 32 + 30);
  EXPECT_EQ(TextIn(drawing, "Veli").y, rules[2].y1 + 30);
  EXPECT_EQ(TextIn(drawing, "Çay").y, TextIn(drawing, "Veli").y + 32 + 30);
  EXPECT_EQ(TextIn(drawing, "Toplam Tutar").y, rules[3].y1 + 60);
}

TEST_F(ReportDrawingTest, figures_of_the_order_list_never_touch) {
  const Drawing drawing =
      DrawOrderList(measures, font, {Ordered("Ali", "Pirinç", 2, 517.9), Ordered("Ali", "Un", 12, 1234567.5)}, {2026, 3, 1}, 0);
  const DrawnText amount = TextIn(drawing, "1.035,80");
  EXPECT_EQ(EndOf(TextIn(drawing, "517,90")), 1540 - 128);
  EXPECT_EQ(EndOf(amount), 1540);
  EXPECT_GT(amount.x, 1540 - 128 + 8);
  EXPECT_LT(amount.font.size, TextIn(drawing, "517,90").font.size);
  // What is far too wide has a line of its own.
  EXPECT_EQ(TextIn(drawing, "14.814.810,00").y, TextIn(drawing, "Un").y + 2 * 32);
}

TEST_F(ReportDrawingTest, a_name_too_long_for_its_column_has_its_figures_below) {
  const std::string name(90, 'x');
  const Drawing drawing = DrawOrderList(measures, font, {Ordered("Ali", name, 2, 50)}, {2026, 3, 1}, 0);
  EXPECT_EQ(TextIn(drawing, "2,00").y, TextIn(drawing, name).y + 32);
  EXPECT_EQ(TextIn(drawing, "100,00").y, TextIn(drawing, "2,00").y);
}

TEST_F(ReportDrawingTest, the_turnover_of_a_span) {
  const Drawing drawing = DrawTurnover(measures, font, style, {{"Pirinç", 2.5}, {"Şeker", 1}},
                                       {"100,00", "10,00", "", "0,00", "40,00", "5,00"}, {2026, 2, 1}, {2026, 3, 1});
  EXPECT_EQ(WordsOf(drawing),
            (Words{"01 Şubat 2026 <> 01 Mart 2026", "Ciro", "Pirinç", "2,5 Kg/Ad", "Şeker", "1 Kg/Ad", "Satışlar Toplamı", "100,00 TL.",
                   "Nakit Toplamı", "10,00 TL.", "Senet Toplamı", "40,00 TL.", "İadeler Toplamı", "5,00 TL."}));
  EXPECT_EQ(TextIn(drawing, "Pirinç").font.size, 10);
  EXPECT_EQ(TextIn(drawing, "Pirinç").x, 60);
  EXPECT_EQ(EndOf(TextIn(drawing, "2,5 Kg/Ad")), 1540);
  EXPECT_EQ(RulesOf(drawing)[1].y1, TextIn(drawing, "Şeker").y + 40 + 30);
}

TEST_F(ReportDrawingTest, an_empty_turnover_has_its_sales_line_alone) {
  const Drawing drawing = DrawTurnover(measures, font, style, {}, {}, {2026, 3, 1}, {2026, 3, 1});
  EXPECT_EQ(WordsFrom(drawing, "Satışlar Toplamı"), (Words{"Satışlar Toplamı", " TL."}));
}

TEST_F(ReportDrawingTest, names_of_the_turnover_are_cut_at_the_page_or_stand_above) {
  style.nameOnOwnLine = true;
  const Drawing drawing = DrawTurnover(measures, font, style, {{std::string(100, 'x'), 1}}, {}, {2026, 3, 1}, {2026, 3, 1});
  EXPECT_EQ(TextIn(drawing, std::string(74, 'x')).width, 1480);
  EXPECT_EQ(TextIn(drawing, "1 Kg/Ad").y, TextIn(drawing, std::string(74, 'x')).y + 40);
}

TEST_F(ReportDrawingTest, the_stock_status_tells_what_is_left_or_oversold) {
  const Drawing drawing =
      DrawStockStatus(measures, font, style, {{"Pirinç", 10, 4, 0, 6}, {"Şeker", 1, 3, 2, 0}, {"Çay", 2, 2, 0, 0}}, {2026, 3, 1});
  EXPECT_EQ(WordsOf(drawing),
            (Words{"01 Mart 2026 Pazar", "Stok Durum Raporu", "Pirinç", "10", "4", "6", "Şeker", "1", "3", "-2", "Çay", "2", "2", "-0"}));
  const double left = (1600 - 18 * 16 - 3 * 144) / 2.0;
  EXPECT_EQ(TextIn(drawing, "Pirinç").x, left);
  EXPECT_EQ(EndOf(TextIn(drawing, "10")), left + 18 * 16 + 144);
  EXPECT_EQ(EndOf(TextIn(drawing, "-2")), left + 18 * 16 + 3 * 144);
  EXPECT_EQ(TextIn(drawing, "Stok Durum Raporu").font.size, 10);
  EXPECT_EQ(TextIn(drawing, "Pirinç").font.size, 8);
}

TEST_F(ReportDrawingTest, on_a_narrow_roll_the_stock_table_shrinks_onto_the_page) {
  printer.pageWidth = 384;
  const Drawing drawing = DrawStockStatus(measures, font, style, {{"Pirinç", 10, 4, 0, 6}}, {2026, 3, 1});
  EXPECT_LE(EndOf(TextIn(drawing, "6")), 384);
  EXPECT_LT(TextIn(drawing, "Pirinç").font.size, 8);
}

class ReportsTest : public AccountsFixture {
 protected:
  void AddLine(const std::string& kind, const std::string& item, const std::string& quantity,
               const std::string& date = "2026-03-01 09:00:00") {
    Sql("Karvel.mdb", "INSERT INTO Datam(CariAd,StokKod,StokAd,Miktar,Fiyat,Tutar,Tarih,Durum,Gurup) VALUES('Ali','" + item + "','Ad " +
                          item + "'," + quantity + ",10," + quantity + "*10,'" + date + "','" + kind + "','Müşteri')");
  }
  bool Prints(const std::string& text) {
    const Words lines = printer.jobs.back().Lines();
    return std::find(lines.begin(), lines.end(), text) != lines.end();
  }
};

TEST_F(ReportsTest, over_the_customers_there_is_no_report) {
  Front("C001");
  Click("Command1");
  EXPECT_TRUE(printer.jobs.empty());
}

TEST_F(ReportsTest, the_turnover_sums_the_sales_of_each_card_in_the_span) {
  AddLine("Satış", "1001", "2");
  AddLine("Satış", "1001", "3", "2026-02-28 23:59:59");
  AddLine("Satış", "1001", "100", "2026-01-31 09:00:00");
  AddLine("İade", "1002", "7");
  At("CiroChk").SetChecked(true);
  At("DTPicker2(0)").SetDate({2026, 2, 1});
  Click("CiroYazCmd");
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_TRUE(Prints("Pirinç"));
  EXPECT_TRUE(Prints("5 Kg/Ad"));
  EXPECT_FALSE(Prints("Şeker"));  // nothing of it was sold
  EXPECT_EQ(printer.jobs[0].texts[0].font.name, "Courier New Tur");
  EXPECT_TRUE(At("Command1").HasFocus());
}

TEST_F(ReportsTest, codes_that_the_desk_takes_for_one_are_summed_together) {
  AddStock("a1", "Küçük");
  ASSERT_TRUE(Start());
  AddLine("Satış", "a1", "2");
  AddLine("Satış", "A1", "3");
  At("CiroChk").SetChecked(true);
  Click("Command1");
  EXPECT_TRUE(Prints("5 Kg/Ad"));
}

TEST_F(ReportsTest, the_order_list_has_all_lines_and_sums_the_orders) {
  AddLine("Sipariş", "1001", "2");
  AddLine("Satış", "1002", "3");
  At("CiroYaz(1)").click();
  At("CiroChk").SetChecked(true);
  Click("Command1");
  EXPECT_EQ(printer.jobs.back().Lines(), (Words{"Sipariş Listesi", "01.03.2026", "Ürün", "Miktar", "Fiyat", "Tutar", "Ali", "Ad 1001",
                                                "2,00", "10,00", "20,00", "Ad 1002", "3,00", "10,00", "30,00", "Toplam Tutar", "20,00"}));
}

TEST_F(ReportsTest, the_stock_status_is_that_of_the_list_as_narrowed) {
  Sql("Stok.mdb", "UPDATE StokKartlar SET GirenMik=10, CikanMik=4, KalanB=6 WHERE StokKod='1001'");
  At("StokChk").SetChecked(true);
  At("StokCek").SetChecked(true);
  Click("Command1");
  EXPECT_EQ(printer.jobs.back().Lines(), (Words{"01 Mart 2026 Pazar", "Stok Durum Raporu", "Pirinç", "10", "4", "6"}));
}

TEST_F(ReportsTest, a_report_over_the_stock_comes_also_with_the_walk_in_customer_in_front_before) {
  Front("Muhtelif Müşteri");
  At("StokChk").SetChecked(true);
  Click("Command1");
  EXPECT_EQ(printer.jobs.size(), 1U);
  EXPECT_FALSE(At("TahsilatFrame").Visible());
}

TEST_F(ReportsTest, a_printer_that_is_gone_leaves_the_report_to_the_one_in_use) {
  settings.Save("Velmora Karvel1", "Size", "Dökn", "Eski Yazıcı").Ignore();
  At("StokChk").SetChecked(true);
  Click("Command1");
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].printer, "Velmora PDF");
  EXPECT_EQ(printer.jobs[0].texts[0].font.name, "Courier New Tur");
}

TEST_F(ReportsTest, another_font_of_the_printer_stays) {
  settings.Save("Velmora Karvel1", "Size", "Dökn", "Eski Yazıcı").Ignore();
  printer.SetFont({"Terminal", 8});
  At("StokChk").SetChecked(true);
  Click("Command1");
  EXPECT_EQ(printer.jobs[0].texts[0].font.name, "Terminal");
}

TEST_F(ReportsTest, rows_that_cannot_be_read_print_nothing) {
  At("CiroChk").SetChecked(true);
  engine.readFault = {ErrorKind::DiskFailed, "no page"};
  Click("Command1");
  engine.readFault = {};
  EXPECT_TRUE(printer.jobs.empty());
}

TEST_F(ReportsTest, a_day_book_kept_by_another_program_makes_no_turnover_without_items) {
  At("CiroChk").SetChecked(true);
  // The first look is for the day of the first line.
  for (const int reads : {0, 1, 2}) {
    engine.readsBeforeFault = reads;
    engine.readFault = {ErrorKind::Busy, "kept"};
    Click("Command1");
    engine.readFault = {};
    EXPECT_TRUE(printer.jobs.empty()) << reads;
    EXPECT_EQ(At("Durum").Caption(), "Veri dosyası başka bir programda açık, okunamadı: yeniden deneyin");
  }
}

TEST_F(ReportsTest, a_refused_report_is_thrown_away) {
  printer.fault = {ErrorKind::Other, "off"};
  At("StokChk").SetChecked(true);
  Click("Command1");
  EXPECT_EQ(printer.jobs.back().end, "KillDoc");
}

}  // namespace
}  // namespace karvel
