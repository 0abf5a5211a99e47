#include "documents/statement_printing.h"

#include "desk/captions.h"
#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

class StatementPrintingTest : public AccountsFixture {
 protected:
  const RecordingPrinter::Job& Printed() {
    EXPECT_FALSE(printer.jobs.empty());
    return printer.jobs.back();
  }
  bool Prints(const std::string& text) {
    const Words lines = Printed().Lines();
    return std::find(lines.begin(), lines.end(), text) != lines.end();
  }
  // A line of the day book that another program wrote.
  void AddLine(const std::string& customer, const std::string& item, const std::string& amount, const std::string& date,
               const std::string& slipNo = "") {
    Sql("Karvel.mdb",
        "INSERT INTO Datam(CariKod,StokKod,CariAd,StokAd,Fiyat,Miktar,Tutar,Tarih,Birim,Durum,Plasiyer,SeriNo,Tahsilat) VALUES('" +
            customer + "','1001','x','" + item + "'," + amount + ",1," + amount + ",'" + date + "','Adet','Satış','WinKarvel1','" + slipNo +
            "',0)");
  }
  void PrintDay() { Click("Command5(1)"); }
  void PrintStatement(const DateTime& from) {
    Click("Command5(2)");
    At("DTPicker1").SetDate(from);
    Click("Command5(2)");
  }
  std::string Message() { return At("Durum").Caption(); }
};

TEST_F(StatementPrintingTest, the_day_of_a_customer_comes_out) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  AddLine("C001", "Dünkü", "55", "2026-02-28 09:00:00");
  AddLine("C002", "Başkası", "66", "2026-03-01 09:00:00");
  Front("C001");
  PrintDay();
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(Printed().end, "EndDoc");
  EXPECT_TRUE(Prints("Pirinç"));
  EXPECT_FALSE(Prints("Dünkü"));
  EXPECT_FALSE(Prints("Başkası"));
  EXPECT_TRUE(Prints("Ayşe Yılmaz"));
  EXPECT_TRUE(Prints("Seri No : "));
  EXPECT_TRUE(Prints("Tarih : 01.03.2026"));
  EXPECT_EQ(barcodes.asked, Words{"01000000"});
}

TEST_F(StatementPrintingTest, without_rows_there_is_no_job_and_the_quiet_line_says_so) {
  Front("C001");
  PrintDay();
  PrintStatement({2026, 1, 1, 0, 0, 0});
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Message(), "Yazdırılacak satır yok: Ayşe Yılmaz");
  EXPECT_TRUE(At("DökNoYaz").Visible());
}

TEST_F(StatementPrintingTest, a_slip_is_printed_again_by_the_number_of_the_newest_line) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00", "000007");
  AddLine("C001", "Şeker", "20", "2026-03-01 09:01:00", "000007");
  AddLine("C001", "Eski fiş", "5", "2026-03-01 08:00:00", "000006");
  Front("C001");
  ASSERT_TRUE(desk->cursors.HareketData.Open("Select * From Datam Where CariKod='C001' Order By Tutar Asc").Ok());  // sorted by a heading
  PrintDay();
  EXPECT_TRUE(Prints("Pirinç"));
  EXPECT_TRUE(Prints("Şeker"));
  EXPECT_FALSE(Prints("Eski fiş"));
  EXPECT_TRUE(Prints("Seri No : 000007"));
  EXPECT_EQ(barcodes.asked, Words{"01000007"});
  EXPECT_EQ(One("Karvel.mdb", "SELECT count(*) FROM Datam WHERE Sube<>''"), "0");  // nothing is marked
  const std::size_t before = printer.jobs.size();
  PrintDay();
  EXPECT_EQ(printer.jobs.size(), before + 1);
  EXPECT_EQ(printer.jobs[before].Lines(), printer.jobs[before - 1].Lines());
}

TEST_F(StatementPrintingTest, the_list_stands_on_the_whole_day_book_afterwards) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Front("C001");
  PrintDay();
  EXPECT_EQ(desk->cursors.HareketData.RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc");
  EXPECT_TRUE(At("Command1").HasFocus());
}

