#include "app/qt_printer.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/zint_barcodes.h"
#include "tests/app/paper_tools.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/folder_files.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

using testing::SizeOf;
using testing::TextsOf;

constexpr const char* kTurkish = "Çığ düşü ŞİŞE öğün ÜÇ ₺";

class QtPrinterTest : public ::testing::Test {
 protected:
  QtPrinterTest() {
    connections += printer.jobEnded.Connect([this](const EndedJob& job) { ended.push_back(job); });
  }
  [[nodiscard]] std::string Documents() const { return folder.Path() + "/C/KarvelData/Belgeler"; }
  [[nodiscard]] std::vector<std::string> Files() const {
    std::vector<std::string> names;
    if (std::filesystem::exists(Documents()))
      for (const auto& entry : std::filesystem::directory_iterator(Documents())) names.push_back(entry.path().string());
    std::ranges::sort(names);
    return names;
  }

  TempFolder folder;
  FolderFiles files{folder.Path()};
  FixedClock clock;
  NoPrinters none;
  QtPrinter printer{files, clock, none};
  std::vector<EndedJob> ended;
  Connections connections;
};

TEST_F(QtPrinterTest, a_pdf_printer_is_always_there) {
  ASSERT_EQ(printer.Printers().size(), 1U);
  EXPECT_EQ(printer.Printers()[0].deviceName, "Velmora PDF");
  EXPECT_EQ(printer.Current().deviceName, "Velmora PDF");
  EXPECT_FALSE(printer.MakeCurrent("velmora pdf"));
  EXPECT_TRUE(printer.MakeCurrent("Velmora PDF"));
}

TEST_F(QtPrinterTest, making_it_current_brings_its_own_paper_and_arial) {
  printer.SetPaperSize(11);
  printer.SetFont({"Tahoma", 12});
  ASSERT_TRUE(printer.MakeCurrent("Velmora PDF"));
  EXPECT_EQ(printer.PaperSize(), 9);
  EXPECT_EQ(printer.Font().name, "Arial");
}

TEST_F(QtPrinterTest, a_document_lies_in_its_folder_with_every_letter_and_its_fonts) {
  printer.SetScaleMode(ScaleMode::Pixels);
  printer.SetFont({"MS Sans Serif", 8});
  EXPECT_TRUE(printer.PrintText(0, 0, kTurkish).Ok());
  printer.SetFont({"Courier New Tur", 8, true});
  EXPECT_TRUE(printer.PrintText(0, 60, "İkinci satır").Ok());
  EXPECT_TRUE(Files().empty());
  EXPECT_TRUE(printer.EndDoc().Ok());
  ASSERT_EQ(Files().size(), 1U);
  EXPECT_TRUE(Files()[0].ends_with("/2026-03-01 10.15.00.pdf"));
  EXPECT_EQ(TextsOf(Files()[0]), (std::vector<std::string>{kTurkish, "İkinci satır"}));
  EXPECT_EQ(SizeOf(Files()[0]), "210 x 297");
  for (const std::string& font : testing::LinesOf(testing::OutputOf("pdffonts '" + Files()[0] + "' | tail -n +3")))
    EXPECT_NE(font.find(" yes "), std::string::npos) << font;
}

TEST_F(QtPrinterTest, two_documents_of_one_second_are_two_files) {
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(printer.PrintText(0, 0, std::to_string(i)).Ok());
    ASSERT_TRUE(printer.EndDoc().Ok());
  }
  ASSERT_EQ(Files().size(), 2U);
  EXPECT_EQ(ended[1].file, Documents() + "/2026-03-01 10.15.00 (2).pdf");
}

TEST_F(QtPrinterTest, what_is_thrown_away_leaves_nothing) {
  printer.KillDoc();
  EXPECT_TRUE(ended.empty());
  ASSERT_TRUE(printer.PrintText(0, 0, "x").Ok());
  printer.KillDoc();
  EXPECT_TRUE(Files().empty());
  ASSERT_EQ(ended.size(), 1U);
  EXPECT_FALSE(ended[0].handedOver);
  EXPECT_TRUE(printer.EndDoc().Ok());
  EXPECT_EQ(ended.size(), 1U);
}

