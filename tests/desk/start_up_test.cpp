#include <array>
#include <filesystem>
#include <fstream>

#include "tests/support/desk_fixture.h"

namespace karvel {
namespace {

namespace fs = std::filesystem;

class StartUpTest : public DeskFixture {
 protected:
  std::vector<std::string> DataFiles() {
    std::vector<std::string> names;
    for (const std::string& name : files.List("C:\\KarvelData"))
      if (EqualText(name.substr(name.find_last_of('.') + 1), "mdb")) names.push_back(name);
    return names;
  }
  std::size_t RowsInAll() {
    std::size_t rows = 0;
    for (const DatabaseFile& file : Catalogue::Files().first(8))
      for (const Table& table : file.tables)
        rows +=
            static_cast<std::size_t>(std::stoi(One(std::string(file.name), "SELECT count(*) FROM \"" + std::string(table.name) + "\"")));
    return rows;
  }
};

TEST_F(StartUpTest, an_empty_folder_fills_up_with_templates_and_two_rows) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(DataFiles(), (std::vector<std::string>{"Cari.mdb", "DataStok.mdb", "Fatura.mdb", "Index.mdb", "Karvel.mdb", "SeriNo.mdb",
                                                   "Stok.mdb", "Temp.mdb"}));
  EXPECT_EQ(RowsInAll(), 2U);
  EXPECT_EQ(Rows("Stok.mdb", "SELECT * FROM Gurup"), std::vector<std::string>{"WinKarvel1|0"});
  Fields walkIn = RowOf("Cari.mdb", "CariKartlar");
  EXPECT_EQ(walkIn["CariKod"], "Muhtelif Müşteri");
  EXPECT_EQ(walkIn["Unvan"], "Muhtelif Müşteri");
  EXPECT_EQ(walkIn["Gurup"], "Müşteri");
  EXPECT_EQ(walkIn["yeni"], "1.0");
  EXPECT_EQ(walkIn["Hes"], "");
}

TEST_F(StartUpTest, the_walk_in_customer_exists_once_however_many_starts) {
  for (int i = 0; i < 4; ++i) ASSERT_TRUE(Start());
  EXPECT_EQ(RowsInAll(), 2U);
}

TEST_F(StartUpTest, the_walk_in_customer_is_not_added_again_when_a_group_hides_him) {
  ASSERT_TRUE(Start());
  settings.Save("Velmora Karvel1", "Size", "CGurup", "Bayi");
  ASSERT_TRUE(Start());
  EXPECT_EQ(RowsInAll(), 2U);
}

TEST_F(StartUpTest, an_existing_file_is_never_overwritten) {
  ASSERT_TRUE(Start());
  AddCustomer("C1", "Ali");
  fs::remove(folder.Path() + "/C/KarvelData/Stok.mdb");
  ASSERT_TRUE(Start());
  EXPECT_EQ(One("Cari.mdb", "SELECT count(*) FROM CariKartlar WHERE CariKod='C1'"), "1");
  EXPECT_EQ(One("Stok.mdb", "SELECT count(*) FROM Gurup"), "1");
}

TEST_F(StartUpTest, a_second_copy_ends_at_once_and_touches_nothing) {
  shell.otherCopyRuns = true;
  EXPECT_FALSE(Start());
  EXPECT_TRUE(files.List("C:\\KarvelData").empty());
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StartUpTest, the_terminal_is_told_by_the_title) {
  ASSERT_TRUE(Start("Velmora Karvel3"));
  EXPECT_EQ(desk->form.TerminalNo, "03");
  EXPECT_EQ(settings.Get("Terminal", "Trm", "No", ""), "3");
  EXPECT_EQ(window.title, " Velmora  3.Karvel Programı        Tarih > 01 Mart 2026 Pazar");
  EXPECT_EQ(shell.shortcuts, std::vector<std::string>{"Velmora Karvel3"});
}

TEST_F(StartUpTest, a_title_without_a_number_is_terminal_one) {
  ASSERT_TRUE(Start("Velmora Karvel0"));
  EXPECT_EQ(desk->form.TerminalNo, "01");
}

TEST_F(StartUpTest, a_title_ending_in_a_letter_keeps_the_letter) {
  ASSERT_TRUE(Start("Velmora KarvelB"));
  EXPECT_EQ(desk->form.TerminalNo, "B");
}

TEST_F(StartUpTest, company_and_serial_files_are_made_with_their_values) {
  ASSERT_TRUE(Start());
  std::string bytes;
  ASSERT_TRUE(files.Read(files.ProgramFolder() + "/Firmam.txt", bytes).Ok());
  EXPECT_EQ(FromCp1254(bytes), "Velmora\r\nAdres\r\nTel : 0000 000 00 00\r\n8\r\nC:\\KarvelData\\\r\nMali Değeri Yoktur.\r\n");
  EXPECT_EQ(desk->form.CompanyLines[5], "Mali Değeri Yoktur.");
  EXPECT_FALSE(desk->form.SerialEntryOn);
  EXPECT_TRUE(files.Exists(files.ProgramFolder() + "/SeriNo.txt"));
  EXPECT_EQ(settings.Get("Karvel", "KarvelProper", "Yer", ""), "C:\\KarvelData\\");
}

TEST_F(StartUpTest, formats_get_their_values_at_the_first_activation) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.QuantityFormat, "General Number");
  EXPECT_EQ(desk->form.PriceFormat, "Standard");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "mFormat", ""), "General Number");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Size", "fFormat", ""), "Standard");
}

