#include "documents/invoice_drawing.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/invoice_paper.h"
#include "tests/support/recording_printer.h"
#include "text/turkish.h"

namespace karvel {
namespace {

using namespace invoice_box;
using Texts = std::vector<std::string>;
constexpr double kTwips = 15;

class InvoiceDrawingTest : public ::testing::Test {
 protected:
  InvoiceDrawingTest() {
    printer.pageWidth = 1600;
    paper.invoice.number = "S000001";
    paper.invoice.time = DateTime{2026, 3, 2, 9, 5, 7};
    paper.now = DateTime{2026, 3, 2, 9, 6, 8};
    paper.customer = {"Ayşe Yılmaz", "Çınar Sokak 5", "Eskişehir", "Tepebaşı", "1234567890"};
    paper.quantityFormat = "#,##0.00";
    paper.mostLines = 3;
    paper.invoice.balance = {1250.5, "Borç"};
    Add("Pirinç", 18, 2, 50);
  }
  void Add(const std::string& name, double rate, double quantity, double price) {
    InvoiceLine line;
    line.itemName = name;
    line.unit = "Adet";
    line.taxRate = rate;
    line.quantity = quantity;
    line.price = price;
    line.amount = quantity * price;
    line.tax = TaxOf(line.amount, rate, TaxMode::Added);
    EXPECT_TRUE(paper.invoice.taxes.Add(rate, line.tax));
    paper.invoice.lines.push_back(line);
    paper.invoice.amount += line.amount;
    paper.invoice.tax += line.tax;
    paper.invoice.total = paper.invoice.amount + paper.invoice.tax;
  }
  void Mark(std::initializer_list<std::size_t> marks) {
    for (const std::size_t mark : marks) paper.marks.at(mark) = true;
  }
  std::vector<DrawnText> Draw() {
    const auto layout = ReadInvoiceLayout(test.Bytes());
    const auto drawing = DrawInvoice(paper, layout.value(), measures, font);
    EXPECT_TRUE(drawing.has_value());
    pages = 1;
    std::vector<DrawnText> texts;
    for (const DrawingStep& step : drawing.value_or(Drawing{}).steps) {
      if (std::holds_alternative<NextPage>(step)) ++pages;
      if (const auto* text = std::get_if<DrawnText>(&step)) texts.push_back(*text);
    }
    return texts;
  }
  // All but the blanks that feed the body.
  Texts Lines() {
    Texts lines;
    for (const DrawnText& text : Draw())
      if (text.text != " ") lines.push_back(text.text);
    return lines;
  }
  DrawnText Find(const std::string& text) {
    const auto all = Draw();
    const auto found = std::ranges::find(all, text, &DrawnText::text);
    EXPECT_NE(found, all.end()) << text;
    return found == all.end() ? DrawnText{} : *found;
  }
  // Where the foot begins: four blank lines behind the tax identity, and a gap.
  [[nodiscard]] double Foot() const { return 120 * kTwips + 5 * measures.LineHeight(font) + 60; }
  [[nodiscard]] double FootOf(std::size_t box) const { return Foot() + (test.boxes[box].first - 400) * kTwips; }
  [[nodiscard]] double RightOf(std::size_t box) const { return test.boxes[box].second * kTwips + 1215 - 30; }

  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Twips};
  PrintFont font{"MS Sans Serif", 4};  // small: the recording printer's letters are wide
  InvoicePaper paper;
  TestLayout test;
  int pages = 0;
};

TEST_F(InvoiceDrawingTest, without_marks_the_figures_stand_alone) {
  EXPECT_EQ(Lines(), (Texts{"Ayşe Yılmaz", "Çınar Sokak 5", "Eskişehir", "Tepebaşı", "1234567890", "Pirinç", "2,00", "50,00", "100,00",
                            "100,00", "18,00", "118,00"}));
}

TEST_F(InvoiceDrawingTest, with_every_mark_each_item_stands_in_its_order) {
  Mark({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
  EXPECT_EQ(Lines(), (Texts{"Tarih : ",
                            "02.03.2026",
                            "09:05",
                            "Ayşe Yılmaz",
                            "Çınar Sokak 5",
                            "Eskişehir",
                            "Tepebaşı",
                            "1234567890",
                            "Pirinç",
                            "18",
                            "Adet",
                            "2,00",
                            "50,00",
                            "100,00",
                            "Toplam...:",
                            "100,00",
                            "Kdv % : 18",
                            "18,00",
                            "Genel Toplam...:",
                            "118,00",
                            "02.03.2026 09:06:08 itibari ile bakiyeniz : 1250,5 Borç",
                            "Yalnız ; Yüzonsekiz TL. "}));
}

TEST_F(InvoiceDrawingTest, the_mark_of_the_subtotal_changes_nothing) {
  const Texts before = Lines();
  Mark({8});
  EXPECT_EQ(Lines(), before);
}

TEST_F(InvoiceDrawingTest, head_and_customer_stand_at_their_boxes) {
  Mark({0, 1});
  const DrawnText label = Find("Tarih : ");
  EXPECT_EQ(label.x + label.width, 500 * kTwips);
  EXPECT_EQ(label.y, 20 * kTwips);
  EXPECT_EQ(Find("02.03.2026").x, 500 * kTwips);
  EXPECT_EQ(Find("09:05").y, 40 * kTwips);
  EXPECT_EQ(Find("Eskişehir").x, 30 * kTwips);
  EXPECT_EQ(Find("Eskişehir").y, 100 * kTwips);
  EXPECT_EQ(Find("Tepebaşı").x, 30 * kTwips);
  EXPECT_EQ(Find("1234567890").x, 400 * kTwips);
  EXPECT_EQ(Find("1234567890").y, 120 * kTwips);
}

TEST_F(InvoiceDrawingTest, an_office_that_runs_into_the_number_is_printed_in_one_run_with_it) {
  test.boxes[kTaxNumber] = {120, 40};
  EXPECT_EQ(Find("Tepebaşı  1234567890").x, 30 * kTwips);
  test.boxes[kTaxNumber] = {120, 30};
  EXPECT_EQ(Find("1234567890  Tepebaşı").x, 30 * kTwips);
  test.boxes[kTaxNumber] = {121, 30};
  EXPECT_EQ(Find("1234567890").y, 121 * kTwips);
}

TEST_F(InvoiceDrawingTest, an_office_that_ends_where_the_number_begins_runs_into_it) {
  paper.customer.taxOffice = "Ab";
  const double width = measures.TextWidth(font, "Ab");
  test.boxes[kTaxNumber] = {120, 30 + static_cast<int>(width / kTwips)};
  Find("Ab  1234567890");
  test.boxes[kTaxNumber] = {120, 31 + static_cast<int>(width / kTwips)};
  Find("Ab");
}

TEST_F(InvoiceDrawingTest, the_figures_of_a_line_end_two_points_inside_their_boxes_and_the_rate_at_its_edge) {
  Mark({2, 5});
  const DrawnText rate = Find("18"), quantity = Find("2,00"), price = Find("50,00"), unit = Find("Adet"), name = Find("Pirinç");
  EXPECT_EQ(rate.x + rate.width, RightOf(kRate) + 30);
  EXPECT_EQ(quantity.x + quantity.width, RightOf(kQuantity));
  EXPECT_EQ(price.x + price.width, RightOf(kPrice));
  EXPECT_EQ(unit.x, 330 * kTwips);
  EXPECT_EQ(name.x, 30 * kTwips);
  for (const DrawnText& text : {rate, quantity, price, unit, name}) EXPECT_EQ(text.y, 200 * kTwips);
}

TEST_F(InvoiceDrawingTest, each_line_follows_a_line_height_below) {
  Add("Şeker", 18, 1, 20);
  EXPECT_EQ(Find("Şeker").y, 200 * kTwips + measures.LineHeight(font));
}

TEST_F(InvoiceDrawingTest, a_name_ends_where_the_next_item_begins) {
  paper.invoice.lines.front().itemName = std::string(200, 'x');
  const auto texts = Draw();
  const auto name = std::ranges::find_if(texts, [](const DrawnText& text) { return text.text.starts_with("xx"); });
  ASSERT_NE(name, texts.end());
  const double next = Find("2,00").x;
  EXPECT_LE(name->x + name->width, next);
  EXPECT_GT(name->x + name->width + measures.TextWidth(font, "x"), next);
}

TEST_F(InvoiceDrawingTest, blank_lines_feed_to_the_foot_one_more_than_the_body_holds) {
  const auto texts = Draw();
  EXPECT_EQ(std::ranges::count(texts, " ", &DrawnText::text), 4);
  const auto blank = std::ranges::find(texts, " ", &DrawnText::text);
  EXPECT_EQ(blank->y, 120 * kTwips + measures.LineHeight(font));
}

TEST_F(InvoiceDrawingTest, the_foot_hangs_below_the_body_as_its_boxes_do) {
  Mark({3, 4, 6, 7, 9});
  const auto expectAt = [&](const std::string& text, std::size_t box) { EXPECT_NEAR(Find(text).y, FootOf(box), 0.001) << text; };
  expectAt("Toplam...:", kSum);
  expectAt("Kdv % : 18", kTax);
  expectAt("18,00", kTax);
  expectAt("Genel Toplam...:", kTotal);
  expectAt("118,00", kTotal);
  expectAt("Yalnız ; Yüzonsekiz TL. ", kWords);
  for (const char* const label : {"Toplam...:", "Kdv % : 18", "Genel Toplam...:"}) {
    const DrawnText drawn = Find(label);
    EXPECT_NEAR(drawn.x + drawn.width, 560 * kTwips, 0.001) << label;
  }
  for (const char* const figure : {"18,00", "118,00"}) {
    const DrawnText drawn = Find(figure);
    EXPECT_NEAR(drawn.x + drawn.width, RightOf(kTotal), 0.001) << figure;
  }
  EXPECT_EQ(Find("Yalnız ; Yüzonsekiz TL. ").x, 30 * kTwips);
}

TEST_F(InvoiceDrawingTest, two_rates_stand_below_each_other_with_their_sum) {
  Add("Şeker", 8, 1, 20);
  Mark({4});
  const Texts lines = Lines();
  const auto first = std::ranges::find(lines, "Kdv % : 18");
  ASSERT_GE(lines.end() - first, 6);
  EXPECT_EQ(Texts(first, first + 6), (Texts{"Kdv % : 18", "18,00", "Kdv % : 8", "1,60", "Kdv Toplamı...:", "19,60"}));
  EXPECT_NEAR(Find("Kdv % : 8").y, FootOf(kTax) + measures.LineHeight(font), 0.001);
  EXPECT_NEAR(Find("19,60").y, FootOf(kTax) + 2 * measures.LineHeight(font), 0.001);
}

TEST_F(InvoiceDrawingTest, the_sum_of_the_rates_is_left_out_with_its_label_and_theirs_is_not) {
  Add("Şeker", 8, 1, 20);
  const Texts lines = Lines();
  EXPECT_TRUE(std::ranges::count(lines, "18,00") == 1 && std::ranges::count(lines, "1,60") == 1);
  EXPECT_EQ(std::ranges::count(lines, "19,60"), 0);
}

TEST_F(InvoiceDrawingTest, six_rates_each_have_their_line) {
  for (const int rate : {1, 8, 10, 20, 28}) Add("Çeşit", rate, 1, 100);
  Mark({4});
  const Texts lines = Lines();
  EXPECT_EQ(std::ranges::count_if(lines, [](const std::string& line) { return line.starts_with("Kdv % : "); }), 6);
  EXPECT_EQ(std::ranges::count(lines, "85,00"), 1);
}

TEST_F(InvoiceDrawingTest, without_tax_no_rate_is_named) {
  paper.invoice = {};
  Add("Ekmek", 0, 1, 10);
  Mark({4, 7, 9});
  const Texts lines = Lines();
  EXPECT_EQ(std::ranges::count_if(lines, [](const std::string& line) { return line.starts_with("Kdv"); }), 0);
  EXPECT_EQ(Texts(lines.end() - 4, lines.end()), (Texts{"Toplam...:", "10,00", "Genel Toplam...:", "10,00"}));
}

TEST_F(InvoiceDrawingTest, the_sum_is_without_tax_where_the_prices_hold_it) {
  paper.invoice.amount = paper.invoice.total = 118;
  Mark({7});
  const Texts lines = Lines();
  EXPECT_EQ(*(std::ranges::find(lines, "Toplam...:") + 1), "100,00");
}

TEST_F(InvoiceDrawingTest, a_balance_of_nothing_is_not_told) {
  Mark({3});
  paper.invoice.balance = {0, "Borç"};
  for (const std::string& line : Lines()) EXPECT_FALSE(ContainsText(line, "bakiyeniz")) << line;
}

TEST_F(InvoiceDrawingTest, the_balance_of_the_customer_is_told_with_its_side) {
  Mark({3});
  paper.invoice.balance = {75, "Alacak"};
  const DrawnText told = Find("02.03.2026 09:06:08 itibari ile bakiyeniz : 75 Alacak");
  EXPECT_EQ(told.x, 30 * kTwips);
  EXPECT_NEAR(told.y, FootOf(kBalance), 0.001);
}

TEST_F(InvoiceDrawingTest, a_total_that_cannot_be_spelled_is_refused) {
  paper.invoice.total = 1e9;
  Mark({6});
  const auto layout = ReadInvoiceLayout(test.Bytes());
  EXPECT_EQ(DrawInvoice(paper, *layout, measures, font).error().Kind(), ErrorKind::BadText);
  paper.marks[6] = false;
  EXPECT_TRUE(DrawInvoice(paper, *layout, measures, font).has_value());
}

TEST_F(InvoiceDrawingTest, lines_beyond_the_page_go_on_to_the_next_and_nothing_is_lost) {
  for (int i = 0; i < 300; ++i) Add("Satır " + std::to_string(i), 18, 1, 1);
  paper.mostLines = 301;
  const Texts lines = Lines();
  EXPECT_GE(pages, 2);
  for (int i = 0; i < 300; ++i) EXPECT_EQ(std::ranges::count(lines, "Satır " + std::to_string(i)), 1);
  for (const DrawnText& text : Draw()) EXPECT_LE(text.y + measures.LineHeight(font), measures.ScaleHeight());
}

}  // namespace
}  // namespace karvel
