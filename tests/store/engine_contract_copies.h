// A copy of all files of the folder: whole, of one moment, and nobody waits for it.
#pragma once

#include <filesystem>

#include "tests/store/engine_contract.h"
#include "tests/support/copied_stores.h"
#include "tests/support/temp_folder.h"

namespace karvel::testing {

TEST_P(EngineContract, a_copy_holds_every_file_with_its_rows) {
  AddCustomers(stores_, {"A", "B"});
  BookTwice(stores_, 1);
  const TempFolder copies;
  ASSERT_TRUE(CopyAll(stores_, copies.Path()).Ok());
  EXPECT_EQ(PlainRows(copies.Path() + "/Cari.mdb", "SELECT CariKod FROM CariKartlar ORDER BY 1"), (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(PlainRows(copies.Path() + "/Karvel.mdb", "SELECT DigerId FROM Datam"), std::vector<std::string>{"1"});
  for (const DatabaseFile& file : Catalogue::Files()) {
    if (file.schema == "datatemp") continue;
    EXPECT_EQ(PlainRows(copies.Path() + "/" + std::string(file.name), "PRAGMA integrity_check"), std::vector<std::string>{"ok"});
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(copies.Path()), {}), 8);
}

TEST_P(EngineContract, what_is_posted_during_a_copy_is_in_all_of_its_files_or_in_none) {
  auto other = OtherTerminal();
  for (int i = 0; i < 300; ++i) BookTwice(*other, i);
  const TempFolder copies;
  int number = 1000;
  ASSERT_TRUE(CopyAll(stores_, copies.Path(), [&] {
                BookTwice(*other, ++number);
                BookTwice(*other, ++number);
              }).Ok());
  ASSERT_GT(number, 1000);
  const auto day = PlainRows(copies.Path() + "/Karvel.mdb", "SELECT DigerId FROM Datam ORDER BY 1");
  EXPECT_EQ(day, PlainRows(copies.Path() + "/Cari.mdb", "SELECT DigerId FROM CariHareket ORDER BY 1"));
  EXPECT_GE(day.size(), 300U);
  for (const char* const file : {"/Karvel.mdb", "/Cari.mdb"})
    EXPECT_EQ(PlainRows(copies.Path() + file, "PRAGMA integrity_check"), std::vector<std::string>{"ok"});
}

TEST_P(EngineContract, while_one_terminal_copies_another_is_told_so) {
  auto other = OtherTerminal();
  const TempFolder first, second;
  std::unique_ptr<StoresCopy> copy, theirs;
  ASSERT_TRUE(stores_.Copy(first.Path(), copy).Ok());
  EXPECT_EQ(other->Copy(second.Path(), theirs).Kind(), ErrorKind::Busy);
  EXPECT_EQ(theirs, nullptr);
  copy.reset();
  const TempFolder third;
  EXPECT_TRUE(other->Copy(third.Path(), theirs).Ok());
}

TEST_P(EngineContract, a_copy_waits_in_line_for_an_action_and_is_none_inside_one) {
  auto other = OtherTerminal();
  const TempFolder copies;
  std::unique_ptr<StoresCopy> copy;
  {
    Action theirs(*other, "theirs");
    EXPECT_EQ(stores_.Copy(copies.Path(), copy).Kind(), ErrorKind::Busy);  // the test's engines wait shortly
  }
  {
    Action ours(stores_, "ours");
    EXPECT_EQ(stores_.Copy(copies.Path(), copy).Kind(), ErrorKind::Other);
  }
  EXPECT_TRUE(CopyAll(stores_, copies.Path()).Ok());
}

TEST_P(EngineContract, a_copy_without_room_or_rights_says_why) {
  std::unique_ptr<StoresCopy> copy;
  EXPECT_EQ(stores_.Copy(kind_->Folder() + "/gone", copy).Kind(), ErrorKind::Missing);
  stores_.Close();
  EXPECT_EQ(stores_.Copy(kind_->Folder(), copy).Kind(), ErrorKind::NotOpen);
}

}  // namespace karvel::testing
