#include "desk/start_up.h"

#include <fmt/format.h>

#include "desk/list_columns.h"
#include "desk/sources.h"
#include "desk/steps.h"
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
    : parts_(parts), customers_(customers), options_(options), prices_(prices), windowRule_(windowRule) {}

bool StartUp::Load() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (!world.shell.ClaimOnlyCopy(settings.Title())) return false;                                 // 1.
  world.window.RestoreFitting(kFitting);                                                          // 2.
  world.shell.MakeShortcut(settings.Title());                                                     // 3.
  screen.Label1(1).SetCaption(settings.Get(Setting::SearchCaption));                              // 4.
  FixTerminal();                                                                                  // 5.
  ReadCompanyFiles();                                                                             // 6.
  FixDataFolder();                                                                                // 7.
  if (const Status made = world.files.MakeFolder(form.DataDir); !made.Ok()) return Refuse(made);  // 8.
  if (!CopyTemplates() || !OpenStores()) return false;                                            // 9.
  KeepTerminalGroup();                                                                            // 10.
  FillStockGroups();                                                                              // 11.
  form.CustomerGroup = settings.Get(Setting::CustomerGroup);                                      // 12.
  form.StockGroup = settings.Get(Setting::StockGroup);
  SetSources();
  RefreshAll();                                        // 13.
  screen.DTPicker1.SetDate(world.clock.Now().Date());  // 14.
  ReadFormats();
  form.Sabit = settings.GetBoolean(Setting::WindowFixed);
  return true;
}

void StartUp::FixTerminal() {
  auto& [screen, form, cursors, settings, world] = parts_;
  form.TerminalNo = TerminalNo(settings.Title());
  const std::string number = TerminalNumber(form.TerminalNo);
  settings.Save(Setting::TerminalNumber, number);
  screen.Form1.SetCaption(" Velmora  " + number + ".Karvel Programı        Tarih > " + Format(world.clock.Now(), "dd mmmm yyyy dddd"));
  world.window.SetTitle(screen.Form1.Caption());
}

void StartUp::ReadCompanyFiles() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const CompanyFile company = ReadOrMakeCompanyFile(world.files);
  step("company file", company.status);
  form.CompanyLines = company.lines;
  if (company.made) settings.Save(Setting::DataPlace, "C:\\KarvelData\\");
  const SerialEntryFile serial = ReadOrMakeSerialEntryFile(world.files);
  step("serial entry file", serial.status);
  form.SerialEntryOn = serial.on;
}

void StartUp::FixDataFolder() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string online = settings.Get(Setting::Online);
  form.DataDir = "C:\\KarvelData\\";
  if (!settings.Get(Setting::FtpUrl).empty()) {
    screen.FtpVar.SetChecked(true);
  } else if (!online.empty()) {
    // With a share the terminal works directly on the main machine's files.
    screen.OnLine.SetChecked(true);
    form.DataDir = "\\\\" + online + "\\MuhasebeData\\" + settings.Get(Setting::Company) + "\\";
  }
}

bool StartUp::CopyTemplates() {
  auto& [screen, form, cursors, settings, world] = parts_;
  CSHFileOp copy(world.files);
  for (const DatabaseFile& file : Catalogue::Files().first(kTemplates)) {
    const std::string target = form.DataDir + std::string(file.name);
    if (world.files.Exists(target)) continue;
    copy.ClearSourceFiles();
    copy.ClearDestFiles();
    copy.AddSourceFile(world.files.ProgramFolder() + "/" + std::string(file.name));
    copy.AddDestFile(target);
    if (const auto copied = copy.CopyFiles(); !copied) return Refuse(copied.error().status);
  }
  return true;
}

bool StartUp::OpenStores() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const Status opened = world.stores.Open(world.files.RealPath(form.DataDir));
  return opened.Ok() || Refuse(opened);
}

bool StartUp::Refuse(const Status& status) {
  step("open", status);
  parts_.world.messages.MessageBox(ClerkMessage(status), "Program Açılamadı", MessageIcon::Stop, MessageButtons::Ok);
  return false;
}

