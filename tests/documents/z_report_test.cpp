#include "documents/z_report.h"

#include "tests/support/accounts_fixture.h"
#include "tests/support/drawn_texts.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

class ZReportDrawingTest : public ::testing::Test {
 protected:
  ZReportDrawingTest() {
    style.companyLines = {"Velmora", "", "", "8", "", "Mali Değeri Yoktur."};
    style.amountFormat = "Standard";
  }
  Drawing Draw() { return DrawZReport(measures, {"MS Sans Serif", 8}, style, figures, {2026, 3, 1}); }

  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Pixels};
  PrintStyle style;
  DayFigures figures{"1234,5", "10,00", "20,00", "30,00", "", "50,00"};
};

TEST_F(ZReportDrawingTest, all_texts_in_their_order) {
  EXPECT_EQ(WordsOf(Draw()), (Words{"Velmora", "Günlük Ciro", "Tarih : 01.03.2026", "Hesap", "Toplam", "Satışlar Toplamı", "1.234,50 TL.",
                                    "Nakit Tahsilat", "10,00 TL.", "K.Kartı Tahsilat", "20,00 TL.", "Çek Tahsilat", "30,00 TL.",
                                    "Senet Tahsilat", " TL.", "İadeler", "50,00 TL."}));
}

TEST_F(ZReportDrawingTest, where_everything_stands) {
  const Drawing drawing = Draw();
  const auto rules = RulesOf(drawing);
  ASSERT_EQ(rules.size(), 3U);
  EXPECT_EQ(rules[0].x1, 60);
  EXPECT_EQ(rules[0].x2, 1540);
  const DrawnText title = TextIn(drawing, "Günlük Ciro");
  EXPECT_TRUE(title.font.bold);
  EXPECT_EQ(title.font.size, 10);
  EXPECT_EQ(TextIn(drawing, "Tarih : 01.03.2026").y, title.y + 40 + 30);
  const DrawnText account = TextIn(drawing, "Hesap"), total = TextIn(drawing, "Toplam");
  EXPECT_EQ(account.x + account.width / 2, (60 + 1396) / 2.0);
  EXPECT_EQ(total.x, 1396 + (144 - total.width) / 2);
  EXPECT_EQ(rules[1].y1, account.y + 32 + 30);
  const double sold = TextIn(drawing, "Satışlar Toplamı").y;
  EXPECT_EQ(sold, rules[1].y1 + 30);
  EXPECT_EQ(EndOf(TextIn(drawing, "1.234,50 TL.")), 1540);
  EXPECT_EQ(TextIn(drawing, "Nakit Tahsilat").y, sold + 32 + 60);
  EXPECT_EQ(TextIn(drawing, "K.Kartı Tahsilat").y, sold + 2 * 32 + 60 + 30);
  EXPECT_EQ(TextIn(drawing, "Çek Tahsilat").y, sold + 3 * 32 + 60 + 30);
  EXPECT_EQ(rules[2].y1, TextIn(drawing, "İadeler").y + 32 + 30);
}

class ZReportTest : public AccountsFixture {};

TEST_F(ZReportTest, prints_the_figures_as_they_stand_with_the_date_of_the_print_choice) {
  At("DTPicker1").SetDate({2026, 2, 27});
  At("Label9(2)").SetCaption("12,00");
  At("ZRaporu").click();
  ASSERT_EQ(printer.jobs.size(), 1U);
  const Words lines = printer.jobs[0].Lines();
  EXPECT_NE(std::find(lines.begin(), lines.end(), "12,00 TL."), lines.end());
  EXPECT_NE(std::find(lines.begin(), lines.end(), "0,00 TL."), lines.end());  // the panel was never opened
  EXPECT_NE(std::find(lines.begin(), lines.end(), "Tarih : 27.02.2026"), lines.end());
  EXPECT_EQ(printer.jobs[0].end, "EndDoc");
}

TEST_F(ZReportTest, a_printer_that_is_gone_prints_nothing) {
  settings.Save("Velmora Karvel1", "Size", "Dökn", "Eski Yazıcı").Ignore();
  At("ZRaporu").click();
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_NE(At("Durum").Caption(), "");
}

TEST_F(ZReportTest, prints_on_the_chosen_printer) {
  printer.devices.push_back({"Rulo", "", ""});
  settings.Save("Velmora Karvel1", "Size", "Dökn", "Rulo").Ignore();
  At("ZRaporu").click();
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].printer, "Rulo");
}

}  // namespace
}  // namespace karvel
