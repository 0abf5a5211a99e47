#include "app/curl_session.h"

#include <curl/curl.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QString>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "app/private_files.h"
#include "platform/log.h"
#include "text/turkish.h"

namespace karvel {
namespace {

using namespace std::chrono_literals;
constexpr auto kBetweenTellings = 250ms;
constexpr int kUsualPort = 21;
constexpr std::size_t kLongestLine = 300;

// The library is made ready once for all sessions.
void* NewHandle() {
  static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
  return ready == CURLE_OK ? curl_easy_init() : nullptr;
}

// What a server says is UTF-8, or an older server's Turkish.
std::string Readable(std::string line) {
  std::erase_if(line, [](char letter) { return static_cast<unsigned char>(letter) < ' '; });
  if (line.size() > kLongestLine) line.resize(kLongestLine);
  const bool damaged = QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size())).contains(QChar(QChar::ReplacementCharacter));
  return damaged ? FromCp1254(line) : line;
}

bool SaysNo(std::string_view reply) {
  return reply.size() > 3 && (reply[0] == '4' || reply[0] == '5') && reply[3] == ' ';
}

// Servers have no one number for a disk that is full.
bool TellsOfRoom(const std::string& reply) {
  return reply.starts_with("452") || reply.starts_with("552") || ContainsText(reply, "space") || ContainsText(reply, "quota") ||
         ContainsText(reply, "disk full");
}

// A file of this machine, open for reading as long as it goes.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path) : handle_(OpenPrivate(path, O_RDONLY)) {
    struct stat info{};
    readable_ = handle_ >= 0 && fstat(handle_, &info) == 0 && S_ISREG(info.st_mode);
    size_ = info.st_size;
  }
  ~OpenFile() {
    if (handle_ >= 0) close(handle_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  [[nodiscard]] bool IsReadable() const { return readable_; }
  [[nodiscard]] std::int64_t Size() const { return size_; }

  static std::size_t Read(char* to, std::size_t size, std::size_t count, void* file) {
    for (;;) {
      const ssize_t got = read(static_cast<OpenFile*>(file)->handle_, to, size * count);
      if (got >= 0) return static_cast<std::size_t>(got);
      if (errno != EINTR) return CURL_READFUNC_ABORT;
    }
  }

 private:
  const int handle_;
  bool readable_ = false;
  std::int64_t size_ = 0;
};

}  // namespace

// What libcurl calls back.
struct CurlSession::Callbacks {
  static int Debug(CURL*, curl_infotype kind, char* data, std::size_t size, void* session) {
    if (kind == CURLINFO_HEADER_IN) static_cast<CurlSession*>(session)->Note('<', std::string(data, size));
    if (kind == CURLINFO_HEADER_OUT) static_cast<CurlSession*>(session)->Note('>', std::string(data, size));
    return 0;
  }
  static int Progress(void* session, curl_off_t, curl_off_t, curl_off_t total, curl_off_t sent) {
    auto& self = *static_cast<CurlSession*>(session);
    if (self.stopped_) return 1;
    const auto now = std::chrono::steady_clock::now();
    if (total > 0 && now >= self.toldAt_ + kBetweenTellings) {
      self.toldAt_ = now;
      self.progressed_({sent, total});
    }
    return 0;
  }
  static std::size_t Drop(char*, std::size_t size, std::size_t count, void*) { return size * count; }
};

CurlSession::CurlSession(const FtpAccount& account, const FtpLimits& limits, const std::atomic<bool>& stopped,
                         std::function<void(const FtpProgress&)> progressed)
    : account_(account),
      address_(ReadFtpAddress(account.url)),
      limits_(limits),
      stopped_(stopped),
      progressed_(std::move(progressed)),
      curl_(NewHandle()) {}

CurlSession::~CurlSession() {
  if (curl_ != nullptr) curl_easy_cleanup(curl_);
}

FtpFailure CurlSession::List() {
  return Perform("", [] {});
}

FtpFailure CurlSession::ChangeFolder(const std::string& folder) {
  folder_ = Pieces(folder);
  FtpFailure failure = Perform(folder_, [this] { curl_easy_setopt(curl_, CURLOPT_NOBODY, 1L); });
  if (failure.fault != FtpFault::None) folder_.clear();
  return failure;
}