TEST_F(StartUpTest, a_format_that_the_shop_chose_stays) {
  settings.Save("Velmora Karvel1", "Size", "fFormat", "#,##0");
  ASSERT_TRUE(Start());
  EXPECT_EQ(desk->form.PriceFormat, "#,##0");
}

TEST_F(StartUpTest, options_come_from_the_settings) {
  settings.Save("Velmora Karvel1", "FiyatSabit", "FiyatSabit", "True");
  settings.Save("Velmora Karvel1", "Size", "SecimTamam", "True");
  settings.Save("Velmora Karvel1", "Size", "Yuzdem", "12,5");
  settings.Save("Velmora Karvel1", "Size", "FatStr", "1010000001");
  settings.Save("Velmora Karvel1", "Karvel", "BarkodOku", "True");
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

TEST_F(StartUpTest, a_scanner_that_is_not_there_loses_its_mark) {
  settings.Save("Velmora Karvel1", "Karvel", "BarkodOku", "True");
  scanner.present = false;
  ASSERT_TRUE(Start());
  EXPECT_FALSE(At("BarkodOku").Checked());
}

TEST_F(StartUpTest, the_menu_starts_the_scanner_and_is_kept) {
  ASSERT_TRUE(Start());
  EXPECT_FALSE(scanner.started);
  Click("BarkodOku");
  EXPECT_TRUE(scanner.started);
  EXPECT_TRUE(At("BarkodOku").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "True");
}

TEST_F(StartUpTest, a_scanner_that_the_menu_can_not_start_is_kept_as_off) {
  scanner.present = false;
  ASSERT_TRUE(Start());
  Click("BarkodOku");
  EXPECT_FALSE(At("BarkodOku").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "False");
}

TEST_F(StartUpTest, the_menu_stops_the_scanner) {
  settings.Save("Velmora Karvel1", "Karvel", "BarkodOku", "True");
  ASSERT_TRUE(Start());
  ASSERT_TRUE(scanner.started);
  Click("BarkodOku");
  EXPECT_FALSE(scanner.started);
  EXPECT_FALSE(At("BarkodOku").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "False");
}

TEST_F(StartUpTest, a_scanner_that_is_plugged_in_later_starts_by_the_menu) {
  scanner.present = false;
  ASSERT_TRUE(Start());
  Click("BarkodOku");
  scanner.present = true;
  Click("BarkodOku");
  EXPECT_TRUE(scanner.started);
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Karvel", "BarkodOku", ""), "True");
}

TEST_F(StartUpTest, every_option_toggles_under_its_own_key) {
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
  settings.Save("Velmora Karvel1", "AySil", "AySil", "False");  // what it does at the start is its own test
  ASSERT_TRUE(Start());
  for (const auto& [entry, section, key] : options) EXPECT_EQ(At(entry).Checked(), std::string(entry) != "AySil") << entry;
}

TEST_F(StartUpTest, options_toggle_and_are_saved_at_once) {
  ASSERT_TRUE(Start());
  Click("Stoklu");
  EXPECT_TRUE(At("Stoklu").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Stoklu", "Stoklu", ""), "True");
  Click("Stoklu");
  EXPECT_FALSE(At("Stoklu").Checked());
  EXPECT_EQ(settings.Get("Velmora Karvel1", "Stoklu", "Stoklu", ""), "False");
}

TEST_F(StartUpTest, the_monthly_purge_is_switched_and_saved_at_once) {
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

TEST_F(StartUpTest, the_sale_list_shows_eight_fields_of_a_card) {
  ASSERT_TRUE(Start());
  const std::vector<std::pair<std::string, std::string>> wanted{{"Stok Kodu", "StokKod"}, {"Stok Adı", "StokAdi"}, {"Maliyet", "gFiyat"},
                                                                {"1.Fiyat", "Fiyat"},     {"2.Fiyat", "Fiyat2"},   {"3.Fiyat", "Fiyat3"},
                                                                {"Kalan", "KalanB"},      {"Yeri", "Yeri"}};
  std::vector<std::pair<std::string, std::string>> shown;
  for (const GridColumn& column : desk->screen.StokGrid.Columns())
    if (column.visible) shown.emplace_back(Trim(column.caption), column.field);
  EXPECT_EQ(shown, wanted);
  EXPECT_EQ(desk->screen.StokGrid.Source(), &desk->cursors.StokData);
}

TEST_F(StartUpTest, a_terminal_with_ftp_waits_for_the_connection) {
  settings.Save("Velmora Karvel1", "Size", "FtpUrl", "ftp.merkez");
  connection.downFor = 3;
  bool seen = false;
  loop.duringWait = [&] { seen = seen || (desk && desk->screen.BağlantıFrm.Visible()); };
  ASSERT_TRUE(Start());
  EXPECT_TRUE(seen);
  EXPECT_FALSE(At("BağlantıFrm").Visible());
  EXPECT_TRUE(At("FtpVar").Checked());
}

TEST_F(StartUpTest, a_later_activation_does_nothing) {
  ASSERT_TRUE(Start());
  At("Text1(0)").SetText("Ali");
  desk->Activate();
  EXPECT_EQ(At("Text1(0)").Text(), "Ali");
}

TEST_F(StartUpTest, the_wait_panel_stands_while_the_desk_is_made_ready) {
  std::vector<std::string> seen;
  loop.duringWait = [&] {
    if (desk && desk->screen.Frame5.Visible()) seen.push_back(desk->screen.Label16.Caption());
  };
  ASSERT_TRUE(Start());
  EXPECT_EQ(seen, std::vector<std::string>{"Bilgiler Düzenleniyor, Lütfen Bekleyiniz....."});
  EXPECT_FALSE(At("Frame5").Visible());
  EXPECT_TRUE(At("Command3").Visible());
  EXPECT_EQ(At("GrpCombo").Text(), " Tüm Guruplar");
  EXPECT_EQ(At("GurupCombo").Text(), "Tüm Guruplar");
  EXPECT_EQ(At("Text1(0)").Text(), "");  // no card before the walk-in customer
  EXPECT_EQ(desk->form.ActiveCursor, &desk->cursors.CariData);
  EXPECT_EQ(desk->form.RepositionGuard.Number(), 0);
}

TEST_F(StartUpTest, a_damaged_file_is_told_by_name_and_left_alone) {
  ASSERT_TRUE(Start());
  Stop();
  const std::string path = folder.Path() + "/C/KarvelData/Stok.mdb";
  std::ofstream(path, std::ios::binary | std::ios::trunc) << std::string(5000, 'x');
  EXPECT_FALSE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Program Açılamadı");
  EXPECT_EQ(fs::file_size(path), 5000U);
}

TEST_F(StartUpTest, a_missing_template_is_told_and_nothing_opens) {
  fs::remove(files.ProgramFolder() + "/Fatura.mdb");
  EXPECT_FALSE(Start());
  ASSERT_EQ(messages.shown.size(), 1U);
}

TEST_F(StartUpTest, closing_saves_the_frame_and_shows_what_it_does) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(desk->CloseRequested(false));
  EXPECT_EQ(window.savedFitting, "VelmoraKrv");
  EXPECT_EQ(settings.Get("Velmora Karvel1", "FrmSize", "Sabit", ""), "False");
  EXPECT_EQ(At("Label16").Caption(), "Yedekleniyor.");
  EXPECT_TRUE(At("Frame5").Visible());
}

TEST_F(StartUpTest, closing_by_the_program_leaves_the_kept_frame) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(desk->CloseRequested(true));
  EXPECT_EQ(window.savedFitting, "");
}

TEST_F(StartUpTest, the_exit_button_asks_the_window_to_close) {
  ASSERT_TRUE(Start());
  Click("Command3");
  EXPECT_EQ(window.closes, 1);
}

TEST_F(StartUpTest, a_long_press_on_exit_drops_the_fixed_frame_and_closes) {
  settings.Save("Velmora Karvel1", "FrmSize", "Sabit", "True");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(window.fixed);
  At("Command3").mouseDown({});
  for (int i = 0; i < 16 && loop.timer; ++i) loop.timer();
  EXPECT_EQ(window.closes, 0);  // the deadline itself is not past it
  loop.timer();
  EXPECT_EQ(window.closes, 1);
  EXPECT_FALSE(window.fixed);
  EXPECT_FALSE(desk->form.Sabit);
}

TEST_F(StartUpTest, a_released_press_closes_nothing) {
  ASSERT_TRUE(Start());
  At("CariGrid").mouseDown({1, false, false, false, 10, 10});
  ASSERT_TRUE(loop.timer);
  for (int i = 0; i < 8; ++i) loop.timer();
  desk->screen.CariGrid.released();
  EXPECT_FALSE(loop.timer);
  EXPECT_EQ(window.closes, 0);
}

TEST_F(StartUpTest, a_long_press_behind_another_window_closes_nothing) {
  ASSERT_TRUE(Start());
  window.active = false;
  At("CariGrid").mouseDown({1, false, false, false, 10, 10});
  for (int i = 0; i < 12 && loop.timer; ++i) {
    const auto tick = loop.timer;
    tick();
  }
  EXPECT_EQ(window.closes, 0);
}

TEST_F(StartUpTest, keys_move_and_size_the_frame_unless_it_is_fixed) {
  ASSERT_TRUE(Start());
  KeyEvent right{key::kRight, false, true};
  At("Form1").keyDown(right);
  EXPECT_TRUE(right.dropped);
  EXPECT_EQ(window.moved, 2);
  KeyEvent down{key::kDown, false, false, true};
  At("Form1").keyDown(down);
  EXPECT_EQ(window.sized, 2);
  desk->form.Sabit = true;
  KeyEvent again{key::kRight, false, true};
  At("Form1").keyDown(again);
  EXPECT_EQ(window.moved, 2);
}

TEST_F(StartUpTest, the_balance_on_the_screen_is_that_of_the_customer_in_front) {
  ASSERT_TRUE(Start());
  AddCustomer("C1", "Aaa Bakkal", "Borc=75.5, Bakiye=75.5, Hesap='Borç'");
  ASSERT_TRUE(Start());
  ASSERT_EQ(At("Text1(0)").Text(), "Aaa Bakkal");
  EXPECT_EQ(At("Label5").Caption(), "75,50");
  EXPECT_EQ(At("Label8").Caption(), "C1");
  EXPECT_FALSE(At("Vadefrm").Visible());
}

}  // namespace
}  // namespace karvel