TEST_F(QtPrinterTest, a_folder_that_cannot_be_made_refuses_at_the_first_drawing) {
  std::filesystem::create_directories(folder.Path() + "/C/KarvelData");
  std::ofstream(Documents()) << "a file";
  EXPECT_FALSE(printer.PrintText(0, 0, "x").Ok());
  EXPECT_FALSE(printer.Line(0, 0, 1, 1).Ok());
  EXPECT_FALSE(printer.EndDoc().Ok());
  ASSERT_EQ(ended.size(), 1U);
  EXPECT_FALSE(ended[0].handedOver);
  std::filesystem::remove(Documents());
  EXPECT_TRUE(printer.PrintText(0, 0, "x").Ok());
  EXPECT_TRUE(printer.EndDoc().Ok());
}

TEST_F(QtPrinterTest, papers_are_known_by_their_number) {
  struct Case {
    int number, taken;
    Orientation orientation;
    const char* size;
  };
  for (const Case& paper : {Case{9, 9, Orientation::Portrait, "210 x 297"}, Case{9, 9, Orientation::Landscape, "297 x 210"},
                            Case{11, 11, Orientation::Portrait, "148 x 210"}, Case{78, 78, Orientation::Portrait, "210 x 148"},
                            Case{78, 78, Orientation::Landscape, "148 x 210"}, Case{4711, 9, Orientation::Portrait, "210 x 297"}}) {
    printer.SetPaperSize(paper.number);
    printer.SetOrientation(paper.orientation);
    EXPECT_EQ(printer.PaperSize(), paper.taken);
    ASSERT_TRUE(printer.PrintText(0, 0, "x").Ok());
    ASSERT_TRUE(printer.EndDoc().Ok());
    EXPECT_EQ(SizeOf(ended.back().file), paper.size);
  }
}

TEST_F(QtPrinterTest, the_area_is_the_printable_one_in_the_unit_of_the_scale_mode) {
  printer.SetScaleMode(ScaleMode::Pixels);
  EXPECT_NEAR(printer.ScaleWidth(), 200 / 25.4 * 203, 0.01);
  EXPECT_NEAR(printer.ScaleHeight(), 287 / 25.4 * 203, 0.01);
  printer.SetScaleMode(ScaleMode::Twips);
  EXPECT_NEAR(printer.ScaleWidth(), 200 / 25.4 * 1440, 0.01);
  printer.SetPaperSize(256);
  EXPECT_NEAR(printer.ScaleWidth(), 48 / 25.4 * 1440, 0.01);
  printer.SetPaperSize(257);
  EXPECT_NEAR(printer.ScaleWidth(), 72 / 25.4 * 1440, 0.01);
}

TEST_F(QtPrinterTest, texts_are_measured_in_their_font) {
  printer.SetScaleMode(ScaleMode::Pixels);
  printer.SetFont({"Courier New", 10});
  const double digit = printer.TextWidth("0");
  EXPECT_NEAR(printer.TextWidth("İııl"), 4 * digit, 0.01);  // fixed pitch
  EXPECT_NEAR(digit, 0.6 * 10 / 72 * 203, 0.5);
  const double height = printer.LineHeight();
  printer.SetFont({"Courier New", 20});
  EXPECT_NEAR(printer.TextWidth("0"), 2 * digit, 0.05);
  EXPECT_NEAR(printer.LineHeight(), 2 * height, 1);
  printer.SetFont({"MS Sans Serif", 8});
  EXPECT_LT(printer.TextWidth("iiii"), printer.TextWidth("WWWW"));
  const double pixels = printer.TextWidth("iiii");
  printer.SetScaleMode(ScaleMode::Twips);
  EXPECT_NEAR(printer.TextWidth("iiii"), pixels * 1440 / 203, 0.01);
}

