#include "documents/invoice_layout.h"

#include <gtest/gtest.h>

#include "tests/support/invoice_paper.h"
#include "text/turkish.h"

namespace karvel {
namespace {

TEST(InvoiceLayoutFile, gives_the_boxes_in_twips_behind_the_four_numbers_of_its_head) {
  const auto layout = ReadInvoiceLayout(TestLayout().Bytes());
  ASSERT_TRUE(layout.has_value());
  EXPECT_EQ(layout->boxes[0].top, 300);
  EXPECT_EQ(layout->boxes[0].left, 7500);
  EXPECT_EQ(layout->boxes[invoice_box::kAmount].left, 8700);
  EXPECT_EQ(layout->boxes[46].top, 0);
}

TEST(InvoiceLayoutFile, numbers_may_stand_between_quotes_with_blanks_and_decimals) {
  std::string bytes = "\"a\", \"b\" ,3 ,4\n";
  for (int i = 0; i < 47; ++i) bytes += "\"10.5\" , \" 20\"\n";
  const auto layout = ReadInvoiceLayout(bytes);
  ASSERT_TRUE(layout.has_value());
  EXPECT_EQ(layout->boxes[46].top, 157.5);
  EXPECT_EQ(layout->boxes[46].left, 300);
}

TEST(InvoiceLayoutFile, what_follows_the_boxes_is_not_read) {
  EXPECT_TRUE(ReadInvoiceLayout(TestLayout().Bytes() + "7,8\r\n").has_value());
}

TEST(InvoiceLayoutFile, one_that_is_cut_or_holds_no_numbers_is_none) {
  const std::string bytes = TestLayout().Bytes();
  EXPECT_FALSE(ReadInvoiceLayout("").has_value());
  EXPECT_FALSE(ReadInvoiceLayout(bytes.substr(0, bytes.rfind("\r\n", bytes.size() - 3))).has_value());
  EXPECT_FALSE(ReadInvoiceLayout(ReplaceAll(bytes, "560", "x")).has_value());
}

}  // namespace
}  // namespace karvel
