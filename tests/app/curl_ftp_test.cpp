#include "app/curl_ftp.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>

#include "tests/app/encrypted_ftp.h"
#include "tests/support/folder_files.h"
#include "tests/support/logged_lines.h"

namespace karvel {
namespace {

using testing::EncryptedFtp;
using testing::PythonFtp;

class CurlFtpTest : public ::testing::Test {
 protected:
  CurlFtpTest() { Lay("01000007.csv", kDay); }

  void Lay(const std::string& name, const std::string& bytes) { ASSERT_TRUE(files.Write("c:\\" + name, bytes).Ok()); }
  // A command to its end; how it ended.
  FtpFault Do(const std::string& command) {
    bool over = false;
    FtpState last = FtpState::Requesting;
    const ScopedConnection heard = ftp.stateChanged.Connect([&](FtpState state) {
      last = state;
      over = state != FtpState::Requesting;
    });
    ftp.Execute(command);
    EXPECT_FALSE(over) << "answered before the call returned";
    EXPECT_TRUE(QTest::qWaitFor([&] { return over; }, 20'000)) << command;
    EXPECT_FALSE(ftp.StillExecuting());
    EXPECT_EQ(last == FtpState::Completed, ftp.Failure().fault == FtpFault::None);
    return ftp.Failure().fault;
  }
  void ComeTo(const std::string& url, const std::string& user = "ali", const std::string& password = "gizli",
              const std::string& certificate = "") {
    ftp.SetAccount({url, user, password, certificate});
  }
  FtpFault Send(const std::string& name = "01000007.csv") { return Do("PUT \"c:\\" + name + "\" " + name); }

  const std::string kDay = "\"C001\",#2026-03-01 10:15:00#\r\n\"\xDE\xF0\",\"1\",\"50\",\"50\"\r\n";
  TempFolder folder;
  FolderFiles files{folder.Path()};
  const testing::LoggedLines log;
  CurlFtp ftp{files, {.connect = std::chrono::milliseconds(2000), .silence = std::chrono::seconds(2)}};
};

TEST_F(CurlFtpTest, a_file_goes_by_the_three_commands_byte_for_byte) {
  const PythonFtp server("plain");
  ComeTo(server.Address());
  EXPECT_EQ(Do("DIR"), FtpFault::None);
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send(), FtpFault::None);
  EXPECT_EQ(server.Bytes("inetpub/01/01000007.csv"), kDay);
}

TEST_F(CurlFtpTest, every_form_of_address_and_name_comes_to_the_same_place) {
  const PythonFtp server("plain");
  std::filesystem::create_directories(server.Root() + "/depo/inetpub/Şube 1");
  Lay("gün #1 %41;.csv", kDay);
  for (const std::string& url : {"ftp://" + server.Address() + "/depo", " " + server.Address() + "/depo/ "}) {
    ComeTo(url);
    EXPECT_EQ(Do("CD inetpub/Şube 1/"), FtpFault::None) << url;
    EXPECT_EQ(Send("gün #1 %41;.csv"), FtpFault::None) << url;
    EXPECT_EQ(server.Bytes("depo/inetpub/Şube 1/gün #1 %41;.csv"), kDay) << url;
    std::filesystem::remove(server.Root() + "/depo/inetpub/Şube 1/gün #1 %41;.csv");
  }
}

TEST_F(CurlFtpTest, a_wrong_password_is_refused_with_the_servers_words) {
  const PythonFtp server("plain");
  ComeTo(server.Address(), "ali", "yanlis");
  EXPECT_EQ(Do("DIR"), FtpFault::Login);
  EXPECT_TRUE(ftp.Failure().reply.starts_with("530 ")) << ftp.Failure().reply;
}

TEST_F(CurlFtpTest, what_the_server_said_is_logged_and_the_password_never) {
  const PythonFtp server("plain");
  ComeTo(server.Address());
  Do("DIR");
  Do("CD gizli/");  // which the server says again
  EXPECT_TRUE(log.Holds("ftp > USER ali"));
  EXPECT_TRUE(log.Holds("ftp > PASS ***"));
  EXPECT_TRUE(log.Holds("ftp < 230 "));
  EXPECT_TRUE(log.Holds("ftp < 550 "));
  EXPECT_FALSE(log.Holds("gizli"));
  ComeTo("ftp://ali:parola@" + server.Address());  // typed where none belongs
  EXPECT_EQ(Do("DIR"), FtpFault::None);
  EXPECT_FALSE(log.Holds("parola"));
}

TEST_F(CurlFtpTest, a_missing_folder_is_told) {
  const PythonFtp server("plain");
  ComeTo(server.Address());
  EXPECT_EQ(Do("DIR"), FtpFault::None);
  EXPECT_EQ(Do("CD inetpub/02/"), FtpFault::Folder);
  EXPECT_TRUE(ftp.Failure().reply.starts_with("550 ")) << ftp.Failure().reply;
}

TEST_F(CurlFtpTest, a_listing_that_is_refused_leaves_the_rest) {
  const PythonFtp server("unlisted");
  ComeTo(server.Address());
  EXPECT_EQ(Do("DIR"), FtpFault::Refused);
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send(), FtpFault::None);
  EXPECT_EQ(server.Bytes("inetpub/01/01000007.csv"), kDay);
}

TEST_F(CurlFtpTest, a_server_that_takes_no_files_refuses) {
  const PythonFtp server("closed");
  ComeTo(server.Address());
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send(), FtpFault::Refused);
  EXPECT_TRUE(ftp.Failure().reply.starts_with("550 ")) << ftp.Failure().reply;
}

TEST_F(CurlFtpTest, a_server_without_room_says_so) {
  const PythonFtp server("full");
  ComeTo(server.Address());
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send(), FtpFault::NoRoom) << ftp.Failure().reply;
}

