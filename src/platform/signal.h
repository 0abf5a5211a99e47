// One event of the desk and those who listen. Handlers run in the order in which they connected, on the caller's thread.
//
// What stays true:
// - A handler is connected for as long as the connection that Connect gave lives. From then on it is not called, not even by a run that
//   is under way.
// - Signal and connection may end in either order.
// - A handler may connect others, end connections (its own too) or raise the same signal again; one that connects during a run is first
//   called by the next.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace karvel {

// A handler's place among those who listen to a signal: dropped, it is heard no more.
class [[nodiscard]] ScopedConnection {
 public:
  ScopedConnection() = default;
  explicit ScopedConnection(std::shared_ptr<bool> heard) : heard_(std::move(heard)) {}
  ~ScopedConnection() { End(); }
  ScopedConnection(ScopedConnection&&) noexcept = default;
  ScopedConnection& operator=(ScopedConnection&& other) noexcept {
    End();
    heard_ = std::move(other.heard_);
    return *this;
  }
  void End() {
    if (heard_) *heard_ = false;
    heard_.reset();
  }

 private:
  std::shared_ptr<bool> heard_;
};

// The connections of one owner, as a member of his: they end with him. As the last member it ends them before anything that they use.
class Connections {
 public:
  Connections& operator+=(ScopedConnection connection) {
    kept_.push_back(std::move(connection));
    return *this;
  }

 private:
  std::vector<ScopedConnection> kept_;
};

template <typename... Args>
class Signal {
 public:
  using Handler = std::function<void(Args...)>;

  [[nodiscard]] ScopedConnection Connect(Handler handler) {
    if (running_ == 0) std::erase_if(places_, [](const auto& place) { return !place->heard; });
    places_.push_back(std::make_shared<Place>(std::move(handler)));
    // One count for both: the connection turns off the very flag that stands in the place.
    return ScopedConnection(std::shared_ptr<bool>(places_.back(), &places_.back()->heard));
  }
  // Whether anyone listens now.
  [[nodiscard]] bool IsHeard() const {
    return std::ranges::any_of(places_, [](const auto& place) { return place->heard; });
  }
  void operator()(Args... args) const {
    const Running running(running_);
    const std::size_t count = places_.size();
    for (std::size_t i = 0; i < count; ++i) {
      const auto place = places_[i];  // a handler that ends its own connection is still whole until it returns
      if (place->heard) place->handler(args...);
    }
  }

 private:
  struct Place {
    explicit Place(Handler run) : handler(std::move(run)) {}
    Handler handler;
    bool heard = true;
  };
  struct Running {
    explicit Running(int& counted) : count(counted) { ++count; }
    ~Running() { --count; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    int& count;
  };

  std::vector<std::shared_ptr<Place>> places_;
  mutable int running_ = 0;
};

}  // namespace karvel
