// The three ways to work, in the options menu: alone, by network on the main machine's stores, or by FTP. At most one is checked; neither
// can be switched in a sale.
#pragma once

#include <string>

#include "desk/parts.h"
#include "exchange/ftp_transfer.h"
#include "platform/signal.h"

namespace karvel {

class Desk;

class NetworkMenu {
 public:
  NetworkMenu(Desk& desk, FtpTransfer& transfer);

 private:
  void SwitchNetwork();
  void SwitchFtp();
  void AskForServer();
  // False where the answers leave nothing to work on.
  bool AskForMainMachine();
  void OpenOwnStores();
  void OpenMainMachine();
  [[nodiscard]] bool MaySwitch();
  [[nodiscard]] std::string Ask(const std::string& what, const std::string& title, const std::string& preset);

  Desk& desk_;
  Screen& screen_;
  Settings& settings_;
  const World& world_;
  FtpTransfer& transfer_;
  Connections connections_;
};

}  // namespace karvel
