#include "books/invoice_tax.h"

#include <gtest/gtest.h>

namespace karvel {
namespace {

TEST(InvoiceTax, is_rounded_to_the_kurus_with_halves_up) {
  EXPECT_EQ(TaxOf(100, 18, TaxMode::Added), 18);
  EXPECT_EQ(TaxOf(118, 18, TaxMode::Included), 18);
  EXPECT_EQ(TaxOf(1.25, 18, TaxMode::Added), 0.23);         // 0,225
  EXPECT_EQ(TaxOf(123456.5, 1, TaxMode::Added), 1234.57);   // 1234,565, of which binary numbers leave a hair less
  EXPECT_EQ(TaxOf(10000.25, 10, TaxMode::Added), 1000.03);  // 1000,025
  EXPECT_EQ(TaxOf(-100, 20, TaxMode::Added), -20);
}

TEST(InvoiceTax, of_a_rate_of_nothing_is_nothing) {
  for (const TaxMode mode : {TaxMode::Included, TaxMode::Added}) EXPECT_EQ(TaxOf(99.99, 0, mode), 0);
}

TEST(InvoiceTax, the_table_takes_six_rates_and_refuses_a_seventh) {
  TaxTable taxes;
  for (int rate = 1; rate <= 6; ++rate) EXPECT_TRUE(taxes.Add(rate, 0.1));
  EXPECT_TRUE(taxes.Add(3, 0.1));
  EXPECT_TRUE(taxes.Add(0, 0));
  EXPECT_FALSE(taxes.Add(7, 5));
  EXPECT_EQ(taxes.Entries()[2].rate, 3);
  EXPECT_EQ(taxes.Entries()[2].tax, 0.2);
  EXPECT_EQ(taxes.Sum(), 0.7);
}

TEST(InvoiceTax, a_rate_of_nothing_leaves_its_place_to_the_next) {
  TaxTable taxes;
  EXPECT_TRUE(taxes.Add(0, 0));
  EXPECT_TRUE(taxes.Add(20, 4));
  EXPECT_EQ(taxes.Entries()[0].rate, 20);
  EXPECT_EQ(taxes.Entries()[0].tax, 4);
  EXPECT_EQ(taxes.Entries()[1].rate, 0);
}

}  // namespace
}  // namespace karvel
