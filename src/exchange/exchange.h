// What the desk keeps and clears away beside its sales and accounts: every feature of this folder, built on a desk and connected to it.
//
// Constructed before the desk loads; lives no longer than the desk.
#pragma once

#include <memory>

namespace karvel {

class Desk;

class Exchange {
 public:
  explicit Exchange(Desk& desk);
  ~Exchange();
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;

 private:
  struct Features;
  std::unique_ptr<Features> features_;
};

}  // namespace karvel
