#include "desk/start_up.h"

#include <fmt/format.h>

#include "books/book_cursor.h"
#include "books/running_numbers.h"
#include "books/sources.h"
#include "books/steps.h"
#include "books/terminal_group.h"
#include "books/walk_in_customer.h"
#include "desk/captions.h"
#include "desk/group_names.h"
#include "desk/list_columns.h"
#include "desk/quiet_line.h"
#include "desk/template_copying.h"
#include "platform/clerk_message.h"
#include "platform/clock.h"
#include "platform/connection.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "platform/share.h"
#include "platform/shell.h"
#include "platform/window.h"
#include "settings/company_file.h"
#include "settings/serial_entry_file.h"
#include "settings/terminal.h"
#include "text/format.h"
#include "text/turkish.h"

namespace karvel {
namespace {
constexpr const char* kFitting = "VelmoraKrv";
const Steps step("StartUp");
}  // namespace

StartUp::StartUp(const DeskParts& parts, const Features& features)
    : shop_(parts.shop),
      screen_(parts.screen),
      form_(parts.form),
      cursors_(parts.cursors),
      settings_(parts.settings),
      world_(parts.world),
      features_(features) {
  connections_ += world_.stores.serverLost.Connect([this] { incomplete_ = incomplete_ || filling_; });
  connections_ += world_.stores.serverFound.Connect([this] { Complete(); });
}

bool StartUp::Load() {
  if (!IsOnlyCopy() || !ReadySettings()) return false;
  world_.window.RestoreFitting(kFitting);
  world_.shell.MakeShortcut(settings_.Title());
  screen_.Label1(1).SetCaption(settings_.Get(Setting::SearchCaption));
  FixTerminal();
  ReadCompanyFiles();
  if (!OpenData()) return false;
  screen_.DTPicker1.SetDate(world_.clock.Now().Date());
  ReadFormats();
  form_.Sabit = settings_.GetBoolean(Setting::WindowFixed);
  return true;
}

bool StartUp::OpenData() {
  FixDataFolder();
  placeChosen();
  if (!LayFiles() || !OpenStores()) return false;
  ReadData();
  return true;
}

void StartUp::ReadData() {
  step("terminal group", KeepTerminalGroup(shop_));
  FillStockGroups();
  form_.CustomerGroup = KeptGroup(Setting::CustomerGroup, "Cari.Mdb");
  form_.StockGroup = KeptGroup(Setting::StockGroup, "Stok.Mdb");
  SetSources();
  RefreshAll();
}

bool StartUp::OpenAnew() {
  filling_ = OpenData();
  if (!filling_) return false;
  ShowData();
  return true;
}

void StartUp::ShowData() {
  screen_.GrpCombo.Choose(0);
  form_.ActiveCursor = &cursors_.CariData;
  ShowGroups();
  FillLists();
  filling_ = false;
  Complete();
}

// In a sale the customer stays who he is.
void StartUp::Complete() {
  if (!incomplete_ || filling_ || world_.stores.IsServerAway() || !AtRest(screen_)) return;
  incomplete_ = false;
  filling_ = true;
  ReadData();
  ShowData();
}

bool StartUp::IsOnlyCopy() {
  const auto claim = world_.shell.ClaimOnlyCopy(settings_.Title());
  if (!claim) return Refuse("Bu terminalin kilidi kurulamadı. ", claim.error());
  if (*claim == Claim::Taken) return false;
  connections_ += world_.shell.startedAgain.Connect([this] { world_.window.Raise(); });
  return true;
}

bool StartUp::ReadySettings() {
  const auto ready = world_.settings.MakeReady();
  if (!ready) return Refuse("Ayar dosyası okunamadı ve kenara kaldırılamadı. ", ready.error());
  if (ready->empty()) return true;
  // Without its options the desk may even look for its data elsewhere: the clerk has to know before he sells.
  const Status lost = Status(ErrorKind::Damaged, "settings can't be read; kept as " + *ready).At(*ready);
  step("settings", lost);
  const std::string text =
      "Ayar dosyası okunamadı. Eskisi kenara kaldırıldı, yeni ayarlarla başlanıyor: seçenekleri, ana makineyi ve FTP bilgilerini "
      "denetleyin. Fiş numarası gün defterindeki en büyük numaradan devam eder.";
  world_.messages.MessageBox(WithPlace(text, lost), "Ayarlar Okunamadı", MessageIcon::Exclamation, MessageButtons::Ok);
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
  const bool byFtp = !settings_.Get(Setting::FtpUrl).empty();
  screen_.FtpVar.SetChecked(byFtp);
  screen_.OnLine.SetChecked(!byFtp && !online.empty());
  form_.DataDir = "C:\\KarvelData\\";
  // With a share the terminal works directly on the main machine's stores.
  if (screen_.OnLine.Checked()) form_.DataDir = ShareFolder(online, settings_.Get(Setting::Company));
  if (!byFtp) world_.connection.WatchServers(MainMachines(online));
}

// The stores of a share are the server's, which makes what is missing. Its layouts lie here.
bool StartUp::LayFiles() {
  const bool onShare = IsShare(form_.DataDir);
  const std::string left = onShare ? "" : LeftBesideMissing(world_.files, form_.DataDir);
  if (!left.empty() && !MayBeginAnew(left)) return false;
  if (const Status made = world_.files.MakeFolder(form_.DataDir); !made.Ok()) return Refuse("Veri klasörü açılamadı. ", made);
  return onShare || CopyTemplates();
}

// Nothing of it comes back by itself, so only a plain Yes goes on.
bool StartUp::MayBeginEmpty(const std::string& missing) {
  const std::string text =
      missing +
      " bulunamadı, ama öteki dosyalarda kayıt var: veri eksik. Diskin takılı olduğunu denetleyin veya dosyayı yedekten "
      "geri koyun.\n\nYine de boş dosyayla başlansın mı?";
  const Status lost = Status(ErrorKind::Missing, missing + ": missing beside files with rows").At(world_.files.RealPath(form_.DataDir));
  step("open", lost);
  return world_.messages.MessageBox(WithPlace(text, lost), "Veri Dosyası Yok", MessageIcon::Exclamation, MessageButtons::YesNo) ==
         MessageAnswer::Yes;
}

// A restore that was cut off, or a folder that was moved away by hand.
bool StartUp::MayBeginAnew(const std::string& left) {
  const std::string text = "Veri klasörü yok veya boş, ama yanında şunlar duruyor: " + left +
                           ". Geri koyma yarıda kalmış olabilir. Yedeği yeniden geri koyun, ya da adında .eski geçen klasörün adını "
                           "KarvelData yapın.\n\nYine de boş dosyalarla başlansın mı?";
  const Status lost = Status(ErrorKind::Missing, "no data folder, but " + left).At(world_.files.RealPath(form_.DataDir));
  step("open", lost);
  return world_.messages.MessageBox(WithPlace(text, lost), "Veri Klasörü Yok", MessageIcon::Exclamation, MessageButtons::YesNo) ==
         MessageAnswer::Yes;
}

bool StartUp::CopyTemplates() {
  if (const std::string missing = MissingBesideRows(world_.files, form_.DataDir); !missing.empty() && !MayBeginEmpty(missing)) return false;
  const Status copied = CopyMissingTemplates(world_.files, form_.DataDir);
  return copied.Ok() || Refuse("Boş veri dosyası kopyalanamadı. ", copied);
}

bool StartUp::OpenStores() {
  const bool onShare = IsShare(form_.DataDir);
  const Status opened = world_.stores.Open(onShare ? form_.DataDir : world_.files.RealPath(form_.DataDir));
  if (!opened.Ok() && onShare) {
    TellShut(opened);
    return true;
  }
  if (!opened.Ok()) return Refuse("Veri dosyası açılamadı. ", opened);
  const Status ahead = KeepCounterAhead(shop_);
  if (ahead.Ok()) return true;
  step("line numbers", ahead);
  // A folder that can't be written gives no numbers either. A server that went meanwhile is looked for.
  return onShare || ahead.Kind() == ErrorKind::NoRights || Refuse("Satır numaraları denetlenemedi. ", ahead);
}

void StartUp::TellShut(const Status& opened) {
  step("open", opened);
  Tell(screen_, OpeningMessage(opened.About(Subject::Server)));
  world_.messages.MessageBox(WithPlace(OpeningMessage(opened.About(Subject::Server)), opened.At(form_.DataDir)), "Ana Makine",
                             MessageIcon::Exclamation, MessageButtons::Ok);
}

bool StartUp::Refuse(const std::string& what, const Status& status) {
  step("open", status);
  world_.messages.MessageBox(WithPlace(what + OpeningMessage(status), status), "Program Açılamadı", MessageIcon::Stop, MessageButtons::Ok);
  return false;
}

void StartUp::FillStockGroups() {
  Cursor& groups = cursors_.GurupData;
  groups.SetDatabaseName(PathIn(form_.DataDir, "Stok.Mdb"));
  step("stock groups", groups.Open(sources::kGroups));
  std::vector<std::string> names;
  step("stock group names", ReadGroupNames(groups, names));
  names.insert(names.begin(), std::string(" ") + sources::kAllGroups);
  screen_.GrpCombo.SetItems(std::move(names));
}

// The group of yesterday's list; where it is gone since, every group is shown.
std::string StartUp::KeptGroup(Setting setting, const char* file) {
  const std::string group = settings_.Get(setting);
  if (group.empty()) return group;
  BookCursor groups(world_.stores, "kept group", file, sources::kGroups);
  const bool gone = groups.FindFirst("Gurup=" + sources::Quoted(group)).Kind() == ErrorKind::NoRecord;
  return gone ? sources::kAllGroups : group;
}

void StartUp::SetSources() {
  const auto set = [&dir = form_.DataDir](Cursor& cursor, const char* file, const std::string& source) {
    cursor.SetDatabaseName(PathIn(dir, file));
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
  opening_.emplace(form_.RepositionGuard, Mute::Customers);
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
  features_.window.Apply();
  screen_.Label16.SetCaption("Bilgiler Düzenleniyor, Lütfen Bekleyiniz.....");
  screen_.Frame5.SetVisible(true);
  screen_.Frame5.BringToFront();
  world_.loop.Wait(1000);
  features_.options.Read();
  features_.stockFrame.ReadPlace();
  upkeep();
  if (screen_.FtpVar.Checked()) WaitForConnection();
  features_.options.StartScanner();
  ReadFormats();
  if (settings_.Get(Setting::QuantityFormat, "").empty()) {
    form_.QuantityFormat = "General Number";
    settings_.Save(Setting::QuantityFormat, form_.QuantityFormat);
  }
  if (settings_.Get(Setting::PriceFormat, "").empty()) {
    form_.PriceFormat = "Standard";
    settings_.Save(Setting::PriceFormat, form_.PriceFormat);
  }
  screen_.GrpCombo.Choose(0);
  screen_.Command3.SetVisible(true);
  if (cursors_.CariData.HasRows()) screen_.Text1(0).SetText(cursors_.CariData.Text("Unvan"));
  LayOutLists(screen_, form_, cursors_);
  features_.font.Apply();
  screen_.MnPop(13).SetCaption("Kdv " + settings_.Get(Setting::TaxMode));
  form_.ActiveCursor = &cursors_.CariData;
  ShowGroups();
  opening();
  FillLists();
  screen_.Vadefrm.SetVisible(false);
  screen_.Frame5.SetVisible(false);
  screen_.CariGrid.SetFocus();
  filling_ = false;
  Complete();
}

void StartUp::FillLists() {
  step("walk-in customer", KeepWalkInCustomer(shop_));
  features_.customer.RefreshList();
  opening_.reset();
  ShowCustomerInFront();
}

void StartUp::ShowGroups() {
  features_.groups.Fill();
  features_.groups.Show(form_.CustomerGroup.empty() ? sources::kAllGroups : form_.CustomerGroup);
  if (EqualText(screen_.GurupCombo.Text(), "Toptan")) {
    // Yesterday's list of wholesalers still pays out today; nothing is collected from them.
    screen_.Label1(5).SetCaption(caption::kPayment);
    screen_.Label1(0).SetCaption(caption::kWholesale);
  }
  features_.prices.SetFirstPriceColumn();
}

// What stands beside the list belongs to the customer in front, who can be served at once: in a new shop he is the walk-in customer.
void StartUp::ShowCustomerInFront() {
  features_.balance.ColorForRest();
  if (features_.customer.IsThere()) features_.customer.Follow();
  features_.button.FollowAmounts();
}

void StartUp::WaitForConnection() {
  while (!world_.connection.Up() && !form_.Closing) {
    screen_.BağlantıFrm.SetVisible(true);
    screen_.BağlantıFrm.BringToFront();
    world_.loop.Wait(100);
  }
  screen_.BağlantıFrm.SetVisible(false);
}

}  // namespace karvel
