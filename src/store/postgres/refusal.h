// Why no machine of an address lets anybody in, for a program that tells it in plain words. The engine only knows that it has no session.
#pragma once

#include <string>

namespace karvel::postgres {

enum class Refusal {
  None,            // one lets in, and takes writes
  NoAnswer,        // off, cut off, another port, or no name that is known
  NotLetIn,        // a user or password that it doesn't know, or a network that it isn't open for
  NoSuchDatabase,  // the shop's has not been made
  Standby,         // it takes no writes
};

struct RefusalReason {
  Refusal refusal = Refusal::None;
  std::string words;  // the server's or libpq's own, in one line
};

// Tries each machine once, for a few seconds at most. The reason is that of the one that came furthest. NoAnswer for what is no address.
RefusalReason AskWhyRefused(const std::string& folder);

}  // namespace karvel::postgres
