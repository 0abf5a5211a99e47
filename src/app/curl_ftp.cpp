#include "app/curl_ftp.h"

#include <utility>

namespace karvel {

CurlFtp::CurlFtp(const Files& files, const FtpLimits& limits) : files_(files), limits_(limits) {}

CurlFtp::~CurlFtp() {
  stopped_ = true;
  if (worker_.joinable()) worker_.join();
}

void CurlFtp::SetAccount(const FtpAccount& account) {
  account_ = account;
  if (!executing_) session_ = nullptr;
}

void CurlFtp::Later(std::function<void()> work) {
  QMetaObject::invokeMethod(&desk_, std::move(work), Qt::QueuedConnection);
}

void CurlFtp::Execute(const std::string& text) {
  if (executing_) return;
  executing_ = true;
  failure_ = {};
  stateChanged(FtpState::Requesting);
  const auto command = ReadFtpCommand(text);
  if (!command) {
    Later([this] { Ended({FtpFault::Address, ""}); });
    return;
  }
  if (worker_.joinable()) worker_.join();
  if (!session_) {
    session_ = std::make_unique<CurlSession>(account_, limits_, stopped_,
                                             [this](const FtpProgress& progress) { Later([this, progress] { progressed(progress); }); });
  }
  worker_ = std::thread([this, command = *command, localFile = files_.RealPath(command->local)] {
    const FtpFailure failure = Do(command, localFile);
    // A file that has gone ends the session, and so does a failure: whatever comes next begins anew.
    if (command.kind == FtpCommand::Kind::Put || failure.fault != FtpFault::None) session_ = nullptr;
    Later([this, failure] { Ended(failure); });
  });
}

FtpFailure CurlFtp::Do(const FtpCommand& command, const std::string& localFile) {
  switch (command.kind) {
    case FtpCommand::Kind::List:
      return session_->List();
    case FtpCommand::Kind::ChangeFolder:
      return session_->ChangeFolder(command.remote);
    case FtpCommand::Kind::Put:
      return session_->Put(localFile, command.remote);
  }
  return {FtpFault::Address, ""};
}

void CurlFtp::Ended(const FtpFailure& failure) {
  executing_ = false;
  failure_ = failure;
  stateChanged(failure.fault == FtpFault::None ? FtpState::Completed : FtpState::Error);
}

}  // namespace karvel
