// A network between a desk and its PostgreSQL that fails when told: a port of this machine whose connections are handed on to the server's,
// by a thread of its own. It reads what passes, so neither end may encrypt. Every call may come from any thread and holds for what passes
// from then on.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace karvel {

// The server behind: a folder that begins with "/" holds its socket, else 127.0.0.1's port.
struct ProxyTarget {
  std::string host;
  int port = 0;
};

enum class CommitLoss { kCommand, kAnswer };

class LoopbackProxy {
 public:
  explicit LoopbackProxy(ProxyTarget target);
  ~LoopbackProxy();
  LoopbackProxy(const LoopbackProxy&) = delete;
  LoopbackProxy& operator=(const LoopbackProxy&) = delete;

  [[nodiscard]] int Port() const { return port_; }
  // Connections that are handed on just now.
  [[nodiscard]] int Connections();

  // All of them end, as by a pulled cable; new ones are taken.
  void CutAll();
  // New connections end at once; those that stand stay.
  void Refuse(bool refuses);
  // What passes arrives so much later, in each direction; how much may pass meanwhile isn't bounded.
  void Delay(std::chrono::milliseconds eachWay);
  // Further connections go there.
  void AimAt(ProxyTarget target);
  // The next COMMIT of any connection is cut off: before the server has seen it, or when it has done it and its answer, with all that the
  // server says from the COMMIT on, hasn't reached the desk. Asked for once, it happens once.
  void LoseNextCommit(CommitLoss what);
  // Whether that has happened since it was asked for.
  [[nodiscard]] bool LostCommit();

 private:
  class Passage;
  void Run();
  void TakeNew();
  void Change(const std::function<void()>& change);
  [[nodiscard]] int Timeout() const;

  std::mutex mutex_;
  ProxyTarget target_;
  std::vector<std::unique_ptr<Passage>> passages_;
  std::chrono::milliseconds delay_{0};
  bool refuses_ = false;
  bool ends_ = false;
  std::optional<CommitLoss> loss_;
  bool lost_ = false;
  int listener_ = -1;
  int wake_[2] = {-1, -1};
  int port_ = 0;
  std::thread thread_;
};

}  // namespace karvel
