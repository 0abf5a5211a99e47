// The client that takes files to a server: one account, one command after the other, each answered from the event loop.
//
// It knows three commands, as texts:
//   DIR                     lists the folder in which the server begins
//   CD inetpub/01/          goes to a folder, from where the server begins
//   PUT "c:\01.csv" 01.csv  sends a file of this machine, named in quotes by the desk's own path, under the other name
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/signal.h"

namespace karvel {

// Where the server is, and as whom the shop comes to it. No url: no server.
struct FtpAccount {
  std::string url;  // "server", "server:port", "ftp://…" or "ftps://…", as typed
  std::string user, password;
  std::string certificate;  // a file of this machine with the certificates that are believed; "": the system's
};

struct FtpAddress {
  std::string host;
  int port = 0;            // 0: the usual one
  bool encrypted = false;  // nothing is ever sent in the clear
  std::string folder;      // where the server begins for us, without "/" at its ends
  // The port, or the usual one.
  [[nodiscard]] int PortToReach() const { return port != 0 ? port : encrypted ? 990 : 21; }
};

// Nothing for what is no address of such a server. A user or password in it is passed over: they are asked for apart.
std::optional<FtpAddress> ReadFtpAddress(std::string_view url);

// An address as it may be shown, logged or kept elsewhere: without a password that somebody typed into it.
std::string WithoutPassword(const std::string& url);

struct FtpCommand {
  enum class Kind { List, ChangeFolder, Put };
  Kind kind = Kind::List;
  std::string remote;  // the folder, or the name over there
  std::string local;   // of a put
};

// Nothing for any other text.
std::optional<FtpCommand> ReadFtpCommand(std::string_view text);

// How a command stands, in the numbers of the states that InetDurum keeps.
enum class FtpState { Requesting = 5, Error = 11, Completed = 12 };

enum class FtpFault {
  None,
  Address,      // the url or the command can't be understood
  Unreachable,  // no such server, or nobody listens there
  Login,        // user or password refused
  Encryption,   // no safe connection, or a certificate that isn't believed
  Folder,
  Refused,
  NoRoom,
  Silent,   // the server said nothing for too long
  Broken,   // the connection broke
  File,     // the file here can't be read
  Stopped,  // by ourselves
};

struct FtpFailure {
  FtpFault fault = FtpFault::None;
  std::string reply;  // the server's own words, if it said any
};

struct FtpProgress {
  std::int64_t sent = 0, total = 0;
};

class Ftp {
 public:
  virtual ~Ftp() = default;
  // For the commands that begin from now on; one that runs goes on as it began.
  virtual void SetAccount(const FtpAccount& account) = 0;
  [[nodiscard]] virtual const FtpAccount& Account() const = 0;
  // Begins a command and returns. stateChanged tells when it is over. None may be running.
  virtual void Execute(const std::string& command) = 0;
  [[nodiscard]] virtual bool StillExecuting() const = 0;
  // Why the last command failed; None where it didn't.
  [[nodiscard]] virtual const FtpFailure& Failure() const = 0;

  // Both are raised on the desk's thread, from the event loop.
  Signal<FtpState> stateChanged;
  Signal<const FtpProgress&> progressed;
};

}  // namespace karvel
