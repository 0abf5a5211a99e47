#include "exchange/card_sheet.h"

#include <gtest/gtest.h>

#include "exchange/csv_sheet.h"
#include "exchange/import_report.h"
#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

CardSheet Read(const std::string& text) {
  return ReadCardSheet(*ReadCsv(text));
}

// "line/column" of each fault.
Texts Faults(const std::string& text) {
  Texts faults;
  for (const SheetFault& fault : Read(text).faults) faults.push_back(std::to_string(fault.line) + "/" + std::to_string(fault.column));
  return faults;
}

Value Only(const std::string& heading, const std::string& cell) {
  const CardSheet cards = Read("Stok Kodu;" + heading + "\n1;" + cell);
  EXPECT_TRUE(cards.faults.empty()) << FaultLine(cards.faults.front(), cards);
  return cards.cards.at(0).values.at(1);
}

TEST(CardSheet, the_headings_tell_what_cards_they_are) {
  EXPECT_EQ(Read("Stok Kodu;Stok Adı\n1;a").kind, &StockCardKind());
  EXPECT_EQ(Read("Ünvan;Cari Kodu\n1;a").kind, &CustomerCardKind());
  EXPECT_EQ(Read("Ad;Soyad\n1;a").kind, nullptr);
  EXPECT_EQ(Faults("Ad;Soyad\n1;a"), (Texts{"1/-1"}));
  EXPECT_EQ(Faults(""), (Texts{"0/-1"}));
}

TEST(CardSheet, headings_are_known_however_they_are_spelled) {
  const CardSheet cards = Read("STOK KODU;STOK ADI;1. Fiyat;BİRİM;gfiyat;2.BIRIM\n1;a;2;Adet;3;Koli");
  ASSERT_TRUE(cards.faults.empty());
  Texts fields;
  for (const auto& used : cards.columns) fields.emplace_back(used.column->field);
  EXPECT_EQ(fields, (Texts{"StokKod", "StokAdi", "Fiyat", "Birim", "gFiyat", "Birim2"}));
}

TEST(CardSheet, a_heading_that_is_unknown_or_there_twice_is_a_fault_so_that_no_column_is_lost) {
  EXPECT_EQ(Faults("Stok Kodu;Fiyatt;Barkod;barkod\n1;2;3;4"), (Texts{"1/1", "1/3"}));
  EXPECT_EQ(Faults("Stok Kodu;;Barkod\n1;;3\n2;x;4"), (Texts{"3/1"}));
}

TEST(CardSheet, every_field_of_a_kind_is_one_of_its_table_and_the_lists_headings_are_among_the_columns) {
  for (const CardKind* const kind : {&StockCardKind(), &CustomerCardKind()}) {
    const Table& table = *Catalogue::File(kind->file)->Find(kind->table);
    for (const CardColumn& column : kind->columns) {
      EXPECT_GE(table.Position(column.field), 0) << column.field;
      EXPECT_EQ(kind->Find(column.heading), &column) << column.heading;
    }
    EXPECT_EQ(kind->columns.front().field, kind->code);
  }
}

TEST(CardSheet, amounts_are_read_as_the_desk_writes_them) {
  EXPECT_EQ(Only("1.Fiyat", "1.250,75"), Value(1250.75));
  EXPECT_EQ(Only("1.Fiyat", "12,50 TL"), Value(12.5));
  EXPECT_EQ(Only("1.Fiyat", "₺12"), Value(12.0));
  EXPECT_EQ(Only("Kdv", "%18"), Value(18.0));
  EXPECT_EQ(Only("Kalan", "-3,5"), Value(-3.5));
  EXPECT_EQ(Only("1.Fiyat", ""), Value());
}

