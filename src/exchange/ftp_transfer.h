// Takes files of the root of C: to the central site, one after the other, while the desk goes on.
//
// What stays true:
// - FtpGönder sends the file that bears the name of the clerk's last search. A name that is no file there sends nothing.
// - A file is deleted here only after the server has said that it has it, and not where it was laid anew meanwhile.
// - Each one that did not go is told once, by "Veri Gitmedi", and stays.
#pragma once

#include <deque>
#include <memory>
#include <string>

#include "desk/parts.h"
#include "platform/ftp.h"
#include "platform/signal.h"

namespace karvel {

class FtpTransfer {
 public:
  explicit FtpTransfer(const DeskParts& parts);

  // Gives the client the account of the settings while FtpVar is checked, and none otherwise.
  void TakeSettings();
  // Begins to send the file of the last search, or puts it in line behind those that are being sent. Does nothing without a server.
  void FtpGönder();
  // A file of this name has come to lie in the root of C:.
  void FileLaid(const std::string& name);

 private:
  enum class Step { None, List, Folder, Put };

  void Begin();
  void AwaitConnection();
  void LookForConnection();
  void Send();
  void Run(Step step);
  void FtpBekle(FtpState state);
  void ShowProgress(const FtpProgress& progress);
  void Sent();
  void Fail(const std::string& reason);
  void TellFailed();
  void End();
  [[nodiscard]] bool BağlantıVar() const;
  [[nodiscard]] std::string File() const { return "c:\\" + name_; }

  Screen& screen_;
  FormState& form_;
  Settings& settings_;
  const World& world_;
  std::deque<std::string> waiting_;  // names; the first is being sent
  std::string name_;                 // of the file being sent
  Step step_ = Step::None;
  bool renewed_ = false;  // the file was laid anew since it began to go
  std::int64_t toldPercent_ = 0;
  std::shared_ptr<void> timer_;  // looks for the connection
  Connections connections_;
};

}  // namespace karvel
