#include "platform/clerk_message.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "platform/log.h"
#include "text/turkish.h"

namespace karvel {
namespace {

constexpr ErrorKind kKinds[] = {ErrorKind::None,    ErrorKind::BadText,    ErrorKind::NoRecord, ErrorKind::NotOpen,
                                ErrorKind::Busy,    ErrorKind::DiskFull,   ErrorKind::NoRights, ErrorKind::Damaged,
                                ErrorKind::Missing, ErrorKind::DiskFailed, ErrorKind::Unknown,  ErrorKind::Other};

TEST(ClerkMessage, every_kind_has_its_own_sentence) {
  std::set<std::string> sentences;
  for (const ErrorKind kind : kKinds) sentences.insert(ClerkMessage(Status(kind, "")));
  EXPECT_EQ(sentences.size(), std::size(kKinds));
}

TEST(ClerkMessage, tells_what_happened_and_what_to_do) {
  EXPECT_EQ(ClerkMessage(Status(ErrorKind::DiskFull, "")), "Disk dolu. Kayıt yapılmadı; yer açıp yeniden deneyin.");
  EXPECT_TRUE(ContainsText(ClerkMessage(Status(ErrorKind::NoRights, "")), "izni"));
  EXPECT_TRUE(ContainsText(ClerkMessage(Status(ErrorKind::Damaged, "")), "yedekten"));
  EXPECT_TRUE(ContainsText(ClerkMessage(Status(ErrorKind::Busy, "")), "bekleyip"));
  EXPECT_TRUE(ContainsText(ClerkMessage(Status(ErrorKind::Missing, "")), "bulunamadı"));
}

TEST(ClerkMessage, a_read_that_another_program_keeps_from_the_desk_names_it) {
  EXPECT_EQ(ReadingMessage(Status(ErrorKind::Busy, "locked")), "Veri dosyası başka bir programda açık, okunamadı: yeniden deneyin");
}

TEST(ClerkMessage, never_shows_the_log_text) {
  for (const ErrorKind kind : kKinds) {
    EXPECT_FALSE(ContainsText(ClerkMessage(Status(kind, "errno 28 at Cari.mdb")), "errno")) << static_cast<int>(kind);
  }
}

TEST(ClerkMessage, settings_have_words_of_their_own) {
  for (const ErrorKind kind : {ErrorKind::Busy, ErrorKind::DiskFull, ErrorKind::NoRights, ErrorKind::Damaged, ErrorKind::Other}) {
    const Status failed(kind, "");
    EXPECT_NE(ClerkMessage(failed.About(Subject::Settings)), ClerkMessage(failed)) << static_cast<int>(kind);
    EXPECT_TRUE(ContainsText(ClerkMessage(failed.About(Subject::Settings)), "ayarlar")) << static_cast<int>(kind);
  }
  EXPECT_EQ(ClerkMessage(Status().About(Subject::Settings)), ClerkMessage(Status()));
}

TEST(ClerkMessage, the_place_and_the_log_stand_below_the_text_of_a_failure_that_has_a_place) {
  const Status failed(ErrorKind::Damaged, "malformed");
  const auto before = SetLogSink([](std::string_view) {}, "/home/desk.log");
  EXPECT_EQ(WithPlace("Bozuk.", failed), "Bozuk.");
  EXPECT_EQ(WithPlace("Bozuk.", failed.At("/data/Cari.mdb").At("/data")), "Bozuk.\n\nYer: /data/Cari.mdb\nAyrıntılı kayıt: /home/desk.log");
  SetLogSink(before);
  EXPECT_EQ(WithPlace("Bozuk.", failed.At("/data/Cari.mdb")), "Bozuk.\n\nYer: /data/Cari.mdb");
}

TEST(Status, is_well_until_told_otherwise) {
  EXPECT_TRUE(Status().Ok());
  const Status failed(ErrorKind::Busy, "gate");
  EXPECT_FALSE(failed.Ok());
  EXPECT_EQ(failed.Kind(), ErrorKind::Busy);
  EXPECT_EQ(failed.Message(), "gate");
}

TEST(ClerkMessage, of_the_main_machine_it_speaks_of_no_file_or_folder) {
  for (const ErrorKind kind : {ErrorKind::NoRights, ErrorKind::DiskFull, ErrorKind::Damaged}) {
    const Status refused = Status(kind, "").About(Subject::Server);
    for (const std::string& told : {ClerkMessage(refused), OpeningMessage(refused)}) {
      EXPECT_TRUE(told.starts_with("Ana makine")) << told;
      EXPECT_FALSE(ContainsText(told, "klasör") || ContainsText(told, "dosya")) << told;
    }
    EXPECT_TRUE(ContainsText(ClerkMessage(refused), "Kayıt yapılmadı"));
  }
}

}  // namespace
}  // namespace karvel
