// The sample shops as firms on a PostgreSQL of the measurements' own, on this machine's disk, durable as in a shop.
#pragma once

#include <memory>
#include <string>

#include "bench/shops.h"
#include "store/engine.h"
#include "store/postgres/postgres_engine.h"
#include "tests/support/loopback_proxy.h"
#include "tests/support/postgres_server.h"

namespace karvel::bench {

class ServerShops {
 public:
  // Throws std::runtime_error where no server can be started.
  ServerShops();

  // A firm with the rows of a shop, made anew: its data folder as a terminal names it.
  std::string Firm(const std::string& home, const std::string& firm);
  // The same firm behind the slow line.
  [[nodiscard]] std::string Behind(const LoopbackProxy& line, const std::string& firm) const;
  // Behind the loading of all firms: the server has nothing left to do for them that would fall into a measurement.
  void Settle() const;
  [[nodiscard]] PostgresServer& Server() { return server_; }

 private:
  PostgresServer server_;
};

// A network engine for a desk that doesn't know of it: whatever folder it opens, it is the firm's.
std::unique_ptr<Engine> EngineOfFirm(const std::string& networkFolder, PostgresEngine*& engine);

}  // namespace karvel::bench
