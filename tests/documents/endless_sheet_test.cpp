#include "documents/endless_sheet.h"

#include <gtest/gtest.h>

#include "tests/support/recording_printer.h"

namespace karvel {
namespace {

class EndlessSheetTest : public ::testing::Test {
 protected:
  // Each text as "page:y text".
  std::vector<std::string> Cut() {
    std::vector<std::string> placed;
    int page = 1;
    for (const DrawingStep& step : sheet.Cut().steps) {
      if (std::holds_alternative<NextPage>(step)) ++page;
      if (const auto* text = std::get_if<DrawnText>(&step))
        placed.push_back(std::to_string(page) + ":" + std::to_string(static_cast<int>(text->y)) + " " + text->text);
    }
    return placed;
  }

  RecordingPrinter printer;
  PrinterMeasures measures{printer, ScaleMode::Pixels};
  EndlessSheet sheet{measures, {"MS Sans Serif", 10}, ScaleMode::Pixels};  // a letter is 20 wide, a line 40 high, a page 2250
};

using Texts = std::vector<std::string>;

TEST_F(EndlessSheetTest, what_fits_stands_where_it_was_put_in_the_order_in_which_it_was_put) {
  sheet.Put(10, 2210, "foot");
  sheet.Put(10, 0, "head");
  sheet.PutEndingAt(500, 0, "right");
  EXPECT_EQ(Cut(), (Texts{"1:2210 foot", "1:0 head", "1:0 right"}));
  EXPECT_EQ(std::get<DrawnText>(sheet.Cut().steps[2]).x, 400);
}

TEST_F(EndlessSheetTest, a_line_across_the_bottom_begins_the_next_page_and_all_below_moves_with_it) {
  sheet.Put(0, 2260, "third");
  sheet.Put(0, 2220, "second");
  sheet.Put(100, 2220, "beside");
  sheet.Put(0, 2180, "first");
  EXPECT_EQ(Cut(), (Texts{"1:2180 first", "2:40 third", "2:0 second", "2:0 beside"}));
}

TEST_F(EndlessSheetTest, pages_without_a_text_are_fed_through) {
  sheet.Put(0, 5000, "far");
  EXPECT_EQ(Cut(), (Texts{"3:500 far"}));
}

TEST_F(EndlessSheetTest, nothing_and_what_lies_above_the_paper) {
  sheet.Put(0, 100, "");
  sheet.Put(0, -20, "above");
  sheet.Put(0, 60, "below");
  EXPECT_EQ(Cut(), (Texts{"1:0 above", "1:60 below"}));
}

}  // namespace
}  // namespace karvel
