#include <algorithm>

#include "tests/support/faulty_files.h"
#include "tests/support/invoice_desk.h"

namespace karvel {
namespace {

using InvoicePanelTest = InvoiceDesk;

TEST_F(InvoicePanelTest, opens_with_the_customers_address_the_next_number_and_his_lines_of_today) {
  PutMany(2);
  Put("Y1", "1001", "2026-02-28 09:00:00");
  Put("B1", "1001", "2026-03-01 09:00:00", "C002|");
  At("NakitCmd").SetCaption("Nakit");
  Open();
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_TRUE(At("FatCmd(1)").Visible());
  EXPECT_EQ(At("Fat(0)").Text(), "S000001");
  EXPECT_EQ(At("Fat(1)").Text(), "Ayşe Yılmaz");
  EXPECT_EQ(At("Fat(2)").Text(), "Çınar Sokak 5");
  EXPECT_EQ(At("Fat(3)").Text(), "Eskişehir");
  EXPECT_EQ(At("Fat(4)").Text(), "Tepebaşı");
  EXPECT_EQ(At("Fat(5)").Text(), "1234567890");
  EXPECT_EQ(At("Fat(9)").Text(), "ayse@ornek.tr");
  EXPECT_EQ(At("NakitCmd").Caption(), "Cari Hesap");
  EXPECT_EQ(At("FatDTPicker").Date(), clock.now.Date());
  EXPECT_EQ(Listed(), (Texts{"L01", "L02"}));
  EXPECT_EQ(Ticked(), (Texts{"L01", "L02"}));
  EXPECT_EQ(Lines().Text("DigerId"), "L01");
}

TEST_F(InvoicePanelTest, its_columns_are_name_quantity_price_amount_and_tick) {
  Texts fields;
  for (const GridColumn& column : desk->screen.FatGrid.Columns()) fields.push_back(column.field);
  EXPECT_EQ(fields, (Texts{"StokAd", "Miktar", "Fiyat", "Tutar", "Sec"}));
  EXPECT_EQ(desk->screen.FatGrid.Source(), &Lines());
}

TEST_F(InvoicePanelTest, without_lines_there_is_nothing_to_print) {
  Open();
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_FALSE(At("FatCmd(1)").Visible());
  EXPECT_EQ(Told(), "Fatura S000001: bu günde faturalanacak satır yok");
}

TEST_F(InvoicePanelTest, the_quiet_line_says_what_can_be_done_now) {
  const std::string ready = "Fatura S000001: satırları denetleyip Yazdır'a dokunun";
  Save(Setting::InvoiceLines, "1");
  PutMany(2);
  Open();
  EXPECT_EQ(Told(), ready);
  At("FatDTPicker").SetDate({2026, 2, 27});
  EXPECT_EQ(Told(), "Fatura S000001: bu günde faturalanacak satır yok");
  At("FatDTPicker").SetDate({2026, 3, 1});
  EXPECT_EQ(Told(), ready);
  TapRow("L01");
  TapRow("L02");
  EXPECT_EQ(Told(), "1 Satır Fazla: faturaya sığmaz");
  TapRow("L02");
  EXPECT_EQ(Told(), ready);
  Click("FatCmd(0)");
  EXPECT_EQ(Told(), "Fatura ekranı kapatıldı");
}

TEST_F(InvoicePanelTest, the_button_is_there_at_rest_and_not_in_a_sale) {
  EXPECT_TRUE(At("Command4").Visible());
  EnterSale("Ayşe Yılmaz");
  EXPECT_FALSE(At("Command4").Visible());
  LeaveSale();
  EXPECT_TRUE(At("Command4").Visible());
}

TEST_F(InvoicePanelTest, only_as_many_lines_are_ticked_as_fit_and_one_more_is_refused) {
  Save(Setting::InvoiceLines, "2");
  PutMany(4);
  Sql("Karvel.mdb", "UPDATE Datam SET Sec='X' WHERE DigerId='L04'");
  Open();
  EXPECT_EQ(Ticked(), (Texts{"L01", "L02"}));
  TapRow("L03");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "1 Satır Fazla\nFaturaya Sığmaz..!");
  EXPECT_EQ(messages.shown[0].title, "Dikkat");
  EXPECT_EQ(messages.shown[0].icon, MessageIcon::Stop);
  EXPECT_FALSE(At("FatCmd(1)").Visible());
  TapRow("L03");
  EXPECT_TRUE(At("FatCmd(1)").Visible());
  EXPECT_EQ(messages.shown.size(), 1U);
}

TEST_F(InvoicePanelTest, of_a_number_of_lines_with_a_fraction_the_whole_lines_count) {
  Save(Setting::InvoiceLines, "2,5");
  PutMany(3);
  Open();
  EXPECT_EQ(Ticked(), (Texts{"L01", "L02"}));
  TapRow("L03");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "1 Satır Fazla\nFaturaya Sığmaz..!");
  TapRow("L03");
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(InvoicePanelTest, a_tap_turns_the_row_in_front_too_and_moving_turns_nothing) {
  PutMany(2);
  Open();
  EXPECT_EQ(Lines().Text("DigerId"), "L01");
  desk->screen.FatGrid.TapCell(4);
  EXPECT_EQ(Ticked(), Texts{"L02"});
  EXPECT_TRUE(Lines().MoveNext().Ok());
  EXPECT_TRUE(Lines().MovePrevious().Ok());
  EXPECT_EQ(Ticked(), Texts{"L02"});
}

TEST_F(InvoicePanelTest, two_quick_taps_are_two_ticks_and_enter_is_one) {
  PutMany(2);
  Open();
  GridElement& grid = desk->screen.FatGrid;
  grid.mouseDown(MouseEvent{});
  grid.TapCell(0);
  EXPECT_EQ(Ticked(), Texts{"L02"});
  grid.DoubleTapCell(0);
  EXPECT_EQ(Ticked(), (Texts{"L01", "L02"}));
  KeyEvent enter{key::kEnter};
  grid.keyDown(enter);
  grid.TapCell(0);
  grid.DoubleTapCell(0);
  EXPECT_EQ(Ticked(), Texts{"L02"});
}

TEST_F(InvoicePanelTest, behind_a_tick_the_list_stands_on_the_items_first_line) {
  PutMany(4);
  Open();
  TapRow("L03");
  EXPECT_EQ(Ticked(), (Texts{"L01", "L02", "L04"}));
  EXPECT_EQ(Lines().Text("DigerId"), "L01");
}

TEST_F(InvoicePanelTest, the_heading_of_the_ticks_turns_all_of_them_and_no_other_does) {
  Save(Setting::InvoiceLines, "2");
  PutMany(3);
  Open();
  desk->screen.FatGrid.headClick(4);
  EXPECT_EQ(Ticked(), Texts{});
  desk->screen.FatGrid.headClick(4);
  EXPECT_EQ(Ticked(), (Texts{"L01", "L02", "L03"}));
  EXPECT_TRUE(messages.shown.empty());
  desk->screen.FatGrid.headClick(0);
  EXPECT_EQ(Ticked().size(), 3U);
}

TEST_F(InvoicePanelTest, more_than_fits_is_not_printed_after_all_were_ticked) {
  Save(Setting::InvoiceLines, "2");
  PutMany(3);
  Open();
  desk->screen.FatGrid.headClick(4);
  desk->screen.FatGrid.headClick(4);
  Click("FatCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "1 Satır Fazla\nFaturaya Sığmaz..!");
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_FALSE(At("FatCmd(1)").Visible());
}

TEST_F(InvoicePanelTest, another_day_shows_its_lines_without_ticks_of_an_earlier_time) {
  Put("L1");
  Put("Y1", "1001", "2026-02-28 09:00:00", "C001|X");
  Put("Y2", "1002", "2026-02-28 10:00:00");
  Open();
  At("FatDTPicker").SetDate({2026, 2, 28});
  EXPECT_EQ(Listed(), (Texts{"Y1", "Y2"}));
  EXPECT_EQ(Ticked(), Texts{"L1"});
  EXPECT_TRUE(At("FatCmd(1)").Visible());
  At("FatDTPicker").SetDate({2026, 2, 27});
  EXPECT_FALSE(At("FatCmd(1)").Visible());
  At("FatDTPicker").SetDate({2026, 2, 28});
  TapRow("Y2");
  Click("FatCmd(1)");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT DigerId FROM Datam WHERE Aciklama<>''"), Texts{"Y2"});
}

TEST_F(InvoicePanelTest, prints_the_ticked_lines_and_books_them) {
  PutMany(3);
  for (const int mark : {0, 7, 9}) At(fmt::format("MnPop({})", mark)).SetChecked(true);
  At("MnPop(13)").SetCaption("Kdv Hariç");
  Open();
  TapRow("L02");
  Click("FatCmd(1)");
  EXPECT_EQ(Printed(), (Texts{"Tarih : ", "01.03.2026", "Ayşe Yılmaz", "Çınar Sokak 5", "Eskişehir",        "Tepebaşı", "1234567890",
                              "Pirinç",   "2",          "50,00",       "100,00",        "Pirinç",           "2",        "50,00",
                              "100,00",   "Toplam...:", "200,00",      "36,00",         "Genel Toplam...:", "236,00"}));
  EXPECT_EQ(printer.jobs.back().printer, "Fatura Yazıcısı");
  EXPECT_EQ(printer.jobs.back().end, "EndDoc");
  EXPECT_EQ(printer.jobs.back().scale, ScaleMode::Twips);
  EXPECT_EQ(One("Fatura.mdb", "SELECT FaturaNo, FatTop, FatKdvTut, Toplam FROM Faturalar"), "S000001|200.0|36.0|236.0");
  EXPECT_EQ(Balance("=110"), "36.0|0.0|36.0|Borç");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000001");
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_EQ(printer.Current().deviceName, "Velmora PDF");
  EXPECT_EQ(Told(), "Fatura S000001 yazdırıldı: Fatura Yazıcısı");
  EXPECT_EQ(desk->cursors.Fatura.Text("FaturaNo"), "S000001");
  EXPECT_EQ(desk->cursors.FatHareket.RecordCount(), 2);
}

TEST_F(InvoicePanelTest, with_prices_that_hold_the_tax_it_is_taken_out) {
  Put("L1");
  At("MnPop(13)").SetCaption("Kdv Dahil");
  Open();
  Click("FatCmd(1)");
  EXPECT_EQ(One("Fatura.mdb", "SELECT FatTop, FatKdvTut, Toplam FROM Faturalar"), "100.0|15.25|100.0");
}

TEST_F(InvoicePanelTest, the_font_of_the_print_is_the_chosen_one_or_ms_sans_serif_10) {
  Put("L1");
  Open();
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.back().texts.front().font, (PrintFont{"MS Sans Serif", 10}));
  Save(Setting::PrintFontName, "Courier New");
  Save(Setting::PrintFontSize, "7");
  Put("L2");
  Open();
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.back().texts.front().font, (PrintFont{"Courier New", 7}));
}

