#include <array>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

class OptionsTest : public DeskFixture {};

TEST_F(OptionsTest, options_come_from_the_settings) {
  settings.Save("Velmora Karvel1", "FiyatSabit", "FiyatSabit", "True").Ignore();
  settings.Save("Velmora Karvel1", "Size", "SecimTamam", "True").Ignore();
  settings.Save("Velmora Karvel1", "Size", "Yuzdem", "12,5").Ignore();
  settings.Save("Velmora Karvel1", "Size", "FatStr", "1010000001").Ignore();
  settings.Save("Velmora Karvel1", "Karvel", "BarkodOku", "True").Ignore();
  ASSERT_TRUE(Start());
  EXPECT_TRUE(At("FiyatSabit").Checked());
  EXPECT_FALSE(At("Text2(0)").Enabled());
  EXPECT_TRUE(At("SecimTamam").Checked());
  EXPECT_FALSE(At("Stoklu").Checked());
  EXPECT_EQ(desk->form.MinSalePercent, 12.5F);
  EXPECT_TRUE(At("MnPop(0)").Checked());
  EXPECT_FALSE(At("MnPop(1)").Checked());
  EXPECT_TRUE(At("MnPop(9)").Checked());
  EXPECT_TRUE(scanner.started);
}

TEST_F(OptionsTest, a_scanner_that_is_not_there_loses_its_mark) {
  settings.Save("Velmora Karvel1", "Karvel", "BarkodOku", "True").Ignore();
  scanner.present = false;
  ASSERT_TRUE(Start());
  EXPECT_FALSE(At("BarkodOku").Checked());
}

TEST_F(OptionsTest, the_menu_starts_the_scanner_and_is_kept) {
  ASSERT_TRUE(Start());
  EXPECT_FALSE(scanner.started);
  Click("BarkodOku");
  EXPECT_TRUE(scanner.started);
  EXPECT_TRUE(At("BarkodOku").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "True");
}

TEST_F(OptionsTest, a_scanner_that_the_menu_can_not_start_is_kept_as_off) {
  scanner.present = false;
  ASSERT_TRUE(Start());
  Click("BarkodOku");
  EXPECT_FALSE(At("BarkodOku").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "False");
}

TEST_F(OptionsTest, the_menu_stops_the_scanner) {
  settings.Save("Velmora Karvel1", "Karvel", "BarkodOku", "True").Ignore();
  ASSERT_TRUE(Start());
  ASSERT_TRUE(scanner.started);
  Click("BarkodOku");
  EXPECT_FALSE(scanner.started);
  EXPECT_FALSE(At("BarkodOku").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "False");
}

TEST_F(OptionsTest, a_scanner_that_is_plugged_in_later_starts_by_the_menu) {
  scanner.present = false;
  ASSERT_TRUE(Start());
  Click("BarkodOku");
  scanner.present = true;
  Click("BarkodOku");
  EXPECT_TRUE(scanner.started);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "True");
}

TEST_F(OptionsTest, every_option_toggles_under_its_own_key) {
  const std::vector<std::array<const char*, 3>> options{{"AySil", "AySil", "AySil"},
                                                        {"FiyatSabit", "FiyatSabit", "FiyatSabit"},
                                                        {"Fiyat2", "FiyatSabit", "Fiyat2"},
                                                        {"Stoklu", "Stoklu", "Stoklu"},
                                                        {"A5", "A5", "A5"},
                                                        {"Efatura80cm", "Efatura80cm", "Efatura80cm"},
                                                        {"SecimTamam", "Size", "SecimTamam"},
                                                        {"AraVer", "Size", "AraVer"},
                                                        {"Silme", "Size", "Silme"},
                                                        {"BarkodOku", "Karvel", "BarkodOku"}};
  ASSERT_TRUE(Start());
  for (const auto& [entry, section, key] : options) {
    ASSERT_FALSE(At(entry).Checked()) << entry;
    Click(entry);
    EXPECT_EQ(settings.Get("Velmora Karvel1", section, key, ""), "True") << entry;
  }
  settings.Save("Velmora Karvel1", "AySil", "AySil", "False").Ignore();  // what it does at the start is its own test
  ASSERT_TRUE(Start());
  for (const auto& [entry, section, key] : options) EXPECT_EQ(At(entry).Checked(), std::string(entry) != "AySil") << entry;
}

TEST_F(OptionsTest, options_toggle_and_are_saved_at_once) {
  ASSERT_TRUE(Start());
  Click("Stoklu");
  EXPECT_TRUE(At("Stoklu").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Stoklu", "Stoklu", ""), "True");
  Click("Stoklu");
  EXPECT_FALSE(At("Stoklu").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Stoklu", "Stoklu", ""), "False");
}

TEST_F(OptionsTest, the_monthly_purge_is_switched_and_saved_at_once) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(At("AySil").Caption(), "30 Gün Öncesini Sil");
  EXPECT_FALSE(At("AySil").Checked());
  Click("AySil");
  EXPECT_TRUE(At("AySil").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "AySil", "AySil", ""), "True");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(At("AySil").Checked());
  Click("AySil");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "AySil", "AySil", ""), "False");
}

}  // namespace
}  // namespace karvel
