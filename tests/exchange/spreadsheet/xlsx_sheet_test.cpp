#include "exchange/spreadsheet/xlsx_sheet.h"

#include <gtest/gtest.h>
#include <zip.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

using Texts = std::vector<std::string>;

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// "line/column" of each cell that holds neither text nor number.
Texts Faults(const SheetOutcome& sheet) {
  if (!sheet) return {"fault: " + sheet.error().what};
  Texts faults;
  for (const SheetFault& fault : sheet->faults) faults.push_back(std::to_string(fault.line) + "/" + std::to_string(fault.column));
  return faults;
}

Texts Rows(const SheetOutcome& sheet) {
  if (!sheet) return {"fault: " + sheet.error().what};
  Texts rows;
  for (const SheetRow& row : sheet->rows) {
    std::string text = std::to_string(row.line) + ": ";
    for (std::size_t i = 0; i < row.cells.size(); ++i) text += (i == 0 ? "" : "|") + row.cells[i];
    rows.push_back(text);
  }
  return rows;
}

class XlsxSheet : public ::testing::Test {
 protected:
  // A workbook of one sheet with these rows in its XML, these shared texts, and these looks of cells.
  std::string Workbook(const std::string& rows, const std::string& texts = "", const std::string& looks = "") {
    std::map<std::string, std::string> parts{
        {"xl/workbook.xml",
         "<workbook xmlns:r='r'><sheets><sheet name='Gizli' sheetId='7' r:id='rId2'/><sheet name='b' sheetId='1' "
         "r:id='rId1'/></sheets></workbook>"},
        {"xl/_rels/workbook.xml.rels",
         "<Relationships><Relationship Id='rId1' Type='x/worksheet' Target='worksheets/sheet1.xml'/>"
         "<Relationship Id='rId2' Type='x/worksheet' Target='/xl/worksheets/sheet2.xml'/>"
         "<Relationship Id='rId3' Type='x/sharedStrings' Target='sharedStrings.xml'/>"
         "<Relationship Id='rId4' Type='x/styles' Target='styles.xml'/></Relationships>"},
        {"xl/styles.xml", "<styleSheet>" + looks + "</styleSheet>"},
        {"xl/worksheets/sheet1.xml", "<worksheet/>"},
        {"xl/worksheets/sheet2.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"},
        {"xl/sharedStrings.xml", "<sst>" + texts + "</sst>"}};
    const std::string path = folder.Path() + "/book.xlsx";
    std::filesystem::remove(path);
    zip_t* const zip = zip_open(path.c_str(), ZIP_CREATE, nullptr);
    for (const auto& [name, text] : parts)
      zip_file_add(zip, name.c_str(), zip_source_buffer(zip, text.data(), text.size(), 0), ZIP_FL_ENC_UTF_8);
    EXPECT_EQ(zip_close(zip), 0);
    return BytesOf(path);
  }

  TempFolder folder;
};

TEST_F(XlsxSheet, the_first_sheet_is_read_with_all_digits_of_its_numbers) {
  EXPECT_EQ(Rows(ReadXlsx(Workbook(
                "<row r='1'><c r='A1' t='s'><v>0</v></c><c r='C1' t='s'><v>1</v></c></row>"
                "<row r='4'><c r='A4'><v>8690000000012</v></c><c r='B4'><v>8.690000000013E12</v></c><c r='C4'><v>12.5</v></c></row>"
                "<row r='5'><c r='B5' t='inlineStr'><is><t> Çay </t></is></c><c r='C5' t='b'><v>1</v></c></row>"
                "<row r='6'><c r='A6'/><c r='B6' t='str'><v></v></c></row>",
                "<si><t>Stok Kodu</t></si><si><r><t>1.Fi</t></r><r><t>yat</t></r><rPh><t>x</t></rPh></si>"))),
            (Texts{"1: Stok Kodu||1.Fiyat", "4: 8690000000012|8690000000013|12,5", "5: |Çay|Evet"}));
}

TEST_F(XlsxSheet, a_number_with_more_digits_than_a_spreadsheet_keeps_comes_as_it_is_written) {
  EXPECT_EQ(Rows(ReadXlsx(Workbook("<row r='1'><c r='A1'><v>1.2345678901234599E+17</v></c><c r='B1'><v>123456789012345678</v></c></row>"))),
            (Texts{"1: 1.2345678901234599E+17|123456789012345678"}));
}

TEST_F(XlsxSheet, cells_and_rows_without_their_names_follow_each_other) {
  EXPECT_EQ(Rows(ReadXlsx(Workbook("<row><c><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>"))), (Texts{"1: 1|2", "2: 3"}));
}

