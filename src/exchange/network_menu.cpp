#include "exchange/network_menu.h"

#include "desk/captions.h"
#include "desk/desk.h"
#include "desk/quiet_line.h"
#include "platform/ftp.h"
#include "platform/messages.h"
#include "platform/share.h"
#include "store/stores.h"
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
  screen_.OnLine.SetChecked(!screen_.OnLine.Checked());
  screen_.FtpVar.SetChecked(false);
  bool refused = false;
  if (screen_.OnLine.Checked()) {
    settings_.Save(Setting::FtpUrl, "");
    refused = !AskForMainMachine();
    screen_.OnLine.SetChecked(!refused);
  }
  if (screen_.OnLine.Checked()) {
    OpenMainMachine();
  } else {
    settings_.Save(Setting::Online, "");
    OpenOwnStores();
  }
  transfer_.TakeSettings();
  if (refused) Tell(screen_, "Network çalışma açılmadı: ana makinenin adresi ve firma numarası (yalnız harf ve rakam) gerekir");
}

void NetworkMenu::SwitchFtp() {
  if (!MaySwitch()) return;
  const bool wasOnNetwork = IsShare(desk_.form.DataDir);
  screen_.FtpVar.SetChecked(!screen_.FtpVar.Checked());
  screen_.OnLine.SetChecked(false);
  if (screen_.FtpVar.Checked()) {
    settings_.Save(Setting::Online, "");
    AskForServer();
  } else {
    settings_.Save(Setting::FtpUrl, "");
    Tell(screen_, "Ftp çalışma kapatıldı");
  }
  if (wasOnNetwork) OpenOwnStores();
  transfer_.TakeSettings();
}

void NetworkMenu::OpenOwnStores() {
  if (desk_.OpenStoresAnew()) Tell(screen_, "Terminal kendi verisiyle çalışıyor");
}

// Where the machine can't be reached the clerk is told on the way, and the desk goes on looking for it.
void NetworkMenu::OpenMainMachine() {
  if (!desk_.OpenStoresAnew() || !world_.stores.IsOpen()) return;
  const std::string firm = settings_.Get(Setting::Company);
  // A number that was mistyped begins an empty firm: he sees why nothing is in it.
  Tell(screen_, world_.stores.Driver().BegunAnew() ? "Yeni firma açıldı: " + firm
                                                   : "Network çalışma açıldı: " + settings_.Get(Setting::Online) + ", firma " + firm);
}

bool NetworkMenu::AskForMainMachine() {
  const std::string address =
      TidyAddress(world_.messages.InputBox("Lütfen Ana Makina Ip Girin", "Ana Makina Ip'si", "127.0.0.1").value_or(""));
  settings_.Save(Setting::Online, address);
  if (MainMachines(address).empty()) return false;
  const std::string firm = Trim(world_.messages.InputBox("Lütfen Firma No Girin", "Firma Numarası", "01").value_or(""));
  if (!IsFirmNumber(firm)) return false;
  settings_.Save(Setting::Company, firm);
  return true;
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
  const std::string shown = WithoutPassword(server);
  Tell(screen_, ReadFtpAddress(server) ? "Ftp çalışma açıldı: " + shown : "Ftp sunucu adı anlaşılamadı, adı denetleyin: " + shown);
}

}  // namespace karvel