void StartUp::KeepTerminalGroup() {
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& groups = cursors.HareketData;
  form.RepositionGuard = 100;
  groups.SetDatabaseName(form.DataDir + "Stok.Mdb");
  step("terminal groups", groups.Open("Gurup"));
  {
    // Looked for under the lock: terminals that start together add it once.
    Action action(world.stores, "KeepTerminalGroup");
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
  auto& [screen, form, cursors, settings, world] = parts_;
  Cursor& groups = cursors.GurupData;
  groups.SetDatabaseName(form.DataDir + "Stok.Mdb");
  step("stock groups", groups.Open(sources::kGroups));
  std::vector<std::string> items{std::string(" ") + sources::kAllGroups};
  for (; groups.HasCurrent(); step("next group", groups.MoveNext())) items.push_back(groups.Text("Gurup"));
  screen.GrpCombo.SetItems(std::move(items));
}

void StartUp::SetSources() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const auto set = [&dir = form.DataDir](Cursor& cursor, const char* file, const std::string& source) {
    cursor.SetDatabaseName(dir + file);
    cursor.SetRecordSource(source);
  };
  const bool all = form.CustomerGroup.empty() || form.CustomerGroup == sources::kAllGroups;
  set(cursors.GurupData, "Cari.Mdb", sources::kGroups);
  set(cursors.CariData, "Cari.Mdb", all ? sources::kCustomers : sources::CustomersOfGroup(form.CustomerGroup));
  set(cursors.CariHarData, "Cari.Mdb", "CariHareket");
  set(cursors.OzelFiyat, "Cari.Mdb", "Cari");
  set(cursors.VadeData, "Cari.Mdb", "");
  set(cursors.StokData, "Stok.Mdb", sources::kStock);
  set(cursors.StokHarData, "Stok.Mdb", "StokHareket");
  set(cursors.HareketData, "Karvel.Mdb", "Datam");
  set(cursors.GunData, "Karvel.Mdb", "Datam");
  set(cursors.IndexPrimary, "Index.Mdb", "Tarih");
  set(cursors.IndexSecondary, "Index.Mdb", "Mdbindex");
  set(cursors.SeriNoData, "SeriNo.Mdb", "SeriNo");
  set(cursors.Fatura, "Fatura.Mdb", "Faturalar");
  set(cursors.FatHareket, "Fatura.Mdb", "FatHareket");
  set(cursors.DataMevcut, "Fatura.Mdb", "GirenCikan");
  set(cursors.DataTmp, "Temp.mdb", "Select * From Datam Order By Tarih Asc");
}

void StartUp::RefreshAll() {
  auto& [screen, form, cursors, settings, world] = parts_;
  form.RepositionGuard = 555;
  for (Cursor* const cursor :
       {&cursors.StokData, &cursors.CariData, &cursors.IndexPrimary, &cursors.GunData, &cursors.SeriNoData, &cursors.OzelFiyat,
        &cursors.GurupData, &cursors.Fatura, &cursors.FatHareket, &cursors.DataTmp, &cursors.DataMevcut, &cursors.HareketData,
        &cursors.CariHarData, &cursors.StokHarData, &cursors.IndexSecondary})
    step(cursor->Name(), cursor->Refresh());
}

void StartUp::ReadFormats() {
  parts_.form.QuantityFormat = parts_.settings.Get(Setting::QuantityFormat);
  parts_.form.PriceFormat = parts_.settings.Get(Setting::PriceFormat);
}

