#include "documents/slip.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/drawn_texts.h"
#include "tests/support/recording_printer.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

// A letter is 16 wide and a line 32 high; the name column is 1028 wide, the columns of figures 128 each, and end at 1186, 1314, 1442, 1570.
class SlipTest : public ::testing::Test {
 protected:
  SlipTest() {
    style.companyLines = {"Velmora", "", "", "8", "", "Mali Değeri Yoktur."};
    style.amountFormat = "Standard";
    style.quantityFormat = "General Number";
    slip.customerName = "Ayşe Yılmaz";
    slip.from = slip.today = DateTime{2026, 3, 1, 10, 15, 0};
    slip.slipNo = "000123";
    slip.side = "Borç";
  }
  static DayLine Goods(const std::string& name, double quantity, double price, const std::string& kind = "Satış") {
    DayLine line;
    line.itemCode = "1001";
    line.itemName = name;
    line.unit = "Adet";
    line.quantity = quantity;
    line.price = price;
    line.amount = quantity * price;
    line.date = {2026, 3, 1, 9, 0, 0};
    line.kind = kind;
    line.salesman = "WinKarvel1";
    return line;
  }
  static DayLine Payment(const std::string& name, double paid, const std::string& kind = "Nakit") {
    DayLine line = Goods(name, 0, 0, kind);
    line.itemCode.clear();
    line.paid = paid;
    return line;
  }
  Drawing Draw() { return DrawSlip(measures, {"MS Sans Serif", 8}, style, slip); }
  // What stands below the second rule of the heading.
  Words Body() {
    Words words = WordsFrom(Draw(), "Tutar");
    words.erase(words.begin());
    return words;
  }

  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Pixels};
  PrintStyle style;
  Slip slip;
};