TEST_F(InvoicePanelTest, neither_small_paper_nor_the_electronic_roll_changes_it) {
  PutMany(1);
  Open();
  Click("FatCmd(1)");
  const Texts plain = Printed();
  const int paperSize = printer.jobs.back().paperSize;
  At("A5").SetChecked(true);
  At("Efatura80cm").SetChecked(true);
  Put("L09");
  Open();
  Click("FatCmd(1)");
  EXPECT_EQ(Printed(), plain);
  EXPECT_EQ(printer.jobs.back().paperSize, paperSize);
}

TEST_F(InvoicePanelTest, closing_takes_no_number_and_keeps_the_ticks) {
  PutMany(2);
  Open();
  TapRow("L01");
  Click("FatCmd(0)");
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000000");
  EXPECT_EQ(Ticked(), Texts{"L02"});
  EXPECT_EQ(Lines().RecordSource(), "Select * From Datam Where CariKod='C001' Order By Tarih Desc");
  Open();
  EXPECT_EQ(At("Fat(0)").Text(), "S000001");
}

TEST_F(InvoicePanelTest, numbers_go_on_over_a_restart_and_skip_those_of_the_book) {
  Put("L1");
  Open();
  Click("FatCmd(1)");
  ASSERT_TRUE(Start());
  Sql("Fatura.mdb", "INSERT INTO Faturalar(FaturaNo) VALUES('S000002')");
  Open();
  EXPECT_EQ(At("Fat(0)").Text(), "S000003");
}

