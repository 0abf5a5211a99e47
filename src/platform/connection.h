#pragma once

#include <string>
#include <vector>

namespace karvel {

// Where a server listens.
struct ServerPlace {
  std::string host;
  int port = 0;
};

// Whether the machine has a way to the network.
class Connection {
 public:
  virtual ~Connection() = default;
  // The servers that the shop works with, any of which will do: while one can be reached there is a way, whatever the machine's cards say.
  virtual void WatchServers(const std::vector<ServerPlace>& servers) = 0;
  // As it is at this moment.
  [[nodiscard]] virtual bool Up() const = 0;
  // Whether somebody listened at one of those servers when it was last looked; asking looks again, and never waits.
  [[nodiscard]] virtual bool ServerAnswers() const = 0;
};

}  // namespace karvel
