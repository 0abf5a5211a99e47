#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class PrinterSelectionTest : public DeskFixture {
 protected:
  void SetUp() override {
    printer.devices = {{"Velmora PDF", "", ""}, {"Kasa", "", ""}, {"Fatura", "", ""}};
    ASSERT_TRUE(Start());
  }
  Settings& Kept() { return desk->Parts().settings; }
  void Choose(const std::string& name, int paper = 9, int orientation = 1, int copies = 1) {
    messages.chosenPrinter = PrinterChoice{name, "", "", copies, orientation, paper};
    Click("MnPop(10)");
  }
  [[nodiscard]] std::string InUse() const { return printer.Current().deviceName; }
};

TEST_F(PrinterSelectionTest, without_a_choice_statements_go_to_the_current_printer) {
  EXPECT_EQ(desk->form.DökYazıcı, "Velmora PDF");
}

TEST_F(PrinterSelectionTest, the_printer_chosen_for_statements_is_in_use_from_the_start_with_its_paper) {
  Kept().Save(Setting::StatementPrinter, "Kasa");
  Kept().Save(Setting::StatementPaperSize, "11");
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.DökYazıcı, "Kasa");
  EXPECT_EQ(InUse(), "Kasa");
  EXPECT_EQ(printer.PaperSize(), 11);
}

TEST_F(PrinterSelectionTest, a_printer_that_is_gone_leaves_the_current_one) {
  Kept().Save(Setting::StatementPrinter, "Eski");
  ASSERT_TRUE(Start());
  EXPECT_EQ(InUse(), "Velmora PDF");
}

TEST_F(PrinterSelectionTest, outside_the_invoice_the_choice_is_kept_for_statements) {
  Choose("Kasa", 256, 2, 2);
  EXPECT_EQ(messages.offeredPrinter.deviceName, "Velmora PDF");
  EXPECT_EQ(messages.offeredPrinter.paperSize, 9);
  EXPECT_EQ(Kept().Get(Setting::StatementPrinter), "Kasa");
  EXPECT_EQ(Kept().Get(Setting::StatementPaperSize), "256");
  EXPECT_EQ(Kept().Get(Setting::StatementOrientation), "2");
  EXPECT_EQ(Kept().Get(Setting::InvoicePrinter, "-"), "-");
  EXPECT_EQ(desk->form.DökYazıcı, "Kasa");
  EXPECT_EQ(At("YazıcıCmd").Caption(), "Yazıcı: Kasa");
  EXPECT_EQ(At("MnPop(10)").Caption(), "Yazıcı Yok");
  EXPECT_EQ(InUse(), "Kasa");
  EXPECT_EQ(printer.Copies(), 2);
  EXPECT_EQ(printer.PaperSize(), 256);
}

TEST_F(PrinterSelectionTest, in_the_invoice_the_choice_is_kept_for_invoices) {
  At("FatFrame").SetVisible(true);
  Choose("FATURA");
  EXPECT_EQ(Kept().Get(Setting::InvoicePrinter), "FATURA");
  EXPECT_EQ(Kept().Get(Setting::InvoicePaperSize), "9");
  EXPECT_EQ(Kept().Get(Setting::InvoiceOrientation), "1");
  EXPECT_EQ(At("MnPop(10)").Caption(), "FATURA");
  EXPECT_EQ(desk->form.DökYazıcı, "Velmora PDF");
  EXPECT_EQ(InUse(), "Fatura");
}

TEST_F(PrinterSelectionTest, the_invoice_printer_is_offered_in_the_invoice) {
  Kept().Save(Setting::InvoicePrinter, "Fatura");
  At("FatFrame").SetVisible(true);
  Click("MnPop(10)");
  EXPECT_EQ(messages.offeredPrinter.deviceName, "Fatura");
}

TEST_F(PrinterSelectionTest, for_statements_a_printer_called_as_the_paper_is_offered) {
  printer.devices.push_back({"11", "", ""});
  Kept().Save(Setting::StatementPaperSize, "11");
  Click("MnPop(10)");
  EXPECT_EQ(messages.offeredPrinter.deviceName, "11");
}

TEST_F(PrinterSelectionTest, when_the_invoice_closes_the_statement_printer_is_in_use_again) {
  At("FatFrame").SetVisible(true);
  Choose("Fatura");
  At("FatFrame").SetVisible(false);
  EXPECT_EQ(InUse(), "Velmora PDF");
}

TEST_F(PrinterSelectionTest, the_z_report_and_the_reports_come_on_the_paper_chosen_for_the_printer) {
  Choose("Kasa", 257, 2);
  At("CiroChk").SetChecked(true);
  Click("ZRaporu");
  Click("CiroYazCmd");
  ASSERT_EQ(printer.jobs.size(), 2U);
  EXPECT_EQ(printer.jobs[0].paperSize, 257);
  EXPECT_EQ(printer.jobs[1].paperSize, 257);
  EXPECT_EQ(printer.Orientation(), Orientation::Landscape);
}

TEST_F(PrinterSelectionTest, a_small_slip_leaves_the_reports_paper_as_it_was_chosen) {
  Choose("Kasa", 257);
  printer.SetPaperSize(paper::kSmallSlip);
  At("CiroChk").SetChecked(true);
  Click("ZRaporu");
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].paperSize, 257);
}

TEST_F(PrinterSelectionTest, a_paper_that_was_never_chosen_is_the_printers_own_again_behind_a_small_slip) {
  printer.SetPaperSize(paper::kSmallSlip);
  At("CiroChk").SetChecked(true);
  Click("ZRaporu");
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].paperSize, paper::kA4);
}

TEST_F(PrinterSelectionTest, a_cancelled_choice_keeps_everything) {
  Click("MnPop(10)");
  EXPECT_EQ(Kept().Get(Setting::StatementPrinter), "");
  EXPECT_EQ(InUse(), "Velmora PDF");
}

TEST_F(PrinterSelectionTest, the_print_choice_names_the_printer_in_use_and_leads_to_another) {
  Click("Command1");
  EXPECT_EQ(At("YazıcıCmd").Caption(), "Yazıcı: Velmora PDF");
  messages.chosenPrinter = PrinterChoice{"Kasa", "", "", 1, 1, 9};
  Click("YazıcıCmd");
  EXPECT_EQ(At("YazıcıCmd").Caption(), "Yazıcı: Kasa");
}

}  // namespace
}  // namespace karvel