TEST_F(InvoicePanelTest, whose_number_the_settings_did_not_keep_is_told_as_printed_and_the_next_gets_another) {
  PutMany(1);
  Open();
  settings.saveFault = Status(ErrorKind::DiskFailed, "input/output error");
  Click("FatCmd(1)");
  settings.saveFault = {};
  EXPECT_EQ(desk->screen.Durum.Caption(), "Fatura S000001 yazdırıldı: Fatura Yazıcısı; numarası ayarlara yazılamadı");
  EXPECT_EQ(One("Fatura.mdb", "SELECT count(*) FROM Faturalar"), "1");
  Open();
  EXPECT_EQ(At("Fat(0)").Text(), "S000002");
}

TEST_F(InvoicePanelTest, a_typed_number_is_printed_and_the_next_follows_it) {
  Put("L1");
  Open();
  Set("Fat(0)", "S000150");
  Click("FatCmd(1)");
  EXPECT_EQ(One("Fatura.mdb", "SELECT FaturaNo FROM Faturalar"), "S000150");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000150");
  Open();
  EXPECT_EQ(At("Fat(0)").Text(), "S000151");
}

TEST_F(InvoicePanelTest, a_typed_number_that_is_borne_already_is_counted_on) {
  Sql("Fatura.mdb", "INSERT INTO Faturalar(FaturaNo) VALUES('S000150')");
  Put("L1");
  Open();
  Set("Fat(0)", "S000150");
  Click("FatCmd(1)");
  EXPECT_EQ(Rows("Fatura.mdb", "SELECT FaturaNo FROM Faturalar"), (Texts{"S000150", "S000151"}));
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000151");
}

