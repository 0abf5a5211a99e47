#include "settings/serial_entry_file.h"

#include <gtest/gtest.h>

#include <string>

#include "support/memory_files.h"

namespace karvel {
namespace {

TEST(SerialEntryFile, is_made_off_when_missing) {
  MemoryFiles files;
  const SerialEntryFile file = ReadOrMakeSerialEntryFile(files);
  EXPECT_FALSE(file.on);
  EXPECT_TRUE(file.made);
  EXPECT_EQ(files.Bytes("/program/SeriNo.txt"), "False\r\n");
  EXPECT_FALSE(ReadOrMakeSerialEntryFile(files).made);
}

TEST(SerialEntryFile, is_read_leniently) {
  MemoryFiles files;
  for (const std::string text : {"True", "true\r\n", "#TRUE#\r\n", "Do\xF0ru", "1", "-1", " True "}) {
    files.Put("/program/SeriNo.txt", text);
    EXPECT_TRUE(ReadOrMakeSerialEntryFile(files).on) << text;
  }
  for (const std::string text : {"", "False", "#FALSE#", "0", "\r\nTrue", "Yanl\xFD\xFE"}) {
    files.Put("/program/SeriNo.txt", text);
    const SerialEntryFile file = ReadOrMakeSerialEntryFile(files);
    EXPECT_FALSE(file.on) << text;
    EXPECT_FALSE(file.made) << text;
    EXPECT_EQ(files.Bytes("/program/SeriNo.txt"), text);
  }
}

TEST(SerialEntryFile, a_disk_that_refuses_leaves_it_off) {
  MemoryFiles files;
  files.FailWrites(Status(ErrorKind::NoRights, ""));
  const SerialEntryFile file = ReadOrMakeSerialEntryFile(files);
  EXPECT_FALSE(file.on);
  EXPECT_FALSE(file.made);
  EXPECT_EQ(file.status.Kind(), ErrorKind::NoRights);
}

}  // namespace
}  // namespace karvel
