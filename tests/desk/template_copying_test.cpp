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
  ASSERT_TRUE(Start());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='C1'"), "1");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM Gurup"), "1");
}

TEST_F(TemplateCopyingTest, a_missing_template_is_told_and_nothing_opens) {
  fs::remove(files.ProgramFolder() + "/Fatura.mdb");
  EXPECT_FALSE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_TRUE(ContainsText(messages.shown[0].text, files.ProgramFolder() + "/Fatura.mdb")) << messages.shown[0].text;
}

}  // namespace
}  // namespace karvel
