#include "exchange/backup.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "books/steps.h"
#include "desk/quiet_line.h"
#include "exchange/backup_archive.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "platform/scanner.h"
#include "platform/window.h"
#include "settings/terminal.h"
#include "store/stores.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("Backup");
constexpr const char* kWaiting = "Yedekleniyor.";
constexpr const char* kOwnDrive = "C:";

std::string DriveOf(const std::string& entry) {
  return LeftLetters(entry, 2);
}

std::string ReasonOfData(ErrorKind kind) {
  if (kind == ErrorKind::Damaged) return "Yedek alınamadı: bir veri dosyası bozuk. Yeni kayıt yapmayın; destek isteyin.";
  return "Yedek alınamadı: bir veri dosyası okunamadı. Yeniden deneyin; yinelenirse destek isteyin.";
}

std::string ReasonOf(const Status& status) {
  switch (status.Kind()) {
    case ErrorKind::DiskFull:
      return "Yedek alınamadı: sürücüde yeterli yer yok. Yer açın veya başka bir sürücü seçip yeniden deneyin.";
    case ErrorKind::NoRights:
      return "Yedek alınamadı: sürücüye yazılamıyor. Yazma korumasını kaldırın veya başka bir sürücü seçip yeniden deneyin.";
    case ErrorKind::Missing:
      return "Yedek alınamadı: sürücü veya klasör bulunamadı. Sürücünün takılı olduğuna bakıp yeniden deneyin.";
    case ErrorKind::DiskFailed:
      return "Yedek alınamadı: sürücü yanıt vermiyor veya çıkarılmış. Takıp yeniden deneyin; yinelenirse başka bir sürücü seçin.";
    case ErrorKind::Busy:
      return "Yedek alınamadı: başka bir terminal yedek alıyor ya da dosyaları kullanıyor. Biraz bekleyip yeniden deneyin.";
    case ErrorKind::Unreachable:
      return "Yedek alınamadı: ana makineye ulaşılamıyor. Bağlantı gelince yeniden deneyin.";
    case ErrorKind::Damaged:
      return "Yedek alınamadı: yazılan dosya geri okunduğunda bozuk çıktı. Başka bir sürücü seçip yeniden deneyin.";
    default:
      return "Yedek alınamadı: beklenmeyen bir hata oldu. Yeniden deneyin; yinelenirse destek isteyin.";
  }
}

// The desk as it is while a backup runs: closed to the clerk, who sees why.
class ClosedDesk {
 public:
  ClosedDesk(Screen& screen, FormState& form, const World& world)
      : screen_(screen),
        form_(form),
        world_(world),
        busy_(screen.Busy()),
        open_(screen.Form1.Enabled()),
        shown_(screen.Frame5.Visible()),
        scanner_(world.scanner.Enabled()),
        caption_(screen.Label16.Caption()) {
    form_.BackupRuns = true;
    screen_.SetBusy(true);
    screen_.Form1.SetEnabled(false);
    world_.scanner.SetEnabled(false);
    screen_.Label16.SetCaption(kWaiting);
    screen_.Frame5.SetVisible(true);
    screen_.Frame5.BringToFront();
  }
  ~ClosedDesk() {
    screen_.Frame5.SetVisible(shown_);
    screen_.Label16.SetCaption(caption_);
    if (scanner_) world_.loop.Later([&scanner = world_.scanner] { scanner.SetEnabled(true); });
    screen_.Form1.SetEnabled(open_);
    screen_.SetBusy(busy_);
    form_.BackupRuns = false;
    if (std::exchange(form_.CloseWaits, false)) world_.loop.Later([&window = world_.window] { window.Close(); });
  }
  ClosedDesk(const ClosedDesk&) = delete;
  ClosedDesk& operator=(const ClosedDesk&) = delete;

 private:
  Screen& screen_;
  FormState& form_;
  const World& world_;
  const bool busy_, open_, shown_, scanner_;
  const std::string caption_;
};

}  // namespace

Backup::Backup(const DeskParts& parts, Signal<>& upkeep, Signal<>& closing)
    : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world) {
  connections_ += screen_.Yedek.click.Connect([this] { Offer(); });
  connections_ += screen_.Command10(0).click.Connect([this] { screen_.Frame1.SetVisible(false); });
  connections_ += screen_.Command10(1).click.Connect([this] { RunByHand(); });
  connections_ += upkeep.Connect([this] { SweepBackup(world_.files, TerminalNumber(form_.TerminalNo)); });
  connections_ += closing.Connect([this] { RunAtClosing(); });
}

// A drive that was chosen before and isn't there now gives way to C:, before the clerk's eyes.
void Backup::Offer() {
  const std::vector<std::string> drives = world_.files.Drives();
  const std::string kept = DriveOf(settings_.Get(Setting::BackupDrive));
  const auto found = std::ranges::find_if(drives, [&](const std::string& drive) { return EqualText(DriveOf(drive), kept); });
  screen_.Drive1.SetItems(drives);
  screen_.Drive1.Choose(found == drives.end() ? 0 : static_cast<int>(found - drives.begin()));
  if (!kept.empty() && found == drives.end()) Tell(screen_, kept + " sürücüsü takılı değil, yedek C: sürücüsüne alınacak");
  screen_.Frame1.SetVisible(true);
  screen_.Frame1.BringToFront();
}

void Backup::RunByHand() {
  screen_.Frame1.SetVisible(false);
  const std::string drive = DriveOf(screen_.Drive1.Text());
  settings_.Save(Setting::BackupDrive, drive + "\\");
  if (const Status done = Run(drive); !done.Ok()) return TellFailure(done);
  world_.messages.MessageBox("Yedeklendi.", "Yedekle", MessageIcon::Information, MessageButtons::Ok);
}

void Backup::RunAtClosing() {
  if (!world_.stores.IsOpen()) return;
  if (const Status done = Run(kOwnDrive); !done.Ok()) TellFailure(done);
}

Status Backup::Run(const std::string& drive) {
  const ClosedDesk closed(screen_, form_, world_);
  const BackupOrder order{drive, form_.DataDir, TerminalNumber(form_.TerminalNo), world_.clock.Now()};
  Status done = MakeBackup(world_, order, [this](int percent) { ShowProgress(percent); });
  step("backup on " + drive, done);
  Tell(screen_, done.Ok() ? "Yedek alındı: " + BackupPath(order) : "Yedek alınamadı: " + Offered(drive));
  return done;
}

// A drive with what the disk is called, as the list of drives has it.
std::string Backup::Offered(const std::string& drive) const {
  const std::vector<std::string> drives = world_.files.Drives();
  const auto found = std::ranges::find_if(drives, [&](const std::string& entry) { return EqualText(DriveOf(entry), drive); });
  return found == drives.end() ? drive : *found;
}

void Backup::ShowProgress(int percent) {
  screen_.Label16.SetCaption(fmt::format("{} %{}", kWaiting, percent));
  world_.loop.RunPending();
}

std::string Backup::FailureText(const Status& status, const std::string& consequence) const {
  const bool data = status.Place().starts_with(form_.DataDir) && status.Kind() != ErrorKind::Busy && status.Kind() != ErrorKind::DiskFull;
  return (data ? ReasonOfData(status.Kind()) : ReasonOf(status)) + " " + consequence +
         (status.Place().empty() ? "" : "\n\nYer: " + status.Place());
}

void Backup::TellFailure(const Status& status) {
  world_.messages.MessageBox(FailureText(status, "Eski yedeklere dokunulmadı."), "Yedekle", MessageIcon::Exclamation, MessageButtons::Ok);
}

}  // namespace karvel
