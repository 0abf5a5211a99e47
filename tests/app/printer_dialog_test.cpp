#include "app/printer_dialog.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>
#include <QSpinBox>

#include "app/qt_printer.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/folder_files.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

// Two printers of the machine, one of which knows labels alone.
class TwoPrinters final : public SystemPrinters {
 public:
  [[nodiscard]] std::vector<PrinterDevice> List() const override { return {{"Kasa", "Fiş", "Masa"}, {"Etiket", "", ""}}; }
  [[nodiscard]] std::string Default() const override { return "Kasa"; }
  [[nodiscard]] std::vector<Paper> Papers(const std::string& printer) const override {
    if (printer == "Kasa") return {{9, "A4", "A4", 210, 297}, {256, "Rulo", "roll", 80, 297}};
    if (printer == "Etiket") return {{300, "Etiket 50", "label", 50, 30}};
    return {};
  }
};

class PrinterDialogTest : public ::testing::Test {
 protected:
  TempFolder folder;
  FolderFiles files{folder.Path()};
  FixedClock clock;
  TwoPrinters system;
  QtPrinter printer{files, clock, system};
};

TEST_F(PrinterDialogTest, begins_with_what_is_in_use) {
  PrinterDialog dialog(printer, {"Kasa", "", "", 2, 2, 256}, nullptr);
  const PrinterChoice choice = dialog.Choice();
  EXPECT_EQ(choice.deviceName, "Kasa");
  EXPECT_EQ(choice.driverName, "Fiş");
  EXPECT_EQ(choice.port, "Masa");
  EXPECT_EQ(choice.copies, 2);
  EXPECT_EQ(choice.orientation, 2);
  EXPECT_EQ(choice.paperSize, 256);
}

TEST_F(PrinterDialogTest, another_printer_has_its_own_papers) {
  PrinterDialog dialog(printer, {"Kasa", "", "", 1, 1, 256}, nullptr);
  auto* const list = dialog.findChild<QListWidget*>();
  ASSERT_EQ(list->count(), 3);
  list->setCurrentRow(1);
  EXPECT_EQ(dialog.Choice().deviceName, "Etiket");
  EXPECT_EQ(dialog.Choice().paperSize, 300);
  list->setCurrentRow(2);
  EXPECT_EQ(dialog.Choice().deviceName, "Velmora PDF");
  EXPECT_EQ(dialog.Choice().paperSize, 256);  // its roll has the same number
}

}  // namespace
}  // namespace karvel
