#include "documents/pen.h"

#include <gtest/gtest.h>

#include "tests/support/recording_printer.h"

namespace karvel {
namespace {

class PenTest : public ::testing::Test {
 protected:
  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Pixels};
  Pen pen{measures, {"MS Sans Serif", 10}};  // a letter is 20 wide, a line 40 high
  static const DrawnText& TextAt(const Drawing& drawing, std::size_t step) { return std::get<DrawnText>(drawing.steps.at(step)); }
};

TEST_F(PenTest, a_text_moves_the_place_on_and_a_line_end_down) {
  pen.CurrentX = 30;
  pen.Print("Şeker");
  EXPECT_EQ(pen.CurrentX, 130);
  EXPECT_EQ(pen.CurrentY, 0);
  pen.PrintLine("1");
  EXPECT_EQ(pen.CurrentX, 0);
  EXPECT_EQ(pen.CurrentY, 40);
  pen.PrintLine();
  EXPECT_EQ(pen.CurrentY, 80);
  const Drawing drawing = pen.Finish();
  ASSERT_EQ(drawing.steps.size(), 2U);
  EXPECT_EQ(TextAt(drawing, 0).x, 30);
  EXPECT_EQ(TextAt(drawing, 0).width, 100);
  EXPECT_EQ(TextAt(drawing, 1).x, 130);
}

TEST_F(PenTest, right_edges_and_middles) {
  pen.PrintEndingAt(500, "12,50");
  pen.PrintLineCentred("Velmora");
  pen.PrintCentred(100, 300, "ab");
  const Drawing drawing = pen.Finish();
  EXPECT_EQ(TextAt(drawing, 0).x, 400);
  EXPECT_EQ(TextAt(drawing, 1).x, (1600 - 140) / 2.0);
  EXPECT_EQ(TextAt(drawing, 2).x, 180);
}

TEST_F(PenTest, what_would_fall_below_the_page_goes_on_at_the_top_of_the_next) {
  pen.CurrentY = 2210;
  pen.PrintLine("fits");
  pen.PrintLine("next");
  pen.CurrentY = 2251;
  pen.Rule(0, 100);
  const Drawing drawing = pen.Finish();
  ASSERT_EQ(drawing.steps.size(), 5U);
  EXPECT_EQ(TextAt(drawing, 0).y, 2210);
  EXPECT_TRUE(std::holds_alternative<NextPage>(drawing.steps[1]));
  EXPECT_EQ(TextAt(drawing, 2).y, 0);
  EXPECT_TRUE(std::holds_alternative<NextPage>(drawing.steps[3]));
  EXPECT_EQ(std::get<DrawnLine>(drawing.steps[4]).y1, 0);
}

TEST_F(PenTest, a_picture_too_high_for_any_page_stands_at_the_top) {
  pen.Paint({}, 10, 100, 5000);
  EXPECT_EQ(pen.Finish().steps.size(), 1U);
}

}  // namespace
}  // namespace karvel
