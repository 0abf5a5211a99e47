#include "documents/print_job.h"

#include <thread>

#include "documents/pen.h"
#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class PrintJobTest : public DeskFixture {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    desk->form.CompanyLines[3] = "8";
  }
  const DeskParts& Parts() { return desk->Parts(); }
  Drawing TwoLines() {
    const PrinterMeasures measures(printer, ScaleMode::Pixels);
    Pen pen(measures, {"Arial", 8});
    pen.PrintLine("Bir");
    pen.Rule(0, 100);
    pen.PrintLine("İki");
    return pen.Finish();
  }
  [[nodiscard]] std::string Told() { return At("Durum").Caption(); }
};

TEST_F(PrintJobTest, a_drawing_is_played_and_handed_over) {
  PrintJob job(Parts(), "Fiş");
  EXPECT_TRUE(job.Print(TwoLines()).Ok());
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].Lines(), (std::vector<std::string>{"Bir", "İki"}));
  EXPECT_EQ(printer.jobs[0].rules.size(), 1U);
  EXPECT_EQ(printer.jobs[0].end, "EndDoc");
  EXPECT_EQ(Told(), "Fiş yazdırıldı: Velmora PDF");
}

TEST_F(PrintJobTest, a_refused_print_is_thrown_away_and_told_by_its_reason) {
  printer.fault = Status(ErrorKind::DiskFull, "no room");
  printer.drawsBeforeFault = 1;
  PrintJob job(Parts(), "Fiş");
  EXPECT_EQ(job.Print(TwoLines()).Kind(), ErrorKind::DiskFull);
  EXPECT_EQ(printer.jobs.back().end, "KillDoc");
  EXPECT_EQ(Told(), "Fiş yazdırılamadı: disk dolu, yer açın");
}

TEST_F(PrintJobTest, a_refusal_at_the_end_of_the_job_is_told_too) {
  printer.fault = Status(ErrorKind::Other, "gone");
  printer.drawsBeforeFault = 100;
  PrintJob job(Parts(), "Fiş");
  EXPECT_FALSE(job.Print(TwoLines()).Ok());
  EXPECT_EQ(printer.jobs.back().end, "KillDoc");
  EXPECT_EQ(Told(), "Fiş yazdırılamadı: yazıcı yanıt vermiyor, açık olduğuna bakın");
}

TEST_F(PrintJobTest, the_print_choice_is_disabled_during_a_print) {
  At("Frame3").SetVisible(true);
  {
    PrintJob job(Parts(), "Fiş");
    EXPECT_FALSE(At("Frame3").Enabled());
  }
  EXPECT_TRUE(At("Frame3").Enabled());
  EXPECT_TRUE(At("Frame3").Visible());
}

TEST_F(PrintJobTest, a_slip_is_made_ready_on_the_paper_of_the_statement_printer) {
  Parts().settings.Save(Setting::StatementPaperSize, "11");
  Parts().settings.Save(Setting::StatementOrientation, "2");
  PrintJob job(Parts(), "Fiş");
  const auto font = job.PrepareSlip();
  ASSERT_TRUE(font.has_value());
  EXPECT_EQ(*font, (PrintFont{"MS Sans Serif", 8}));
  EXPECT_EQ(printer.PaperSize(), 11);
  EXPECT_EQ(printer.Orientation(), Orientation::Landscape);
}

TEST_F(PrintJobTest, with_A5_checked_the_paper_is_78_whatever_was_chosen) {
  Parts().settings.Save(Setting::StatementPaperSize, "9");
  At("A5").SetChecked(true);
  PrintJob job(Parts(), "Fiş");
  ASSERT_TRUE(job.PrepareSlip().has_value());
  EXPECT_EQ(printer.PaperSize(), 78);
}

TEST_F(PrintJobTest, collection_slips_and_reports_keep_the_printers_paper) {
  Parts().settings.Save(Setting::StatementPaperSize, "11");
  PrintJob job(Parts(), "Fiş");
  ASSERT_TRUE(job.PrepareOnPaperInUse().has_value());
  ASSERT_TRUE(job.PrepareReport().has_value());
  EXPECT_EQ(printer.PaperSize(), paper::kA4);
}

