#include "touch/file_operations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/memory_files.h"

namespace karvel {
namespace {

using testing::ElementsAre;

// Answers every question the same way and keeps them.
class OneAnswer final : public Messages {
 public:
  explicit OneAnswer(MessageAnswer answer) : answer_(answer) {}
  MessageAnswer MessageBox(const std::string& text, const std::string& title, MessageIcon, MessageButtons) override {
    questions.push_back(title + ": " + text);
    return answer_;
  }
  std::optional<std::string> InputBox(const std::string&, const std::string&, const std::string&) override { return std::nullopt; }
  std::optional<PrinterChoice> PrinterDialog(const PrinterChoice&) override { return std::nullopt; }
  std::optional<FontChoice> FontDialog(const FontChoice&) override { return std::nullopt; }
  std::optional<std::string> FileDialog(const std::string&, const std::string&) override { return std::nullopt; }

  std::vector<std::string> questions;

 private:
  MessageAnswer answer_;
};

class FileOperations : public testing::Test {
 protected:
  void SetUp() override {
    files.Put("/program/Cari.mdb", "cari");
    files.Put("/program/Stok.mdb", "stok");
  }
  MemoryFiles files;
  CSHFileOp operation{files};
};

TEST_F(FileOperations, without_sources_every_one_is_an_error_and_touches_nothing) {
  operation.AddDestFile("C:\\KarvelData\\Cari.mdb");
  for (const auto& result : {operation.MoveFiles(), operation.CopyFiles(), operation.DeleteFiles(), operation.RenameFiles()}) {
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().number, -2147220504);
    EXPECT_EQ(result.error().text, "No source files specified file operation");
  }
  EXPECT_EQ(files.Writes(), 0);
}

TEST_F(FileOperations, clearing_the_sources_leaves_none) {
  operation.AddSourceFile("/program/Cari.mdb");
  operation.ClearSourceFiles();
  EXPECT_FALSE(operation.DeleteFiles());
  EXPECT_TRUE(files.Exists("/program/Cari.mdb"));
}

TEST_F(FileOperations, a_template_is_copied_into_a_new_data_folder) {
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddDestFile("C:\\KarvelData\\Cari.mdb");
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\KarvelData\\Cari.mdb"), "cari");
  EXPECT_EQ(files.Bytes("/program/Cari.mdb"), "cari");
}

TEST_F(FileOperations, an_empty_folder_takes_files_into_it) {
  ASSERT_TRUE(files.MakeFolder("C:\\KarvelData").Ok());
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddDestFile("C:\\KarvelData");
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\KarvelData\\Cari.mdb"), "cari");
}

TEST_F(FileOperations, an_empty_folder_is_passed_over_or_taken_as_folders_are) {
  ASSERT_TRUE(files.MakeFolder("C:\\Boş").Ok());
  operation.AddSourceFile("C:\\Boş");
  EXPECT_TRUE(operation.DeleteFiles());
  EXPECT_TRUE(files.IsFolder("C:\\Boş"));
  operation.IncludeDirectories(true);
  operation.AddDestFile("C:\\Yeni");
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_TRUE(files.IsFolder("C:\\Yeni"));
  EXPECT_TRUE(operation.DeleteFiles());
  EXPECT_FALSE(files.Exists("C:\\Boş"));
}

TEST_F(FileOperations, sources_and_destinations_pair_up) {
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddSourceFile("/program/Stok.mdb");
  operation.AddDestFile("C:\\a.mdb");
  operation.AddDestFile("C:\\b.mdb");
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\a.mdb"), "cari");
  EXPECT_EQ(files.Bytes("C:\\b.mdb"), "stok");
}

TEST_F(FileOperations, one_destination_is_the_folder_of_all) {
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddSourceFile("/program/Stok.mdb");
  operation.AddDestFile("C:\\Yeni");
  EXPECT_TRUE(operation.MoveFiles());
  EXPECT_EQ(files.Bytes("C:\\Yeni\\Cari.mdb"), "cari");
  EXPECT_EQ(files.Bytes("C:\\Yeni\\Stok.mdb"), "stok");
  EXPECT_FALSE(files.Exists("/program/Cari.mdb"));
}

TEST_F(FileOperations, a_folder_as_destination_takes_the_file) {
  files.Put("C:\\Yedek\\x.txt", "x");
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddDestFile("C:\\Yedek");
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\Yedek\\Cari.mdb"), "cari");
}

TEST_F(FileOperations, lists_that_do_not_pair_up_touch_nothing) {
  operation.AddSourceFile("/program/Cari.mdb");
  const auto none = operation.CopyFiles();
  ASSERT_FALSE(none);
  EXPECT_EQ(none.error().status.Kind(), ErrorKind::BadText);
  operation.AddDestFile("C:\\a");
  operation.AddDestFile("C:\\b");
  EXPECT_FALSE(operation.CopyFiles());
  operation.ClearDestFiles();
  operation.AddDestFile("C:\\a");
  EXPECT_TRUE(operation.CopyFiles());
}

TEST_F(FileOperations, files_are_renamed_and_deleted) {
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddDestFile("/program/Eski.mdb");
  EXPECT_TRUE(operation.RenameFiles());
  EXPECT_EQ(files.Bytes("/program/Eski.mdb"), "cari");
  EXPECT_FALSE(files.Exists("/program/Cari.mdb"));
  operation.ClearSourceFiles();
  operation.AddSourceFile("/program/Eski.mdb");
  EXPECT_TRUE(operation.DeleteFiles());
  EXPECT_FALSE(files.Exists("/program/Eski.mdb"));
}

TEST_F(FileOperations, a_pattern_stands_for_every_name_that_fits) {
  files.Put("/program/Logo.jpg", "j");
  operation.AddSourceFile("/program/*.MDB");
  operation.AddDestFile("C:\\Veri");
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_THAT(files.List("C:\\Veri"), ElementsAre("Cari.mdb", "Stok.mdb"));
}

TEST_F(FileOperations, the_first_failure_stops_and_is_told) {
  operation.AddSourceFile("/program/Yok.mdb");
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddDestFile("C:\\Veri");
  const auto missing = operation.CopyFiles();
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().status.Kind(), ErrorKind::Missing);
  EXPECT_NE(missing.error().number, FileOperationError::kNoSources);
  EXPECT_FALSE(files.Exists("C:\\Veri\\Cari.mdb"));
  operation.ClearSourceFiles();
  operation.AddSourceFile("/program/Cari.mdb");
  files.FailWrites(Status(ErrorKind::DiskFull, ""));
  const auto full = operation.CopyFiles();
  ASSERT_FALSE(full);
  EXPECT_EQ(full.error().status.Kind(), ErrorKind::DiskFull);
}

