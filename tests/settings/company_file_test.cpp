#include "settings/company_file.h"

#include <gtest/gtest.h>

#include <array>

#include "support/memory_files.h"

namespace karvel {
namespace {

TEST(CompanyFile, is_made_with_plain_values_when_missing) {
  MemoryFiles files;
  const CompanyFile company = ReadOrMakeCompanyFile(files);
  EXPECT_TRUE(company.made);
  EXPECT_TRUE(company.status.Ok());
  EXPECT_EQ(files.Bytes("/program/Firmam.txt"),
            "Velmora\r\nAdres\r\nTel : 0000 000 00 00\r\n8\r\nC:\\KarvelData\\\r\nMali De\xF0"
            "eri Yoktur.\r\n");
  EXPECT_EQ(company.lines[CompanyFile::Name], "Velmora");
  EXPECT_EQ(company.lines[CompanyFile::FontSize], "8");
  EXPECT_EQ(company.lines[CompanyFile::Footer], "Mali Değeri Yoktur.");
}

TEST(CompanyFile, reads_the_same_when_it_was_just_made) {
  MemoryFiles files;
  const CompanyFile made = ReadOrMakeCompanyFile(files);
  const CompanyFile read = ReadOrMakeCompanyFile(files);
  EXPECT_FALSE(read.made);
  EXPECT_EQ(read.lines, made.lines);
}

TEST(CompanyFile, takes_six_lines_at_most_and_leaves_missing_ones_empty) {
  MemoryFiles files;
  files.Put("/program/Firmam.txt",
            "\xDE"
            "en Bakkal\r\n\r\nTel\r\n9\r\nD:\\\r\nSon\r\nFazla\r\n");
  const CompanyFile full = ReadOrMakeCompanyFile(files);
  EXPECT_FALSE(full.made);
  EXPECT_EQ(full.lines, (std::array<std::string, 6>{"Şen Bakkal", "", "Tel", "9", "D:\\", "Son"}));
  files.Put("/program/Firmam.txt", "Bir\nİki");
  EXPECT_EQ(ReadOrMakeCompanyFile(files).lines[0], "Bir");
  EXPECT_EQ(ReadOrMakeCompanyFile(files).lines[2], "");
  files.Put("/program/Firmam.txt", "");
  EXPECT_EQ(ReadOrMakeCompanyFile(files).lines, (std::array<std::string, 6>{}));
}

TEST(CompanyFile, reads_what_an_editor_saved_as_utf8) {
  MemoryFiles files;
  files.Put("/program/Firmam.txt", "\xEF\xBB\xBFŞen Bakkal\r\nIğdır");
  const CompanyFile company = ReadOrMakeCompanyFile(files);
  EXPECT_EQ(company.lines[0], "Şen Bakkal");
  EXPECT_EQ(company.lines[1], "Iğdır");
}

TEST(CompanyFile, a_disk_that_refuses_leaves_the_plain_values_and_says_so) {
  MemoryFiles files;
  files.FailWrites(Status(ErrorKind::DiskFull, "full"));
  const CompanyFile company = ReadOrMakeCompanyFile(files);
  EXPECT_FALSE(company.made);
  EXPECT_EQ(company.status.Kind(), ErrorKind::DiskFull);
  EXPECT_EQ(company.lines[CompanyFile::Name], "Velmora");
  EXPECT_FALSE(files.Exists("/program/Firmam.txt"));
}

TEST(CompanyFile, one_that_cant_be_read_is_never_written_over) {
  MemoryFiles files;
  files.Put("/program/Firmam.txt", "Bakkal");
  files.FailRead("/program/Firmam.txt", Status(ErrorKind::NoRights, "locked"));
  const CompanyFile company = ReadOrMakeCompanyFile(files);
  EXPECT_EQ(company.status.Kind(), ErrorKind::NoRights);
  EXPECT_FALSE(company.made);
  EXPECT_EQ(company.lines[0], "");
  EXPECT_EQ(files.Bytes("/program/Firmam.txt"), "Bakkal");
}

}  // namespace
}  // namespace karvel
