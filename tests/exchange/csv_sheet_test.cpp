#include "exchange/csv_sheet.h"

#include <gtest/gtest.h>

#include "text/turkish.h"

namespace karvel {
namespace {

// "line: cell|cell"
std::vector<std::string> Rows(const SheetOutcome& sheet) {
  std::vector<std::string> rows;
  if (!sheet) return {"fault in line " + std::to_string(sheet.error().line)};
  for (const SheetRow& row : sheet->rows) {
    std::string text = std::to_string(row.line) + ": ";
    for (std::size_t i = 0; i < row.cells.size(); ++i) text += (i == 0 ? "" : "|") + row.cells[i];
    rows.push_back(text);
  }
  return rows;
}

using Texts = std::vector<std::string>;

TEST(CsvSheet, the_sign_between_the_cells_is_found_out) {
  EXPECT_EQ(Rows(ReadCsv("a;b,c\n1;2,5\n")), (Texts{"1: a|b,c", "2: 1|2,5"}));
  EXPECT_EQ(Rows(ReadCsv("a,b,c\n1,\"2,5\",3\n")), (Texts{"1: a|b|c", "2: 1|2,5|3"}));
  EXPECT_EQ(Rows(ReadCsv("a\tb\n1\t2")), (Texts{"1: a|b", "2: 1|2"}));
  EXPECT_EQ(Rows(ReadCsv("\"a;b\",c\n1,2")), (Texts{"1: a;b|c", "2: 1|2"}));
  EXPECT_EQ(Rows(ReadCsv("a\n1,5")), (Texts{"1: a", "2: 1,5"}));
}

TEST(CsvSheet, utf_8_and_the_turkish_code_page_are_told_apart) {
  EXPECT_EQ(Rows(ReadCsv("Ünvan;Şehir\nİğde;Çöğür")), (Texts{"1: Ünvan|Şehir", "2: İğde|Çöğür"}));
  EXPECT_EQ(Rows(ReadCsv("\xEF\xBB\xBF\xC3\x9Cnvan;b")), (Texts{"1: Ünvan|b"}));
  EXPECT_EQ(Rows(ReadCsv(ToCp1254("Ünvan;Şehir\nİğde;Çöğür"))), (Texts{"1: Ünvan|Şehir", "2: İğde|Çöğür"}));
}

// "line/column", both from 1, of the cells that hold no text.
Texts Faults(const SheetOutcome& sheet) {
  Texts faults;
  for (const SheetFault& fault : sheet->faults) faults.push_back(std::to_string(fault.line) + "/" + std::to_string(fault.column + 1));
  return faults;
}

TEST(CsvSheet, a_damaged_byte_in_a_utf_8_file_is_a_fault_of_its_cell_and_spoils_no_other) {
  const SheetOutcome sheet = ReadCsv("Ünvan;Şehir\nŞark;İzmir\nAy\xFE;Muş\nAli;\xC5\n");
  EXPECT_EQ(Faults(sheet), (Texts{"3/1", "4/2"}));
  EXPECT_EQ(Rows(sheet), (Texts{"1: Ünvan|Şehir", "2: Şark|İzmir", "3: |Muş", "4: Ali|"}));
  EXPECT_EQ(Faults(ReadCsv("\xEF\xBB\xBF"
                           "a;b\n1;\xFE\xFE\n")),
            Texts{"2/2"});
}

TEST(CsvSheet, a_byte_without_a_letter_in_the_code_page_is_a_fault_of_its_cell) {
  for (const char byte : std::string("\x81\x8D\x8E\x8F\x90\x9D\x9E"))
    EXPECT_EQ(Faults(ReadCsv(ToCp1254("Ünvan;Şehir\nÇöğür;") + byte + "\n")), Texts{"2/2"});
  const SheetOutcome whole = ReadCsv(ToCp1254("Ünvan;Not\nÜRÜNÜ’NÜN “iyi” €5…;kâr\n"));
  EXPECT_EQ(Faults(whole), Texts{});
  EXPECT_EQ(Rows(whole)[1], "2: ÜRÜNÜ’NÜN “iyi” €5…|kâr");
}

TEST(CsvSheet, quotes_hold_signs_quotes_and_line_ends_and_lines_are_counted_as_they_stand) {
  EXPECT_EQ(Rows(ReadCsv("a;b\r\n\"x;\"\"y\"\"\";\"iki\nsatır\"\r\n\r\n;\r\nson;z\r\n")),
            (Texts{"1: a|b", "2: x;\"y\"|iki\nsatır", "6: son|z"}));
  EXPECT_EQ(Rows(ReadCsv("a;b\r1;2\r3;4")), (Texts{"1: a|b", "2: 1|2", "3: 3|4"}));
  EXPECT_EQ(Rows(ReadCsv("a ; b\n 1 ;\" 2 \"")), (Texts{"1: a|b", "2: 1|2"}));
}

TEST(CsvSheet, what_is_no_text_is_refused_in_plain_words) {
  EXPECT_EQ(ReadCsv("a;b\n1;\"2\n3;4").error(), (SheetFault{2, 1, "Açılan tırnak kapanmamış."}));
  EXPECT_TRUE(ContainsText(ReadCsv(std::string_view("\xFF\xFE"
                                                    "a\0",
                                                    4))
                               .error()
                               .what,
                           "UTF-16"));
  EXPECT_TRUE(ContainsText(ReadCsv("\xD0\xCF\x11\xE0").error().what, ".xls"));
  EXPECT_EQ(ReadCsv(std::string_view("a\0b", 3)).error().line, 0);
  EXPECT_TRUE(ReadCsv("")->rows.empty());
}

TEST(CsvSheet, what_is_written_is_read_again) {
  const Sheet sheet{{{1, {"Ünvan", "Adres"}}, {2, {"Ali \"Usta\"", "No; 3"}}, {3, {"8690000000012", "iki\nsatır"}}}};
  const std::string text = WriteCsv(sheet);
  EXPECT_TRUE(text.starts_with("\xEF\xBB\xBFÜnvan;Adres\r\n"));
  EXPECT_EQ(Rows(ReadCsv(text)), (Texts{"1: Ünvan|Adres", "2: Ali \"Usta\"|No; 3", "3: 8690000000012|iki\nsatır"}));
}

TEST(CsvSheet, columns_have_the_letters_of_a_spreadsheet) {
  EXPECT_EQ(ColumnLetters(0), "A");
  EXPECT_EQ(ColumnLetters(25), "Z");
  EXPECT_EQ(ColumnLetters(26), "AA");
  EXPECT_EQ(ColumnLetters(701), "ZZ");
  EXPECT_EQ(ColumnLetters(702), "AAA");
}

}  // namespace
}  // namespace karvel
