#include "exchange/network_menu.h"

#include "tests/support/accounts_fixture.h"

namespace karvel {
namespace {

using Words = std::vector<std::string>;

class NetworkMenuTest : public AccountsFixture {
 protected:
  std::string Kept(const std::string& key) { return settings.Get("Velmora Karvel1", "Size", key, ""); }
  void Save(const std::string& key, const std::string& value) { settings.Save("Velmora Karvel1", "Size", key, value).Ignore(); }
  void Answer(const Words& answers) {
    messages.answers.assign(answers.begin(), answers.end());
    messages.shown.clear();
    Click("FtpVar");
  }
  std::string Message() { return At("Durum").Caption(); }
};

TEST_F(NetworkMenuTest, ftp_asks_for_its_server_and_keeps_the_answers) {
  Answer({"ftp.merkez.com", "ali", "gizli", "/depo/01/"});
  ASSERT_EQ(messages.shown.size(), 4U);
  EXPECT_EQ(messages.shown[0].text, "Lütfen Ftp Sunucu Adı Girin");
  EXPECT_EQ(messages.shown[0].title, "Ftp Sunucu");
  EXPECT_EQ(messages.shown[0].preset, "ftp...com");
  EXPECT_EQ(messages.shown[1].text, "Lütfen Ftp Kullanıcı Adı Girin");
  EXPECT_EQ(messages.shown[1].title, "Ftp Kullanıcı Adı");
  EXPECT_EQ(messages.shown[2].text, "Lütfen Ftp Kullanıcı Şifresi Girin");
  EXPECT_EQ(messages.shown[2].title, "Ftp Kullanıcı Şifresi");
  EXPECT_EQ(messages.shown[3].text, "Lütfen Ftp Klasör Adı Girin");
  EXPECT_EQ(messages.shown[3].title, "FtpKlasör Adı");
  EXPECT_TRUE(At("FtpVar").Checked());
  EXPECT_EQ(Kept("FtpUrl"), "ftp.merkez.com");
  EXPECT_EQ(Kept("FtpUser"), "ali");
  EXPECT_EQ(Kept("FtpPass"), "gizli");
  EXPECT_EQ(Kept("FtpKlasör"), "depo01/");
  EXPECT_EQ(ftp.account.url, "ftp.merkez.com");
  EXPECT_EQ(ftp.account.password, "gizli");
  EXPECT_EQ(desk->form.FtpKlasör, "depo01/");
  EXPECT_EQ(connection.watched, "ftp.merkez.com:21");
}

TEST_F(NetworkMenuTest, an_empty_server_user_or_password_clears_the_check) {
  for (const Words& answers :
       {Words{"", "ali", "gizli", "01"}, Words{"merkez", "", "gizli", "01"}, Words{"merkez", "ali", "", "01"}, Words{}}) {
    Answer(answers);
    EXPECT_FALSE(At("FtpVar").Checked());
    EXPECT_EQ(Kept("FtpUrl"), "");
    EXPECT_EQ(ftp.account.url, "");
    EXPECT_EQ(messages.shown.size(), 4U);
  }
}

TEST_F(NetworkMenuTest, the_folder_may_be_empty) {
  Answer({"merkez", "ali", "gizli"});
  EXPECT_TRUE(At("FtpVar").Checked());
  EXPECT_EQ(Kept("FtpKlasör"), "/");
}

TEST_F(NetworkMenuTest, switched_off_it_forgets_the_server) {
  Answer({"merkez", "ali", "gizli", "01"});
  Answer({});
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_FALSE(At("FtpVar").Checked());
  EXPECT_EQ(Kept("FtpUrl"), "");
  EXPECT_EQ(ftp.account.url, "");
  EXPECT_EQ(connection.watched, "");
  EXPECT_EQ(Kept("FtpUser"), "ali");
  EXPECT_EQ(Message(), "Ftp çalışma kapatıldı");
}

TEST_F(NetworkMenuTest, a_server_name_that_means_nothing_is_told) {
  Answer({"http://merkez", "ali", "gizli", "01"});
  EXPECT_EQ(Message(), "Ftp sunucu adı anlaşılamadı, adı denetleyin: http://merkez");
}

TEST_F(NetworkMenuTest, neither_can_be_switched_in_a_sale) {
  EnterSale("Ayşe Yılmaz");
  for (const char* const entry : {"FtpVar", "OnLine"}) {
    At("Durum").SetCaption("");
    Click(entry);
    EXPECT_FALSE(At(entry).Checked());
    EXPECT_EQ(Message(), "Çalışma şekli satışta değişmez: önce müşteri listesine dönün");
  }
  EXPECT_TRUE(messages.shown.empty());
}

class NetworkWorkTest : public NetworkMenuTest {
 protected:
  void AnswerNetwork(const Words& answers) {
    messages.answers.assign(answers.begin(), answers.end());
    messages.shown.clear();
    Click("OnLine");
  }
};

TEST_F(NetworkWorkTest, it_asks_for_the_main_machine_and_the_firm_and_works_there) {
  AnswerNetwork({"\\\\10,0,0,5", "02"});
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[0].text, "Lütfen Ana Makina Ip Girin");
  EXPECT_EQ(messages.shown[0].title, "Ana Makina Ip'si");
  EXPECT_EQ(messages.shown[0].preset, "127.0.0.1");
  EXPECT_EQ(messages.shown[1].text, "Lütfen Firma No Girin");
  EXPECT_EQ(messages.shown[1].title, "Firma Numarası");
  EXPECT_EQ(messages.shown[1].preset, "01");
  EXPECT_TRUE(At("OnLine").Checked());
  EXPECT_EQ(Kept("Online"), "10.0.0.5");
  EXPECT_EQ(Kept("Firma"), "02");
  EXPECT_EQ(desk->form.DataDir, "\\\\10.0.0.5\\MuhasebeData\\02");
  EXPECT_EQ(desk->cursors.CariData.DatabaseName(), "\\\\10.0.0.5\\MuhasebeData\\02\\Cari.Mdb");
  EXPECT_EQ(connection.watched, "10.0.0.5:5432");
  EXPECT_EQ(desk->cursors.CariData.Text("Unvan"), "Muhtelif Müşteri");  // of a firm that begins here
  EXPECT_EQ(desk->cursors.CariData.RecordCount(), 1);
}

TEST_F(NetworkWorkTest, a_firm_that_begins_there_is_told_as_new_and_later_as_any_other) {
  AnswerNetwork({"kasa", "07"});
  EXPECT_EQ(Message(), "Yeni firma açıldı: 07");
  Click("OnLine");
  EXPECT_EQ(Message(), "Terminal kendi verisiyle çalışıyor");
  AnswerNetwork({"kasa", "07"});
  EXPECT_EQ(Message(), "Network çalışma açıldı: kasa, firma 07");
}

TEST_F(NetworkWorkTest, several_machines_are_named_with_semicolons) {
  AnswerNetwork({"kasa:5433;yedek", "01"});
  EXPECT_EQ(Kept("Online"), "kasa:5433;yedek");
  EXPECT_EQ(connection.watched, "kasa:5433;yedek:5432");
}

TEST_F(NetworkWorkTest, a_refused_or_empty_answer_clears_the_check) {
  for (const Words& answers : {Words{}, Words{""}, Words{"\\"}, Words{"kasa"}, Words{"kasa", ""}, Words{"kasa", "..\\02"}}) {
    AnswerNetwork(answers);
    EXPECT_FALSE(At("OnLine").Checked());
    EXPECT_EQ(Kept("Online"), "");
    EXPECT_EQ(desk->form.DataDir, "C:\\KarvelData\\");
    EXPECT_EQ(Message(), "Network çalışma açılmadı: ana makinenin adresi ve firma numarası (yalnız harf ve rakam) gerekir");
    EXPECT_EQ(server.asked, 0);
  }
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT CariKod, Tutar FROM Datam"), "C001|100.0");
}

TEST_F(NetworkWorkTest, it_ends_ftp_work) {
  Answer({"merkez", "ali", "gizli", "01"});
  AnswerNetwork({"kasa", "01"});
  EXPECT_FALSE(At("FtpVar").Checked());
  EXPECT_EQ(Kept("FtpUrl"), "");
  EXPECT_EQ(ftp.account.url, "");
  EXPECT_EQ(connection.watched, "kasa:5432");
}

TEST_F(NetworkWorkTest, a_machine_that_does_not_answer_is_told_and_network_work_can_be_cleared) {
  server.away = true;
  AnswerNetwork({"kasa", "01"});
  EXPECT_TRUE(At("OnLine").Checked());
  ASSERT_EQ(messages.shown.size(), 3U);
  EXPECT_EQ(messages.shown[2].title, "Ana Makine");
  EXPECT_TRUE(messages.shown[2].text.starts_with("Ana makineye ulaşılamıyor."));
  Click("OnLine");
  EXPECT_FALSE(At("OnLine").Checked());
  Sell("Ayşe Yılmaz", "1001", "2");
  EXPECT_EQ(One("Karvel.mdb", "SELECT CariKod, Tutar FROM Datam"), "C001|100.0");
}

class OnTheNetworkTest : public NetworkMenuTest {
 protected:
  void SetUp() override {
    NetworkMenuTest::SetUp();
    Save("Online", "10.0.0.5");
    Save("Firma", "01");
    ASSERT_TRUE(Start());
    ASSERT_TRUE(At("OnLine").Checked());
    ASSERT_FALSE(desk->cursors.CariData.FindFirst("CariKod='C001'").Ok());  // the share's list
  }
  void ExpectOwnStores() {
    EXPECT_FALSE(At("OnLine").Checked());
    EXPECT_EQ(Kept("Online"), "");
    EXPECT_EQ(desk->form.DataDir, "C:\\KarvelData\\");
    EXPECT_EQ(desk->cursors.CariData.DatabaseName(), "C:\\KarvelData\\Cari.Mdb");
    Sell("Ayşe Yılmaz", "1001", "2");
    EXPECT_EQ(One("Karvel.mdb", "SELECT CariKod, Tutar FROM Datam"), "C001|100.0");
  }
};

TEST_F(OnTheNetworkTest, cleared_the_terminal_works_on_its_own_stores) {
  Click("OnLine");
  ExpectOwnStores();
}

TEST_F(OnTheNetworkTest, ftp_opens_the_terminals_own_stores) {
  Answer({"merkez", "ali", "gizli", "01"});
  EXPECT_TRUE(At("FtpVar").Checked());
  ExpectOwnStores();
}

TEST_F(OnTheNetworkTest, so_does_ftp_whose_answers_are_refused) {
  Answer({});
  EXPECT_FALSE(At("FtpVar").Checked());
  ExpectOwnStores();
}

}  // namespace
}  // namespace karvel
