#include "exchange/network_menu.h"

#include "desk/captions.h"
#include "desk/desk.h"
#include "desk/quiet_line.h"
#include "platform/ftp.h"
#include "platform/messages.h"
#include "text/turkish.h"

namespace karvel {

NetworkMenu::NetworkMenu(Desk& desk, FtpTransfer& transfer)
    : desk_(desk), screen_(desk.screen), settings_(desk.Parts().settings), world_(desk.Parts().world), transfer_(transfer) {
  connections_ += screen_.OnLine.click.Connect([this] { SwitchNetwork(); });
  connections_ += screen_.FtpVar.click.Connect([this] { SwitchFtp(); });
}

bool NetworkMenu::MaySwitch() {
  if (AtRest(screen_)) return true;
  Tell(screen_, "Çalışma şekli satışta değişmez: önce müşteri listesine dönün");
  return false;
}

void NetworkMenu::SwitchNetwork() {
  if (!MaySwitch()) return;
  if (screen_.OnLine.Checked()) {
    settings_.Save(Setting::Online, "");
    OpenOwnStores();
  } else {
    Tell(screen_, "Network çalışma bu sürümde açılamaz: terminal kendi verisiyle çalışır");
  }
}

void NetworkMenu::SwitchFtp() {
  if (!MaySwitch()) return;
  const bool wasOnNetwork = screen_.OnLine.Checked();
  screen_.FtpVar.SetChecked(!screen_.FtpVar.Checked());
  if (screen_.FtpVar.Checked()) {
    settings_.Save(Setting::Online, "");
    AskForServer();
  } else {
    settings_.Save(Setting::FtpUrl, "");
  }
  transfer_.TakeSettings();
  if (wasOnNetwork) OpenOwnStores();
}

void NetworkMenu::OpenOwnStores() {
  if (desk_.OpenStoresAnew()) Tell(screen_, "Terminal kendi verisiyle çalışıyor");
}

std::string NetworkMenu::Ask(const std::string& what, const std::string& title, const std::string& preset) {
  return world_.messages.InputBox("Lütfen " + what + " Girin", title, preset).value_or("");
}

void NetworkMenu::AskForServer() {
  const std::string server = Ask("Ftp Sunucu Adı", "Ftp Sunucu", "ftp...com");
  const std::string user = Ask("Ftp Kullanıcı Adı", "Ftp Kullanıcı Adı", "");
  const std::string password = Ask("Ftp Kullanıcı Şifresi", "Ftp Kullanıcı Şifresi", "");
  const std::string folder = ReplaceAll(Ask("Ftp Klasör Adı", "FtpKlasör Adı", ""), "/", "") + "/";
  if (server.empty() || user.empty() || password.empty()) {
    screen_.FtpVar.SetChecked(false);
    settings_.Save(Setting::FtpUrl, "");
    Tell(screen_, "Ftp çalışma açılmadı: sunucu, kullanıcı adı ve şifre gerekir");
    return;
  }
  settings_.Save(Setting::FtpUrl, server);
  settings_.Save(Setting::FtpUser, user);
  settings_.Save(Setting::FtpPassword, password);
  settings_.Save(Setting::FtpFolder, folder);
  Tell(screen_, ReadFtpAddress(server) ? "Ftp çalışma açıldı: " + server : "Ftp sunucu adı anlaşılamadı, adı denetleyin: " + server);
}

}  // namespace karvel
