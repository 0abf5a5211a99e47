#include "books/invoice_numbers.h"

#include "tests/support/books_fixture.h"

namespace karvel {
namespace {

class InvoiceNumbers : public BooksFixture {
 protected:
  std::string Free(const std::string& wanted) { return FreeInvoiceNumber(shop, wanted).value_or("none"); }
};

TEST_F(InvoiceNumbers, the_next_keeps_its_length_until_it_no_longer_fits) {
  EXPECT_EQ(NextInvoiceNumber("000000"), "S000001");
  EXPECT_EQ(NextInvoiceNumber("000199"), "S000200");
  EXPECT_EQ(NextInvoiceNumber("999999"), "S1000000");
  EXPECT_EQ(NextInvoiceNumber("9"), "S10");
  EXPECT_EQ(NextInvoiceNumber("2026000000000999999"), "S2026000000001000000");
}

TEST_F(InvoiceNumbers, every_s_is_left_out_and_what_is_no_number_counts_as_nothing) {
  EXPECT_EQ(BareInvoiceNumber("SS0012S"), "0012");
  EXPECT_EQ(NextInvoiceNumber("S0012"), "S0013");
  EXPECT_EQ(NextInvoiceNumber("A12"), "S000001");
  EXPECT_EQ(NextInvoiceNumber("s000041"), "S000001");
  EXPECT_EQ(NextInvoiceNumber(""), "S000001");
}

TEST_F(InvoiceNumbers, a_typed_one_is_an_s_and_digits_with_the_rest_made_good) {
  EXPECT_EQ(ReadInvoiceNumber("S000041"), "S000041");
  EXPECT_EQ(ReadInvoiceNumber(" s000041  "), "S000041");
  EXPECT_EQ(ReadInvoiceNumber("41"), "S000041");
  EXPECT_EQ(ReadInvoiceNumber("20260000041"), "S20260000041");
  EXPECT_EQ(ReadInvoiceNumber("S0041"), "S0041");
}

TEST_F(InvoiceNumbers, any_other_text_is_none) {
  for (const char* const typed : {"", "   ", "S", "s ", "A-17", "Fatura", "S 2", "S-2", "SS2", "S2A", "2S", "2,5", "٣", "Ş000001"})
    EXPECT_EQ(ReadInvoiceNumber(typed), std::nullopt) << typed;
}

TEST_F(InvoiceNumbers, one_that_is_free_is_taken_as_it_stands) {
  EXPECT_EQ(Free("S000005"), "S000005");
  EXPECT_EQ(Free("A-7"), "A-7");
}

TEST_F(InvoiceNumbers, one_that_is_borne_is_counted_on) {
  Sql("Fatura.mdb", "INSERT INTO Faturalar(FaturaNo) VALUES('S000005'),('S000006'),('S999999'),('A''7')");
  EXPECT_EQ(Free("S000005"), "S000007");
  EXPECT_EQ(Free("S999999"), "S1000000");
  EXPECT_EQ(Free("A'7"), "S000001");
}

TEST_F(InvoiceNumbers, a_book_that_cannot_be_read_gives_none) {
  engine.readFault = {ErrorKind::DiskFailed, "the disk is silent"};
  EXPECT_EQ(Free("S000005"), "none");
  engine.readFault = {};
}

}  // namespace
}  // namespace karvel
