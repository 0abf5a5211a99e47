#include "store/postgres/refusal.h"

#include <libpq-fe.h>
#include <poll.h>

#include <array>
#include <chrono>
#include <memory>

#include "store/postgres/address.h"
#include "text/turkish.h"

namespace karvel::postgres {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kOneMachine = 3s;

struct Finish {
  void operator()(PGconn* session) const { PQfinish(session); }
};
using Session = std::unique_ptr<PGconn, Finish>;

// Goes on with an attempt until it is made, refused or too old. Whether it is made.
bool Attempt(PGconn* session) {
  const auto ends = Clock::now() + kOneMachine;
  for (PostgresPollingStatusType next = PGRES_POLLING_WRITING;;) {
    if (next == PGRES_POLLING_OK || next == PGRES_POLLING_FAILED) return next == PGRES_POLLING_OK;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(ends - Clock::now());
    pollfd socket{PQsocket(session), static_cast<short>(next == PGRES_POLLING_WRITING ? POLLOUT : POLLIN), 0};
    if (left <= 0ms || (poll(&socket, 1, static_cast<int>(left.count())) == 0)) return false;
    next = PQconnectPoll(session);
  }
}

// The server's words are in its own language, its five letters are not: "FATAL:  3D000: …".
Refusal KindOf(const std::string& words) {
  const auto says = [&](const char* state) { return words.find(state) != std::string::npos; };
  if (says(" 3D000: ")) return Refusal::NoSuchDatabase;
  if (says(" 28000: ") || says(" 28P01: ") || says(" 42501: ") || says("fe_sendauth: ")) return Refusal::NotLetIn;
  return says("read-only") ? Refusal::Standby : Refusal::Other;
}

RefusalReason Ask(const Host& host, const std::string& database) {
  const std::array keys{"host", "port", "dbname", "client_encoding", "target_session_attrs", static_cast<const char*>(nullptr)};
  const std::array values{host.name.c_str(), host.port.c_str(), database.c_str(), "UTF8", "read-write", static_cast<const char*>(nullptr)};
  const Session session(PQconnectStartParams(keys.data(), values.data(), 0));
  if (session == nullptr || PQstatus(session.get()) == CONNECTION_BAD)
    return {Refusal::NoAnswer, session == nullptr ? "" : PQerrorMessage(session.get())};
  PQsetErrorVerbosity(session.get(), PQERRORS_VERBOSE);
  if (Attempt(session.get())) return {};
  const std::string words = PQerrorMessage(session.get());
  // One that has said what it is has answered.
  const bool answered = PQserverVersion(session.get()) != 0 || KindOf(words) != Refusal::Other;
  return {answered ? KindOf(words) : Refusal::NoAnswer, words};
}

}  // namespace

RefusalReason AskWhyRefused(const std::string& folder) {
  Address address;
  if (const Status read = ReadAddress(folder, address); !read.Ok()) return {Refusal::NoAnswer, read.Message()};
  RefusalReason reason{Refusal::NoAnswer, ""};
  for (const Host& host : address.hosts) {
    RefusalReason asked = Ask(host, address.database);
    if (asked.refusal == Refusal::None) return asked;
    if (reason.words.empty() || reason.refusal == Refusal::NoAnswer) reason = std::move(asked);
  }
  reason.words = Trim(ReplaceAll(reason.words, "\n", " "));
  return reason;
}

}  // namespace karvel::postgres