FtpFailure CurlSession::Put(const std::string& localFile, const std::string& name) {
  OpenFile file(localFile);
  if (!file.IsReadable()) return {FtpFault::File, ""};
  const std::string pieces = Pieces(name);
  return Perform(folder_ + pieces.substr(0, pieces.size() - 1), [&] {
    curl_easy_setopt(curl_, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(curl_, CURLOPT_READFUNCTION, &OpenFile::Read);
    curl_easy_setopt(curl_, CURLOPT_READDATA, &file);
    curl_easy_setopt(curl_, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(file.Size()));
  });
}

std::string CurlSession::Pieces(const std::string& path) const {
  std::string pieces;
  for (std::string_view rest = path; !rest.empty();) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    if (end > 0) {
      const std::string piece(rest.substr(0, end));
      char* const written = curl_easy_escape(curl_, piece.c_str(), static_cast<int>(piece.size()));
      if (written != nullptr) pieces += std::string(written) + "/";
      curl_free(written);
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return pieces;
}

std::vector<CurlSession::Way> CurlSession::Ways() const {
  if (way_) return {*way_};
  if (!address_->encrypted) return {Way::Plain};
  if (address_->port == kUsualPort) return {Way::WhenAsked};
  return {Way::FromTheStart, Way::WhenAsked};
}

std::string CurlSession::Url(Way way, const std::string& path) const {
  const int port = way == Way::WhenAsked && address_->port == 0 ? kUsualPort : address_->PortToReach();
  return (way == Way::FromTheStart ? "ftps://" : "ftp://") + address_->host + ":" + std::to_string(port) + "/" + Pieces(address_->folder) +
         path;
}

void CurlSession::SetCommonOptions() {
  curl_easy_reset(curl_);  // the connection stays
  curl_easy_setopt(curl_, CURLOPT_PROTOCOLS_STR, "ftp,ftps");
  curl_easy_setopt(curl_, CURLOPT_PROXY, "");
  curl_easy_setopt(curl_, CURLOPT_USERNAME, account_.user.c_str());
  curl_easy_setopt(curl_, CURLOPT_PASSWORD, account_.password.c_str());
  curl_easy_setopt(curl_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(curl_, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits_.connect.count()));
  curl_easy_setopt(curl_, CURLOPT_SERVER_RESPONSE_TIMEOUT, static_cast<long>(limits_.silence.count()));
  curl_easy_setopt(curl_, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(curl_, CURLOPT_LOW_SPEED_TIME, static_cast<long>(limits_.silence.count()));
  // A name with dots in it stays a name, and a folder is gone to in one step, as the command says.
  curl_easy_setopt(curl_, CURLOPT_PATH_AS_IS, 1L);
  curl_easy_setopt(curl_, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_SINGLECWD));
  if (!account_.certificate.empty()) curl_easy_setopt(curl_, CURLOPT_CAINFO, account_.certificate.c_str());
  curl_easy_setopt(curl_, CURLOPT_WRITEFUNCTION, &Callbacks::Drop);
  curl_easy_setopt(curl_, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(curl_, CURLOPT_XFERINFOFUNCTION, &Callbacks::Progress);
  curl_easy_setopt(curl_, CURLOPT_XFERINFODATA, this);
  curl_easy_setopt(curl_, CURLOPT_VERBOSE, 1L);
  curl_easy_setopt(curl_, CURLOPT_DEBUGFUNCTION, &Callbacks::Debug);
  curl_easy_setopt(curl_, CURLOPT_DEBUGDATA, this);
}

int CurlSession::PerformEachWay(const std::string& path, const std::function<void()>& prepare) {
  int code = CURLE_FAILED_INIT;
  for (const Way way : Ways()) {
    std::array<char, CURL_ERROR_SIZE> fault{};
    SetCommonOptions();
    prepare();
    curl_easy_setopt(curl_, CURLOPT_ERRORBUFFER, fault.data());
    curl_easy_setopt(curl_, CURLOPT_URL, Url(way, path).c_str());
    curl_easy_setopt(curl_, CURLOPT_USE_SSL, static_cast<long>(way == Way::Plain ? CURLUSESSL_NONE : CURLUSESSL_ALL));
    code = curl_easy_perform(curl_);
    curl_easy_setopt(curl_, CURLOPT_ERRORBUFFER, nullptr);
    fault_ = fault.data();
    // Only where nobody listens in this way is the next one tried: a certificate that isn't believed ends it.
    if (code == CURLE_SSL_CONNECT_ERROR || code == CURLE_COULDNT_CONNECT || code == CURLE_OPERATION_TIMEDOUT) continue;
    way_ = way;
    break;
  }
  return code;
}

FtpFailure CurlSession::Perform(const std::string& path, const std::function<void()>& prepare) {
  if (!address_ || curl_ == nullptr) return {FtpFault::Address, ""};
  refusal_.clear();
  toldAt_ = {};
  const int code = PerformEachWay(path, prepare);
  FtpFailure failure = FailureOf(code);
  if (failure.fault != FtpFault::None) Note('!', fault_.empty() ? curl_easy_strerror(static_cast<CURLcode>(code)) : fault_);
  return failure;
}

FtpFailure CurlSession::FailureOf(int code) const {
  const FtpFault fault = FaultOf(code);
  const bool byServer = fault == FtpFault::Login || fault == FtpFault::Folder || fault == FtpFault::Refused || fault == FtpFault::NoRoom;
  return {fault, byServer ? refusal_ : ""};
}

FtpFault CurlSession::FaultOf(int code) const {
  switch (code) {
    case CURLE_OK:
      return FtpFault::None;
    case CURLE_URL_MALFORMAT:
    case CURLE_UNSUPPORTED_PROTOCOL:
      return FtpFault::Address;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_CONNECT:
      return FtpFault::Unreachable;
    case CURLE_LOGIN_DENIED:
      return FtpFault::Login;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_SSL_CIPHER:
    case CURLE_USE_SSL_FAILED:
      return FtpFault::Encryption;
    case CURLE_REMOTE_ACCESS_DENIED:
      return FtpFault::Folder;
    case CURLE_REMOTE_DISK_FULL:
      return FtpFault::NoRoom;
    case CURLE_OPERATION_TIMEDOUT:
      return FtpFault::Silent;
    case CURLE_ABORTED_BY_CALLBACK:
      return FtpFault::Stopped;
    case CURLE_READ_ERROR:
      return FtpFault::File;
    default:
      if (refusal_.empty()) return FtpFault::Broken;
      return TellsOfRoom(refusal_) ? FtpFault::NoRoom : FtpFault::Refused;
  }
}

void CurlSession::Note(char direction, std::string line) {
  line = Readable(std::move(line));
  if (direction == '>' && line.starts_with("PASS ")) line = "PASS ***";
  if (!account_.password.empty()) line = ReplaceAll(line, account_.password, "***");
  if (direction == '<' && SaysNo(line)) refusal_ = line;
  Log(std::string("ftp ") + direction + " " + line);
}

}  // namespace karvel
