#include "tests/support/loopback_proxy.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <deque>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace karvel {

namespace {

using Clock = std::chrono::steady_clock;

bool HoldsCommit(std::string_view text) {
  constexpr std::string_view kWord = "commit";
  return !std::ranges::search(text, kWord, [](char left, char right) {
            return std::tolower(static_cast<unsigned char>(left)) == right;
          }).empty();
}

uint32_t LengthAt(std::string_view bytes) {
  uint32_t length = 0;
  std::memcpy(&length, bytes.data(), sizeof length);
  return ntohl(length);
}

// Cuts a stream of the server's protocol into messages: a type, the length of what follows with its own four bytes, the body.
class Messages {
 public:
  void Add(std::string_view bytes) { rest_ += bytes; }
  // The next whole message as it came; empty while there is none. What a client says first has no type.
  std::string Next(bool typed = true) {
    const size_t head = typed ? 1 : 0;
    if (rest_.size() < head + 4) return "";
    return Take(head + LengthAt(std::string_view(rest_).substr(head)));
  }
  // So many bytes; empty while they aren't there.
  std::string Take(size_t size) {
    if (rest_.size() < size) return "";
    std::string bytes = rest_.substr(0, size);
    rest_.erase(0, size);
    return bytes;
  }

 private:
  std::string rest_;
};

// Asked before anything else; the server answers by one letter, and the client then begins again.
bool AsksForEncryption(std::string_view message) {
  constexpr uint32_t kTls = 80877103;
  constexpr uint32_t kGss = 80877104;
  const uint32_t code = message.size() == 8 ? LengthAt(message.substr(4)) : 0;
  return code == kTls || code == kGss;
}

// Bytes on their way, each with the moment at which it arrives.
class Wire {
 public:
  void Put(std::string bytes, Clock::time_point due) { parts_.push_back({due, std::move(bytes)}); }
  [[nodiscard]] bool Empty() const { return parts_.empty(); }
  [[nodiscard]] std::optional<Clock::time_point> Due() const { return parts_.empty() ? std::nullopt : std::optional(parts_.front().due); }
  [[nodiscard]] bool Arrives(Clock::time_point now) const { return !parts_.empty() && parts_.front().due <= now; }
  std::string Take() {
    std::string bytes = std::move(parts_.front().bytes);
    parts_.pop_front();
    return bytes;
  }

 private:
  struct Part {
    Clock::time_point due;
    std::string bytes;
  };
  std::deque<Part> parts_;
};

// A socket that is owned; what it can't take yet waits in `Write`.
class Line {
 public:
  explicit Line(int handle) : handle_(handle) {
    fcntl(handle_, F_SETFL, O_NONBLOCK);
    const int atOnce = 1;
    setsockopt(handle_, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
  }
  // A child of the test program may hold the socket too; the other end hears of the end all the same.
  ~Line() {
    shutdown(handle_, SHUT_RDWR);
    close(handle_);
  }
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;

  [[nodiscard]] int Handle() const { return handle_; }
  [[nodiscard]] bool Waits() const { return !waits_.empty(); }
  // False when the other end has gone.
  bool Write(std::string_view bytes) {
    waits_ += bytes;
    while (!waits_.empty()) {
      const ssize_t count = send(handle_, waits_.data(), waits_.size(), MSG_NOSIGNAL);
      if (count < 0) return errno == EAGAIN || errno == EINTR;
      waits_.erase(0, static_cast<size_t>(count));
    }
    return true;
  }
  // Nothing while there is nothing to read; empty when the other end has gone.
  std::optional<std::string> Read() const {
    std::string bytes(65536, '\0');
    const ssize_t count = recv(handle_, bytes.data(), bytes.size(), 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return std::nullopt;
    bytes.resize(static_cast<size_t>(std::max<ssize_t>(count, 0)));
    return bytes;
  }

 private:
  const int handle_;
  std::string waits_;
};

int ConnectTo(const ProxyTarget& target) {
  if (target.host.starts_with("/")) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = target.host + "/.s.PGSQL." + std::to_string(target.port);
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int handle = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return handle;
    close(handle);
    return -1;
  }
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<uint16_t>(target.port));
  const int handle = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return handle;
  close(handle);
  return -1;
}

}  // namespace

