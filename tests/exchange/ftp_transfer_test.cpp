#include "exchange/ftp_transfer.h"

#include "tests/support/accounts_fixture.h"
#include "tests/support/logged_lines.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

class FtpTransferTest : public AccountsFixture {
 protected:
  void SetUp() override {
    Save("FtpUrl", "merkez:2121");
    Save("FtpUser", "ali");
    Save("FtpPass", "gizli");
    Save("FtpKlasör", "01/");
    AccountsFixture::SetUp();
  }
  void Save(const std::string& key, const std::string& value) { settings.Save("Velmora Karvel1", "Size", key, value).Ignore(); }
  void AddLine(const std::string& slipNo = "000007") {
    Sql("Karvel.mdb",
        "INSERT INTO Datam(CariKod,StokKod,CariAd,StokAd,Fiyat,Miktar,Tutar,Tarih,Birim,Durum,Plasiyer,SeriNo) VALUES('C001','1001','x',"
        "'Pirinç',50,1,50,'2026-03-01 09:00:00','Adet','Satış','WinKarvel1','" +
            slipNo + "')");
  }
  // A slip is printed, after the clerk searched for a text.
  void PrintAfterSearch(const std::string& search) {
    desk->form.LastStokSearch = search;
    Front("C001");
    Click("Command5(1)");
  }
  bool IsThere(const std::string& name = "01000007.csv") { return files.Exists("C:\\" + name); }
  std::string Message() { return At("Durum").Caption(); }
  Words Boxes() {
    Words texts;
    for (const ScriptedMessages::Box& box : messages.shown) texts.push_back(box.text);
    return texts;
  }
  Words Marks() { return Rows("Karvel.mdb", "SELECT Sube FROM Datam ORDER BY rowid"); }
};

TEST_F(FtpTransferTest, the_client_gets_the_account_of_the_settings_at_the_start) {
  EXPECT_EQ(ftp.account.url, "merkez:2121");
  EXPECT_EQ(ftp.account.user, "ali");
  EXPECT_EQ(ftp.account.password, "gizli");
  EXPECT_EQ(ftp.account.certificate, "");
  EXPECT_EQ(desk->form.FtpKlasör, "01/");
  EXPECT_EQ(connection.watched, "merkez:2121");
}

TEST_F(FtpTransferTest, the_file_of_the_last_search_goes_by_the_three_commands_and_is_deleted_then) {
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(ftp.commands, (Words{"DIR", "CD inetpub/01/", "PUT \"c:\\01000007.csv\" 01000007.csv"}));
  EXPECT_FALSE(IsThere());
  EXPECT_EQ(Marks(), Words{"x"});
  EXPECT_EQ(desk->form.InetDurum, 12);
  EXPECT_EQ(desk->form.SlipNo, "");
  EXPECT_EQ(Message(), "Merkeze gönderildi: 01000007.csv");
  EXPECT_EQ(Boxes(), Words{});
  EXPECT_TRUE(At("VzgCmd").Visible());
}

TEST_F(FtpTransferTest, a_search_that_names_no_file_sends_nothing_and_the_day_file_stays) {
  ASSERT_TRUE(files.Write("C:\\KarvelData\\notlar.txt", "n").Ok());
  for (const char* const search :
       {"", "pirinç", "01000008.csv", "KarvelData", "KarvelData\\notlar.txt", "..", "c:\\01000007.csv", "0100000?.csv"}) {
    AddLine();
    messages.shown.clear();
    PrintAfterSearch(search);
    EXPECT_EQ(ftp.commands, Words{}) << search;
    EXPECT_EQ(Boxes(), Words{"Veri Gitmedi"}) << search;
    EXPECT_TRUE(IsThere()) << search;
    EXPECT_TRUE(At("VzgCmd").Visible());
  }
  EXPECT_TRUE(files.Exists("C:\\KarvelData\\notlar.txt"));
}

TEST_F(FtpTransferTest, lines_that_have_gone_make_no_second_file) {
  AddLine();
  PrintAfterSearch("01000007.csv");
  ftp.commands.clear();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(ftp.commands, Words{});
  EXPECT_FALSE(IsThere());
}

TEST_F(FtpTransferTest, without_ftp_a_print_marks_nothing) {
  Save("FtpUrl", "");
  ASSERT_TRUE(Start());
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(printer.jobs.size(), 1U);
  EXPECT_FALSE(IsThere());
  EXPECT_EQ(Marks(), Words{""});
  EXPECT_EQ(ftp.commands, Words{});
  EXPECT_EQ(connection.watched, "");
}

