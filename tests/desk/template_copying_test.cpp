#include <filesystem>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

class TemplateCopyingTest : public DeskFixture {};

TEST_F(TemplateCopyingTest, an_existing_file_is_never_overwritten) {
  ASSERT_TRUE(Start());
  AddCustomer("C1", "Ali");
  fs::remove(folder.Path() + "/C/KarvelData/Stok.mdb");
  messages.answers.emplace_back("Yes");
  ASSERT_TRUE(Start());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='C1'"), "1");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM Gurup"), "1");
}

TEST_F(TemplateCopyingTest, a_main_file_that_is_missing_beside_rows_is_told_before_an_empty_one_takes_its_place) {
  for (const std::string name : {"Cari.mdb", "Stok.mdb", "Karvel.mdb"}) {
    SCOPED_TRACE(name);
    ASSERT_TRUE(Start());
    AddCustomer("C1", "Ali");
    AddStock("1001", "Pirinç");
    EnterSale("Ali");
    PickItem("1001");
    Set("Text2(1)", "1");
    Click("Command2");
    Stop();
    fs::remove(DataFolder() + "/" + name);
    messages.shown.clear();
    EXPECT_FALSE(Start());
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(ContainsText(messages.shown[0].text, name)) << messages.shown[0].text;
    EXPECT_FALSE(fs::exists(DataFolder() + "/" + name)) << "no empty file in its place";
    messages.answers.emplace_back("Yes");
    EXPECT_TRUE(Start());
  }
}

TEST_F(TemplateCopyingTest, a_first_start_that_was_cut_short_goes_on_without_a_question) {
  fs::create_directories(DataFolder());
  for (const char* const name : {"Cari.mdb", "Stok.mdb"}) fs::copy(files.ProgramFolder() + "/" + name, DataFolder() + "/" + name);
  EXPECT_TRUE(Start());
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(TemplateCopyingTest, where_a_restore_left_the_data_beside_no_empty_shop_begins_in_silence) {
  ASSERT_TRUE(Start());
  AddCustomer("C1", "Ali");
  Stop();
  const std::string aside = DataFolder() + ".eski-20260301-091507";
  fs::rename(DataFolder(), aside);
  fs::create_directory(DataFolder() + ".yeni");
  for (const bool isThere : {false, true}) {
    SCOPED_TRACE(isThere);
    if (isThere) fs::create_directories(DataFolder() + "/Belgeler");
    messages.shown.clear();
    EXPECT_FALSE(Start());
    ASSERT_EQ(messages.shown.size(), 1U);
    EXPECT_TRUE(ContainsText(messages.shown[0].text, "KarvelData.eski-20260301-091507, KarvelData.yeni")) << messages.shown[0].text;
    EXPECT_FALSE(fs::exists(DataFolder() + "/Cari.mdb"));
  }
  fs::remove_all(DataFolder());
  fs::rename(aside, DataFolder());
  messages.shown.clear();
  EXPECT_TRUE(Start());
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='C1'"), "1");
}

TEST_F(TemplateCopyingTest, who_wants_an_empty_shop_beside_old_data_gets_it) {
  fs::create_directories(DataFolder() + ".eski-20260301-091507");
  messages.answers.emplace_back("Yes");
  EXPECT_TRUE(Start());
  EXPECT_TRUE(fs::exists(DataFolder() + "/Cari.mdb"));
}

TEST_F(TemplateCopyingTest, a_missing_template_is_told_and_nothing_opens) {
  fs::remove(files.ProgramFolder() + "/Fatura.mdb");
  EXPECT_FALSE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_TRUE(ContainsText(messages.shown[0].text, files.ProgramFolder() + "/Fatura.mdb")) << messages.shown[0].text;
}

}  // namespace
}  // namespace karvel