TEST_F(XlsxSheet, what_the_spreadsheet_took_for_a_date_is_a_fault_and_no_number) {
  const std::string looks =
      "<numFmts><numFmt numFmtId='170' formatCode='d/mmm'/><numFmt numFmtId='171' formatCode='[Red]#,##0.00\\ &quot;adet&quot;;\\d0'/>"
      "<numFmt numFmtId='172' formatCode='[$-41F]0.0'/><numFmt numFmtId='173' formatCode='[hh]'/><numFmt numFmtId='9' "
      "formatCode='yyyy'/></numFmts>"
      "<cellStyleXfs><xf numFmtId='14'/></cellStyleXfs>"
      "<cellXfs><xf numFmtId='0'/><xf numFmtId='16'/><xf numFmtId='170'/><xf numFmtId='171'/><xf numFmtId='172'/><xf numFmtId='173'/>"
      "<xf numFmtId='9'/><xf numFmtId='4'/></cellXfs>";
  const SheetOutcome sheet = ReadXlsx(Workbook(
      "<row r='1'><c r='A1'><v>1</v></c><c r='B1' s='0'><v>2</v></c><c r='C1' s='1'><v>45689</v></c><c r='D1' s='2'><v>45689</v></c></row>"
      "<row r='2'><c r='A2' s='3'><v>3</v></c><c r='B2' s='4'><v>4</v></c><c r='C2' s='5'><v>0.5</v></c><c r='D2' s='6'><v>5</v></c></row>"
      "<row r='3'><c r='A3' s='1' t='s'><v>0</v></c><c r='B3' s='1'/><c r='C3' t='d'><v>2025-02-01</v></c><c r='D3' "
      "s='7'><v>6</v></c></row>"
      "<row r='4'><c r='A4' s='1'><v>45689</v></c></row>",
      "<si><t>1.2</t></si>", looks));
  EXPECT_EQ(Rows(sheet), (Texts{"1: 1|2", "2: 3|4", "3: 1.2|||6"}));
  EXPECT_EQ(Faults(sheet), (Texts{"1/2", "1/3", "2/2", "2/3", "3/2", "4/0"}));
  EXPECT_NE(sheet->faults.at(0).what.find("tarih"), std::string::npos);
}

TEST_F(XlsxSheet, a_formula_that_was_never_worked_out_is_a_fault) {
  const SheetOutcome sheet = ReadXlsx(Workbook(
      "<row r='1'><c r='A1'><f>B1*2</f><v>7</v></c><c r='B1'><f>C1</f></c><c r='C1'><f>D1</f><v></v></c><c r='D1'><v/></c></row>"
      "<row r='2'><c r='A2' t='str'><f>B1</f><v></v></c><c r='B2' t='str'><f t='shared' si='0'/></c><c r='C2'><v>1</v></c></row>"));
  EXPECT_EQ(Rows(sheet), (Texts{"1: 7", "2: ||1"}));
  EXPECT_EQ(Faults(sheet), (Texts{"1/1", "1/2", "2/1"}));
}

TEST_F(XlsxSheet, what_is_no_workbook_is_told) {
  EXPECT_FALSE(ReadXlsx("PK\x03\x04 nothing").has_value());
  EXPECT_FALSE(ReadXlsx(Workbook("<row><c>")).has_value());
  EXPECT_EQ(ReadXlsx(Workbook("<row r='1'><c r='XFE1'><v>1</v></c></row>")).error().what, "Hesap tablosu çok büyük.");
  EXPECT_TRUE(ReadXlsx(Workbook("<row r='1'><c r='A1' t='s'><v>9</v></c></row>"))->rows.empty());
}

TEST_F(XlsxSheet, what_is_written_is_read_again_and_codes_stay_texts) {
  const Sheet sheet{{{1, {"Stok Kodu", "1.Fiyat"}}, {2, {"0012", "1250,75"}}, {3, {"=A1", ""}}}};
  const std::string path = folder.Path() + "/out.xlsx";
  ASSERT_TRUE(WriteXlsx(sheet, {false, true}, path).Ok());
  EXPECT_TRUE(IsXlsx(BytesOf(path)));
  EXPECT_EQ(Rows(ReadXlsx(BytesOf(path))), (Texts{"1: Stok Kodu|1.Fiyat", "2: 0012|1250,75", "3: =A1"}));
  EXPECT_FALSE(WriteXlsx(sheet, {false, true}, folder.Path() + "/none/out.xlsx").Ok());
}

}  // namespace
}  // namespace karvel