TEST_F(FtpTransferTest, a_statement_is_no_day_file) {
  AddLine();
  Front("C001");
  Click("Command5(2)");
  At("DTPicker1").SetDate({2026, 3, 1, 0, 0, 0});
  Click("Command5(2)");
  EXPECT_EQ(printer.jobs.size(), 1U);
  EXPECT_FALSE(IsThere());
}

TEST_F(FtpTransferTest, a_print_that_was_refused_makes_no_day_file) {
  AddLine();
  printer.fault = {ErrorKind::Other, "no paper"};
  PrintAfterSearch("01000007.csv");
  EXPECT_FALSE(IsThere());
  EXPECT_EQ(Marks(), Words{""});
}

TEST_F(FtpTransferTest, what_the_server_refuses_is_told_once_and_kept) {
  const std::map<std::string, FtpFailure> faults{{"PUT", {FtpFault::NoRoom, "552 full"}}};
  ftp.faults = faults;
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(Boxes(), Words{"Veri Gitmedi"});
  EXPECT_EQ(Message(), "Veri gitmedi: 01000007.csv: sunucuda yer kalmamış (552 full)");
  EXPECT_TRUE(IsThere());
  EXPECT_EQ(Marks(), Words{"x"});
  EXPECT_EQ(desk->form.InetDurum, 11);
  EXPECT_TRUE(At("VzgCmd").Visible());
}

TEST_F(FtpTransferTest, where_the_folder_is_missing_nothing_is_put) {
  ftp.faults["CD"] = {FtpFault::Folder, "550 no folder"};
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(ftp.commands, (Words{"DIR", "CD inetpub/01/"}));
  EXPECT_EQ(Boxes(), Words{"Veri Gitmedi"});
  EXPECT_TRUE(IsThere());
}

TEST_F(FtpTransferTest, a_listing_that_is_refused_keeps_no_file_from_going) {
  ftp.faults["DIR"] = {FtpFault::Refused, "550 no list"};
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(ftp.commands.size(), 3U);
  EXPECT_FALSE(IsThere());
  EXPECT_EQ(Boxes(), Words{});
}

TEST_F(FtpTransferTest, a_server_that_lets_nobody_in_is_asked_once) {
  ftp.faults["DIR"] = {FtpFault::Login, "530 no"};
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(ftp.commands, Words{"DIR"});
  EXPECT_EQ(Boxes(), Words{"Veri Gitmedi"});
  EXPECT_EQ(Message(), "Veri gitmedi: 01000007.csv: sunucu kullanıcı adını veya şifreyi kabul etmedi (530 no)");
}

TEST_F(FtpTransferTest, without_a_connection_the_desk_waits_for_one) {
  AddLine();
  connection.downFor = connection.asked + 3;
  PrintAfterSearch("01000007.csv");
  EXPECT_TRUE(At("BağlantıFrm").Visible());
  EXPECT_FALSE(At("Form1").Enabled());
  EXPECT_EQ(ftp.commands, Words{});
  loop.timer();
  EXPECT_TRUE(At("BağlantıFrm").Visible());
  loop.timer();
  EXPECT_TRUE(At("BağlantıFrm").Visible());
  loop.timer();
  EXPECT_FALSE(At("BağlantıFrm").Visible());
  EXPECT_TRUE(At("Form1").Enabled());
  EXPECT_FALSE(loop.timer);
  EXPECT_FALSE(IsThere());
}

TEST_F(FtpTransferTest, a_desk_that_closes_ends_its_wait_and_says_nothing) {
  AddLine();
  connection.downFor = connection.asked + 100;
  PrintAfterSearch("01000007.csv");
  EXPECT_TRUE(desk->CloseRequested(false));
  loop.timer();
  EXPECT_FALSE(loop.timer);
  EXPECT_EQ(ftp.commands, Words{});
  EXPECT_EQ(Boxes(), Words{});
  EXPECT_TRUE(IsThere());
}

TEST_F(FtpTransferTest, while_a_file_goes_the_clerk_works_and_the_way_out_of_the_choice_is_hidden) {
  ftp.held = true;
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_FALSE(At("VzgCmd").Visible());
  EXPECT_TRUE(At("Form1").Enabled());
  EXPECT_EQ(desk->form.SlipNo, "");
  Sell("Burak Demir", "1001", "1");
  const std::string slip = desk->form.SlipNo;
  EXPECT_FALSE(slip.empty());
  for (int i = 0; i < 3; ++i) ftp.Answer();
  EXPECT_EQ(desk->form.SlipNo, slip);
  EXPECT_FALSE(IsThere());
  EXPECT_TRUE(At("VzgCmd").Visible());
}

