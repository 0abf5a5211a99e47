#include "desk/start_up.h"

#include <fmt/format.h>

#include "books/sources.h"
#include "books/steps.h"
#include "desk/list_columns.h"
#include "platform/clock.h"
#include "platform/connection.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "platform/shell.h"
#include "platform/window.h"
#include "settings/company_file.h"
#include "settings/serial_entry_file.h"
#include "settings/terminal.h"
#include "text/format.h"
#include "text/turkish.h"
#include "touch/file_operations.h"

namespace karvel {
namespace {
constexpr const char* kFitting = "VelmoraKrv";
constexpr int kTemplates = 8;  // the catalogue's first eight files lie in the data folder
const Steps step("StartUp");
}  // namespace

StartUp::StartUp(const DeskParts& parts, CustomerList& customers, Options& options, PriceSelection& prices, WindowRule& windowRule)
    : screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      settings_(parts.settings),
      world_(parts.world),
      customers_(customers),
      options_(options),
      prices_(prices),
      windowRule_(windowRule) {}

bool StartUp::Load() {
  if (!world_.shell.ClaimOnlyCopy(settings_.Title())) return false;                                 // 1.
  world_.window.RestoreFitting(kFitting);                                                           // 2.
  world_.shell.MakeShortcut(settings_.Title());                                                     // 3.
  screen_.Label1(1).SetCaption(settings_.Get(Setting::SearchCaption));                              // 4.
  FixTerminal();                                                                                    // 5.
  ReadCompanyFiles();                                                                               // 6.
  FixDataFolder();                                                                                  // 7.
  if (const Status made = world_.files.MakeFolder(form_.DataDir); !made.Ok()) return Refuse(made);  // 8.
  if (!CopyTemplates() || !OpenStores()) return false;                                              // 9.
  KeepTerminalGroup();                                                                              // 10.
  FillStockGroups();                                                                                // 11.
  form_.CustomerGroup = settings_.Get(Setting::CustomerGroup);                                      // 12.
  form_.StockGroup = settings_.Get(Setting::StockGroup);
  SetSources();
  RefreshAll();                                          // 13.
  screen_.DTPicker1.SetDate(world_.clock.Now().Date());  // 14.
  ReadFormats();
  form_.Sabit = settings_.GetBoolean(Setting::WindowFixed);
  return true;
}

void StartUp::FixTerminal() {
  form_.TerminalNo = TerminalNo(settings_.Title());
  const std::string number = TerminalNumber(form_.TerminalNo);
  settings_.Save(Setting::TerminalNumber, number);
  screen_.Form1.SetCaption(" Velmora  " + number + ".Karvel Programı        Tarih > " + Format(world_.clock.Now(), "dd mmmm yyyy dddd"));
  world_.window.SetTitle(screen_.Form1.Caption());
}

void StartUp::ReadCompanyFiles() {
  const CompanyFile company = ReadOrMakeCompanyFile(world_.files);
  step("company file", company.status);
  form_.CompanyLines = company.lines;
  if (company.made) settings_.Save(Setting::DataPlace, "C:\\KarvelData\\");
  const SerialEntryFile serial = ReadOrMakeSerialEntryFile(world_.files);
  step("serial entry file", serial.status);
  form_.SerialEntryOn = serial.on;
}

void StartUp::FixDataFolder() {
  const std::string online = settings_.Get(Setting::Online);
  form_.DataDir = "C:\\KarvelData\\";
  if (!settings_.Get(Setting::FtpUrl).empty()) {
    screen_.FtpVar.SetChecked(true);
  } else if (!online.empty()) {
    // With a share the terminal works directly on the main machine's files.
    screen_.OnLine.SetChecked(true);
    form_.DataDir = "\\\\" + online + "\\MuhasebeData\\" + settings_.Get(Setting::Company) + "\\";
  }
}

bool StartUp::CopyTemplates() {
  CSHFileOp copy(world_.files);
  for (const DatabaseFile& file : Catalogue::Files().first(kTemplates)) {
    const std::string target = form_.DataDir + std::string(file.name);
    if (world_.files.Exists(target)) continue;
    copy.ClearSourceFiles();
    copy.ClearDestFiles();
    copy.AddSourceFile(world_.files.ProgramFolder() + "/" + std::string(file.name));
    copy.AddDestFile(target);
    if (const auto copied = copy.CopyFiles(); !copied) return Refuse(copied.error().status);
  }
  return true;
}

bool StartUp::OpenStores() {
  const Status opened = world_.stores.Open(world_.files.RealPath(form_.DataDir));
  return opened.Ok() || Refuse(opened);
}

bool StartUp::Refuse(const Status& status) {
  step("open", status);
  world_.messages.MessageBox(ClerkMessage(status), "Program Açılamadı", MessageIcon::Stop, MessageButtons::Ok);
  return false;
}

void StartUp::KeepTerminalGroup() {
  Cursor& groups = cursors_.HareketData;
  form_.RepositionGuard = 100;
  groups.SetDatabaseName(form_.DataDir + "Stok.Mdb");
  step("terminal groups", groups.Open("Gurup"));
  {
    // Looked for under the lock: terminals that start together add it once.
    Action action(world_.stores, "KeepTerminalGroup");
    step("find terminal group", groups.FindFirst("Gurup='WinKarvel1'"));
    if (groups.NoMatch()) {
      step("add terminal group", groups.AddNew());
      groups.Set("Gurup", "WinKarvel1");
      step("update terminal group", groups.Update());
    }
    step("commit terminal group", action.Finish());
  }
  groups.Close();
}

void StartUp::FillStockGroups() {
  Cursor& groups = cursors_.GurupData;
  groups.SetDatabaseName(form_.DataDir + "Stok.Mdb");
  step("stock groups", groups.Open(sources::kGroups));
  std::vector<std::string> items{std::string(" ") + sources::kAllGroups};
  for (; groups.HasCurrent(); step("next group", groups.MoveNext())) items.push_back(groups.Text("Gurup"));
  screen_.GrpCombo.SetItems(std::move(items));
}

void StartUp::SetSources() {
  const auto set = [&dir = form_.DataDir](Cursor& cursor, const char* file, const std::string& source) {
    cursor.SetDatabaseName(dir + file);
    cursor.SetRecordSource(source);
  };
  const bool all = form_.CustomerGroup.empty() || form_.CustomerGroup == sources::kAllGroups;
  set(cursors_.GurupData, "Cari.Mdb", sources::kGroups);
  set(cursors_.CariData, "Cari.Mdb", all ? sources::kCustomers : sources::CustomersOfGroup(form_.CustomerGroup));
  set(cursors_.CariHarData, "Cari.Mdb", "CariHareket");
  set(cursors_.OzelFiyat, "Cari.Mdb", "Cari");
  set(cursors_.VadeData, "Cari.Mdb", "");
  set(cursors_.StokData, "Stok.Mdb", sources::kStock);
  set(cursors_.StokHarData, "Stok.Mdb", "StokHareket");
  set(cursors_.HareketData, "Karvel.Mdb", "Datam");
  set(cursors_.GunData, "Karvel.Mdb", "Datam");
  set(cursors_.IndexPrimary, "Index.Mdb", "Tarih");
  set(cursors_.IndexSecondary, "Index.Mdb", "Mdbindex");
  set(cursors_.SeriNoData, "SeriNo.Mdb", "SeriNo");
  set(cursors_.Fatura, "Fatura.Mdb", "Faturalar");
  set(cursors_.FatHareket, "Fatura.Mdb", "FatHareket");
  set(cursors_.DataMevcut, "Fatura.Mdb", "GirenCikan");
  set(cursors_.DataTmp, "Temp.mdb", "Select * From Datam Order By Tarih Asc");
}

void StartUp::RefreshAll() {
  form_.RepositionGuard = 555;
  for (Cursor* const cursor :
       {&cursors_.StokData, &cursors_.CariData, &cursors_.IndexPrimary, &cursors_.GunData, &cursors_.SeriNoData, &cursors_.OzelFiyat,
        &cursors_.GurupData, &cursors_.Fatura, &cursors_.FatHareket, &cursors_.DataTmp, &cursors_.DataMevcut, &cursors_.HareketData,
        &cursors_.CariHarData, &cursors_.StokHarData, &cursors_.IndexSecondary})
    step(cursor->Name(), cursor->Refresh());
}

void StartUp::ReadFormats() {
  form_.QuantityFormat = settings_.Get(Setting::QuantityFormat);
  form_.PriceFormat = settings_.Get(Setting::PriceFormat);
}

void StartUp::Activate() {
  if (screen_.Command3.Visible()) return;
  windowRule_.ApplyFixed();  // 1.
  screen_.Label16.SetCaption("Bilgiler Düzenleniyor, Lütfen Bekleyiniz.....");
  screen_.Frame5.SetVisible(true);
  screen_.Frame5.BringToFront();
  world_.loop.Wait(1000);
  options_.Read();                                    // 2., 5.
  if (screen_.FtpVar.Checked()) WaitForConnection();  // 4.
  options_.StartScanner();                            // 6.
  ReadFormats();                                      // 7.
  if (settings_.Get(Setting::QuantityFormat, "").empty()) {
    form_.QuantityFormat = "General Number";
    settings_.Save(Setting::QuantityFormat, form_.QuantityFormat);
  }
  if (settings_.Get(Setting::PriceFormat, "").empty()) {
    form_.PriceFormat = "Standard";
    settings_.Save(Setting::PriceFormat, form_.PriceFormat);
  }
  screen_.GrpCombo.Choose(0);                                                                  // 8.
  screen_.Command3.SetVisible(true);                                                           // 9.
  if (cursors_.CariData.HasRows()) screen_.Text1(0).SetText(cursors_.CariData.Text("Unvan"));  // 10.
  LayOutGrids();                                                                               // 11.
  windowRule_.ApplyFonts();
  form_.ActiveCursor = &cursors_.CariData;  // 12.
  customers_.FillGroups();
  customers_.ShowGroup(form_.CustomerGroup.empty() ? sources::kAllGroups : form_.CustomerGroup);
  if (EqualText(screen_.GurupCombo.Text(), "Toptan")) {
    // The wholesalers of yesterday are still paid today, not collected from.
    screen_.Label1(5).SetCaption(" Ödeme");
    screen_.Label1(0).SetCaption(" Toptan");
  }
  prices_.SetFirstPriceColumn();
  opening();
  screen_.MnPop(13).SetCaption("Kdv " + settings_.Get(Setting::TaxMode));  // 13.
  customers_.KeepWalkIn();                                                 // 14.
  screen_.Label5.SetColor(color::kWhite);
  if (cursors_.CariData.HasCurrent()) {
    // What the screen_ says beside the row in front is his.
    screen_.Label5.SetCaption(PlainNumber(cursors_.CariData.Number("Bakiye")));
    screen_.Label8.SetCaption(cursors_.CariData.Text("CariKod"));
  }
  screen_.Vadefrm.SetVisible(false);  // 15.
  screen_.Frame5.SetVisible(false);
  screen_.CariGrid.SetFocus();
}

void StartUp::WaitForConnection() {
  while (!world_.connection.Up() && !form_.Closing) {
    screen_.BağlantıFrm.SetVisible(true);
    screen_.BağlantıFrm.BringToFront();
    world_.loop.Wait(100);
  }
  screen_.BağlantıFrm.SetVisible(false);
}

void StartUp::LayOutGrids() {
  const std::string& price = form_.PriceFormat;
  const std::string& quantity = form_.QuantityFormat;
  screen_.CariGrid.SetColumns(CustomerColumns(form_));
  screen_.CariGrid.SetSource(&cursors_.CariData);
  screen_.StokGrid.SetColumns({{"Stok Kodu", "StokKod"},
                               {"Stok Adı", "StokAdi"},
                               {"Maliyet", "gFiyat", true, Align::Right, price},
                               {"1.Fiyat", "Fiyat", true, Align::Right, price},
                               {"2.Fiyat", "Fiyat2", true, Align::Right, price},
                               {"3.Fiyat", "Fiyat3", true, Align::Right, price},
                               {"Kalan", "KalanB", true, Align::Right, quantity},
                               {"Yeri", "Yeri"}});
  screen_.StokGrid.SetSource(&cursors_.StokData);
  screen_.HareketGrid.SetColumns({{"Tarih", "Tarih"},
                                  {"Stok Kodu", "StokKod", false},
                                  {"Stok Adı", "StokAd"},
                                  {"Miktar", "Miktar", true, Align::Right, quantity},
                                  {"Fiyat", "Fiyat", true, Align::Right, price},
                                  {"Tutar", "Tutar", true, Align::Right, price},
                                  {"Tahsilat", "Tahsilat", true, Align::Right, price},
                                  {"Olay", "Durum"}});
  screen_.HareketGrid.SetSource(&cursors_.HareketData);
  // They stand in a sale alone.
  screen_.StokGrid.SetVisible(false);
  screen_.HareketGrid.SetVisible(false);
}

}  // namespace karvel
