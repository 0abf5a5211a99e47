#include "exchange/ftp_transfer.h"

#include <fmt/format.h>

#include "books/steps.h"
#include "desk/quiet_line.h"
#include "platform/connection.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/log.h"
#include "platform/messages.h"
#include "platform/share.h"
#include "text/turkish.h"

namespace karvel {
namespace {

const Steps step("FtpGönder");
constexpr int kLookMilliseconds = 100;
constexpr std::int64_t kTellEveryPercent = 10;

// Where the session itself failed the next command would only wait for the same once more.
bool IsHopeless(FtpFault fault) {
  switch (fault) {
    case FtpFault::Address:
    case FtpFault::Unreachable:
    case FtpFault::Login:
    case FtpFault::Encryption:
    case FtpFault::Silent:
    case FtpFault::Stopped:
      return true;
    default:
      return false;
  }
}

std::string ReasonOf(FtpFault fault) {
  switch (fault) {
    case FtpFault::Address:
      return "FTP sunucu adı anlaşılamadı, adı denetleyin";
    case FtpFault::Unreachable:
      return "sunucuya ulaşılamadı, adını ve bağlantıyı denetleyin";
    case FtpFault::Login:
      return "sunucu kullanıcı adını veya şifreyi kabul etmedi";
    case FtpFault::Encryption:
      return "sunucuyla güvenli bağlantı kurulamadı";
    case FtpFault::Folder:
      return "sunucuda klasör yok";
    case FtpFault::Refused:
      return "sunucu dosyayı almadı";
    case FtpFault::NoRoom:
      return "sunucuda yer kalmamış";
    case FtpFault::Silent:
      return "sunucu yanıt vermiyor";
    case FtpFault::Broken:
      return "bağlantı koptu";
    case FtpFault::File:
      return "dosya okunamadı";
    default:
      return "gönderilemedi";
  }
}

std::string ReasonOf(const FtpFailure& failure) {
  return ReasonOf(failure.fault) + (failure.reply.empty() ? "" : " (" + failure.reply + ")");
}

}  // namespace

FtpTransfer::FtpTransfer(const DeskParts& parts)
    : screen_(parts.screen), form_(parts.form), settings_(parts.settings), world_(parts.world) {
  connections_ += world_.ftp.stateChanged.Connect([this](FtpState state) { FtpBekle(state); });
  connections_ += world_.ftp.progressed.Connect([this](const FtpProgress& progress) { ShowProgress(progress); });
}

void FtpTransfer::TakeSettings() {
  FtpAccount account;
  form_.FtpKlasör.clear();
  if (screen_.FtpVar.Checked()) {
    const std::string certificate = settings_.Get(Setting::FtpCertificate);
    account = {.url = settings_.Get(Setting::FtpUrl),
               .user = settings_.Get(Setting::FtpUser),
               .password = settings_.Get(Setting::FtpPassword),
               .certificate = certificate.empty() ? "" : world_.files.RealPath(certificate)};
    form_.FtpKlasör = settings_.Get(Setting::FtpFolder);
  }
  world_.ftp.SetAccount(account);
  if (IsShare(form_.DataDir)) return;  // the main machine is watched
  std::vector<ServerPlace> servers;
  if (const auto address = ReadFtpAddress(account.url)) servers.push_back({address->host, address->PortToReach()});
  world_.connection.WatchServers(servers);
}

bool FtpTransfer::BağlantıVar() const {
  return world_.connection.Up();
}

void FtpTransfer::FtpGönder() {
  if (world_.ftp.Account().url.empty()) return;
  waiting_.push_back(form_.LastStokSearch);
  if (waiting_.size() == 1) Begin();
}

void FtpTransfer::FileLaid(const std::string& name) {
  if (step_ != Step::None && EqualText(name, name_)) renewed_ = true;
}

void FtpTransfer::Begin() {
  if (world_.ftp.Account().url.empty()) {
    waiting_.clear();  // switched off meanwhile
    return;
  }
  name_ = waiting_.front();
  if (BağlantıVar()) {
    Send();
  } else {
    AwaitConnection();
  }
}

void FtpTransfer::AwaitConnection() {
  screen_.BağlantıFrm.SetVisible(true);
  screen_.BağlantıFrm.BringToFront();
  screen_.Form1.SetEnabled(false);
  timer_ = world_.loop.Every(kLookMilliseconds, [this] { LookForConnection(); });
}

void FtpTransfer::LookForConnection() {
  if (!form_.Closing && !BağlantıVar()) return;
  const auto keep = std::move(timer_);  // runs this
  screen_.BağlantıFrm.SetVisible(false);
  screen_.Form1.SetEnabled(true);
  if (!form_.Closing) Send();
}

void FtpTransfer::Send() {
  screen_.VzgCmd.SetVisible(false);
  renewed_ = false;
  toldPercent_ = 0;
  if (!IsPlainName(name_) || !world_.files.Exists(File()) || world_.files.IsFolder(File())) {
    Fail("son aranan ad C: sürücüsünde bir dosya değil");
    return;
  }
  Tell(screen_, "Merkeze gönderiliyor: " + name_);
  Run(Step::List);
}

void FtpTransfer::Run(Step next) {
  step_ = next;
  switch (next) {
    case Step::List:
      return world_.ftp.Execute("DIR");
    case Step::Folder:
      return world_.ftp.Execute("CD inetpub/" + form_.FtpKlasör);
    case Step::Put:
      return world_.ftp.Execute("PUT \"" + File() + "\" " + name_);
    case Step::None:
      return;
  }
}

// A command is over, and the next one begins. A listing that is refused keeps no file from going; a folder that isn't there does, for it
// would land elsewhere.
void FtpTransfer::FtpBekle(FtpState state) {
  form_.InetDurum = static_cast<float>(state);
  if (state == FtpState::Requesting) return;
  const bool done = state == FtpState::Completed;
  const FtpFailure failure = done ? FtpFailure() : world_.ftp.Failure();
  if (step_ == Step::List && (done || !IsHopeless(failure.fault))) {
    Run(Step::Folder);
  } else if (step_ == Step::Folder && done) {
    Run(Step::Put);
  } else if (step_ == Step::Put && done) {
    Sent();
  } else if (step_ != Step::None) {
    Fail(ReasonOf(failure));
  }
}

void FtpTransfer::ShowProgress(const FtpProgress& progress) {
  if (step_ != Step::Put || progress.total <= 0) return;
  const std::int64_t percent = 100 * progress.sent / progress.total;
  if (percent < toldPercent_ + kTellEveryPercent || percent >= 100) return;
  toldPercent_ = percent;
  Tell(screen_, fmt::format("Merkeze gönderiliyor: {} %{}", name_, percent));
}

void FtpTransfer::Sent() {
  Tell(screen_, "Merkeze gönderildi: " + name_);
  if (!renewed_) step("delete what was sent", world_.files.Delete(File()));
  End();
}

void FtpTransfer::Fail(const std::string& reason) {
  Log("ftp: " + name_ + " was not sent: " + reason);
  Tell(screen_, "Veri gitmedi: " + (name_.empty() ? "" : name_ + ": ") + reason);
  End();
  world_.loop.Later([this] { TellFailed(); });
}

// The box waits until whatever the clerk is confirming has been written.
void FtpTransfer::TellFailed() {
  if (form_.Closing) return;
  if (world_.stores.InAction()) {
    world_.loop.Later([this] { TellFailed(); });
    return;
  }
  world_.messages.MessageBox("Veri Gitmedi", "Ftp Çalışma", MessageIcon::Exclamation, MessageButtons::Ok);
}

void FtpTransfer::End() {
  step_ = Step::None;
  screen_.VzgCmd.SetVisible(true);
  waiting_.pop_front();
  if (!waiting_.empty()) world_.loop.Later([this] { Begin(); });
}

}  // namespace karvel
