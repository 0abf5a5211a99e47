#pragma once

#include <string>

namespace karvel {

// Whether the machine has a way to the network.
class Connection {
 public:
  virtual ~Connection() = default;
  // A server that the shop works with: while it can be reached there is a way, whatever the machine's cards say. "" for none.
  virtual void WatchServer(const std::string& host, int port) = 0;
  // As it is at this moment.
  [[nodiscard]] virtual bool Up() const = 0;
};

}  // namespace karvel