TEST_F(FtpTransferTest, a_second_one_waits_for_the_first) {
  ftp.held = true;
  AddLine();
  PrintAfterSearch("01000007.csv");
  AddLine("000008");
  PrintAfterSearch("01000008.csv");
  EXPECT_EQ(ftp.commands, Words{"DIR"});
  for (int i = 0; i < 3; ++i) ftp.Answer();
  EXPECT_FALSE(IsThere());
  EXPECT_TRUE(IsThere("01000008.csv"));
  for (int i = 0; i < 3; ++i) ftp.Answer();
  EXPECT_FALSE(IsThere("01000008.csv"));
  EXPECT_EQ(ftp.commands.size(), 6U);
  EXPECT_EQ(ftp.commands.back(), "PUT \"c:\\01000008.csv\" 01000008.csv");
  EXPECT_EQ(Boxes(), Words{});
}

TEST_F(FtpTransferTest, a_file_that_is_laid_anew_while_it_goes_is_sent_again_and_not_lost) {
  ftp.held = true;
  AddLine();
  PrintAfterSearch("01000007.csv");
  AddLine();
  PrintAfterSearch("01000007.csv");
  for (int i = 0; i < 3; ++i) ftp.Answer();
  EXPECT_TRUE(IsThere());
  for (int i = 0; i < 3; ++i) ftp.Answer();
  EXPECT_FALSE(IsThere());
}

TEST_F(FtpTransferTest, the_quiet_line_says_how_far_a_long_one_is) {
  ftp.held = true;
  AddLine();
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(Message(), "Merkeze gönderiliyor: 01000007.csv");
  ftp.Answer();
  ftp.Answer();
  ftp.progressed({40, 100});
  EXPECT_EQ(Message(), "Merkeze gönderiliyor: 01000007.csv %40");
  At("Durum").SetCaption("Satış: Pirinç");
  ftp.progressed({45, 100});
  EXPECT_EQ(Message(), "Satış: Pirinç");
}

TEST_F(FtpTransferTest, a_day_file_that_cannot_be_written_is_told_and_nothing_is_sent) {
  AddLine();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  PrintAfterSearch("01000007.csv");
  engine.commitFault = {};
  EXPECT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(Message(), "Gün dosyası yazılamadı: disk dolu, yer açıp yeniden yazdırın");
  EXPECT_EQ(ftp.commands, Words{});
  EXPECT_EQ(Boxes(), Words{});
  EXPECT_EQ(Marks(), Words{""});
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(Marks(), Words{"x"});
}

TEST_F(FtpTransferTest, a_folder_in_the_place_of_the_day_file_is_named_and_the_next_print_writes_it) {
  AddLine();
  ASSERT_TRUE(files.MakeFolder("C:\\01000007.csv").Ok());
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(Message(), "Gün dosyası yazılamadı: C: sürücüsünde 01000007.csv adında bir klasör var, kaldırıp yeniden yazdırın");
  EXPECT_EQ(Marks(), Words{""});
  ASSERT_TRUE(files.Delete("C:\\01000007.csv").Ok());
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(Message(), "Merkeze gönderildi: 01000007.csv");
  EXPECT_EQ(Marks(), Words{"x"});
}

TEST_F(FtpTransferTest, a_day_file_whose_lines_are_marked_takes_its_place_at_the_next_print) {
  AddLine();
  Sql("Karvel.mdb", "UPDATE Datam SET Sube='x'");
  ASSERT_TRUE(files.Write("C:\\01000007.csv.4500.bekliyor", "rows").Ok());
  ASSERT_TRUE(files.MakeFolder("C:\\01000007.csv").Ok());
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(Message(), "Gün dosyası yazılamadı: C: sürücüsünde 01000007.csv adında bir klasör var, kaldırıp yeniden yazdırın");
  EXPECT_EQ(ftp.commands, Words{});
  ASSERT_TRUE(files.Delete("C:\\01000007.csv").Ok());
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(Message(), "Merkeze gönderildi: 01000007.csv");
  EXPECT_EQ(ftp.commands.size(), 3U);
  PrintAfterSearch("01000007.csv");
  EXPECT_EQ(ftp.commands.size(), 3U) << "nothing is left to go";
}

TEST_F(FtpTransferTest, the_box_waits_until_an_action_is_over) {
  loop.defers = true;
  AddLine();
  PrintAfterSearch("yok");
  ASSERT_TRUE(stores->Begin("posting").Ok());
  loop.RunDeferred();
  EXPECT_EQ(Boxes(), Words{});
  ASSERT_TRUE(stores->Commit().Ok());
  loop.RunDeferred();
  EXPECT_EQ(Boxes(), Words{"Veri Gitmedi"});
}

}  // namespace
}  // namespace karvel