TEST(CardSheet, an_amount_that_would_be_another_number_here_is_a_fault) {
  for (const char* const wrong : {"1250.75", "1,250.75", "12.5", "1.25.000", "abc", "-5", "1e5"})
    EXPECT_EQ(Faults(std::string("Stok Kodu;1.Fiyat\n1;") + wrong), (Texts{"2/1"})) << wrong;
  for (const char* const wrong : {"0,18", "118", "-1"})
    EXPECT_EQ(Faults(std::string("Stok Kodu;Kdv\n1;") + wrong), (Texts{"2/1"})) << wrong;
}

TEST(CardSheet, a_barcode_that_a_spreadsheet_shortened_is_refused_by_its_line) {
  EXPECT_EQ(Faults("Stok Kodu;Barkod\n1;8690000000012\n2;8,69E+12\n3;8.69E+12\n8,69E+12;4"), (Texts{"3/1", "4/1", "5/0"}));
  EXPECT_EQ(Only("Barkod", "ABE+12"), Value(std::string("ABE+12")));
  const CardSheet cards = Read("Stok Kodu;Barkod\n1;8,69E+12");
  EXPECT_TRUE(FaultLine(cards.faults[0], cards).starts_with("Satır 2, sütun B (Barkod): ")) << FaultLine(cards.faults[0], cards);
}

TEST(CardSheet, yes_and_no_and_the_sides_are_words) {
  EXPECT_EQ(Only("Gizli", "EVET"), Value(true));
  EXPECT_EQ(Only("Gizli", "hayır"), Value(false));
  EXPECT_EQ(Only("Kar Takibi", "Evet"), Value(1.0));
  EXPECT_EQ(Faults("Cari Kodu;Hesap\n1;Borç\n2;alacak\n3;Verecek"), (Texts{"4/1"}));
}

TEST(CardSheet, what_no_card_can_hold_is_a_fault) {
  EXPECT_EQ(Faults("Stok Kodu;Stok Adı\n1;\"iki\nsatır\""), (Texts{"2/1"}));
  EXPECT_EQ(Faults("Stok Kodu;Stok Adı\n1;#N/A"), (Texts{"2/1"}));
  EXPECT_EQ(Faults("Stok Kodu,1.Fiyat\n1,12,50"), (Texts{"2/2"}));
}

TEST(CardSheet, a_cell_that_the_spreadsheet_holds_otherwise_is_a_fault_once_and_no_value) {
  Sheet sheet{{{1, {"Stok Kodu", "1.Fiyat", "Barkod"}}, {2, {"1", "", "8,69E+12"}}, {3, {"", "5"}}}, {{2, 1, "Tarih."}, {3, 0, "Tarih."}}};
  const CardSheet cards = ReadCardSheet(sheet);
  Texts told;
  for (const SheetFault& fault : cards.faults) told.push_back(FaultLine(fault, cards));
  ASSERT_EQ(told.size(), 3U);
  EXPECT_EQ(told[0], "Satır 2, sütun B (1.Fiyat): Tarih.");
  EXPECT_TRUE(told[1].starts_with("Satır 2, sütun C (Barkod): ")) << told[1];
  EXPECT_EQ(told[2], "Satır 3, sütun A (Stok Kodu): Tarih.");
  EXPECT_EQ(cards.cards.at(0).values.at(1), Value());
}

TEST(CardSheet, headings_that_are_dates_are_told_alone) {
  const Sheet sheet{{{1, {"Stok Kodu", ""}}, {2, {"1", "5"}}, {3, {"2", "5"}}}, {{1, 1, "Tarih."}}};
  EXPECT_EQ(ReadCardSheet(sheet).faults, sheet.faults);
}

class CardColumnsTest : public DeskFixture {};

TEST_F(CardColumnsTest, the_stock_lists_own_headings_are_headings_of_a_file) {
  ASSERT_TRUE(Start());
  for (const GridColumn& column : desk->screen.StokGrid.Columns()) {
    const CardColumn* const found = StockCardKind().Find(column.caption);
    ASSERT_NE(found, nullptr) << column.caption;
    EXPECT_EQ(found->field, column.field);
  }
}

}  // namespace
}  // namespace karvel