TEST_F(StatementPrintingTest, the_slip_of_a_closing_sale_holds_its_own_lines_and_ends_its_number) {
  AddLine("Muhtelif Müşteri", "Sabahki", "5", "2026-03-01 08:00:00", "000901");
  Sell("Muhtelif Müşteri", "1001", "2");
  const std::string number = desk->form.SlipNo;
  ASSERT_FALSE(number.empty());
  std::string during;
  connections += At("Durum").changed.Connect([&] {
    if (!printer.jobs.empty() && during.empty()) during = desk->form.SlipNo;
  });
  Click("Command1");
  ASSERT_TRUE(At("TahsilatFrame").Visible());
  Click("Command7(1)");
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_TRUE(Prints("Pirinç"));
  EXPECT_FALSE(Prints("Sabahki"));
  EXPECT_TRUE(Prints("Seri No : " + number));
  EXPECT_FALSE(Prints("Kalan Borç"));  // the panel is still open
  EXPECT_EQ(during, number);
  EXPECT_EQ(desk->form.SlipNo, "");
  EXPECT_TRUE(At("DökNoYaz").Visible());
}

TEST_F(StatementPrintingTest, a_slip_begun_before_midnight_has_all_its_lines) {
  clock.now = {2026, 3, 1, 23, 59, 0};
  Sell("Muhtelif Müşteri", "1001", "2");
  clock.now = {2026, 3, 2, 0, 1, 0};
  PickItem("1002");
  Post("1");
  Click("Command1");
  Click("Command7(1)");
  EXPECT_TRUE(Prints("Pirinç"));
  EXPECT_TRUE(Prints("Şeker"));
}

TEST_F(StatementPrintingTest, without_the_printer_no_slip_comes) {
  At("Command9").SetCaption("Yazıcı Yok");
  Sell("Muhtelif Müşteri", "1001", "2");
  Click("Command1");
  Click("Command7(1)");
  EXPECT_TRUE(printer.jobs.empty());
}

TEST_F(StatementPrintingTest, a_refused_slip_keeps_its_number_open_and_says_why) {
  printer.fault = {ErrorKind::Other, "no paper"};
  Sell("Muhtelif Müşteri", "1001", "2");
  const std::string number = desk->form.SlipNo;
  Click("Command1");
  Click("Command7(1)");
  EXPECT_EQ(Printed().end, "KillDoc");
  EXPECT_EQ(desk->form.SlipNo, number);
  EXPECT_NE(Message().find("yazdırılamadı"), std::string::npos) << Message();
  EXPECT_TRUE(At("DökNoYaz").Visible());
  EXPECT_TRUE(At("Frame3").Enabled());
}

TEST_F(StatementPrintingTest, the_day_file_is_asked_for_behind_the_paper_while_the_slip_has_its_number) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00", "000007");
  AddLine("C001", "Şeker", "100", "2026-03-01 10:00:00", "000007");
  Sql("Karvel.mdb", "UPDATE Datam SET Sube='x' WHERE StokAd='Şeker'");
  documents.reset();
  BalanceView balances(desk->Parts());
  StatementPrinting writer(desk->Parts(), desk->Customer(), balances);
  Words asked;
  connections += writer.dayPrinted.Connect([&](const PrintedDay& day) {
    asked.push_back(day.customerCode + "|" + desk->form.SlipNo + "|" + day.lastSent + "|" + printer.jobs.back().end);
  });
  Front("C001");
  PrintDay();
  EXPECT_EQ(asked, Words{"C001|000007|x|EndDoc"});
  EXPECT_EQ(desk->form.SlipNo, "");
  PrintStatement({2026, 3, 1, 0, 0, 0});
  printer.fault = {ErrorKind::Other, "no paper"};
  PrintDay();
  EXPECT_EQ(asked.size(), 1U);
}

TEST_F(StatementPrintingTest, the_statement_asks_for_its_date_first_and_prints_all_from_it) {
  AddLine("C001", "Ocakta", "10", "2026-01-15 09:00:00", "000001");
  AddLine("C001", "Şubatta", "20", "2026-02-15 09:00:00");
  AddLine("C001", "Martta", "30", "2026-03-01 09:00:00", "000002");
  desk->form.SlipNo = "000555";
  Front("C001");
  Click("Command5(2)");
  EXPECT_FALSE(At("Command5(1)").Visible());
  EXPECT_EQ(At("Command5(2)").Caption(), "Yazdır");
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_FALSE(At("CariHesCmd").Enabled());
  At("DTPicker1").SetDate({2026, 2, 1, 0, 0, 0});
  Click("Command5(2)");
  EXPECT_TRUE(At("Command5(1)").Visible());
  EXPECT_EQ(At("Command5(2)").Caption(), "Tümünü Yazdır");
  EXPECT_TRUE(At("CariHesCmd").Enabled());
  EXPECT_FALSE(Prints("Ocakta"));
  EXPECT_TRUE(Prints("Şubatta"));
  EXPECT_TRUE(Prints("Martta"));
  EXPECT_TRUE(Prints("15.02.2026"));
  EXPECT_TRUE(Prints("Tarih : 01.02.2026 <> 01.03.2026"));
  EXPECT_EQ(desk->form.SlipNo, "000555");
}

