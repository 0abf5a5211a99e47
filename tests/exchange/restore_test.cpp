#include "exchange/restore.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "exchange/zip/zip_archives.h"
#include "store/catalogue.h"
#include "store/sqlite/folder_check.h"
#include "store/sqlite/templates.h"
#include "tests/support/copied_stores.h"
#include "tests/support/foreign_program.h"
#include "tests/support/renames.h"
#include "tests/support/temp_folder.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class RestoreTest : public ::testing::Test {
 protected:
  RestoreTest() {
    MakeShop(place.Path() + "/shop", "packed");
    Pack();
  }
  // A data folder whose one customer bears this name.
  static void MakeShop(const std::string& folder, const std::string& name) {
    fs::create_directories(folder);
    for (const DatabaseFile& file : Catalogue::Files())
      if (file.schema != "datatemp") {
        EXPECT_TRUE(WriteTemplate(file, folder + "/" + std::string(file.name)).Ok());
      }
    testing::ForeignProgram(folder + "/Cari.mdb").Run("INSERT INTO CariKartlar(CariKod, Unvan) VALUES('A', '" + name + "')");
  }
  void Pack() {
    std::vector<Archives::Item> items;
    for (const auto& entry : fs::directory_iterator(place.Path() + "/shop"))
      items.push_back({entry.path().filename().string(), entry.path().string()});
    EXPECT_TRUE(archives.Pack(archive, items, [](int) {}).Ok());
  }
  Restored Run(bool replace = false) {
    return Restore(archives, {archive, folder, replace, {2026, 3, 1, 9, 15, 7}}, {CheckStores, RecoverStores});
  }
  static Texts Names(const std::string& shop) { return testing::PlainRows(shop + "/Cari.mdb", "SELECT Unvan FROM CariKartlar"); }
  // What lies in the place beside what the test put there.
  [[nodiscard]] Texts Beside() const {
    Texts names;
    for (const auto& entry : fs::directory_iterator(place.Path())) names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }

  TempFolder place;
  ZipArchives archives;
  const std::string archive = place.Path() + "/0915Data.ZIP", folder = place.Path() + "/KarvelData";
};

TEST_F(RestoreTest, a_folder_that_isnt_there_is_made) {
  const Restored outcome = Run();
  EXPECT_TRUE(outcome.status.Ok()) << outcome.status.Message();
  EXPECT_EQ(outcome.names.size(), 8U);
  EXPECT_EQ(outcome.keptAs, "");
  EXPECT_EQ(Names(folder), Texts{"packed"});
  EXPECT_EQ(Beside(), (Texts{"0915Data.ZIP", "KarvelData", "shop"}));
}

TEST_F(RestoreTest, an_empty_folder_is_filled) {
  fs::create_directory(folder);
  EXPECT_TRUE(Run().status.Ok());
  EXPECT_EQ(Names(folder), Texts{"packed"});
}

TEST_F(RestoreTest, data_is_never_replaced_unasked) {
  MakeShop(folder, "of today");
  EXPECT_TRUE(Run().refused);
  EXPECT_EQ(Names(folder), Texts{"of today"});
  EXPECT_EQ(Beside(), (Texts{"0915Data.ZIP", "KarvelData", "shop"}));
}

TEST_F(RestoreTest, data_that_is_replaced_is_kept_beside) {
  MakeShop(folder, "of today");
  const Restored outcome = Run(true);
  EXPECT_TRUE(outcome.status.Ok());
  EXPECT_EQ(outcome.keptAs, folder + ".eski-20260301-091507");
  EXPECT_EQ(Names(folder), Texts{"packed"});
  EXPECT_EQ(Names(outcome.keptAs), Texts{"of today"});
}

TEST_F(RestoreTest, two_of_one_second_are_both_kept) {
  MakeShop(folder, "of today");
  EXPECT_EQ(Run(true).keptAs, folder + ".eski-20260301-091507");
  EXPECT_EQ(Run(true).keptAs, folder + ".eski-20260301-091507-2");
}

TEST_F(RestoreTest, killed_at_any_rename_the_old_data_or_the_new_stands_under_the_name) {
  for (int rename = 1;; ++rename) {
    SCOPED_TRACE(rename);
    for (const std::string& name : Beside())
      if (name.starts_with("KarvelData")) fs::remove_all(place.Path() + "/" + name);
    MakeShop(folder, "of today");
    const bool killed = testing::KilledAtRename(rename, [&] { return Run(true).status.Ok(); });
    ASSERT_TRUE(fs::exists(folder + "/Cari.mdb"));
    EXPECT_EQ(Names(folder), Texts{killed ? "of today" : "packed"});
    if (!killed) {
      EXPECT_GT(rename, 2);
      break;
    }
    EXPECT_TRUE(Run(true).status.Ok());
    EXPECT_EQ(Names(folder), Texts{"packed"});
    EXPECT_FALSE(fs::exists(folder + ".yeni"));
  }
}

TEST_F(RestoreTest, on_a_disk_that_exchanges_no_names_the_old_data_is_kept_beside_too) {
  MakeShop(folder, "of today");
  EXPECT_TRUE(testing::WithoutExchange([&] { return Run(true).status.Ok(); }));
  EXPECT_EQ(Names(folder), Texts{"packed"});
  EXPECT_EQ(Names(folder + ".eski-20260301-091507"), Texts{"of today"});
  EXPECT_FALSE(fs::exists(folder + ".yeni"));
}

TEST_F(RestoreTest, a_cut_backup_changes_nothing) {
  MakeShop(folder, "of today");
  fs::resize_file(archive, fs::file_size(archive) / 2);
  EXPECT_EQ(Run(true).status.Kind(), ErrorKind::Damaged);
  EXPECT_EQ(Names(folder), Texts{"of today"});
  EXPECT_EQ(Beside(), (Texts{"0915Data.ZIP", "KarvelData", "shop"}));
}

TEST_F(RestoreTest, a_backup_that_lacks_a_store_changes_nothing) {
  fs::remove(place.Path() + "/shop/Stok.mdb");
  Pack();
  EXPECT_EQ(Run().status.Kind(), ErrorKind::Missing);
  EXPECT_FALSE(fs::exists(folder));
}

TEST_F(RestoreTest, a_backup_with_a_damaged_store_changes_nothing) {
  std::fstream store(place.Path() + "/shop/Cari.mdb", std::ios::binary | std::ios::in | std::ios::out);
  for (std::streamoff page = 4096; page < 40960; page += 4096) store.seekp(page).write("no page at all", 14);
  store.close();
  Pack();
  EXPECT_EQ(Run().status.Kind(), ErrorKind::Damaged);
  EXPECT_FALSE(fs::exists(folder));
}

TEST_F(RestoreTest, what_an_earlier_try_left_is_no_hindrance) {
  fs::create_directory(folder + ".yeni");
  std::ofstream(folder + ".yeni/Cari.mdb") << "half";
  EXPECT_TRUE(Run().status.Ok());
  EXPECT_EQ(Names(folder), Texts{"packed"});
}

}  // namespace
}  // namespace karvel