TEST_F(PrintJobTest, a_report_takes_the_printers_font_but_arial) {
  PrintJob job(Parts(), "Ciro");
  EXPECT_EQ(job.PrepareReport(), (PrintFont{"Courier New Tur", 8}));
  printer.SetFont({"Verdana", 20, true, true, true});
  EXPECT_EQ(job.PrepareReport(), (PrintFont{"Verdana", 8}));
}

TEST_F(PrintJobTest, a_font_size_that_is_no_number_is_refused_before_the_job_begins) {
  desk->form.CompanyLines[3] = "sekiz";
  PrintJob job(Parts(), "Fiş");
  EXPECT_FALSE(job.PrepareSlip().has_value());
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Told(), "Fiş yazdırılamadı: firma dosyasındaki yazı boyu sayı değil");
}

TEST_F(PrintJobTest, an_invoice_takes_the_chosen_font_and_paper) {
  PrintJob job(Parts(), "Fatura");
  EXPECT_EQ(job.PrepareInvoice(), (PrintFont{"MS Sans Serif", 10}));
  Parts().settings.Save(Setting::PrintFontName, "Tahoma");
  Parts().settings.Save(Setting::PrintFontSize, "9");
  Parts().settings.Save(Setting::InvoicePaperSize, "258");
  EXPECT_EQ(job.PrepareInvoice(), (PrintFont{"Tahoma", 9}));
  EXPECT_EQ(printer.PaperSize(), 258);
}

TEST_F(PrintJobTest, what_lasts_longer_shows_how_far_it_is_and_can_be_stopped) {
  At("Label16").SetCaption("önce");
  std::string shown, heard;
  loop.duringWait = [&] {
    shown = At("Label16").Caption();
    heard = window.heard;
    EXPECT_TRUE(At("Frame5").Visible());
    EXPECT_TRUE(At("DurCmd").Visible());
    EXPECT_FALSE(scanner.enabled);
    EXPECT_FALSE(desk->screen.Busy());
    Click("DurCmd");
  };
  desk->screen.SetBusy(true);
  {
    PrintJob job(Parts(), "Ciro");
    EXPECT_TRUE(job.GoOn(0, 4));  // a short print shows nothing
    EXPECT_EQ(shown, "");
    std::this_thread::sleep_for(std::chrono::milliseconds(520));
    EXPECT_FALSE(job.GoOn(1, 4));
    EXPECT_EQ(shown, "Ciro hazırlanıyor… %25");
    EXPECT_EQ(heard, "DurCmd");
    EXPECT_FALSE(job.Print(TwoLines()).Ok());
    EXPECT_TRUE(printer.jobs.empty());
    EXPECT_EQ(Told(), "Ciro durduruldu, yazdırılmadı");
  }
  EXPECT_TRUE(desk->screen.Busy());
  EXPECT_FALSE(At("Frame5").Visible());
  EXPECT_FALSE(At("DurCmd").Visible());
  EXPECT_EQ(At("Label16").Caption(), "önce");
  EXPECT_EQ(window.heard, "");
  EXPECT_TRUE(scanner.enabled);
}

TEST_F(PrintJobTest, a_stop_while_it_is_drawn_throws_the_job_away) {
  PrintJob job(Parts(), "Ciro");
  loop.duringWait = [&] {
    if (!printer.jobs.empty()) Click("DurCmd");
  };
  std::this_thread::sleep_for(std::chrono::milliseconds(520));
  Drawing drawing = TwoLines();
  const Drawing again = drawing;
  for (int i = 0; i < 200000 && !job.Stopped(); ++i) drawing.steps.insert(drawing.steps.end(), again.steps.begin(), again.steps.end());
  EXPECT_FALSE(job.Print(drawing).Ok());
  EXPECT_EQ(printer.jobs.back().end, "KillDoc");
  EXPECT_EQ(Told(), "Ciro durduruldu, yazdırılmadı");
}

}  // namespace
}  // namespace karvel