TEST_F(CurlFtpTest, a_server_that_runs_out_of_room_on_the_way_is_no_success) {
  const PythonFtp server("filling");
  ComeTo(server.Address());
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send(), FtpFault::Refused);
  EXPECT_TRUE(ftp.Failure().reply.starts_with("426 ")) << ftp.Failure().reply;
}

TEST_F(CurlFtpTest, a_server_that_goes_in_the_middle_is_no_success) {
  const PythonFtp server("dies");
  Lay("uzun.csv", std::string(20'000'000, 'x'));
  ComeTo(server.Address());
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send("uzun.csv"), FtpFault::Broken);
}

TEST_F(CurlFtpTest, where_nobody_listens_there_is_no_server) {
  PythonFtp server("plain");
  const std::string address = server.Address();
  server.Stop();
  ComeTo(address);
  EXPECT_EQ(Do("DIR"), FtpFault::Unreachable);
  ComeTo("yok.invalid");
  EXPECT_EQ(Do("DIR"), FtpFault::Unreachable);
}

TEST_F(CurlFtpTest, a_session_that_was_cut_begins_anew) {
  auto server = std::make_unique<PythonFtp>("plain");
  ComeTo(server->Address());
  EXPECT_EQ(Do("DIR"), FtpFault::None);
  server->Stop();
  EXPECT_NE(Do("CD inetpub/01/"), FtpFault::None);
  const PythonFtp again("plain");
  ComeTo(again.Address());
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send(), FtpFault::None);
  EXPECT_EQ(again.Bytes("inetpub/01/01000007.csv"), kDay);
}

TEST_F(CurlFtpTest, a_server_that_says_nothing_is_left_after_a_while) {
  const PythonFtp server("deaf");
  ComeTo(server.Address());
  EXPECT_EQ(Do("DIR"), FtpFault::Silent);
}

TEST_F(CurlFtpTest, while_a_command_runs_the_desk_lives_and_may_close) {
  const PythonFtp server("deaf");
  QElapsedTimer watch;
  watch.start();
  {
    CurlFtp closing(files);
    closing.SetAccount({server.Address(), "ali", "gizli", ""});
    closing.Execute("DIR");
    EXPECT_LT(watch.elapsed(), 200);
    QTest::qWait(100);
    EXPECT_TRUE(closing.StillExecuting());
    watch.restart();
  }
  EXPECT_LT(watch.elapsed(), 2500);
}

TEST_F(CurlFtpTest, a_long_file_says_how_far_it_is) {
  const PythonFtp server("plain");
  Lay("uzun.csv", std::string(20'000'000, 'x'));
  ComeTo(server.Address());
  std::vector<FtpProgress> told;
  const ScopedConnection heard = ftp.progressed.Connect([&](const FtpProgress& progress) { told.push_back(progress); });
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send("uzun.csv"), FtpFault::None);
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back().total, 20'000'000);
  EXPECT_LE(told.back().sent, told.back().total);
}

TEST_F(CurlFtpTest, a_file_that_is_not_there_or_a_folder_is_not_sent) {
  const PythonFtp server("plain");
  ComeTo(server.Address());
  EXPECT_EQ(Send("yok.csv"), FtpFault::File);
  ASSERT_TRUE(files.MakeFolder("c:\\KarvelData").Ok());
  EXPECT_EQ(Send("KarvelData"), FtpFault::File);
}

TEST_F(CurlFtpTest, what_is_no_address_or_command_goes_nowhere) {
  ComeTo("http://127.0.0.1");
  EXPECT_EQ(Do("DIR"), FtpFault::Address);
  EXPECT_EQ(Do("DELE x"), FtpFault::Address);
}

class EncryptedTest : public CurlFtpTest, public ::testing::WithParamInterface<bool> {};

TEST_P(EncryptedTest, a_file_goes_encrypted_whichever_way_the_server_begins) {
  const EncryptedFtp server(GetParam());
  ComeTo("ftps://" + server.Address(), "ftp", "gizli", server.Certificate());
  EXPECT_EQ(Do("DIR"), FtpFault::None) << ftp.Failure().reply;
  EXPECT_EQ(Do("CD inetpub/01/"), FtpFault::None);
  EXPECT_EQ(Send(), FtpFault::None);
  EXPECT_EQ(server.Bytes("inetpub/01/01000007.csv"), kDay);
  EXPECT_FALSE(log.Holds("gizli"));
}

TEST_P(EncryptedTest, a_certificate_that_nobody_vouches_for_is_not_believed) {
  const EncryptedFtp server(GetParam());
  ComeTo("ftps://" + server.Address(), "ftp", "gizli");
  EXPECT_EQ(Do("DIR"), FtpFault::Encryption);
  EXPECT_FALSE(log.Holds("> PASS"));
}

TEST_P(EncryptedTest, a_user_who_is_not_known_is_refused) {
  const EncryptedFtp server(GetParam());
  ComeTo("ftps://" + server.Address(), "ali", "gizli", server.Certificate());
  EXPECT_EQ(Do("DIR"), FtpFault::Login);
}

INSTANTIATE_TEST_SUITE_P(Servers, EncryptedTest, ::testing::Bool(),
                         [](const auto& way) { return way.param ? "from_the_start" : "when_asked"; });

TEST_F(CurlFtpTest, a_server_that_does_not_encrypt_hears_no_password) {
  const PythonFtp server("plain");
  ComeTo("ftps://" + server.Address());
  EXPECT_EQ(Do("DIR"), FtpFault::Encryption);
  EXPECT_FALSE(log.Holds("> PASS"));
  EXPECT_FALSE(log.Holds("> USER"));
}

}  // namespace
}  // namespace karvel