TEST_F(StatementPrintingTest, paper_and_options_come_from_the_settings) {
  settings.Save("Velmora Karvel1", "Size", "Döks", "11").Ignore();
  settings.Save("Velmora Karvel1", "Size", "AltSatır", "2").Ignore();
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Front("C001");
  PrintDay();
  EXPECT_EQ(Printed().paperSize, 11);
  EXPECT_EQ(Printed().Lines().back(), ".");
  At("A5").SetChecked(true);
  PrintDay();
  EXPECT_EQ(Printed().paperSize, 78);
  EXPECT_TRUE(Prints("Sayın ; Ayşe Yılmaz"));
  EXPECT_TRUE(Printed().pictures.empty());
}

TEST_F(StatementPrintingTest, tax_that_the_central_site_booked_has_a_line) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Sql("Cari.mdb", "INSERT INTO CariHareket(cariharkod,Carisi,Tarih,Alacak) VALUES('=110','C001','2026-03-01 08:00:00',18)");
  Front("C001");
  PrintDay();
  EXPECT_TRUE(Prints("Kdv"));
  EXPECT_TRUE(Prints("18,00"));
}

TEST_F(StatementPrintingTest, what_is_left_is_what_the_files_say_now) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Front("C001");
  Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=77, Bakiye=77, Hesap='Borç' WHERE CariKod='C001'");
  PrintDay();
  EXPECT_TRUE(Prints("Kalan Borç"));
  EXPECT_TRUE(Prints("77,00"));
}

TEST_F(StatementPrintingTest, lines_that_cannot_be_read_print_nothing) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Front("C001");
  engine.readFault = {ErrorKind::DiskFailed, "no page"};
  PrintDay();
  engine.readFault = {};
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_TRUE(At("DökNoYaz").Visible());
}

TEST_F(StatementPrintingTest, a_day_book_that_another_program_keeps_is_not_told_as_empty) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Front("C001");
  // Wherever the reads begin to fail.
  for (int reads = 0; reads < 60; ++reads) {
    engine.readsBeforeFault = reads;
    engine.readFault = {ErrorKind::Busy, "kept"};
    PrintDay();
    engine.readFault = {};
    EXPECT_EQ(Message().find("satır yok"), std::string::npos) << reads;
  }
  EXPECT_FALSE(printer.jobs.empty());
}

TEST_F(StatementPrintingTest, a_balance_that_cannot_be_read_stands_on_no_paper) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Front("C001");
  // Wherever the reads begin to fail, there is a whole slip or none.
  for (int reads = 0; reads < 60; ++reads) {
    printer.jobs.clear();
    Sql("Cari.mdb", "UPDATE CariKartlar SET Borc=" + std::to_string(70 + reads) + ", Hesap='Borç' WHERE CariKod='C001'");
    Sql("Cari.mdb", "UPDATE CariKartlar SET Bakiye=Borc WHERE CariKod='C001'");
    engine.readsBeforeFault = reads;
    engine.readFault = {ErrorKind::Busy, "kept"};
    PrintDay();
    engine.readFault = {};
    if (!printer.jobs.empty()) {
      EXPECT_TRUE(Prints(std::to_string(70 + reads) + ",00")) << reads;
    }
  }
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(StatementPrintingTest, a_font_size_that_is_no_number_prints_nothing) {
  AddLine("C001", "Pirinç", "100", "2026-03-01 09:00:00");
  Front("C001");
  desk->form.CompanyLines[3] = "büyük";
  PrintDay();
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_FALSE(Message().empty());
}

TEST_F(StatementPrintingTest, a_reprint_of_another_day_finds_nothing) {
  AddLine("C001", "Pirinç", "100", "2026-02-28 09:00:00", "000007");
  Front("C001");
  PrintDay();
  EXPECT_TRUE(printer.jobs.empty());
}

}  // namespace
}  // namespace karvel