TEST_F(InvoicePanelTest, what_is_no_number_is_refused_with_nothing_written_and_the_panel_stays) {
  Put("L1");
  Open();
  for (const char* const typed : {"", "  ", "A-17", "Fatura", "S 2", "S"}) {
    At("Fat(0)").SetText(typed);
    messages.shown.clear();
    Click("FatCmd(1)");
    ASSERT_EQ(messages.shown.size(), 1U) << typed;
    EXPECT_EQ(messages.shown[0].text, Told());
    EXPECT_EQ(messages.shown[0].icon, MessageIcon::Stop);
    EXPECT_TRUE(At("FatFrame").Visible());
    EXPECT_TRUE(At("FatCmd(1)").Visible());
    EXPECT_EQ(At("Fat(0)").Text(), typed);
  }
  EXPECT_EQ(Told(), "S fatura numarası değil: S ve rakamlarla yazın, S000041 gibi");
  At("Fat(0)").SetText(" ");
  Click("FatCmd(1)");
  EXPECT_EQ(Told(), "Fatura numarası boş: S ve rakamlarla yazın, S000041 gibi");
  At("FatDüzChk").SetChecked(true);
  Click("FatCmd(1)");
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000000");
}

TEST_F(InvoicePanelTest, a_carelessly_typed_number_is_made_good_before_it_is_compared_and_kept) {
  Sql("Fatura.mdb", "INSERT INTO Faturalar(FaturaNo) VALUES('S000041')");
  PutMany(2);
  Open();
  TapRow("L02");
  Set("Fat(0)", " s000041 ");
  Click("FatCmd(1)");
  EXPECT_EQ(Rows("Fatura.mdb", "SELECT FaturaNo FROM Faturalar"), (Texts{"S000041", "S000042"}));
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000042");
  Open();
  TapRow("L02");
  At("FatDüzChk").SetChecked(true);
  Set("Fat(0)", "57 ");
  Click("FatCmd(1)");
  EXPECT_EQ(Told(), "Fatura S000057 yazdırıldı: Fatura Yazıcısı");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000057");
}

TEST_F(InvoicePanelTest, a_number_that_no_longer_fits_grows_by_a_digit) {
  Save(Setting::InvoiceNo, "999999");
  Open();
  EXPECT_EQ(At("Fat(0)").Text(), "S1000000");
}

