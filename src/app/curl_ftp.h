// The FTP client over libcurl: each command runs on a thread of its own, and what comes of it is told from the event loop.
#pragma once

#include <QObject>
#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "app/curl_session.h"
#include "platform/files.h"
#include "platform/ftp.h"

namespace karvel {

class CurlFtp : public Ftp {
 public:
  explicit CurlFtp(const Files& files, const FtpLimits& limits = {});
  // A command that runs is stopped.
  ~CurlFtp() override;
  CurlFtp(const CurlFtp&) = delete;
  CurlFtp& operator=(const CurlFtp&) = delete;

  void SetAccount(const FtpAccount& account) override;
  [[nodiscard]] const FtpAccount& Account() const override { return account_; }
  void Execute(const std::string& command) override;
  [[nodiscard]] bool StillExecuting() const override { return executing_; }
  [[nodiscard]] const FtpFailure& Failure() const override { return failure_; }

 private:
  FtpFailure Do(const FtpCommand& command, const std::string& localFile);  // on the other thread
  void Ended(const FtpFailure& failure);
  void Later(std::function<void()> work);  // from any thread: on the desk's

  const Files& files_;
  const FtpLimits limits_;
  FtpAccount account_;
  FtpFailure failure_;
  bool executing_ = false;
  std::atomic<bool> stopped_ = false;
  std::unique_ptr<CurlSession> session_;  // the running command's alone; none where the next one begins a new one
  std::thread worker_;
  QObject desk_;  // lives on the desk's thread; what was told and not yet heard goes with it
};

}  // namespace karvel