void StartUp::Activate() {
  auto& [screen, form, cursors, settings, world] = parts_;
  if (screen.Command3.Visible()) return;
  windowRule_.ApplyFixed();  // 1.
  screen.Label16.SetCaption("Bilgiler Düzenleniyor, Lütfen Bekleyiniz.....");
  screen.Frame5.SetVisible(true);
  screen.Frame5.BringToFront();
  world.loop.Wait(1000);
  options_.Read();                                   // 2., 5.
  if (screen.FtpVar.Checked()) WaitForConnection();  // 4.
  options_.StartScanner();                           // 6.
  ReadFormats();                                     // 7.
  if (settings.Get(Setting::QuantityFormat, "").empty()) {
    form.QuantityFormat = "General Number";
    settings.Save(Setting::QuantityFormat, form.QuantityFormat);
  }
  if (settings.Get(Setting::PriceFormat, "").empty()) {
    form.PriceFormat = "Standard";
    settings.Save(Setting::PriceFormat, form.PriceFormat);
  }
  screen.GrpCombo.Choose(0);                                                                // 8.
  screen.Command3.SetVisible(true);                                                         // 9.
  if (cursors.CariData.HasRows()) screen.Text1(0).SetText(cursors.CariData.Text("Unvan"));  // 10.
  LayOutGrids();                                                                            // 11.
  windowRule_.ApplyFonts();
  form.ActiveCursor = &cursors.CariData;  // 12.
  customers_.FillGroups();
  customers_.ShowGroup(form.CustomerGroup.empty() ? sources::kAllGroups : form.CustomerGroup);
  if (EqualText(screen.GurupCombo.Text(), "Toptan")) {
    // The wholesalers of yesterday are still paid today, not collected from.
    screen.Label1(5).SetCaption(" Ödeme");
    screen.Label1(0).SetCaption(" Toptan");
  }
  prices_.SetFirstPriceColumn();
  opening();
  screen.MnPop(13).SetCaption("Kdv " + settings.Get(Setting::TaxMode));  // 13.
  customers_.KeepWalkIn();                                               // 14.
  screen.Label5.SetColor(color::kWhite);
  if (cursors.CariData.HasCurrent()) {
    // What the screen says beside the row in front is his.
    screen.Label5.SetCaption(PlainNumber(cursors.CariData.Number("Bakiye")));
    screen.Label8.SetCaption(cursors.CariData.Text("CariKod"));
  }
  screen.Vadefrm.SetVisible(false);  // 15.
  screen.Frame5.SetVisible(false);
  screen.CariGrid.SetFocus();
}

void StartUp::WaitForConnection() {
  auto& [screen, form, cursors, settings, world] = parts_;
  while (!world.connection.Up() && !form.Closing) {
    screen.BağlantıFrm.SetVisible(true);
    screen.BağlantıFrm.BringToFront();
    world.loop.Wait(100);
  }
  screen.BağlantıFrm.SetVisible(false);
}

void StartUp::LayOutGrids() {
  auto& [screen, form, cursors, settings, world] = parts_;
  const std::string& price = form.PriceFormat;
  const std::string& quantity = form.QuantityFormat;
  screen.CariGrid.SetColumns(CustomerColumns(form));
  screen.CariGrid.SetSource(&cursors.CariData);
  screen.StokGrid.SetColumns({{"Stok Kodu", "StokKod"},
                              {"Stok Adı", "StokAdi"},
                              {"Maliyet", "gFiyat", true, Align::Right, price},
                              {"1.Fiyat", "Fiyat", true, Align::Right, price},
                              {"2.Fiyat", "Fiyat2", true, Align::Right, price},
                              {"3.Fiyat", "Fiyat3", true, Align::Right, price},
                              {"Kalan", "KalanB", true, Align::Right, quantity},
                              {"Yeri", "Yeri"}});
  screen.StokGrid.SetSource(&cursors.StokData);
  screen.HareketGrid.SetColumns({{"Tarih", "Tarih"},
                                 {"Stok Kodu", "StokKod", false},
                                 {"Stok Adı", "StokAd"},
                                 {"Miktar", "Miktar", true, Align::Right, quantity},
                                 {"Fiyat", "Fiyat", true, Align::Right, price},
                                 {"Tutar", "Tutar", true, Align::Right, price},
                                 {"Tahsilat", "Tahsilat", true, Align::Right, price},
                                 {"Olay", "Durum"}});
  screen.HareketGrid.SetSource(&cursors.HareketData);
  // They stand in a sale alone.
  screen.StokGrid.SetVisible(false);
  screen.HareketGrid.SetVisible(false);
}

}  // namespace karvel