TEST_F(InvoicePanelTest, the_address_goes_to_the_card_of_the_customer_and_untouched_it_is_left_alone) {
  Open();
  Sql("Cari.mdb", "UPDATE CariKartlar SET Adres2='Ankara' WHERE CariKod='C001'");
  Click("FatCmd(0)");
  EXPECT_EQ(Customer("C001")["Adres2"], "Ankara");
  Open();
  Set("Fat(2)", "Gül Sokak 7");
  Set("Fat(9)", "yeni@ornek.tr");
  Click("FatCmd(0)");
  EXPECT_EQ(Customer("C001")["Adres1"], "Gül Sokak 7");
  EXPECT_EQ(Customer("C001")["Adres2"], "Ankara");
  EXPECT_EQ(Customer("C001")["Email"], "yeni@ornek.tr");
  EXPECT_EQ(Customer("C002")["Adres1"], "");
}

TEST_F(InvoicePanelTest, an_address_that_could_not_be_kept_stays_in_the_panel_for_another_try) {
  Open();
  Set("Fat(2)", "Gül Sokak 7");
  engine.commitFault = {ErrorKind::Busy, "kept"};
  Click("FatCmd(0)");
  engine.commitFault = {};
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_EQ(At("Fat(2)").Text(), "Gül Sokak 7");
  EXPECT_EQ(Customer("C001")["Adres1"], "Çınar Sokak 5");
  Click("FatCmd(0)");
  EXPECT_EQ(messages.shown.size(), 1U);
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_EQ(Customer("C001")["Adres1"], "Gül Sokak 7");
}

TEST_F(InvoicePanelTest, a_card_that_takes_no_address_keeps_the_panel_open_only_as_long_as_the_clerk_wants) {
  Open();
  Set("Fat(2)", "Gül Sokak 7");
  engine.commitFault = {ErrorKind::NoRights, "read-only"};
  Click("FatCmd(0)");
  EXPECT_EQ(messages.shown.size(), 1U);
  messages.answers = {"", "No"};
  Click("FatCmd(0)");
  ASSERT_EQ(messages.shown.size(), 3U);
  EXPECT_EQ(messages.shown[2].text, "Adres yine kaydedilemedi. Kaydetmeden kapatılsın mı?");
  EXPECT_TRUE(At("FatFrame").Visible());
  messages.answers = {"", "Yes"};
  Click("FatCmd(0)");
  engine.commitFault = {};
  EXPECT_FALSE(At("FatFrame").Visible());
}

TEST_F(InvoicePanelTest, the_card_of_a_customer_deleted_meanwhile_keeps_no_panel_open) {
  Open();
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  Set("Fat(2)", "Gül Sokak 7");
  Click("FatCmd(0)");
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_EQ(Told(), "Müşterinin kartı başka bir terminalde silinmiş");
}

TEST_F(InvoicePanelTest, nobody_else_can_be_chosen_while_it_is_open) {
  Open();
  for (const char* const name : {"CariGrid", "Text1(0)", "GurupCombo", "ComboCmd", "StokChk", "CiroChk", "SilinenChk", "Label1(0)",
                                 "Command1", "Command2", "Command4"})
    EXPECT_FALSE(At(name).IsOpen()) << name;
  EXPECT_EQ(Lines().RecordSource().find("Select * From Datam Where Aciklama=''"), 0U);
  Click("FatCmd(0)");
  for (const char* const name : {"CariGrid", "Text1(0)", "GurupCombo", "StokChk", "Label1(0)", "Command1", "Command4"})
    EXPECT_TRUE(At(name).IsOpen()) << name;
}

TEST_F(InvoicePanelTest, escape_closes_it_and_books_nothing) {
  PutMany(1);
  Open();
  KeyEvent escape{key::kEscape};
  At("Form1").keyDown(escape);
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
}

TEST_F(InvoicePanelTest, an_entered_field_is_selected_whole_and_the_amount_follows_quantity_and_price) {
  Open();
  At("Fat(1)").SetFocus();
  EXPECT_EQ(At("Fat(1)").SelectionLength(), 11);
  At("Fat(8)").SetText("12,5");
  At("Fat(7)").SetText("3");
  EXPECT_EQ(At("Fat(6)").Text(), "37,50");
  At("Fat(6)").SetText("1");
  EXPECT_EQ(At("Fat(6)").Text(), "37,50");
}

