#include "store/postgres/refusal.h"

#include <chrono>

#include "platform/patience.h"
#include "store/postgres/connection.h"

namespace karvel::postgres {
namespace {

constexpr std::chrono::seconds kEachMachine(4);

}  // namespace

RefusalReason AskWhyRefused(const std::string& folder) {
  Address address;
  if (const Status read = ReadAddress(folder, address); !read.Ok()) return {Refusal::NoAnswer, read.Message()};
  Patience patience(kEachMachine * address.machines.size());
  Connection session(address, "");
  const Status connected = session.Connect(patience);
  if (connected.Ok()) return {};
  const auto because = [&](Refusal refusal) { return RefusalReason{refusal, connected.Message()}; };
  if (connected.Kind() == ErrorKind::NoRights) return because(Refusal::NotLetIn);
  if (connected.Kind() == ErrorKind::Missing) return because(Refusal::NoSuchDatabase);
  return because(session.FoundOnlyStandby() ? Refusal::Standby : Refusal::NoAnswer);
}

}  // namespace karvel::postgres
