#include <filesystem>
#include <fstream>

#include "platform/log.h"
#include "tests/support/desk_fixture.h"
#include "tests/support/logged_lines.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

class StartUpTest : public DeskFixture {
 protected:
  std::vector<std::string> DataFiles() {
    std::vector<std::string> names;
    for (const std::string& name : files.List("C:\\KarvelData"))
      if (EqualText(name.substr(name.find_last_of('.') + 1), "mdb")) names.push_back(name);
    return names;
  }
  std::size_t RowsInAll() {
    std::size_t rows = 0;
    for (const DatabaseFile& file : Catalogue::Files().first(8))
      for (const Table& table : file.tables)
        rows +=
            static_cast<std::size_t>(std::stoi(One(std::string(file.name), "SELECT count(*) FROM \"" + std::string(table.name) + "\"")));
    return rows;
  }
};

TEST_F(StartUpTest, an_empty_folder_fills_up_with_templates_and_two_rows) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(DataFiles(), (std::vector<std::string>{"Cari.mdb", "DataStok.mdb", "Fatura.mdb", "Index.mdb", "Karvel.mdb", "SeriNo.mdb",
                                                   "Stok.mdb", "Temp.mdb"}));
  EXPECT_EQ(RowsInAll(), 2U);
  EXPECT_EQ(Rows("Stok.mdb", "SELECT * FROM Gurup"), std::vector<std::string>{"WinKarvel1|0"});
  Fields walkIn = RowOf("Cari.mdb", "CariKartlar");
  EXPECT_EQ(walkIn["CariKod"], "Muhtelif Müşteri");
  EXPECT_EQ(walkIn["Unvan"], "Muhtelif Müşteri");
  EXPECT_EQ(walkIn["Gurup"], "Müşteri");
  EXPECT_EQ(walkIn["yeni"], "1.0");
  EXPECT_EQ(walkIn["Hes"], "");
}

TEST_F(StartUpTest, the_walk_in_customer_exists_once_however_many_starts) {
  for (int i = 0; i < 4; ++i) ASSERT_TRUE(Start());
  EXPECT_EQ(RowsInAll(), 2U);
}

TEST_F(StartUpTest, the_walk_in_customer_is_not_added_again_when_a_group_hides_him) {
  ASSERT_TRUE(Start());
  settings.Save("Velmora Karvel1", "Size", "CGurup", "Bayi").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_EQ(RowsInAll(), 2U);
}

TEST_F(StartUpTest, a_healthy_start_logs_nothing) {
  const testing::LoggedLines log;
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(Start());
  AddCustomer("C001", "Ayşe Yılmaz");
  AddStock("1001", "Pirinç");
  ASSERT_TRUE(Start());
  EXPECT_EQ(log.Lines(), std::vector<std::string>{});
}

TEST_F(StartUpTest, a_second_copy_ends_at_once_and_touches_nothing) {
  shell.otherCopyRuns = true;
  EXPECT_FALSE(Start());
  EXPECT_TRUE(files.List("C:\\KarvelData").empty());
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StartUpTest, the_terminal_is_told_by_the_title) {
  ASSERT_TRUE(Start("Velmora Karvel3"));
  EXPECT_EQ(desk->form.TerminalNo, "03");
  EXPECT_EQ(settings.Get("Terminal", "Trm", "No", ""), "3");
  EXPECT_EQ(window.title, " Velmora  3.Karvel Programı        Tarih > 01 Mart 2026 Pazar");
  EXPECT_EQ(shell.shortcuts, std::vector<std::string>{"Velmora Karvel3"});
}

TEST_F(StartUpTest, a_title_without_a_number_is_terminal_one) {
  ASSERT_TRUE(Start("Velmora Karvel0"));
  EXPECT_EQ(desk->form.TerminalNo, "01");
}

TEST_F(StartUpTest, a_title_ending_in_a_letter_keeps_the_letter) {
  ASSERT_TRUE(Start("Velmora KarvelB"));
  EXPECT_EQ(desk->form.TerminalNo, "B");
}

TEST_F(StartUpTest, company_and_serial_files_are_made_with_their_values) {
  ASSERT_TRUE(Start());
  std::string bytes;
  ASSERT_TRUE(files.Read(files.ProgramFolder() + "/Firmam.txt", bytes).Ok());
  EXPECT_EQ(FromCp1254(bytes), "Velmora\r\nAdres\r\nTel : 0000 000 00 00\r\n8\r\nC:\\KarvelData\\\r\nMali Değeri Yoktur.\r\n");
  EXPECT_EQ(desk->form.CompanyLines[5], "Mali Değeri Yoktur.");
  EXPECT_FALSE(desk->form.SerialEntryOn);
  EXPECT_TRUE(files.Exists(files.ProgramFolder() + "/SeriNo.txt"));
  EXPECT_EQ(settings.Get("Karvel", "KarvelProper", "Yer", ""), "C:\\KarvelData\\");
}

TEST_F(StartUpTest, formats_get_their_values_at_the_first_activation) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.QuantityFormat, "General Number");
  EXPECT_EQ(desk->form.PriceFormat, "Standard");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "mFormat", ""), "General Number");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "fFormat", ""), "Standard");
}

TEST_F(StartUpTest, a_format_that_the_shop_chose_stays) {
  settings.Save("Velmora Karvel1", "Size", "fFormat", "#,##0").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.PriceFormat, "#,##0");
}