TEST_F(QtPrinterTest, a_text_stands_where_it_was_put_whatever_the_unit) {
  printer.SetScaleMode(ScaleMode::Twips);
  ASSERT_TRUE(printer.PrintText(1440, 720, "burada").Ok());
  ASSERT_TRUE(printer.EndDoc().Ok());
  const auto& text = std::get<DrawnText>(ended[0].pages[0][0]);
  EXPECT_NEAR(text.x, 203, 0.01);
  EXPECT_NEAR(text.y, 101.5, 0.01);
  // One inch and the margin of 5 mm from the edge, as another program measures it.
  const std::string box = testing::OutputOf("pdftotext -bbox '" + ended[0].file + "' - | grep burada");
  double left = 0, top = 0;
  ASSERT_EQ(std::sscanf(box.c_str() + box.find("xMin"), "xMin=\"%lf\" yMin=\"%lf\"", &left, &top), 2) << box;
  EXPECT_NEAR(left, 72 + 5 / 25.4 * 72, 0.5);
  EXPECT_NEAR(top, 36 + 5 / 25.4 * 72, 1.5);
}

TEST_F(QtPrinterTest, pages_follow_each_other) {
  ASSERT_TRUE(printer.PrintText(0, 0, "bir").Ok());
  ASSERT_TRUE(printer.NewPage().Ok());
  ASSERT_TRUE(printer.PrintText(0, 0, "iki").Ok());
  ASSERT_TRUE(printer.EndDoc().Ok());
  EXPECT_EQ(ended[0].pages.size(), 2U);
  EXPECT_EQ(TextsOf(ended[0].file), (std::vector<std::string>{"bir", "iki"}));
}

TEST_F(QtPrinterTest, a_roll_ends_where_the_document_ends) {
  printer.SetPaperSize(257);
  printer.SetScaleMode(ScaleMode::Pixels);
  ASSERT_TRUE(printer.PrintText(0, 20 / 25.4 * 203, "son").Ok());
  ASSERT_TRUE(printer.NewPage().Ok());
  ASSERT_TRUE(printer.Line(0, 50 / 25.4 * 203, 10, 50 / 25.4 * 203).Ok());
  ASSERT_TRUE(printer.EndDoc().Ok());
  EXPECT_EQ(ended[0].paperSize, 257);
  EXPECT_EQ(SizeOf(ended[0].file, 1), "80 x 27");
  EXPECT_EQ(SizeOf(ended[0].file, 2), "80 x 54");
}

TEST_F(QtPrinterTest, a_file_holds_its_copies) {
  printer.SetCopies(3);
  ASSERT_TRUE(printer.PrintText(0, 0, "fiş").Ok());
  ASSERT_TRUE(printer.EndDoc().Ok());
  EXPECT_EQ(TextsOf(ended[0].file), (std::vector<std::string>{"fiş", "fiş", "fiş"}));
}

TEST_F(QtPrinterTest, copies_stay_while_the_printer_stays) {
  printer.SetCopies(2);
  ASSERT_TRUE(printer.MakeCurrent("Velmora PDF"));
  EXPECT_EQ(printer.Copies(), 2);
}

TEST_F(QtPrinterTest, a_barcode_is_read_from_the_paper) {
  for (const int dots : {203, 300}) {
    QtPrinter sharp(files, clock, none, dots);
    EndedJob job;
    const auto heard = sharp.jobEnded.Connect([&](const EndedJob& one) { job = one; });
    sharp.SetPaperSize(256);
    sharp.SetScaleMode(ScaleMode::Pixels);
    const auto picture = ZintBarcodes().Code128("01000123", 2, 80);
    ASSERT_TRUE(picture.has_value());
    ASSERT_LT(picture->width, sharp.ScaleWidth());
    ASSERT_TRUE(sharp.PaintPicture(*picture, 0, 30, picture->width, picture->height).Ok());
    ASSERT_TRUE(sharp.EndDoc().Ok());
    EXPECT_EQ(testing::ScannedFrom(job.file, dots), "01000123");
  }
}

TEST_F(QtPrinterTest, a_code_of_letters_that_a_barcode_cannot_hold_is_refused) {
  EXPECT_FALSE(ZintBarcodes().Code128("", 1, 10).has_value());
}

}  // namespace
}  // namespace karvel