// One connection: the desk's end, the server's, and what is on its way between them.
class LoopbackProxy::Passage {
 public:
  Passage(int client, int server) : client_(client), server_(server) {}

  [[nodiscard]] bool Over() const { return over_; }

  void Watch(std::vector<pollfd>& watched) const {
    for (const Line* const line : {&client_, &server_}) {
      const int events = (line->Waits() ? POLLOUT : 0) | (ends_ ? 0 : POLLIN);
      watched.push_back({events != 0 ? line->Handle() : -1, static_cast<short>(events), 0});
    }
  }
  // When the next bytes arrive.
  [[nodiscard]] std::optional<Clock::time_point> Due() const {
    const auto first = toServer_.Due();
    const auto second = toClient_.Due();
    if (!first || !second) return first ? first : second;
    return std::min(*first, *second);
  }

  void Pass(LoopbackProxy& proxy) {
    const Clock::time_point now = Clock::now();
    if (!ends_) Hear(client_, [&](const std::string& bytes) { toServer_.Put(bytes, now + proxy.delay_); });
    if (!ends_) Hear(server_, [&](const std::string& bytes) { TakeAnswer(bytes, now + proxy.delay_); });
    while (!over_ && toServer_.Arrives(now)) HandToServer(toServer_.Take(), proxy);
    while (!over_ && toClient_.Arrives(now)) over_ = !client_.Write(toClient_.Take());
    if (!client_.Write("") || !server_.Write("")) over_ = true;
    // Whoever has gone is missed only after the last word has arrived.
    if (ends_ && toClient_.Empty() && toServer_.Empty() && !client_.Waits()) over_ = true;
  }

 private:
  template <typename Take>
  void Hear(const Line& line, Take take) {
    const std::optional<std::string> bytes = line.Read();
    if (!bytes) return;
    if (bytes->empty()) {
      ends_ = true;
    } else {
      take(*bytes);
    }
  }

  void HandToServer(const std::string& bytes, LoopbackProxy& proxy) {
    said_.Add(bytes);
    for (std::string message = said_.Next(typed_); !message.empty(); message = said_.Next(typed_)) {
      const bool commits = typed_ && IsCommit(message);
      if (!typed_ && AsksForEncryption(message)) {
        ++letters_;
      } else {
        typed_ = true;
      }
      if (commits && proxy.loss_) {
        proxy.lost_ = true;
        const CommitLoss loss = *std::exchange(proxy.loss_, std::nullopt);
        if (loss == CommitLoss::kCommand) over_ = true;
        losesAnswer_ = true;
      }
      if (over_ || !server_.Write(message)) {
        over_ = true;
        return;
      }
    }
  }

  // A statement that is kept under a name is a commit wherever it is bound.
  bool IsCommit(const std::string& message) {
    constexpr size_t kHead = 5;
    const std::string first(message.c_str() + kHead);
    const std::string rest = message.substr(std::min(message.size(), kHead + first.size() + 1));
    switch (message.front()) {
      case 'Q':
        return HoldsCommit(first);
      case 'P':
        if (HoldsCommit(rest)) named_.insert(first);
        if (!HoldsCommit(rest)) named_.erase(first);
        return false;
      case 'B':
        return named_.contains(rest.c_str());
      default:
        return false;
    }
  }

  // The server's words from the commit on go nowhere, and the connection ends when it has said what became of it.
  void TakeAnswer(const std::string& bytes, Clock::time_point due) {
    if (!losesAnswer_) toClient_.Put(bytes, due);
    answers_.Add(bytes);
    while (letters_ > 0 && !answers_.Take(1).empty()) --letters_;
    for (std::string message = answers_.Next(); !message.empty(); message = answers_.Next()) {
      const std::string_view body = std::string_view(message).substr(5);
      const bool told = message.front() == 'E' || (message.front() == 'C' && (body.starts_with("COMMIT") || body.starts_with("ROLLBACK")));
      if (losesAnswer_ && told) ends_ = true;
    }
  }