TEST_F(StartUpTest, the_folder_of_a_share_ends_without_a_backslash_and_that_of_the_machine_with_one) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.DataDir, "C:\\KarvelData\\");
  settings.Save("Velmora Karvel1", "Size", "Online", "10.0.0.5").Ignore();
  settings.Save("Velmora Karvel1", "Size", "Firma", "01").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.DataDir, "\\\\10.0.0.5\\MuhasebeData\\01");
  EXPECT_TRUE(At("OnLine").Checked());
  EXPECT_TRUE(fs::exists(folder.Path() + "/net/10.0.0.5/MuhasebeData/01/Cari.mdb"));
  EXPECT_TRUE(fs::exists(folder.Path() + "/net/10.0.0.5/MuhasebeData/01/CariGrid.dat"));
  EXPECT_EQ(desk->cursors.CariData.DatabaseName(), "\\\\10.0.0.5\\MuhasebeData\\01\\Cari.Mdb");
}

TEST_F(StartUpTest, a_terminal_with_ftp_waits_for_the_connection) {
  settings.Save("Velmora Karvel1", "Size", "FtpUrl", "ftp.merkez").Ignore();
  connection.downFor = 3;
  bool seen = false;
  loop.duringWait = [&] { seen = seen || (desk && desk->screen.BağlantıFrm.Visible()); };
  ASSERT_TRUE(Start());
  EXPECT_TRUE(seen);
  EXPECT_FALSE(At("BağlantıFrm").Visible());
  EXPECT_TRUE(At("FtpVar").Checked());
}

TEST_F(StartUpTest, a_later_activation_does_nothing) {
  ASSERT_TRUE(Start());
  At("Text1(0)").SetText("Ali");
  desk->Activate();
  EXPECT_EQ(At("Text1(0)").Text(), "Ali");
}

TEST_F(StartUpTest, the_wait_panel_stands_while_the_desk_is_made_ready) {
  std::vector<std::string> seen;
  loop.duringWait = [&] {
    if (desk && desk->screen.Frame5.Visible()) seen.push_back(desk->screen.Label16.Caption());
  };
  ASSERT_TRUE(Start());
  EXPECT_EQ(seen, std::vector<std::string>{"Bilgiler Düzenleniyor, Lütfen Bekleyiniz....."});
  EXPECT_FALSE(At("Frame5").Visible());
  EXPECT_TRUE(At("Command3").Visible());
  EXPECT_EQ(At("GrpCombo").Text(), " Tüm Guruplar");
  EXPECT_EQ(At("GurupCombo").Text(), "Tüm Guruplar");
  EXPECT_EQ(At("Text1(0)").Text(), "Muhtelif Müşteri");  // whom the first double tap serves
  EXPECT_EQ(desk->form.ActiveCursor, &desk->cursors.CariData);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(StartUpTest, a_damaged_file_is_told_by_name_and_left_alone) {
  ASSERT_TRUE(Start());
  Stop();
  const std::string path = folder.Path() + "/C/KarvelData/Stok.mdb";
  std::ofstream(path, std::ios::binary | std::ios::trunc) << std::string(5000, 'x');
  EXPECT_FALSE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Program Açılamadı");
  EXPECT_TRUE(ContainsText(messages.shown[0].text, path)) << messages.shown[0].text;
  EXPECT_EQ(fs::file_size(path), 5000U);
}

TEST_F(StartUpTest, a_file_of_another_program_is_told_by_name_with_what_it_lacks) {
  ASSERT_TRUE(Start());
  Stop();
  Sql("Fatura.mdb", "DROP TABLE FatHareket");
  EXPECT_FALSE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_TRUE(ContainsText(messages.shown[0].text, folder.Path() + "/C/KarvelData/Fatura.mdb (FatHareket)")) << messages.shown[0].text;
}

TEST_F(StartUpTest, the_message_tells_where_the_log_lies) {
  const auto before = SetLogSink([](std::string_view) {}, "/home/log/Velmora Karvel1.log");
  shell.claimFault = Status(ErrorKind::NoRights, "no").At("/home/lock");
  EXPECT_FALSE(Start());
  SetLogSink(before);
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Program Açılamadı");
  EXPECT_EQ(messages.shown[0].text,
            "Bu terminalin kilidi kurulamadı. Buraya erişim izni yok. İzni açtırıp programı yeniden açın.\n\nYer: /home/lock\n"
            "Ayrıntılı kayıt: /home/log/Velmora Karvel1.log");
  EXPECT_TRUE(files.List("C:\\KarvelData").empty());
}

TEST_F(StartUpTest, a_further_start_raises_the_window) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(window.raises, 0);
  shell.startedAgain();
  EXPECT_EQ(window.raises, 1);
}

TEST_F(StartUpTest, settings_that_were_lost_are_told_once_and_the_desk_opens) {
  settings.putAside = "/home/settings.ini.bozuk-1";
  ASSERT_TRUE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Ayarlar Okunamadı");
  EXPECT_TRUE(ContainsText(messages.shown[0].text, settings.putAside));
  settings.putAside.clear();
  ASSERT_TRUE(Start());
  EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(StartUpTest, settings_that_can_not_be_put_aside_end_the_start) {
  settings.readyFault = Status(ErrorKind::NoRights, "no").At("/home/settings.ini").About(Subject::Settings);
  EXPECT_FALSE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Program Açılamadı");
  EXPECT_TRUE(ContainsText(messages.shown[0].text, "/home/settings.ini"));
}

TEST_F(StartUpTest, the_balance_on_the_screen_is_that_of_the_customer_in_front) {
  ASSERT_TRUE(Start());
  AddCustomer("C1", "Aaa Bakkal", "Borc=75.5, Bakiye=75.5, Hesap='Borç'");
  ASSERT_TRUE(Start());
  ASSERT_EQ(At("Text1(0)").Text(), "Aaa Bakkal");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  EXPECT_EQ(At("Label8").Caption(), "C1");
  EXPECT_FALSE(At("Vadefrm").Visible());
}

}  // namespace
}  // namespace karvel
