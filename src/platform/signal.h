// One event of the desk and those who listen. Handlers run in the order in which they connected, on the caller's thread.
// There is no way to disconnect: what a handler refers to lives as long as the signal is raised.
// A handler may connect others or raise the same signal again; one connected during a run is first called by the next.
#pragma once

#include <functional>
#include <vector>

namespace karvel {

template <typename... Args>
class Signal {
 public:
  void Connect(std::function<void(Args...)> handler) { handlers_.push_back(std::move(handler)); }
  void operator()(Args... args) const {
    const std::size_t count = handlers_.size();
    for (std::size_t i = 0; i < count; ++i) {
      const auto handler = handlers_[i];
      handler(args...);
    }
  }

 private:
  std::vector<std::function<void(Args...)>> handlers_;
};

}  // namespace karvel
