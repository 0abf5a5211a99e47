#include "settings/settings.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>

#include "support/memory_settings.h"

namespace karvel {
namespace {

TEST(SettingsTable, no_two_options_share_a_place) {
  std::set<std::tuple<SettingApplication, std::string_view, std::string_view>> places;
  for (const SettingEntry& entry : kSettings) {
    EXPECT_TRUE(places.insert({entry.application, entry.section, entry.key}).second) << entry.section << "/" << entry.key;
    EXPECT_FALSE(entry.meaning.empty()) << entry.key;
  }
}

TEST(Settings, an_option_nobody_set_has_its_preset) {
  MemorySettings store;
  const Settings settings(store, "Velmora Karvel1");
  EXPECT_EQ(settings.Get(Setting::SearchCaption), " Ürün");
  EXPECT_EQ(settings.Get(Setting::InvoiceMarks), "0000000000");
  EXPECT_EQ(settings.Get(Setting::QuantityFormat), "#,##0");
  EXPECT_EQ(settings.Get(Setting::PriceFormat), "#,##0");
  EXPECT_EQ(settings.Get(Setting::InvoiceLines), "15");
  EXPECT_EQ(settings.Get(Setting::TaxMode), "Hariç");
  EXPECT_EQ(settings.Get(Setting::InvoiceNo), "000000");
  EXPECT_EQ(settings.Get(Setting::TransferShare), "\\\\127.0.0.1\\MuhasebeData\\01");
  EXPECT_EQ(settings.Get(Setting::FtpUrl), "");
  EXPECT_EQ(settings.Get(Setting::ScannerPort), "");
  EXPECT_EQ(settings.Get(Setting::ScannerSpeed), "9600");
  EXPECT_EQ(settings.Get(Setting::InvoicePrinter, "Velmora PDF"), "Velmora PDF");
  EXPECT_EQ(store.Count(), 0U);
}

TEST(Settings, options_stand_under_the_title_with_their_own_section_and_key) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel2");
  settings.Save(Setting::FtpFolder, "gün");
  settings.Save(Setting::ScannerOn, "True");
  settings.Save(Setting::ScannerPort, "/dev/ttyUSB0");
  settings.Save(Setting::ScannerSpeed, "115200");
  settings.Save(Setting::GridFontName, "Inter");
  EXPECT_EQ(store.Get("Velmora Karvel2", "Size", "FtpKlasör", "-"), "gün");
  EXPECT_EQ(store.Get("Velmora Karvel2", "Karvel", "BarkodOku", "-"), "True");
  EXPECT_EQ(store.Get("Velmora Karvel2", "Karvel", "BarkodPort", "-"), "/dev/ttyUSB0");
  EXPECT_EQ(store.Get("Velmora Karvel2", "Karvel", "BarkodHız", "-"), "115200");
  EXPECT_EQ(store.Get("Velmora Karvel2", "EkrFont", "FontName", "-"), "Inter");
  EXPECT_EQ(settings.Get(Setting::DeskFontName), "");
}

TEST(Settings, each_terminal_has_its_own) {
  MemorySettings store;
  Settings first(store, "Velmora Karvel1");
  const Settings second(store, "Velmora Karvel2");
  first.Save(Setting::InvoiceNo, "000007");
  EXPECT_EQ(second.Get(Setting::InvoiceNo), "000000");
}

TEST(Settings, the_fixed_ones_are_common_to_all_terminals) {
  MemorySettings store;
  Settings first(store, "Velmora Karvel1");
  const Settings second(store, "Velmora Karvel2");
  first.Save(Setting::TransferShare, "\\\\10.0.0.1\\x");
  first.Save(Setting::TerminalNumber, "1");
  first.Save(Setting::DataPlace, "C:\\KarvelData\\");
  EXPECT_EQ(second.Get(Setting::TransferShare), "\\\\10.0.0.1\\x");
  EXPECT_EQ(store.Get("Karvel", "Aktar", "ip", "-"), "\\\\10.0.0.1\\x");
  EXPECT_EQ(store.Get("Terminal", "Trm", "No", "-"), "1");
  EXPECT_EQ(store.Get("Karvel", "KarvelProper", "Yer", "-"), "C:\\KarvelData\\");
}

TEST(Settings, booleans_are_saved_as_words_and_read_leniently) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  EXPECT_FALSE(settings.GetBoolean(Setting::A5Size));
  settings.SaveBoolean(Setting::A5Size, true);
  EXPECT_EQ(settings.Get(Setting::A5Size), "True");
  EXPECT_TRUE(settings.GetBoolean(Setting::A5Size));
  settings.SaveBoolean(Setting::A5Size, false);
  EXPECT_EQ(settings.Get(Setting::A5Size), "False");
  EXPECT_FALSE(settings.GetBoolean(Setting::A5Size));
  for (const std::string text : {"Doğru", "-1", "1", "TRUE"}) {
    settings.Save(Setting::A5Size, text);
    EXPECT_TRUE(settings.GetBoolean(Setting::A5Size)) << text;
  }
  for (const std::string text : {"", "0", "Yanlış", "belki"}) {
    settings.Save(Setting::A5Size, text);
    EXPECT_FALSE(settings.GetBoolean(Setting::A5Size)) << text;
  }
}

TEST(Settings, a_number_that_is_none_reads_as_zero) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  EXPECT_EQ(settings.GetNumber(Setting::InvoiceLines), 15);
  settings.SaveNumber(Setting::MinSalePercent, 12.5);
  EXPECT_EQ(settings.Get(Setting::MinSalePercent), "12,5");
  EXPECT_EQ(settings.GetNumber(Setting::MinSalePercent), 12.5);
  settings.Save(Setting::MinSalePercent, "on iki");
  EXPECT_EQ(settings.GetNumber(Setting::MinSalePercent), 0);
}

TEST(Settings, logo_marks_have_one_key_each) {
  MemorySettings store;
  Settings settings(store, "Velmora Karvel1");
  settings.SaveBooleanAt(Setting::LogoMark, 1, true);
  EXPECT_EQ(store.Get("Velmora Karvel1", "Logo", "Logo1", "-"), "True");
  EXPECT_TRUE(settings.GetBooleanAt(Setting::LogoMark, 1));
  EXPECT_FALSE(settings.GetBooleanAt(Setting::LogoMark, 0));
}

}  // namespace
}  // namespace karvel
