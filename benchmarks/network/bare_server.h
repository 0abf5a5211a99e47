// The rival on the server: libpq itself with statements prepared once, each answered before the next is sent, for the same rows at the same
// durability.
#pragma once

#include <libpq-fe.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/postgres_server.h"

namespace karvel::bench {

// A session. Failures are thrown as std::runtime_error.
class BareSession {
 public:
  explicit BareSession(const PostgresServer& server);

  // Runs a statement, prepared at its first use; the rows' fields, nulls as "".
  std::vector<std::vector<std::string>> Run(const std::string& sql, const std::vector<std::string>& values = {});

 private:
  struct Finish {
    void operator()(PGconn* session) const { PQfinish(session); }
  };
  std::unique_ptr<PGconn, Finish> session_;
  std::map<std::string, std::string> names_;
};

// What posting a line writes, as bare statements.
class BareServerPosting {
 public:
  BareServerPosting(BareSession& session, const std::string& firm);
  void Post(const std::string& customerCode, const std::string& stockCode, int quantity);

 private:
  [[nodiscard]] std::string Table(const std::string& schema, const std::string& table) const;

  BareSession& session_;
  const std::string firm_;
  int posted_ = 0;
};

}  // namespace karvel::bench
