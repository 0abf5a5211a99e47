// A session with an FTP server over libcurl: one command after the other, each of which returns when it is over. Any thread may use it, one
// at a time. What is said goes to the log, the password never.
//
// "ftps://" is never answered in the clear: the server is spoken to encrypted from the first byte where it listens so, and otherwise asked
// to encrypt before anything is told to it.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ftp.h"

namespace karvel {

struct FtpLimits {
  std::chrono::milliseconds connect{10'000};
  std::chrono::seconds silence{60};  // without a byte
};

class CurlSession {
 public:
  // Once `stopped` is true, what runs ends within a second.
  CurlSession(const FtpAccount& account, const FtpLimits& limits, const std::atomic<bool>& stopped,
              std::function<void(const FtpProgress&)> progressed);
  ~CurlSession();
  CurlSession(const CurlSession&) = delete;
  CurlSession& operator=(const CurlSession&) = delete;

  FtpFailure List();
  // From where the server begins. Where it fails, no folder is chosen.
  FtpFailure ChangeFolder(const std::string& folder);
  // Sends a file of this machine into the folder that was chosen.
  FtpFailure Put(const std::string& localFile, const std::string& name);

 private:
  // How the encryption begins.
  enum class Way { Plain, FromTheStart, WhenAsked };

  [[nodiscard]] std::vector<Way> Ways() const;
  [[nodiscard]] std::string Url(Way way, const std::string& path) const;
  // The pieces of a path, each written for a url, with "/" behind each.
  [[nodiscard]] std::string Pieces(const std::string& path) const;
  void SetCommonOptions();
  // Runs a command whose own options `prepare` sets.
  FtpFailure Perform(const std::string& path, const std::function<void()>& prepare);
  int PerformEachWay(const std::string& path, const std::function<void()>& prepare);
  [[nodiscard]] FtpFailure FailureOf(int code) const;
  [[nodiscard]] FtpFault FaultOf(int code) const;
  void Note(char direction, std::string line);

  struct Callbacks;
  const FtpAccount account_;
  const std::optional<FtpAddress> address_;
  const FtpLimits limits_;
  const std::atomic<bool>& stopped_;
  const std::function<void(const FtpProgress&)> progressed_;
  void* curl_;
  std::optional<Way> way_;                        // in which the server was spoken to
  std::string folder_;                            // that was chosen, as pieces of a url
  std::string refusal_;                           // the last reply of the command that says no
  std::string fault_;                             // libcurl's own words
  std::chrono::steady_clock::time_point toldAt_;  // the progress
};

}  // namespace karvel