TEST_F(SlipTest, all_texts_of_a_slip_in_their_order) {
  slip.lines = {Goods("Pirinç", 2, 50), Payment("Nakit Tahsilat", 60)};
  slip.balance = 40;
  EXPECT_EQ(WordsOf(Draw()), (Words{"Velmora",
                                    "Ayşe Yılmaz",
                                    "Seri No : 000123",
                                    "Tarih : 01.03.2026",
                                    "Ürün",
                                    "Miktar",
                                    "Birim",
                                    "Fiyat",
                                    "Tutar",
                                    "Pirinç",
                                    "2 ",
                                    " Adet",
                                    "50,00",
                                    "100,00",
                                    "Nakit Tahsilat",
                                    "60,00",
                                    "Satışlar Toplamı",
                                    "100,00",
                                    "Nakit Tahsilat",
                                    "60,00",
                                    "Kalan Borç",
                                    "40,00",
                                    "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, figures_end_at_the_edges_of_their_columns) {
  slip.lines = {Goods("Pirinç", 2, 50)};
  const Drawing drawing = Draw();
  EXPECT_EQ(TextIn(drawing, "Pirinç").x, 30);
  EXPECT_EQ(EndOf(TextIn(drawing, "2 ")) + 16, 1186);  // two blanks behind the quantity
  EXPECT_EQ(TextIn(drawing, " Adet").x, 1186);
  EXPECT_EQ(EndOf(TextIn(drawing, "50,00")), 1442);
  EXPECT_EQ(EndOf(TextIn(drawing, "100,00")), 1570);
  const DrawnText heading = TextIn(drawing, "Fiyat");
  EXPECT_EQ(heading.x + heading.width / 2, 1314 + 64);
  const DrawnText names = TextIn(drawing, "Ürün");
  EXPECT_EQ(names.x + names.width / 2, 30 + 1028 / 2.0);
}

TEST_F(SlipTest, the_steps_between_the_blocks) {
  slip.lines = {Goods("Pirinç", 2, 50)};
  const Drawing drawing = Draw();
  EXPECT_EQ(TextIn(drawing, "Ayşe Yılmaz").y, 40 + 60);
  EXPECT_EQ(TextIn(drawing, "Seri No : 000123").y, 140 + 30);
  const double date = TextIn(drawing, "Tarih : 01.03.2026").y;
  EXPECT_EQ(date, 170 + 32);
  const auto rules = RulesOf(drawing);
  ASSERT_EQ(rules.size(), 3U);
  EXPECT_EQ(rules[0].y1, date + 32 + 30);
  EXPECT_EQ(rules[0].x1, 30);
  EXPECT_EQ(rules[0].x2, 1570);
  EXPECT_EQ(TextIn(drawing, "Ürün").y, rules[0].y1 + 30);
  EXPECT_EQ(rules[1].y1, rules[0].y1 + 30 + 32 + 30);
  const double row = TextIn(drawing, "Pirinç").y;
  EXPECT_EQ(row, rules[1].y1 + 30);
  EXPECT_EQ(rules[2].y1, row + 32 + 30 + 15 + 60);
  EXPECT_EQ(TextIn(drawing, "Satışlar Toplamı").y, rules[2].y1 + 30);
}

TEST_F(SlipTest, goods_are_underlined_and_payments_not) {
  slip.lines = {Goods("Pirinç", 2, 50), Payment("Çek Tahsilat", 60, "Çek")};
  const Drawing drawing = Draw();
  EXPECT_TRUE(TextIn(drawing, "Pirinç").font.underline);
  EXPECT_FALSE(TextIn(drawing, "2 ").font.underline);
  EXPECT_FALSE(TextIn(drawing, "Çek Tahsilat").font.underline);
}

TEST_F(SlipTest, with_small_paper_name_and_date_stand_at_the_sides_without_number_and_barcode) {
  style.smallPaper = true;
  slip.barcode = Picture{10, 10, std::vector<bool>(100, true)};
  const Drawing drawing = Draw();
  EXPECT_FALSE(Draws(drawing, "Seri No : 000123"));
  EXPECT_TRUE(PicturesOf(drawing).empty());
  EXPECT_EQ(TextIn(drawing, "Sayın ; Ayşe Yılmaz").x, 30);
  EXPECT_EQ(EndOf(TextIn(drawing, "Tarih : 01.03.2026")), 1600 - 30);
  EXPECT_EQ(TextIn(drawing, "Tarih : 01.03.2026").y, TextIn(drawing, "Sayın ; Ayşe Yılmaz").y + 30);
}

TEST_F(SlipTest, with_small_paper_a_long_name_goes_on_below_and_never_into_the_date) {
  style.smallPaper = true;
  printer.pageWidth = 1000;
  slip.customerName = "Ayşe Yılmaz ve Oğulları Gıda Pazarlama Limited Şirketi";
  const auto texts = TextsOf(Draw());
  EXPECT_GT(texts[2].text.size(), 0U);
  EXPECT_EQ(texts[1].x, 30);
  EXPECT_EQ(texts[2].x, 30);
  const DrawnText date = TextIn(Draw(), "Tarih : 01.03.2026");
  for (const DrawnText& text : texts) {
    if (text.text != date.text && text.y < date.y + 32 && text.y + 40 > date.y) {
      EXPECT_LT(EndOf(text), date.x);
    }
  }
}

TEST_F(SlipTest, the_barcode_stands_right_of_the_middle_and_stays_on_the_page) {
  slip.barcode = Picture{200, 80, std::vector<bool>(16000, true)};
  auto pictures = PicturesOf(Draw());
  ASSERT_EQ(pictures.size(), 1U);
  EXPECT_EQ(pictures[0].x, 700 + 180);
  EXPECT_EQ(pictures[0].width, 200);
  EXPECT_EQ(TextIn(Draw(), "Tarih : 01.03.2026").y, pictures[0].y + 80);
  printer.pageWidth = 384;
  pictures = PicturesOf(Draw());
  EXPECT_EQ(pictures[0].x, 184);
}

TEST_F(SlipTest, a_statement_names_both_dates_and_each_day) {
  slip.untilToday = true;
  slip.from = {2026, 2, 27, 0, 0, 0};
  slip.lines = {Goods("Pirinç", 1, 10), Goods("Şeker", 1, 20), Goods("Çay", 1, 40)};
  slip.lines[0].date = {2026, 2, 28, 12, 0, 0};
  const Drawing drawing = Draw();
  EXPECT_TRUE(Draws(drawing, "Tarih : 27.02.2026 <> 01.03.2026"));
  EXPECT_EQ(Body(), (Words{"28.02.2026", "Pirinç",     "1 ",          " Adet",
                           "10,00",      "10,00",      "Fiş Toplamı", "10,00",
                           "01.03.2026", "Şeker",      "1 ",          " Adet",
                           "20,00",      "20,00",      "Çay",         "1 ",
                           " Adet",      "40,00",      "40,00",       "Satışlar Toplamı",
                           "70,00",      "Kalan Borç", "0,00",        "Mali Değeri Yoktur."}));
  EXPECT_TRUE(TextIn(drawing, "28.02.2026").font.underline);
  EXPECT_EQ(TextIn(drawing, "Pirinç").y, TextIn(drawing, "28.02.2026").y + 32 + 60);
  EXPECT_EQ(EndOf(TextIn(drawing, "Fiş Toplamı")), 1442);
}

TEST_F(SlipTest, the_sum_of_a_day_runs_on_from_the_start) {
  slip.untilToday = true;
  slip.lines = {Goods("Pirinç", 1, 10), Goods("Şeker", 1, 20), Goods("Çay", 1, 40)};
  slip.lines[0].date = {2026, 2, 27, 12, 0, 0};
  slip.lines[1].date = {2026, 2, 28, 12, 0, 0};
  Words sums;
  const Words words = WordsOf(Draw());
  for (std::size_t i = 0; i + 1 < words.size(); ++i)
    if (words[i] == "Fiş Toplamı") sums.push_back(words[i + 1]);
  EXPECT_EQ(sums, (Words{"10,00", "30,00"}));
}

TEST_F(SlipTest, a_line_without_salesman_counts_and_is_not_shown) {
  slip.lines = {Goods("Pirinç", 1, 10), Goods("Şeker", 1, 20)};
  slip.lines[1].salesman.clear();
  const Drawing drawing = Draw();
  EXPECT_FALSE(Draws(drawing, "Şeker"));
  EXPECT_EQ(WordsFrom(drawing, "Satışlar Toplamı")[1], "30,00");
}

TEST_F(SlipTest, cancelled_lines_are_not_shown) {
  slip.lines = {Goods("Pirinç", 1, 10), Goods("Şeker", 1, 20, "Iptal"), Payment("Nakit Tahsilat", 5, "Iptal")};
  EXPECT_EQ(Body(),
            (Words{"Pirinç", "1 ", " Adet", "10,00", "10,00", "Satışlar Toplamı", "10,00", "Kalan Borç", "0,00", "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, a_slip_of_payments_alone_has_no_sum_of_sales) {
  slip.lines = {Payment("Kredi Kartı Tahsilat", 60, "K.Kartı"), Payment("Senet Tahsilat", 40, "Senet"), Payment("Çek Tahsilat", 30, "Çek")};
  EXPECT_EQ(Body(), (Words{"Kredi Kartı Tahsilat", "60,00", "Senet Tahsilat", "40,00", "Çek Tahsilat", "30,00", "Eski Borç", "100,00",
                           "K.Kartı Tahsilat", "60,00", "Çek Tahsilat", "30,00", "Senet Tahsilat", "40,00", "Kalan Borç", "0,00",
                           "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, purchases_take_the_place_of_sales_and_are_named_so) {
  slip.lines = {Goods("Pirinç", 1, 10), Goods("Şeker", 1, 20, "Alış")};
  EXPECT_EQ(Body(), (Words{"Pirinç", "1 ", " Adet", "10,00", "10,00", "Şeker Alış", "1 ", " Adet", "20,00", "20,00", "Alışlar Toplamı",
                           "20,00", "Eski Borç", "10,00", "Kalan Borç", "0,00", "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, returns_have_a_sum_of_their_own) {
  slip.lines = {Goods("Pirinç", 1, 10, "İade")};
  EXPECT_EQ(Body(), (Words{"Pirinç", "1 ", " Adet", "10,00", "10,00", "İadeler Toplamı", "10,00", "Eski Borç", "10,00", "Kalan Borç",
                           "0,00", "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, a_name_as_wide_as_its_column_stays_and_one_letter_more_is_cut) {
  printer.pageWidth = 30 + 160 + 4 * 128 + 30;
  slip.lines = {Goods("0123456789", 1, 10), Goods("0123456789x", 1, 10), Goods("0123456789", 1, 10, "Alış")};
  const Words words = WordsOf(Draw());
  EXPECT_EQ(std::count(words.begin(), words.end(), "0123456789"), 2);
  EXPECT_EQ(std::count(words.begin(), words.end(), "01234.Alış"), 1);
}

TEST_F(SlipTest, on_its_own_line_the_name_stands_above_the_figures) {
  style.nameOnOwnLine = true;
  slip.lines = {Goods("Pirinç", 2, 50)};
  const Drawing drawing = Draw();
  EXPECT_EQ(TextIn(drawing, "2 ").y, TextIn(drawing, "Pirinç").y + 32);
  EXPECT_EQ(EndOf(TextIn(drawing, "50,00")), 1442);
}

TEST_F(SlipTest, a_line_of_no_quantity_shows_its_name_and_no_amount) {
  slip.lines = {Goods("Pirinç", 0, 50)};
  EXPECT_EQ(Body(), (Words{"Pirinç", "0,00", "Kalan Borç", "0,00", "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, a_part_of_a_unit_is_shown_though_its_format_has_no_decimals) {
  style.quantityFormat = "#,##0";
  slip.lines = {Goods("Peynir", 0.4, 50)};
  EXPECT_TRUE(Draws(Draw(), "50,00"));
  EXPECT_TRUE(Draws(Draw(), "20,00"));
}

TEST_F(SlipTest, a_long_unit_ends_where_the_price_begins) {
  slip.lines = {Goods("Pirinç", 2, 50)};
  slip.lines[0].unit = "Koli (24 adet)";
  const Drawing drawing = Draw();
  for (const DrawnText& text : TextsOf(drawing)) {
    if (text.x == 1186) {
      EXPECT_LE(EndOf(text), TextIn(drawing, "50,00").x);
    }
  }
}

TEST_F(SlipTest, an_amount_wider_than_its_column_moves_the_price_to_the_left) {
  slip.lines = {Goods("Pirinç", 1, 12345), Goods("Şeker", 1, 123456)};
  const Drawing drawing = Draw();
  const auto texts = TextsOf(drawing);
  for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
    if (texts[i].text != "123.456,00" || texts[i + 1].text != "123.456,00") continue;
    EXPECT_EQ(EndOf(texts[i + 1]), 1570);
    EXPECT_EQ(EndOf(texts[i]) + 16, texts[i + 1].x);
    return;
  }
  FAIL() << "price and amount are not beside each other";
}

TEST_F(SlipTest, an_amount_that_fills_its_column_is_parted_from_the_price_by_smaller_letters) {
  slip.lines = {Goods("Pirinç", 100, 123.45), Goods("Şeker", 1, 20)};
  slip.lines[0].price = 99.99;
  style.amountFormat = "0.00";
  slip.lines[0].amount = 12345.67;  // eight letters: as wide as the column
  const Drawing drawing = Draw();
  const DrawnText amount = TextIn(drawing, "12345,67");
  EXPECT_EQ(EndOf(amount), 1570);
  EXPECT_LT(amount.font.size, TextIn(drawing, "Pirinç").font.size);
  EXPECT_EQ(EndOf(TextIn(drawing, "99,99")), 1442);
  EXPECT_GT(amount.x, 1442 + 8);
  EXPECT_EQ(TextIn(drawing, "20,00").font.size, TextIn(drawing, "Şeker").font.size);
  EXPECT_EQ(TextIn(drawing, "Şeker").y, TextIn(drawing, "Pirinç").y + 32 + 30);
}

TEST_F(SlipTest, the_running_sum_moves_its_label_to_the_left_where_it_is_wide) {
  slip.untilToday = true;
  slip.lines = {Goods("Pirinç", 1, 1234567.89), Goods("Şeker", 1, 20)};
  slip.lines[0].date = {2026, 2, 28, 12, 0, 0};
  const Drawing drawing = Draw();
  const auto texts = TextsOf(drawing);
  const auto label = std::ranges::find(texts, "Fiş Toplamı", &DrawnText::text);
  ASSERT_NE(label, texts.end());
  EXPECT_EQ(EndOf(*(label + 1)), 1570);
  EXPECT_EQ(EndOf(*label) + 16, (label + 1)->x);
}

TEST_F(SlipTest, while_money_is_collected_neither_the_rest_nor_the_discount_is_told) {
  slip.lines = {Goods("Pirinç", 2, 50)};
  slip.collecting = true;
  slip.balance = 100;
  slip.discount = "10";
  EXPECT_EQ(Body(), (Words{"Pirinç", "2 ", " Adet", "50,00", "100,00", "Satışlar Toplamı", "100,00", "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, the_discount_is_what_the_goods_cost_less) {
  slip.lines = {Goods("Pirinç", 1, 90)};
  slip.discount = "10";
  const Drawing drawing = Draw();
  EXPECT_EQ(WordsFrom(drawing, "%10"), (Words{"%10", "10,00", " İskonto Yapıldı.", "Mali Değeri Yoktur."}));
  EXPECT_EQ(TextIn(drawing, "%10").x, 30);
  EXPECT_GT(TextIn(drawing, "10,00").x, EndOf(TextIn(drawing, "%10")));
}

TEST_F(SlipTest, a_discount_of_nothing_or_of_all_prints_no_line) {
  slip.lines = {Goods("Pirinç", 1, 90)};
  for (const char* const none : {"0", "0,00", "", "100", "150"}) {
    slip.discount = none;
    EXPECT_FALSE(Draws(Draw(), " İskonto Yapıldı.")) << none;
  }
}

TEST_F(SlipTest, tax_of_the_central_site_has_a_line) {
  slip.lines = {Goods("Pirinç", 1, 90)};
  slip.tax = 18;
  EXPECT_EQ(WordsFrom(Draw(), "Kdv")[1], "18,00");
}

TEST_F(SlipTest, the_old_debt_leaves_cheques_out_and_the_old_credit_notes_and_returns_too) {
  LineTotals totals;
  totals.sold = 100;
  totals.cash = 10;
  totals.card = 20;
  totals.cheques = 1000;
  totals.notes = 5;
  slip.balance = 500;
  EXPECT_EQ(OldBalance(slip, totals, 3, 7), 500 + 10 + 20 - 100 + 3 + 7 + 5);
  slip.side = "Alacak";
  EXPECT_EQ(OldBalance(slip, totals, 3, 7), 500 - 10 - 20 + 100 - 7);
  slip.balance = 0;
  totals.sold = 0;
  EXPECT_EQ(OldBalance(slip, totals, 3, 7), 37);  // the absolute value of the whole
}

TEST_F(SlipTest, an_old_credit_is_named_so) {
  slip.lines = {Goods("Pirinç", 1, 10)};
  slip.side = "Alacak";
  slip.balance = 5;
  EXPECT_EQ(WordsFrom(Draw(), "Eski Alacak"), (Words{"Eski Alacak", "15,00", "Kalan Alacak", "5,00", "Mali Değeri Yoktur."}));
}

TEST_F(SlipTest, a_debt_that_was_smaller_than_the_sale_has_no_line) {
  slip.lines = {Goods("Pirinç", 1, 10)};
  slip.balance = 10;
  EXPECT_FALSE(Draws(Draw(), "Eski Borç"));
}

TEST_F(SlipTest, a_slip_longer_than_a_page_goes_on_to_the_next_with_every_line_once) {
  for (int i = 0; i < 100; ++i) slip.lines.push_back(Goods("Mal " + std::to_string(i), 1, 10));
  const Drawing drawing = Draw();
  int pages = 1;
  for (const DrawingStep& step : drawing.steps) pages += std::holds_alternative<NextPage>(step) ? 1 : 0;
  EXPECT_EQ(pages, 4);
  const Words words = WordsOf(drawing);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(std::count(words.begin(), words.end(), "Mal " + std::to_string(i)), 1) << i;
  for (const DrawnText& text : TextsOf(drawing)) EXPECT_LE(text.y + 32, 2250);
}

}  // namespace
}  // namespace karvel