TEST_F(InvoicePanelTest, plain_invoices_show_the_invoiced_lines_too_and_store_nothing_but_the_number) {
  PutMany(2);
  Open();
  TapRow("L02");
  Click("FatCmd(1)");
  Open();
  EXPECT_EQ(Listed(), Texts{"L02"});
  At("FatDüzChk").SetChecked(true);
  EXPECT_EQ(Listed(), (Texts{"L01", "L02"}));
  TapRow("L02");
  EXPECT_EQ(Day("L02")["Sec"], "");
  EXPECT_EQ(Day("L02")["Secc"], "X");
  Set("Fat(0)", "S000001");
  const Texts before = Rows("Fatura.mdb", "SELECT * FROM FatHareket UNION ALL SELECT *, 0, 0, 0, 0, 0, 0, 0 FROM Faturalar");
  clock.now = clock.now.PlusSeconds(3600);
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.size(), 2U);
  EXPECT_EQ(std::ranges::count(Printed(), "Pirinç"), 1);
  EXPECT_EQ(Rows("Fatura.mdb", "SELECT * FROM FatHareket UNION ALL SELECT *, 0, 0, 0, 0, 0, 0, 0 FROM Faturalar"), before);
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000001");
  EXPECT_FALSE(At("FatDüzChk").Checked());
}

TEST_F(InvoicePanelTest, the_tick_of_plain_invoices_cleared_hides_the_invoiced_lines_and_another_day_clears_it) {
  Put("L1");
  Put("L2", "1002");
  Sql("Karvel.mdb", "UPDATE Datam SET Aciklama='FatNo S000009' WHERE DigerId='L1'");
  Open();
  At("FatDüzChk").SetChecked(true);
  EXPECT_EQ(Listed().size(), 2U);
  At("FatDüzChk").SetChecked(false);
  EXPECT_EQ(Listed(), Texts{"L2"});
  At("FatDüzChk").SetChecked(true);
  At("FatDTPicker").SetDate({2026, 2, 28});
  EXPECT_FALSE(At("FatDüzChk").Checked());
}

TEST_F(InvoicePanelTest, with_the_panel_closed_the_tick_of_plain_invoices_selects_nothing) {
  const std::string source = Lines().RecordSource();
  At("FatDüzChk").SetChecked(true);
  EXPECT_EQ(Lines().RecordSource(), source);
}

TEST_F(InvoicePanelTest, without_its_printer_nothing_is_booked_and_the_panel_stays) {
  Save(Setting::InvoicePrinter, "Yazıcı Yok");
  Put("L1");
  Open();
  Click("FatCmd(1)");
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
  EXPECT_EQ(Told(), "Fatura yazıcısı bulunamadı: fatura menüsünden bir yazıcı seçin");
}

TEST_F(InvoicePanelTest, without_a_ticked_line_nothing_is_printed_and_the_panel_closes) {
  Put("L1");
  Open();
  TapRow("L1");
  Click("FatCmd(1)");
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000000");
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_EQ(Told(), "Fatura yazdırılmadı: işaretli satır yok");
}

TEST_F(InvoicePanelTest, a_missing_layout_is_told_and_the_posting_stands) {
  std::filesystem::remove(LayoutPath());
  Put("L1");
  Open();
  Click("FatCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Fatura Satır Bilgileri Yok");
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "1");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000000");
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_EQ(printer.Current().deviceName, "Velmora PDF");
  WriteLayout(TestLayout().Bytes());
  Open();
  EXPECT_EQ(At("Fat(0)").Text(), "S000002");
}