  Line client_;
  Line server_;
  Wire toServer_;
  Wire toClient_;
  Messages said_;
  Messages answers_;
  // Statements by their names, the nameless among them, that commit.
  std::set<std::string, std::less<>> named_;
  // Whether the client's messages have types by now, and how many letters the server owes.
  bool typed_ = false;
  int letters_ = 0;
  bool losesAnswer_ = false;
  bool ends_ = false;
  bool over_ = false;
};

LoopbackProxy::LoopbackProxy(ProxyTarget target) : target_(std::move(target)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const place = reinterpret_cast<sockaddr*>(&address);
  listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  const bool listens = bind(listener_, place, size) == 0 && listen(listener_, SOMAXCONN) == 0 && getsockname(listener_, place, &size) == 0;
  if (!listens || pipe2(wake_, O_CLOEXEC | O_NONBLOCK) != 0) throw std::runtime_error("no port for the proxy");
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Run(); });
}

LoopbackProxy::~LoopbackProxy() {
  Change([this] { ends_ = true; });
  thread_.join();
  for (const int handle : {listener_, wake_[0], wake_[1]}) close(handle);
}

int LoopbackProxy::Connections() {
  const std::lock_guard lock(mutex_);
  return static_cast<int>(passages_.size());
}

void LoopbackProxy::CutAll() {
  Change([this] { passages_.clear(); });
}

void LoopbackProxy::Refuse(bool refuses) {
  Change([&] { refuses_ = refuses; });
}

void LoopbackProxy::Delay(std::chrono::milliseconds eachWay) {
  Change([&] { delay_ = eachWay; });
}

void LoopbackProxy::AimAt(ProxyTarget target) {
  Change([&] { target_ = std::move(target); });
}

void LoopbackProxy::LoseNextCommit(CommitLoss what) {
  Change([&] {
    loss_ = what;
    lost_ = false;
  });
}

bool LoopbackProxy::LostCommit() {
  const std::lock_guard lock(mutex_);
  return lost_;
}

void LoopbackProxy::Change(const std::function<void()>& change) {
  {
    const std::lock_guard lock(mutex_);
    change();
  }
  const char sign = '1';
  // A full pipe wakes as well.
  [[maybe_unused]] const ssize_t written = write(wake_[1], &sign, 1);
}

void LoopbackProxy::Run() {
  std::unique_lock lock(mutex_);
  while (!ends_) {
    std::vector<pollfd> watched{{wake_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
    for (const auto& passage : passages_) passage->Watch(watched);
    const int timeout = Timeout();
    lock.unlock();
    poll(watched.data(), watched.size(), timeout);
    char signs[64];
    while (read(wake_[0], signs, sizeof signs) > 0) continue;
    lock.lock();
    TakeNew();
    for (const auto& passage : passages_) passage->Pass(*this);
    std::erase_if(passages_, [](const auto& passage) { return passage->Over(); });
  }
  passages_.clear();
}

void LoopbackProxy::TakeNew() {
  for (int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC); client >= 0;
       client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC)) {
    const int server = refuses_ ? -1 : ConnectTo(target_);
    if (server < 0) {
      close(client);
    } else {
      passages_.push_back(std::make_unique<Passage>(client, server));
    }
  }
}

// Until the next bytes arrive, in milliseconds; -1 where none are on their way.
int LoopbackProxy::Timeout() const {
  std::optional<Clock::time_point> next;
  for (const auto& passage : passages_) {
    const auto due = passage->Due();
    if (due && (!next || *due < *next)) next = due;
  }
  if (!next) return -1;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*next - Clock::now());
  return static_cast<int>(std::max<int64_t>(left.count(), 0));
}

}  // namespace karvel
