#include "documents/page_preparation.h"

#include <gtest/gtest.h>

#include "tests/support/drawn_texts.h"
#include "tests/support/recording_printer.h"

namespace karvel {
namespace {

// A letter is twice the points wide, a line four times the points high: 16 and 32 at 8 points.
class PagePreparationTest : public ::testing::Test {
 protected:
  PagePreparationTest() { style.companyLines = {"Velmora", "Adres", "Tel : 0212", "8", "C:\\KarvelData\\", "Mali Değeri Yoktur."}; }
  Drawing Header() {
    Pen pen(measures, font);
    PrintCompanyHeader(pen, style);
    below = pen.CurrentY;
    return pen.Finish();
  }
  std::vector<std::string> Centred(const std::string& text) {
    Pen pen(measures, font);
    PrintCentred(pen, text);
    return WordsOf(pen.Finish());
  }

  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Pixels};
  PrintFont font{"MS Sans Serif", 8};
  PrintStyle style;
  double below = 0;
};

TEST_F(PagePreparationTest, slips_have_four_columns_of_eight_zeros_between_margins_of_thirty) {
  const Columns columns = SlipColumns(measures, font);
  EXPECT_EQ(columns.left, 30);
  EXPECT_EQ(columns.number, 128);
  EXPECT_EQ(columns.NameWidth(), 1600 - (4 * 128 + 60));
  EXPECT_EQ(columns.Edge(1), 30 + columns.NameWidth() + 128);
  EXPECT_EQ(columns.Edge(4), 1600 - 30);
  EXPECT_EQ(font.size, 8);
}

TEST_F(PagePreparationTest, a_centred_table_is_a_hundred_and_twenty_narrower_than_the_page) {
  const Columns columns = CentredColumns(measures, font, 3, 9);
  EXPECT_EQ(columns.number, 144);
  EXPECT_EQ(columns.left, 60);
  EXPECT_EQ(columns.NameWidth(), 1600 - (3 * 144 + 120));
  EXPECT_EQ(columns.Right(), 1540);
}

TEST_F(PagePreparationTest, on_a_narrow_roll_the_font_shrinks_until_names_have_the_room_of_a_figure) {
  printer.pageWidth = 384;
  const Columns columns = SlipColumns(measures, font);
  EXPECT_LT(font.size, 8);
  EXPECT_GE(columns.NameWidth(), columns.number);
  EXPECT_EQ(columns.Right(), 354);
  font.size += 0.5;  // one step more would not do
  EXPECT_LT(384 - 60 - 4 * measures.TextWidth(font, "00000000"), measures.TextWidth(font, "00000000"));
}

TEST_F(PagePreparationTest, the_header_is_centred_bold_and_two_points_larger) {
  const Drawing drawing = Header();
  EXPECT_EQ(WordsOf(drawing), (std::vector<std::string>{"Velmora", "Adres", "Tel : 0212"}));
  const DrawnText title = TextIn(drawing, "Velmora");
  EXPECT_EQ(title.font.size, 10);
  EXPECT_TRUE(title.font.bold);
  EXPECT_EQ(title.x, (1600 - 7 * 20) / 2.0);
  EXPECT_EQ(below, 3 * 40 + 60);
}

TEST_F(PagePreparationTest, an_empty_line_of_the_company_takes_no_room) {
  style.companyLines[1].clear();
  EXPECT_EQ(WordsOf(Header()), (std::vector<std::string>{"Velmora", "Tel : 0212"}));
  EXPECT_EQ(below, 2 * 40 + 60);
}

TEST_F(PagePreparationTest, bars_part_the_address_into_lines) {
  style.companyLines[1] = "Çarşı Cad. 5|Kat 2|İstanbul";
  EXPECT_EQ(WordsOf(Header()), (std::vector<std::string>{"Velmora", "Çarşı Cad. 5", "Kat 2", "İstanbul", "Tel : 0212"}));
}

TEST_F(PagePreparationTest, the_heading_ends_plain_and_a_step_down) {
  Pen pen(measures, font);
  PrintCompanyHeader(pen, style);
  const double before = pen.CurrentY;
  EndHeading(pen);
  EXPECT_EQ(pen.font, font);
  EXPECT_EQ(pen.CurrentY, before + 30);
}

TEST_F(PagePreparationTest, a_text_as_wide_as_the_page_is_one_line_and_a_wider_one_is_broken_at_a_blank) {
  printer.pageWidth = 160;
  EXPECT_EQ(Centred("Ayşe Yılma"), (std::vector<std::string>{"Ayşe Yılma"}));
  EXPECT_EQ(Centred("Ayşe Yılmaz"), (std::vector<std::string>{"Ayşe", "Yılmaz"}));
  EXPECT_EQ(Centred("Ayşe Naz Yılmaz Oğulları"), (std::vector<std::string>{"Ayşe Naz", "Yılmaz", "Oğulları"}));
}

TEST_F(PagePreparationTest, a_word_wider_than_the_page_is_cut_by_letters) {
  printer.pageWidth = 160;
  EXPECT_EQ(Centred("Şekercioğulları"), (std::vector<std::string>{"Şekercioğu", "lları"}));
  EXPECT_EQ(Centred("Ali Şekercioğulları"), (std::vector<std::string>{"Ali", "Şekercioğu", "lları"}));
}

TEST_F(PagePreparationTest, a_page_narrower_than_a_letter_ends_all_the_same) {
  printer.pageWidth = 10;
  EXPECT_EQ(Centred("Ali").size(), 3U);
}

TEST_F(PagePreparationTest, cutting_ends_at_the_empty_text) {
  const Pen pen(measures, font);
  EXPECT_EQ(CutToWidth(pen, "Şeker", 5 * 16), "Şeker");
  EXPECT_EQ(CutToWidth(pen, "Şeker", 5 * 16 - 1), "Şeke");
  EXPECT_EQ(CutToWidth(pen, "Şeker", -1), "");
}

TEST_F(PagePreparationTest, the_foot_stands_sixty_above_an_empty_line_where_letters_are_high) {
  font.size = 20;  // 80 high
  Pen pen(measures, font);
  PrintFoot(pen, style);
  const Drawing drawing = pen.Finish();
  EXPECT_EQ(TextIn(drawing, "Mali Değeri Yoktur.").y, 20);
}

TEST_F(PagePreparationTest, the_foot_never_runs_into_the_line_above) {
  Pen pen(measures, font);
  pen.PrintLine("Kalan Borç");
  PrintFoot(pen, style);
  EXPECT_EQ(TextIn(pen.Finish(), "Mali Değeri Yoktur.").y, 32);
}

TEST_F(PagePreparationTest, the_feed_is_a_point_a_line) {
  Pen pen(measures, font);
  style.feedLines = 3;
  PrintFoot(pen, style);
  EXPECT_EQ(WordsOf(pen.Finish()), (std::vector<std::string>{"Mali Değeri Yoktur.", ".", ".", "."}));
  style.feedLines = 0;
  style.companyLines[5].clear();
  PrintFoot(pen, style);
  EXPECT_TRUE(WordsOf(pen.Finish()).empty());
}

TEST_F(PagePreparationTest, a_figure_that_would_run_into_its_label_goes_to_the_next_line) {
  Pen pen(measures, font);
  const Columns columns = CentredColumns(measures, font, 2, 8);
  PrintLabelled(pen, columns, "Toplam", "1,00");
  PrintLabelled(pen, columns, std::string(90, 'x'), "1,00");
  const auto texts = TextsOf(pen.Finish());
  EXPECT_EQ(texts[1].y, texts[0].y);
  EXPECT_EQ(EndOf(texts[1]), columns.Right());
  EXPECT_EQ(texts[3].y, texts[2].y + 32);
  EXPECT_EQ(EndOf(texts[3]), columns.Right());
}

}  // namespace
}  // namespace karvel