TEST_F(InvoicePanelTest, a_refused_print_keeps_the_posting_takes_no_number_and_can_be_printed_once_more) {
  printer.fault = {ErrorKind::Other, "paper jam"};
  printer.drawsBeforeFault = 3;
  Put("L1");
  Open();
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.back().end, "KillDoc");
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "1");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000000");
  EXPECT_EQ(Told(),
            "Fatura S000001 yazdırılamadı: yazıcı yanıt vermiyor, açık olduğuna bakın; kaydı yapıldı, Düz Fatura ile yeniden "
            "yazdırılabilir");
  printer.fault = {};
  Open();
  EXPECT_EQ(At("Fat(0)").Text(), "S000002");
  At("FatDüzChk").SetChecked(true);
  EXPECT_EQ(At("Fat(0)").Text(), "S000001");
  At("FatDüzChk").SetChecked(false);
  EXPECT_EQ(At("Fat(0)").Text(), "S000002");
  At("FatDüzChk").SetChecked(true);
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.back().end, "EndDoc");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000001");
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "1");
}

TEST_F(InvoicePanelTest, the_number_of_an_unprinted_invoice_comes_back_for_its_customer_until_it_is_printed) {
  printer.fault = {ErrorKind::Other, "paper jam"};
  Put("L1");
  Put("L2", "1001", "2026-03-01 09:00:00", "C002|");
  Open();
  Click("FatCmd(1)");
  printer.fault = {};
  Open("C002");
  At("FatDüzChk").SetChecked(true);
  EXPECT_EQ(At("Fat(0)").Text(), "S000002");
  Click("FatCmd(0)");
  Open();
  Set("Fat(0)", "S000077");
  At("FatDüzChk").SetChecked(true);
  EXPECT_EQ(At("Fat(0)").Text(), "S000077");
  Click("FatCmd(0)");
  Open();
  At("FatDüzChk").SetChecked(true);
  Click("FatCmd(1)");
  EXPECT_EQ(Told(), "Fatura S000001 yazdırıldı: Fatura Yazıcısı");
  Open();
  At("FatDüzChk").SetChecked(true);
  EXPECT_EQ(At("Fat(0)").Text(), "S000002");
}

TEST_F(InvoicePanelTest, a_total_too_great_for_words_is_refused_before_it_is_booked) {
  Put("L1");
  Sql("Karvel.mdb", "UPDATE Datam SET Tutar=1e9");
  At("MnPop(6)").SetChecked(true);
  Open();
  Click("FatCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Fatura tutarı yazıyla yazılamayacak kadar büyük: satırları birkaç faturaya bölün");
  EXPECT_EQ(Told(), messages.shown[0].text);
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000000");
  EXPECT_TRUE(At("FatFrame").Visible());
  At("FatDüzChk").SetChecked(true);
  Click("FatCmd(1)");
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_TRUE(At("FatFrame").Visible());
}

