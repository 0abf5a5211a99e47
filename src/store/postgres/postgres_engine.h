// The stores of a firm on a main machine's PostgreSQL (version 15 or later), for several terminals at once.
//
// What stays true beside what engine.h promises:
// - All of a firm's transactions stand in line at one lock of the server's, so no two can lock each other out.
// - Writes go out without a wait for their answers; where one fails, the transaction is over, as after any fault of the store.
// - A server that went away is looked for again at each read and each Begin. What was begun there is undone.
// - A commit whose answer was lost is looked up, on whichever machine takes writes by then.
// The scratch file's tables are the session's own: what stands in them goes with it.
// User, password and the demand for an encrypted line are libpq's matter: environment, service file, ~/.pgpass.
#pragma once

#include <memory>
#include <string>

#include "store/engine.h"
#include "store/store_file_writer.h"

namespace karvel {

struct PostgresOptions {
  StoreFileMaker makeFile;  // for copies
  bool makesFirms = true;   // without: a firm that isn't there is Missing, and nothing is made
  int patienceMs = 10000;   // how long it waits for other terminals
  int answerMs = 30000;     // how long the server may take for one answer before the line counts as dead
};

// What the engine has cost so far.
struct PostgresCosts {
  std::int64_t roundTrips = 0;  // answers that were waited for
};

class PostgresEngine : public Engine {
 public:
  [[nodiscard]] virtual PostgresCosts Costs() const = 0;
};

// Its Open takes a share's data folder (platform/share.h) as a terminal reads it, see postgres/address.h.
std::unique_ptr<PostgresEngine> MakePostgresEngine(const PostgresOptions& options);

}  // namespace karvel