TEST_F(FileOperations, rename_on_collision_keeps_both) {
  files.Put("C:\\Cari.mdb", "eski");
  operation.AddSourceFile("/program/Cari.mdb");
  operation.AddDestFile("C:\\Cari.mdb");
  operation.RenameOnCollision(true);
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\Cari.mdb"), "eski");
  EXPECT_EQ(files.Bytes("C:\\Cari (2).mdb"), "cari");
  EXPECT_EQ(files.Bytes("C:\\Cari (3).mdb"), "cari");
  operation.RenameOnCollision(false);
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\Cari.mdb"), "cari");
}

TEST_F(FileOperations, folders_are_passed_over_unless_included) {
  files.Put("C:\\Veri\\a.txt", "a");
  files.Put("C:\\Veri\\alt\\b.txt", "b");
  operation.AddSourceFile("C:\\Veri");
  operation.AddDestFile("C:\\Kopya");
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_FALSE(files.Exists("C:\\Kopya"));
  operation.IncludeDirectories(true);
  EXPECT_TRUE(operation.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\Kopya\\a.txt"), "a");
  EXPECT_EQ(files.Bytes("C:\\Kopya\\alt\\b.txt"), "b");
  EXPECT_TRUE(operation.DeleteFiles());
  EXPECT_FALSE(files.Exists("C:\\Veri"));
}

TEST_F(FileOperations, a_folder_never_goes_into_itself) {
  files.Put("C:\\Veri\\alt\\b.txt", "b");
  operation.IncludeDirectories(true);
  operation.AddSourceFile("C:\\Veri");
  operation.AddDestFile("C:\\VERI\\alt\\yeni");
  EXPECT_FALSE(operation.CopyFiles());
  EXPECT_FALSE(operation.MoveFiles());
  EXPECT_EQ(files.Bytes("C:\\Veri\\alt\\b.txt"), "b");
  EXPECT_THAT(files.List("C:\\Veri\\alt"), ElementsAre("b.txt"));
}

TEST_F(FileOperations, a_no_leaves_the_file_as_it_is) {
  files.Put("C:\\Cari.mdb", "eski");
  OneAnswer no(MessageAnswer::No);
  CSHFileOp asking(files, &no);
  asking.ConfirmOperation(true);
  asking.CustomText("Kopyalama");
  asking.AddSourceFile("/program/Cari.mdb");
  asking.AddDestFile("C:\\Cari.mdb");
  EXPECT_TRUE(asking.CopyFiles());
  EXPECT_TRUE(asking.DeleteFiles());
  EXPECT_EQ(files.Bytes("C:\\Cari.mdb"), "eski");
  EXPECT_TRUE(files.Exists("/program/Cari.mdb"));
  EXPECT_THAT(no.questions,
              ElementsAre("Kopyalama: C:\\Cari.mdb zaten var. Üzerine yazılsın mı?", "Kopyalama: /program/Cari.mdb silinsin mi?"));
}

TEST_F(FileOperations, a_yes_goes_on_and_a_new_folder_is_asked_for_where_wanted) {
  OneAnswer yes(MessageAnswer::Yes);
  CSHFileOp asking(files, &yes);
  asking.ConfirmMakeDir(true);
  asking.AddSourceFile("/program/Cari.mdb");
  asking.AddDestFile("C:\\Yeni\\Cari.mdb");
  EXPECT_TRUE(asking.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\Yeni\\Cari.mdb"), "cari");
  EXPECT_THAT(yes.questions, ElementsAre(": C:\\Yeni klasörü yok. Oluşturulsun mu?"));
}

TEST_F(FileOperations, silent_mode_asks_nothing) {
  files.Put("C:\\Cari.mdb", "eski");
  OneAnswer no(MessageAnswer::No);
  CSHFileOp asking(files, &no);
  asking.ConfirmOperation(true);
  asking.SilentMode(true);
  asking.AddSourceFile("/program/Cari.mdb");
  asking.AddDestFile("C:\\Cari.mdb");
  EXPECT_TRUE(asking.CopyFiles());
  EXPECT_EQ(files.Bytes("C:\\Cari.mdb"), "cari");
  EXPECT_TRUE(no.questions.empty());
}

TEST_F(FileOperations, properties_read_back_as_set_and_start_off) {
  EXPECT_FALSE(operation.AllowUndo() || operation.ConfirmMakeDir() || operation.ConfirmOperation() || operation.IncludeDirectories() ||
               operation.RenameOnCollision() || operation.SilentMode());
  operation.AllowUndo(true);
  operation.ConfirmMakeDir(true);
  operation.ConfirmOperation(true);
  operation.CustomText("Metin");
  operation.IncludeDirectories(true);
  operation.ParentWnd(42);
  operation.RenameOnCollision(true);
  operation.SilentMode(true);
  EXPECT_TRUE(operation.AllowUndo() && operation.ConfirmMakeDir() && operation.ConfirmOperation() && operation.IncludeDirectories() &&
              operation.RenameOnCollision() && operation.SilentMode());
  EXPECT_EQ(operation.CustomText(), "Metin");
  EXPECT_EQ(operation.ParentWnd(), 42);
}

}  // namespace
}  // namespace karvel