TEST_F(InvoicePanelTest, the_greatest_total_that_words_hold_is_booked_and_any_where_no_words_are_wanted) {
  Put("L1");
  Sql("Karvel.mdb", "UPDATE Datam SET Tutar=999999999.99");
  At("MnPop(13)").SetCaption("Kdv Dahil");
  At("MnPop(6)").SetChecked(true);
  Open();
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.size(), 1U);
  Put("L2");
  Sql("Karvel.mdb", "UPDATE Datam SET Tutar=1e9 WHERE DigerId='L2'");
  At("MnPop(6)").SetChecked(false);
  Open();
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.size(), 2U);
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(InvoicePanelTest, a_seventh_rate_of_tax_is_refused_in_plain_words_and_the_panel_stays) {
  for (int i = 1; i <= 7; ++i) {
    AddStock(fmt::format("R{}", i), "Oran", fmt::format("Kdv={}", i));
    Put(fmt::format("L{}", i), fmt::format("R{}", i));
  }
  Open();
  Click("FatCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "Faturada en çok altı ayrı Kdv oranı olabilir: satırları iki faturaya bölün");
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
  EXPECT_EQ(Count("Fatura.mdb", "FatHareket"), "0");
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_TRUE(printer.jobs.empty());
}

TEST_F(InvoicePanelTest, ticks_that_cannot_be_counted_are_told_and_print_nothing) {
  Put("L1");
  Open();
  engine.readFault = {ErrorKind::Busy, "kept"};
  Click("FatCmd(1)");
  engine.readFault = {};
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_TRUE(At("FatFrame").Visible());
  EXPECT_TRUE(At("FatCmd(1)").Visible());
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(InvoicePanelTest, lines_that_cannot_be_read_are_not_told_as_none) {
  Put("L1");
  Open();
  engine.readFault = {ErrorKind::Busy, "kept"};
  At("FatDüzChk").SetChecked(true);
  engine.readFault = {};
  EXPECT_EQ(Told(), "Veri dosyası başka bir programda açık, okunamadı: yeniden deneyin");
}

TEST_F(InvoicePanelTest, refused_by_the_stores_the_invoice_is_not_booked_and_the_panel_stays) {
  Put("L1");
  Open();
  engine.commitFault = {ErrorKind::DiskFull, "no room"};
  Click("FatCmd(1)");
  engine.commitFault = {};
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Yapılamadı");
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "0");
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_TRUE(At("FatFrame").Visible());
  Click("FatCmd(1)");
  EXPECT_EQ(printer.jobs.size(), 1U);
}

TEST_F(InvoicePanelTest, a_customer_deleted_at_another_terminal_gets_no_invoice) {
  Put("L1");
  Open();
  Sql("Cari.mdb", "DELETE FROM CariKartlar WHERE CariKod='C001'");
  Click("FatCmd(1)");
  EXPECT_EQ(Told(), "Müşterinin kartı başka bir terminalde silinmiş");
  EXPECT_TRUE(printer.jobs.empty());
}

TEST_F(InvoicePanelTest, a_line_invoiced_at_another_terminal_meanwhile_is_not_invoiced_again) {
  PutMany(2);
  Open();
  Sql("Karvel.mdb", "UPDATE Datam SET Aciklama='FatNo S000077' WHERE DigerId='L01'");
  Click("FatCmd(1)");
  EXPECT_EQ(Rows("Karvel.mdb", "SELECT Aciklama FROM Datam ORDER BY DigerId"), (Texts{"FatNo S000077", "FatNo S000001"}));
  EXPECT_EQ(Count("Fatura.mdb", "FatHareket"), "1");
}

TEST_F(InvoicePanelTest, the_menu_opens_by_a_right_tap_and_by_its_button) {
  int opened = 0;
  connections += desk->screen.popUp.Connect([&](const Element& menu) { opened += menu.Name() == "FatPop" ? 1 : 0; });
  Open();
  MouseEvent right;
  right.button = 2;
  At("FatFrame").mouseUp(right);
  At("FatFrame").mouseUp(MouseEvent{});
  Click("FatPopCmd");
  EXPECT_EQ(opened, 2);
}

// The disk fails at the end of the posting.
class InvoiceInDoubt : public InvoicePanelTest {
 protected:
  void SetUp() override {
    vfs = testing::FaultyFiles();
    testing::Faults().Reset();
    InvoicePanelTest::SetUp();
  }
  void TearDown() override { testing::Faults().Reset(); }
  static void FailLastSync(bool silent) {
    testing::Faults().Reset();
    testing::Faults().failFolderSync = 1;
    testing::Faults().silentAfterFolderSync = silent;
  }
};

TEST_F(InvoiceInDoubt, what_cannot_be_looked_up_is_printed_as_soon_as_it_is_known_to_stand) {
  Put("L1");
  Open();
  FailLastSync(true);
  Click("FatCmd(1)");
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].title, "Kayıt Bilinmiyor");
  EXPECT_TRUE(printer.jobs.empty());
  EXPECT_FALSE(At("FatCmd(1)").Enabled());
  EXPECT_TRUE(At("FatFrame").Visible());
  testing::Faults().Reset();
  const auto look = loop.timer;
  look();
  ASSERT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(printer.jobs[0].printer, "Fatura Yazıcısı");
  EXPECT_EQ(Saved(Setting::InvoiceNo), "000001");
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "1");
  EXPECT_FALSE(At("FatFrame").Visible());
  EXPECT_TRUE(At("FatCmd(1)").Enabled());
}

TEST_F(InvoiceInDoubt, what_stands_on_a_failing_disk_is_printed_at_once) {
  Put("L1");
  Open();
  FailLastSync(false);
  Click("FatCmd(1)");
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(printer.jobs.size(), 1U);
  EXPECT_EQ(Count("Fatura.mdb", "Faturalar"), "1");
}

}  // namespace
}  // namespace karvel
